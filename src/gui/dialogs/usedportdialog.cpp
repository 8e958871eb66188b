#include "usedportdialog.h"

#include "stringtable.h"
#include "usedportlist.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

struct CColumn
{
    int Heading;
    Qt::Alignment Alignment;
    int Width;
};

constexpr CColumn kColumns[] = {
    {Ids::ColIo, Qt::AlignHCenter, 30},     {Ids::ColLocation, Qt::AlignRight, 50},
    {Ids::ColType, Qt::AlignLeft, 80},      {Ids::ColName, Qt::AlignLeft, 100},
    {Ids::ColAssigned, Qt::AlignLeft, 200},
};

} // namespace

CUsedPortDialog::CUsedPortDialog(const CPanelGrid& grid, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(CStringTable::Get(Ids::DlgUsedPortTitle));
    auto* layout = new QVBoxLayout(this);
    m_list = new QTreeWidget(this);
    m_list->setObjectName("ports");
    m_list->setRootIsDecorated(false);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setColumnCount(int(std::size(kColumns)));
    auto* header = new QTreeWidgetItem;
    for (int c = 0; c < int(std::size(kColumns)); ++c) {
        header->setText(c, CStringTable::Get(kColumns[c].Heading));
        header->setTextAlignment(c, kColumns[c].Alignment | Qt::AlignVCenter);
    }
    m_list->setHeaderItem(header);
    m_list->header()->setStretchLastSection(false);
    for (int c = 0; c < int(std::size(kColumns)); ++c)
        m_list->setColumnWidth(c, kColumns[c].Width);
    for (const CUsedPortList::CRow& row : CUsedPortList::Rows(grid)) {
        auto* item =
            new QTreeWidgetItem(m_list, {row.Io, row.Location, row.Type, row.Name, row.Assigned});
        for (int c = 0; c < int(std::size(kColumns)); ++c)
            item->setTextAlignment(c, kColumns[c].Alignment | Qt::AlignVCenter);
    }
    layout->addWidget(m_list);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(CStringTable::Get(Ids::BtnClose), QDialogButtonBox::RejectRole)
        ->setObjectName("close");
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    resize(500, 360);
}

void CUsedPortDialog::Run(const CPanelGrid& grid, QWidget* parent)
{
    CUsedPortDialog dialog(grid, parent);
    dialog.exec();
}
