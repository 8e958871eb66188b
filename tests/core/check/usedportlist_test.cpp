#include "core/grid/gridtest.h"
#include "usedportlist.h"

// Readable failures: gtest finds this beside the row's type.
void PrintTo(const CUsedPortList::CRow& row, std::ostream* os)
{
    *os << QStringList{row.Io, row.Location, row.Type, row.Name, row.Assigned}
               .join(u'|')
               .toStdString();
}

namespace {

struct UsedPortList : GridFixture
{
    void Place(int column, int row, const QString& line, const QString& type,
               const QList<CPortEntry>& ports)
    {
        std::unique_ptr<CPanel> panel = CPanelFactory::Create(line);
        ASSERT_TRUE(panel);
        for (const CPortEntry& port : ports)
            panel->PortList().Add(port);
        panel->SetName(type);
        panel->SetLine(line);
        ASSERT_TRUE(grid.Place(column, row, std::make_unique<CPanelCell>(std::move(panel))));
    }
};

TEST_F(UsedPortList, InputsComeFirstThenOutputsEachInRowOrderWithTheBoardsPortNames)
{
    const QList<CPortEntry> pins{{"2", "PD2", "D2"}, {"13", "PB5", "D13"}};
    Place(CPanelGrid::GetOutputColumn(), 2, "LAMP" TAB "H,PB5", "Lamp", pins);
    Place(CPanelGrid::GetInputColumn(), 7, "KEY" TAB "H,PD2" TAB TAB ";Start", "Key", pins);
    Place(CPanelGrid::GetInputColumn(), 3, "KEY" TAB "H,PX9", "Key", pins); // no such port
    Place(CPanelGrid::GetInputColumn(), 9, "UARI" TAB "B,2", "UART", {{"0", "PD0(RxD6)", ""}});
    Place(3, 1, "AND", "AND", {});

    const QList<CUsedPortList::CRow> expected{
        {"IN", "3", "Key", "", ""},
        {"IN", "7", "Key", "Start", "PD2(D2)"},
        {"IN", "9", "UART", "", "PD0(RxD6)"}, // no port token: the port of its list
        {"OUT", "2", "Lamp", "", "PB5(D13)"},
    };
    EXPECT_EQ(CUsedPortList::Rows(grid), expected);
}

} // namespace
