#include "core/grid/gridtest.h"
#include "netlist.h"

#include <string>

namespace {

struct CNetlistFixture : GridFixture
{
    void Wires(int row, int from, int to)
    {
        for (int column = from; column <= to; ++column)
            ASSERT_TRUE(grid.Place(column, row, Cell("LINE\tLR")));
    }

    // The net of the panel pin at the top cell, row and side; -1 when it has none.
    static int Net(const CNetlist& netlist, CGridPos top, int row, char side)
    {
        for (const CNetPin& pin : netlist.GetPins(top))
            if (pin.Row == row && pin.Side == side)
                return netlist.NetOf(pin);
        return -1;
    }

    // The panels of each fault of the kind: "c,r c,r; c,r".
    static QString Faults(const CNetlist& netlist, CNetFault::EKind kind)
    {
        QStringList faults;
        for (const CNetFault& fault : netlist.GetFaults()) {
            QStringList panels;
            for (const CGridPos pos : fault.Panels)
                panels.append(QStringLiteral("%1,%2").arg(pos.Column).arg(pos.Row));
            if (fault.Kind == kind)
                faults.append(panels.join(u' '));
        }
        return faults.join(QStringLiteral("; "));
    }
};

} // namespace

TEST_F(CNetlistFixture, WiresCarryANetAcrossTheGridAndAGapOrNoPanelEndsIt)
{
    // (2, 5) is empty; the wires in row 8 reach no panel.
    PutAll(grid, "-1,3 KEY\tH,PD2; -2,3 LAMP\tH,PB5; -1,5 KEY\tH,PD2; 1,5 LINE\tLR; "
                 "3,5 LINE\tLR; 4,5 NOT\tR; 3,8 LINE\tLR; 4,8 LINE\tLD");
    Wires(3, 1, 16);
    const CNetlist netlist(grid);

    const int across = Net(netlist, {-1, 3}, 0, 'R');
    ASSERT_GE(across, 0);
    const CNet& net = netlist.GetNets()[across];
    EXPECT_EQ(net.GetDrivers(), (std::vector<CNetPin>{{{-1, 3}, 0, 'R', EPinRole::Output}}));
    EXPECT_EQ(net.GetLoads(), (std::vector<CNetPin>{{{-2, 3}, 0, 'L', EPinRole::Input}}));
    EXPECT_EQ(net.GetPins().size(), 2u + 2 * 16);
    EXPECT_EQ(Net(netlist, {9, 3}, 0, 'L'), across);

    EXPECT_NE(Net(netlist, {-1, 5}, 0, 'R'), Net(netlist, {4, 5}, 0, 'L'));
    EXPECT_EQ(Net(netlist, {3, 5}, 0, 'R'), Net(netlist, {4, 5}, 0, 'L'));
    EXPECT_EQ(netlist.GetNets().size(), 4u); // across, key 5, NOT input, NOT output
    EXPECT_EQ(netlist.NetOf({{3, 8}, 0, 'R', EPinRole::Wire}), -1);
    EXPECT_TRUE(netlist.GetFaults().empty());
}

// Around the tested cell at (5, 5): sources above and to the left, readers to the right and
// below, so each of its four sides meets a pin. The pairs name the sides joined inside it,
// in the order U, D, L, R.
TEST_F(CNetlistFixture, WireKindsJoinTheirPiecesOnly)
{
    const struct
    {
        const char *Line, *Joined;
    } cases[] = {
        {"LINE\tUD", "UD"},          {"LINE\tLR", "LR"},       {"LINE\tUR", "UR"},
        {"LINE\tLD", "DL"},          {"LINE\tUR,LD", "UR DL"}, // two corners stay apart
        {"LINE\tUD,LR", "UD LR"},                              // a crossing stays apart
        {"LINE\tUR,UD", "UD UR DR"},                           // a run with its branch is one net
        {"LINE\tLR,LD", "DL DR LR"}, {"JPI\t4,L", ""}, // a lone jump joins nothing in its cell
    };
    const struct
    {
        char Side;
        CGridPos Neighbour;
        char Facing;
    } around[] = {{'U', {5, 4}, 'D'}, {'D', {5, 6}, 'U'}, {'L', {4, 5}, 'R'}, {'R', {6, 5}, 'L'}};

    for (const auto& c : cases) {
        SCOPED_TRACE(c.Line);
        grid.ClearAll();
        PutAll(grid, "5,4 ON\tD; 4,5 OFF\tR; 6,5 NOT\tR; 5,6 NOT\tD");
        ASSERT_TRUE(grid.Place(5, 5, Cell(c.Line)));
        const CNetlist netlist(grid);

        std::string joined;
        for (int a = 0; a < 4; ++a)
            for (int b = a + 1; b < 4; ++b) {
                const int netA = Net(netlist, around[a].Neighbour, 0, around[a].Facing);
                const int netB = Net(netlist, around[b].Neighbour, 0, around[b].Facing);
                if (netA >= 0 && netA == netB)
                    joined +=
                        std::string(joined.empty() ? "" : " ") + around[a].Side + around[b].Side;
            }
        EXPECT_EQ(joined, c.Joined);
    }
}

TEST_F(CNetlistFixture, JumpCarriesItsNetToEveryJumpOutWithItsId)
{
    // No jump-in has id 8.
    PutAll(grid, "-1,1 KEY\tH,PD2; 1,1 JPI\t7,L; 5,6 JPO\t7,R; 6,6 NOT\tR; 8,2 JPO\t7,D; "
                 "8,3 NOT\tD; 5,8 JPO\t8,R; 6,8 NOT\tR");
    const CNetlist netlist(grid);

    const int key = Net(netlist, {-1, 1}, 0, 'R');
    EXPECT_EQ(Net(netlist, {6, 6}, 0, 'L'), key);
    EXPECT_EQ(Net(netlist, {8, 3}, 0, 'U'), key);
    EXPECT_EQ(netlist.GetNets()[key].GetLoads().size(), 2u);
    const int orphan = Net(netlist, {6, 8}, 0, 'L');
    EXPECT_NE(orphan, key);
    // An input nobody drives reads 0: no fault.
    EXPECT_TRUE(netlist.GetNets()[orphan].GetDrivers().empty());
    EXPECT_TRUE(netlist.GetFaults().empty());
}

TEST_F(CNetlistFixture, TwoDriversOnOneNetAreAFault)
{
    const struct
    {
        const char *Name, *Drivers, *Fault;
    } cases[] = {
        {"two panels into jump-ins of one id", "1,1 ON\tR; 1,2 OFF\tR; 2,2 JPI\t3,L", "1,1 1,2"},
        {"two rows of one counter", "1,1 CNT\tH,20,10; 2,2 JPI\t3,L", "1,1"},
        {"two rows of one counter, other ids", "1,1 CNT\tH,20,10; 2,2 JPI\t4,L", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        grid.ClearAll();
        PutAll(grid, QString(c.Drivers) + "; 2,1 JPI\t3,L; 5,5 JPO\t3,R; 6,5 NOT\tR");
        const CNetlist netlist(grid);
        EXPECT_EQ(Faults(netlist, CNetFault::TwoDrivers), c.Fault);
        if (*c.Fault) {
            EXPECT_EQ(netlist.GetFaults()[0].Net, Net(netlist, {6, 5}, 0, 'L'));
        }
    }
}

// A gate whose output comes back to its input through a jump, with one more panel in the
// loop: only panels that store state may close it.
TEST_F(CNetlistFixture, LoopNeedsAStoringPanel)
{
    const char* const storing[] = {"RSFF",       "D_FF",         "T_FF",         "CNT\tH,5",
                                   "DLY\t1.00S", "TIM\tH,1.00S", "TIM1\tN,0.50S"};
    const auto loops = [this](const char* middle) {
        grid.ClearAll();
        PutAll(grid, QStringLiteral("1,2 ON\tR; 2,2 AND\tR; 3,2 %1; 4,2 JPI\t9,L; 2,1 JPO\t9,D")
                         .arg(middle));
        return Faults(CNetlist(grid), CNetFault::Loop);
    };
    EXPECT_EQ(loops("NOT\tR"), "2,2 3,2");
    EXPECT_EQ(loops("LINE\tLR"), "2,2");
    for (const char* middle : storing)
        EXPECT_EQ(loops(middle), "") << middle;
    // A gate feeding itself.
    grid.ClearAll();
    PutAll(grid, "1,2 OFF\tR; 2,2 OR\tD; 2,3 JPI\t1,U; 2,1 JPO\t1,D");
    const CNetlist netlist(grid);
    ASSERT_EQ(netlist.GetFaults().size(), 1u);
    EXPECT_EQ(Faults(netlist, CNetFault::Loop), "2,2");
}

TEST_F(CNetlistFixture, EvaluationOrderPutsEachGateAfterItsFeedersAndLeavesOutTheRest)
{
    // (2, 5) comes first in the grid but reads what (5, 1) makes, through a jump; the XOR on
    // its own keeps its place in grid order; the AND reads (2, 5) on its left. Storing and
    // side panels are not evaluated as gates.
    PutAll(grid, "1,5 JPO\t2,R; 2,5 NOT\tR; 4,1 ON\tR; 5,1 NOT\tR; 6,1 JPI\t2,L; 9,9 XOR\tD; "
                 "3,5 AND\tR; -1,12 KEY\tH,PD2; 1,12 T_FF; 3,12 UART\t3,L");
    const CNetlist netlist(grid);
    EXPECT_EQ(netlist.GetEvaluationOrder(),
              (std::vector<CGridPos>{{4, 1}, {5, 1}, {2, 5}, {3, 5}, {9, 9}}));
    EXPECT_TRUE(netlist.GetFaults().empty());
}

TEST_F(CNetlistFixture, PanelsHaveTheirDocumentedPins)
{
    const struct
    {
        int Column;
        const char *Line, *Pins; // "0R>": an output on the right of the top row
    } cases[] = {
        {-1, "ANI\tH,PC0,512,256", "0R> 1R>"},
        {-1, "UARI\tC,200,17,5", "0R> 1R> 2R>"},
        {-2, "BUZZ\tPB1,2000,1000,500", "0L< 1L< 2L<"},
        {-2, "PWM\t1000Hz,100,50", "0L< 1L<"},
        {-2, "LCD\t1,\"Hi\"", "0L<"},
        {3, "CNT\tH,30,20,10", "0U< 0L< 0R> 1R> 2R>"},
        {3, "SMOT\t2,20", "0U< 0L< 0R> 1R> 2R> 3R>"},
        {3, "AND\tD", "0U< 0D> 0L<"},
        {3, "RSFF", "0U< 0L< 0R>"},
        {3, "DLY\t1.00S", "0L< 0R>"},
        {3, "UART\t0,L", "0L<"},
        {3, "7S_D\t1", "0L<"},
        {3, "JPI\t7,U", "0U-"},
        {3, "LINE\tUR,LD", "0U- 0D- 0L- 0R-"},
        {3, "LINE\tUR,LR", ""}, // no kind: no pins
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Line);
        grid.ClearAll();
        ASSERT_TRUE(grid.Place(c.Column, 2, Cell(c.Line)));
        std::string pins;
        for (const CNetPin& pin : CNetlist(grid).GetPins({c.Column, 2})) {
            EXPECT_EQ(pin.Pos, (CGridPos{c.Column, 2}));
            pins += std::string(pins.empty() ? "" : " ") + std::to_string(pin.Row) + pin.Side +
                    (pin.Role == EPinRole::Input    ? '<'
                     : pin.Role == EPinRole::Output ? '>'
                                                    : '-');
        }
        EXPECT_EQ(pins, c.Pins);
    }
}

TEST_F(CNetlistFixture, TallPanelsJoinOnTheRowsThatHavePins)
{
    // The lamp sits beside the counter's second row, the key feeds that row, which has no
    // input, and the NOT sits beside the receiver's third row.
    PutAll(grid, "16,1 CNT\tH,30,20,10; -2,2 LAMP\tH,PB5; -1,2 KEY\tH,PD2; -1,10 UARI\tC,3,2,1; "
                 "1,12 NOT\tR");
    Wires(2, 1, 15);
    const CNetlist netlist(grid);

    const int lamp = Net(netlist, {-2, 2}, 0, 'L');
    EXPECT_EQ(netlist.GetNets()[lamp].GetDrivers(),
              (std::vector<CNetPin>{{{16, 1}, 1, 'R', EPinRole::Output}}));
    EXPECT_TRUE(netlist.GetNets()[Net(netlist, {-1, 2}, 0, 'R')].GetLoads().empty());
    EXPECT_EQ(Net(netlist, {1, 12}, 0, 'L'), Net(netlist, {-1, 10}, 2, 'R'));
    EXPECT_EQ(netlist.NetOf({{16, 1}, 1, 'L', EPinRole::Input}), -1); // no such pin
}
