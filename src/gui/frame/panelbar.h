#pragma once

#include <QDockWidget>

class CPaletteEntry;
class CPaletteInfo;
class CPanelGrid;
class QListWidget;
class QListWidgetItem;
class QToolBox;

// One palette of the board in a dock: page by page, each entry with its prototype's
// picture and name. Clicking an entry chooses it; dragging it drops a copy on the layout.
// An entry whose type is used up is disabled.
class CPanelBar : public QDockWidget
{
    Q_OBJECT

  public:
    CPanelBar(const QString& title, const CPaletteInfo& palette, QWidget* parent = nullptr);

    // The chosen entry, or null.
    const CPaletteEntry* GetChosen() const;
    void ClearChoice();
    // Enables each entry by whether the layout can take one more of its type; a chosen
    // entry that is used up is no longer chosen.
    void Refresh(const CPanelGrid& grid);

  Q_SIGNALS:
    // An entry was chosen here; the frame clears the other bar's choice.
    void EntryChosen();

  private:
    void Fill(const CPaletteInfo& palette);
    const CPaletteEntry* EntryOf(const QListWidgetItem* item) const;

    QToolBox* m_pages;
    QList<QListWidget*> m_lists;
    QList<const CPaletteEntry*> m_entries; // by the items' data index
};
