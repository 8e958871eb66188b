#include "netlist.h"
#include "panelgrid.h"
#include "support/recordingmessenger.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// "0R>" for an output on the right of the top row, "<" input, "-" wire.
std::string Describe(const std::vector<CNetPin>& pins)
{
    std::string text;
    for (const CNetPin& pin : pins) {
        if (!text.empty())
            text += ' ';
        text += std::to_string(pin.Row) + pin.Side +
                (pin.Role == EPinRole::Input ? '<' : pin.Role == EPinRole::Output ? '>' : '-');
    }
    return text;
}

struct CNetlistFixture : testing::Test
{
    CRecordingMessenger messenger;
    CPanelGrid grid{messenger};

    void Put(int column, int row, const QString& line)
    {
        ASSERT_TRUE(grid.Place(column, row, std::make_unique<CPanelCell>(line))) << line.toStdString();
    }

    void Wires(int row, int from, int to)
    {
        for (int column = from; column <= to; ++column)
            Put(column, row, "LINE\tLR");
    }

    // The net of the panel pin at the top cell, row and side; -1 when it has none.
    static int Net(const CNetlist& netlist, CGridPos top, int row, char side)
    {
        for (const CNetPin& pin : netlist.GetPins(top))
            if (pin.Row == row && pin.Side == side)
                return netlist.NetOf(pin);
        return -1;
    }

    // The panels of each fault of the kind.
    static std::vector<std::vector<CGridPos>> Faults(const CNetlist& netlist, CNetFault::EKind kind)
    {
        std::vector<std::vector<CGridPos>> panels;
        for (const CNetFault& fault : netlist.GetFaults())
            if (fault.Kind == kind)
                panels.push_back(fault.Panels);
        return panels;
    }
};

using CPositions = std::vector<std::vector<CGridPos>>;

} // namespace

TEST_F(CNetlistFixture, WiresCarryANetAcrossTheGridAndAGapOrNoPanelEndsIt)
{
    Put(-1, 3, "KEY\tH,PD2");
    Wires(3, 1, 16);
    Put(-2, 3, "LAMP\tH,PB5");
    Put(-1, 5, "KEY\tH,PD2");
    Put(1, 5, "LINE\tLR");
    Put(3, 5, "LINE\tLR"); // (2, 5) is empty
    Put(4, 5, "NOT\tR");
    Put(3, 8, "LINE\tLR"); // a wire reaching no panel
    Put(4, 8, "LINE\tLD");
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
    const struct { const char* line; const char* joined; } cases[] = {
        {"LINE\tUD", "UD"},
        {"LINE\tLR", "LR"},
        {"LINE\tUR", "UR"},
        {"LINE\tLD", "DL"},
        {"LINE\tUR,LD", "UR DL"},    // two corners stay apart
        {"LINE\tUD,LR", "UD LR"},    // a crossing stays apart
        {"LINE\tUR,UD", "UD UR DR"}, // a run with its branch is one net
        {"LINE\tLR,LD", "DL DR LR"},
        {"JPI\t4,L", ""},            // a lone jump joins nothing in its cell
    };
    const struct { char side; CGridPos neighbour; char facing; } around[] = {
        {'U', {5, 4}, 'D'}, {'D', {5, 6}, 'U'}, {'L', {4, 5}, 'R'}, {'R', {6, 5}, 'L'}};

    for (const auto& c : cases) {
        SCOPED_TRACE(c.line);
        grid.ClearAll();
        Put(5, 4, "ON\tD");
        Put(4, 5, "OFF\tR");
        Put(6, 5, "NOT\tR");
        Put(5, 6, "NOT\tD");
        Put(5, 5, c.line);
        const CNetlist netlist(grid);

        std::string joined;
        for (int a = 0; a < 4; ++a)
            for (int b = a + 1; b < 4; ++b) {
                const int netA = Net(netlist, around[a].neighbour, 0, around[a].facing);
                const int netB = Net(netlist, around[b].neighbour, 0, around[b].facing);
                if (netA >= 0 && netA == netB)
                    joined += std::string(joined.empty() ? "" : " ") + around[a].side + around[b].side;
            }
        EXPECT_EQ(joined, c.joined);
    }
}

TEST_F(CNetlistFixture, JumpCarriesItsNetToEveryJumpOutWithItsId)
{
    Put(-1, 1, "KEY\tH,PD2");
    Put(1, 1, "JPI\t7,L");
    Put(5, 6, "JPO\t7,R");
    Put(6, 6, "NOT\tR");
    Put(8, 2, "JPO\t7,D");
    Put(8, 3, "NOT\tD");
    Put(5, 8, "JPO\t8,R"); // no jump-in with id 8
    Put(6, 8, "NOT\tR");
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
    const struct { const char* Name; const char* First; const char* SecondJump;
                   CPositions Panels; } cases[] = {
        {"two panels into jump-ins of one id", "ON\tR", "JPI\t3,L", {{{1, 1}, {1, 2}}}},
        {"two rows of one counter", "CNT\tH,20,10", "JPI\t3,L", {{{1, 1}}}},
        {"two rows of one counter, other ids", "CNT\tH,20,10", "JPI\t4,L", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        grid.ClearAll();
        Put(1, 1, c.First);
        if (QString(c.First).startsWith("ON"))
            Put(1, 2, "OFF\tR");
        Put(2, 1, "JPI\t3,L");
        Put(2, 2, c.SecondJump);
        Put(5, 5, "JPO\t3,R");
        Put(6, 5, "NOT\tR");
        const CNetlist netlist(grid);
        EXPECT_EQ(Faults(netlist, CNetFault::TwoDrivers), c.Panels);
        if (!c.Panels.empty()) {
            EXPECT_EQ(netlist.GetFaults()[0].Net, Net(netlist, {6, 5}, 0, 'L'));
        }
    }
}

// A gate whose output comes back to its input through a jump, with one more panel in the
// loop: only panels that store state may close it.
TEST_F(CNetlistFixture, LoopNeedsAStoringPanel)
{
    const struct { const char* middle; CPositions loops; } cases[] = {
        {"NOT\tR", {{{2, 2}, {3, 2}}}}, {"LINE\tLR", {{{2, 2}}}}, {"RSFF", {}},
        {"D_FF", {}},                   {"T_FF", {}},             {"CNT\tH,5", {}},
        {"DLY\t1.00S", {}},             {"TIM\tH,1.00S", {}},     {"TIM1\tN,0.50S", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.middle);
        grid.ClearAll();
        Put(1, 2, "ON\tR");
        Put(2, 2, "AND\tR");
        Put(3, 2, c.middle);
        Put(4, 2, "JPI\t9,L");
        Put(2, 1, "JPO\t9,D");
        EXPECT_EQ(Faults(CNetlist(grid), CNetFault::Loop), c.loops);
    }
    // A gate feeding itself.
    grid.ClearAll();
    Put(1, 2, "OFF\tR");
    Put(2, 2, "OR\tD");
    Put(2, 3, "JPI\t1,U");
    Put(2, 1, "JPO\t1,D");
    const CNetlist netlist(grid);
    ASSERT_EQ(netlist.GetFaults().size(), 1u);
    EXPECT_EQ(Faults(netlist, CNetFault::Loop), (CPositions{{{2, 2}}}));
}

TEST_F(CNetlistFixture, EvaluationOrderPutsEachGateAfterItsFeedersAndLeavesOutTheRest)
{
    // (2, 5) comes first in the grid but reads what (5, 1) makes, through a jump.
    Put(1, 5, "JPO\t2,R");
    Put(2, 5, "NOT\tR");
    Put(4, 1, "ON\tR");
    Put(5, 1, "NOT\tR");
    Put(6, 1, "JPI\t2,L");
    Put(9, 9, "XOR\tD"); // on its own: keeps its place in grid order
    Put(3, 5, "AND\tR"); // reads (2, 5) on its left
    // Storing and side panels are not evaluated as gates.
    Put(-1, 12, "KEY\tH,PD2");
    Put(1, 12, "T_FF");
    Put(3, 12, "UART\t3,L");
    const CNetlist netlist(grid);

    EXPECT_EQ(netlist.GetEvaluationOrder(),
              (std::vector<CGridPos>{{4, 1}, {5, 1}, {2, 5}, {3, 5}, {9, 9}}));
    EXPECT_TRUE(netlist.GetFaults().empty());
}

TEST_F(CNetlistFixture, PanelsHaveTheirDocumentedPins)
{
    const struct { int column; const char* line; const char* pins; } cases[] = {
        {-1, "KEY\tH,PD2", "0R>"},
        {-1, "ANI\tH,PC0,512,256", "0R> 1R>"},
        {-1, "UARI\tC,200,17,5", "0R> 1R> 2R>"},
        {-2, "LAMP\tH,PB5", "0L<"},
        {-2, "BUZZ\tPB1,2000,1000,500", "0L< 1L< 2L<"},
        {-2, "PWM\t1000Hz,100,50", "0L< 1L<"},
        {-2, "LCD\t1,\"Hi\"", "0L<"},
        {3, "CNT\tH,30,20,10", "0U< 0L< 0R> 1R> 2R>"},
        {3, "SMOT\t2,20", "0U< 0L< 0R> 1R> 2R> 3R>"},
        {3, "AND\tD", "0U< 0D> 0L<"},
        {3, "NOT\tD", "0U< 0D>"},
        {3, "ON\tR", "0R>"},
        {3, "RSFF", "0U< 0L< 0R>"},
        {3, "DLY\t1.00S", "0L< 0R>"},
        {3, "UART\t0,L", "0L<"},
        {3, "7S_D\t1", "0L<"},
        {3, "JPI\t7,U", "0U-"},
        {3, "JPO\t7,D", "0D-"},
        {3, "LINE\tUR,LD", "0U- 0D- 0L- 0R-"},
        {3, "LINE\tUR,LR", ""}, // no kind: no pins
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line);
        grid.ClearAll();
        Put(c.column, 2, c.line);
        const CNetlist netlist(grid);
        const std::vector<CNetPin> pins = netlist.GetPins({c.column, 2});
        EXPECT_EQ(Describe(pins), c.pins);
        for (const CNetPin& pin : pins)
            EXPECT_EQ(pin.Pos, (CGridPos{c.column, 2}));
    }
}

TEST_F(CNetlistFixture, TallPanelsJoinOnTheRowsThatHavePins)
{
    Put(16, 1, "CNT\tH,30,20,10");
    Put(-2, 2, "LAMP\tH,PB5"); // beside the counter's second row
    Put(-1, 2, "KEY\tH,PD2");  // into the counter's second row, which has no input
    Wires(2, 1, 15);
    Put(-1, 10, "UARI\tC,3,2,1");
    Put(1, 12, "NOT\tR"); // beside the receiver's third row
    const CNetlist netlist(grid);

    const int lamp = Net(netlist, {-2, 2}, 0, 'L');
    EXPECT_EQ(netlist.GetNets()[lamp].GetDrivers(),
              (std::vector<CNetPin>{{{16, 1}, 1, 'R', EPinRole::Output}}));
    EXPECT_TRUE(netlist.GetNets()[Net(netlist, {-1, 2}, 0, 'R')].GetLoads().empty());
    EXPECT_EQ(Net(netlist, {1, 12}, 0, 'L'), Net(netlist, {-1, 10}, 2, 'R'));
    EXPECT_EQ(netlist.NetOf({{16, 1}, 1, 'L', EPinRole::Input}), -1); // no such pin
}
