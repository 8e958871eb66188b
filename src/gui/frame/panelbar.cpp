#include "panelbar.h"

#include "paletteinfo.h"
#include "panel.h"
#include "panelcell.h"
#include "panelchooser.h"
#include "panelgrid.h"
#include "panelpainter.h"

#include <QListWidget>
#include <QMimeData>
#include <QPainter>
#include <QToolBox>

namespace {

constexpr int kEntryRole = Qt::UserRole + 1;

// The prototype's picture at twice the resolution, so it stays sharp on high-density screens.
QIcon PictureOf(CPanel& prototype)
{
    CPanelImage image;
    prototype.MakeImage(image);
    const int width = image.Width > 0 ? image.Width : 32, height = qMax(image.Height, 32);
    QPixmap pixmap(QSize(width, height) * 2);
    pixmap.setDevicePixelRatio(2);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!image.Items.isEmpty()) {
        CPanelImageItem first = image.Items.first();
        first.BitmapId =
            prototype.GetArea() == CPanel::AreaProcess ? first.BitmapId : prototype.GetBitmapId();
        CPanelPainter::DrawItem(painter, QRectF(0, 0, width, height), first);
    }
    return QIcon(pixmap);
}

// A list whose drags carry the entry's definition line and area.
class CEntryList : public QListWidget
{
  public:
    CEntryList(const QList<const CPaletteEntry*>& entries, QWidget* parent)
        : QListWidget(parent), m_entries(entries)
    {
    }

  protected:
    QStringList mimeTypes() const override
    {
        return {QString::fromLatin1(IPanelChooser::kMimeType)};
    }

    QMimeData* mimeData(const QList<QListWidgetItem*>& items) const override
    {
        if (items.isEmpty())
            return nullptr;
        const CPaletteEntry* entry = m_entries.value(items.first()->data(kEntryRole).toInt());
        if (!entry || !entry->GetPrototype())
            return nullptr;
        auto* data = new QMimeData;
        const CPanel& prototype = *entry->GetPrototype();
        data->setData(
            QString::fromLatin1(IPanelChooser::kMimeType),
            (QString::number(prototype.GetArea()) + u'\n' + prototype.GetLine()).toUtf8());
        return data;
    }

  private:
    const QList<const CPaletteEntry*>& m_entries;
};

} // namespace

CPanelBar::CPanelBar(const QString& title, const CPaletteInfo& palette, QWidget* parent)
    : QDockWidget(title, parent), m_pages(new QToolBox(this))
{
    setObjectName(title);
    setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    setWidget(m_pages);
    Fill(palette);
}

void CPanelBar::Fill(const CPaletteInfo& palette)
{
    for (int page = 0; page < palette.GetPageCount(); ++page) {
        auto* list = new CEntryList(m_entries, m_pages);
        list->setIconSize(QSize(64, 32));
        list->setDragEnabled(true);
        list->setDragDropMode(QAbstractItemView::DragOnly);
        list->setSelectionMode(QAbstractItemView::SingleSelection);
        for (int i = 0; i < palette.GetEntryCount(page); ++i) {
            const CPaletteEntry* entry = palette.GetEntry(page, i);
            if (!entry || !entry->GetPrototype())
                continue;
            auto* item = new QListWidgetItem(entry->GetPrototype()->GetName(), list);
            // The picture is drawn from a copy: drawing may touch the panel's item count.
            std::unique_ptr<CPanelCell> copy = entry->MakeCell();
            item->setIcon(copy && copy->GetPanel() ? PictureOf(*copy->GetPanel()) : QIcon());
            item->setData(kEntryRole, int(m_entries.size()));
            m_entries.append(entry);
        }
        connect(list, &QListWidget::itemSelectionChanged, this, [this, list] {
            if (!list->selectedItems().isEmpty()) {
                for (QListWidget* other : std::as_const(m_lists))
                    if (other != list)
                        other->clearSelection();
                Q_EMIT EntryChosen();
            }
        });
        m_lists.append(list);
        m_pages->addItem(list, palette.GetPageTitle(page));
    }
}

const CPaletteEntry* CPanelBar::EntryOf(const QListWidgetItem* item) const
{
    return item ? m_entries.value(item->data(kEntryRole).toInt()) : nullptr;
}

const CPaletteEntry* CPanelBar::GetChosen() const
{
    for (const QListWidget* list : m_lists)
        if (!list->selectedItems().isEmpty())
            return EntryOf(list->selectedItems().first());
    return nullptr;
}

void CPanelBar::ClearChoice()
{
    for (QListWidget* list : std::as_const(m_lists))
        list->clearSelection();
}

void CPanelBar::Refresh(const CPanelGrid& grid)
{
    for (QListWidget* list : std::as_const(m_lists))
        for (int i = 0; i < list->count(); ++i) {
            QListWidgetItem* item = list->item(i);
            const CPaletteEntry* entry = EntryOf(item);
            const bool usable =
                entry && entry->GetPrototype() && grid.CanUse(entry->GetPrototype()->GetBitmapId());
            item->setFlags(usable ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled
                                  : Qt::NoItemFlags);
            if (!usable && item->isSelected())
                item->setSelected(false);
        }
}
