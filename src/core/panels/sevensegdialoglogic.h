#pragma once

#include "portlist.h"

#include <QList>
#include <QStringList>

// "7Segment-LED Setting": the display type of a one-digit or a four-digit display. The
// port is shown and chosen but, as always, not written into the line.
class CSevenSegDialogLogic
{
  public:
    struct CType
    {
        int TextId;
        int Mode;
    };

    // currentMode is the panel's display type (1 to 6, 0 for none).
    CSevenSegDialogLogic(const QStringList& tokens, const CPortList& ports, int currentMode);

    // The list for the line's keyword: digit, segment, bit; empty for another keyword.
    const QList<CType>& Types() const { return m_types; }
    int GetMode() const { return m_mode; }
    void SetMode(int mode);
    int GetPortIndex() const { return m_portIndex; }
    void SetPortIndex(int index) { m_portIndex = index; }

    bool IsOkEnabled() const { return m_mode != 0; }
    // Keyword and ";" type token of the mode; empty while no type is chosen.
    QStringList Tokens() const;

  private:
    QList<CType> m_types;
    int m_mode = 0;
    int m_portIndex = -1;
};
