#pragma once

#include "gridpos.h"
#include "panelkind.h"
#include "panelstatesource.h"

#include <QHash>
#include <QKeyEvent>
#include <QWidget>

class CLayoutView;
class CPanelGrid;
class CSimMap;
class CSimSignals;

// The running board drawn over the layout view while a simulation runs: nets that are on,
// lamps that are lit, inputs that are pressed or switched on, timers' elapsed times,
// counters' values, motors' positions and the display's text, all from the state source.
// It lies over the whole view and takes the mouse, so the layout cannot be edited: a click
// on a key presses it for as long as the button is held, a click on a switch turns it over,
// and a click on an analog input offers a slider.
class CSimOverlay : public QWidget
{
    Q_OBJECT

  public:
    CSimOverlay(CLayoutView& view, const CPanelGrid& grid, const CSimSignals& signals,
                const CSimMap& map, IPanelStateSource& source);

    // Takes the newest frame from the source and repaints.
    void Refresh();
    const CPanelStateFrame& Frame() const { return m_frame; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    // Keys never reach the view beneath: the layout is not edited while it runs.
    void keyPressEvent(QKeyEvent* event) override { event->accept(); }
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // An input or output panel with one pin: where it is and what its pin means.
    struct CPanelPin
    {
        CGridPos Pos;
        int Pin = -1;
        int Channel = -1;
        bool ActiveLow = false;
        bool Input = false;
        bool Toggle = false; // a switch keeps its level; a key springs back
        EPanelKind Kind = EPanelKind::None;
        int Reading = 0;
    };

    const CPanelPin* PinAt(QPoint point) const;
    void OfferSlider(CPanelPin& pin, QPoint globalPos);

    CLayoutView& m_view;
    const CPanelGrid& m_grid;
    const CSimMap& m_map;
    IPanelStateSource& m_source;
    CPanelStateFrame m_frame;
    QHash<int, CPanelPin> m_pins; // by the panel's grid position, column * 100 + row
    QHash<int, bool> m_switched;  // by pin: a switch turned on
    int m_pressed = -1;           // the key held down, by pin
};
