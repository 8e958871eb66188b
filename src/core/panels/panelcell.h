#pragma once

#include "panel.h"
#include "panelimage.h"

#include <QString>

#include <memory>

// One occupied grid position. It owns its panel and the panel's picture; a cell without a
// panel is a continuation cell of the multi-row panel above it.
class CPanelCell
{
  public:
    explicit CPanelCell(const QString& line);
    // A cell for a panel already made (and prepared) by the caller.
    explicit CPanelCell(std::unique_ptr<CPanel> panel);
    // A copy goes through the definition line, then takes the settings the line lacks.
    CPanelCell(const CPanelCell& other);
    CPanelCell& operator=(const CPanelCell&) = delete;
    ~CPanelCell();

    // Replaces the panel by one made from line; a line with no word leaves it as it is.
    void CreatePanel(const QString& line);

    CPanel* GetPanel() const { return m_panel.get(); }
    // The panel's picture id, 60000 when the cell holds no panel.
    int GetBitmapId() const;
    // The key of the use counts and limits: the picture id the panel had when it was made.
    int GetTypeId() const { return m_typeId; }
    int GetImageIndex() const { return m_imageIndex; }
    const CPanelImage& GetImage() const { return m_image; }
    // Redraws the picture after the panel changed.
    bool MakeImage();

    int GetHeight() const { return m_panel ? m_panel->GetHeight() : 1; }
    bool IsInput() const { return IsArea(CPanel::AreaInput); }
    bool IsOutput() const { return IsArea(CPanel::AreaOutput); }
    bool IsProcess() const { return IsArea(CPanel::AreaProcess); }
    QString GetName() const { return m_panel ? m_panel->GetCaption() : QString(); }

  private:
    bool IsArea(int area) const { return m_panel && m_panel->GetArea() == area; }

    std::unique_ptr<CPanel> m_panel;
    CPanelImage m_image;
    int m_imageIndex = -1;
    int m_typeId = CPanel::NoPanel;
};
