#include "netlist.h"
#include "panelgrid.h"
#include "support/recordingmessenger.h"

#include <gtest/gtest.h>

#include <string>

namespace {

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

    // The net of the panel pin at the top cell, row and side; -1 when it has none.
    int Net(const CNetlist& netlist, CGridPos top, int row, char side) const
    {
        for (const CNetPin& pin : netlist.GetPins(top))
            if (pin.Row == row && pin.Side == side)
                return netlist.NetOf(pin);
        return -1;
    }
};

} // namespace

TEST_F(CNetlistFixture, SwitchThroughWiresToLampIsOneNet)
{
    Put(-1, 3, "KEY\tH,PD2");
    for (int column = 1; column <= 16; ++column)
        Put(column, 3, "LINE\tLR");
    Put(-2, 3, "LAMP\tH,PB5");
    const CNetlist netlist(grid);

    ASSERT_EQ(netlist.GetNets().size(), 1u);
    const CNet& net = netlist.GetNets().front();
    EXPECT_EQ(net.GetDrivers(), (std::vector<CNetPin>{{{-1, 3}, 0, 'R', EPinRole::Output}}));
    EXPECT_EQ(net.GetLoads(), (std::vector<CNetPin>{{{-2, 3}, 0, 'L', EPinRole::Input}}));
    EXPECT_EQ(net.GetPins().size(), 2u + 2 * 16);
    EXPECT_EQ(Net(netlist, {9, 3}, 0, 'L'), 0);
    EXPECT_TRUE(netlist.GetFaults().empty());
}

TEST_F(CNetlistFixture, AGapInTheWireLeavesTwoNets)
{
    Put(-1, 3, "KEY\tH,PD2");
    Put(1, 3, "LINE\tLR");
    Put(3, 3, "LINE\tLR"); // (2, 3) is empty
    Put(4, 3, "NOT\tR");
    const CNetlist netlist(grid);

    ASSERT_EQ(netlist.GetNets().size(), 3u); // key, NOT input, NOT output
    EXPECT_TRUE(netlist.GetNets()[0].GetLoads().empty());
    EXPECT_NE(Net(netlist, {-1, 3}, 0, 'R'), Net(netlist, {4, 3}, 0, 'L'));
    EXPECT_EQ(Net(netlist, {3, 3}, 0, 'R'), Net(netlist, {4, 3}, 0, 'L'));
}

// Around the tested cell at (5, 5): sources above and to the left, readers to the right and
// below, so each of its four sides meets a pin. The pairs name the sides joined inside it,
// in the order U, D, L, R.
TEST_F(CNetlistFixture, WireKindsJoinTheirPiecesOnly)
{
    const struct
    {
        const char* line;
        const char* joined;
    } cases[] = {
        {"LINE\tUD", "UD"},
        {"LINE\tLR", "LR"},
        {"LINE\tUR", "UR"},
        {"LINE\tLD", "DL"},
        {"LINE\tUR,LD", "UR DL"},          // two corners stay apart
        {"LINE\tUD,LR", "UD LR"},          // a crossing stays apart
        {"LINE\tUR,UD", "UD UR DR"},       // a run with its branch is one net
        {"LINE\tLR,LD", "DL DR LR"},
        {"JPI\t4,L", ""},                  // a lone jump joins nothing in its cell
    };
    const struct
    {
        char side;
        CGridPos neighbour;
        char facing;
    } around[] = {{'U', {5, 4}, 'D'}, {'D', {5, 6}, 'U'}, {'L', {4, 5}, 'R'}, {'R', {6, 5}, 'L'}};

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

TEST_F(CNetlistFixture, BranchFeedsTwoLampsFromOneDriver)
{
    Put(-1, 1, "SW\tH,PD2");
    for (int column = 1; column <= 15; ++column)
        Put(column, 1, "LINE\tLR");
    Put(16, 1, "LINE\tLR,LD");
    Put(16, 2, "LINE\tUR");
    Put(-2, 1, "LAMP\tH,PB5");
    Put(-2, 2, "DGO\tH,PB4");
    const CNetlist netlist(grid);

    ASSERT_EQ(netlist.GetNets().size(), 1u);
    EXPECT_EQ(netlist.GetNets()[0].GetDrivers().size(), 1u);
    EXPECT_EQ(Describe(netlist.GetNets()[0].GetLoads()), "0L< 0L<");
    EXPECT_TRUE(netlist.GetFaults().empty());
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

TEST_F(CNetlistFixture, TwoJumpInsOfOneIdDrivenTwiceAreAFault)
{
    Put(1, 1, "ON\tR");
    Put(2, 1, "JPI\t5,L");
    Put(1, 3, "OFF\tR");
    Put(2, 3, "JPI\t5,L");
    Put(3, 2, "JPO\t5,R");
    Put(4, 2, "NOT\tR");
    const CNetlist netlist(grid);

    ASSERT_EQ(netlist.GetFaults().size(), 1u);
    const CNetFault& fault = netlist.GetFaults().front();
    EXPECT_EQ(fault.Kind, CNetFault::TwoDrivers);
    EXPECT_EQ(fault.Net, Net(netlist, {4, 2}, 0, 'L'));
    EXPECT_EQ(fault.Panels, (std::vector<CGridPos>{{1, 1}, {1, 3}}));
}

TEST_F(CNetlistFixture, TwoRowsOfOneCounterOnOneNetAreTwoDrivers)
{
    const struct
    {
        const char* secondJump;
        bool fault;
    } cases[] = {{"JPI\t3,L", true}, {"JPI\t4,L", false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.secondJump);
        grid.ClearAll();
        Put(1, 1, "CNT\tH,20,10");
        Put(2, 1, "JPI\t3,L");
        Put(2, 2, c.secondJump);
        Put(5, 5, "JPO\t3,R");
        Put(6, 5, "NOT\tR");
        const CNetlist netlist(grid);

        if (!c.fault) {
            EXPECT_TRUE(netlist.GetFaults().empty());
            continue;
        }
        ASSERT_EQ(netlist.GetFaults().size(), 1u);
        EXPECT_EQ(netlist.GetFaults()[0].Kind, CNetFault::TwoDrivers);
        EXPECT_EQ(netlist.GetFaults()[0].Panels, (std::vector<CGridPos>{{1, 1}}));
    }
}

// An AND gate whose output comes back to its upper input through a jump, with one more
// panel in the loop: only panels that store state may close it.
TEST_F(CNetlistFixture, LoopNeedsAStoringPanel)
{
    const struct
    {
        const char* middle;
        bool loop;
    } cases[] = {
        {"NOT\tR", true},    {"RSFF", false},        {"D_FF", false}, {"T_FF", false},
        {"CNT\tH,5", false}, {"DLY\t1.00S", false},  {"TIM\tH,1.00S", false},
        {"LINE\tLR", true},  {"TIM1\tN,0.50S", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.middle);
        grid.ClearAll();
        Put(1, 2, "ON\tR");
        Put(2, 2, "AND\tR");
        Put(3, 2, c.middle);
        Put(4, 2, "JPI\t9,L");
        Put(2, 1, "JPO\t9,D");
        const CNetlist netlist(grid);

        std::vector<CNetFault> loops;
        for (const CNetFault& fault : netlist.GetFaults())
            if (fault.Kind == CNetFault::Loop)
                loops.push_back(fault);
        if (!c.loop) {
            EXPECT_TRUE(loops.empty());
            continue;
        }
        ASSERT_EQ(loops.size(), 1u);
        const bool gate = QString(c.middle).startsWith("NOT");
        const std::vector<CGridPos> expected =
            gate ? std::vector<CGridPos>{{2, 2}, {3, 2}} : std::vector<CGridPos>{{2, 2}};
        EXPECT_EQ(loops[0].Panels, expected);
    }
}

TEST_F(CNetlistFixture, GateFeedingItselfIsALoop)
{
    Put(1, 2, "OFF\tR");
    Put(2, 2, "OR\tD");
    Put(2, 3, "JPI\t1,U");
    Put(2, 1, "JPO\t1,D");
    const CNetlist netlist(grid);

    ASSERT_EQ(netlist.GetFaults().size(), 1u);
    EXPECT_EQ(netlist.GetFaults()[0].Kind, CNetFault::Loop);
    EXPECT_EQ(netlist.GetFaults()[0].Panels, (std::vector<CGridPos>{{2, 2}}));
}

TEST_F(CNetlistFixture, EvaluationOrderPutsEachGateAfterItsFeeders)
{
    // (2, 5) comes first in the grid but reads what (5, 1) makes, through a jump.
    Put(1, 5, "JPO\t2,R");
    Put(2, 5, "NOT\tR");
    Put(4, 1, "ON\tR");
    Put(5, 1, "NOT\tR");
    Put(6, 1, "JPI\t2,L");
    Put(9, 9, "XOR\tD"); // on its own: keeps its place in grid order
    Put(3, 5, "AND\tR"); // reads (2, 5) on its left
    const CNetlist netlist(grid);

    EXPECT_EQ(netlist.GetEvaluationOrder(),
              (std::vector<CGridPos>{{4, 1}, {5, 1}, {2, 5}, {3, 5}, {9, 9}}));
    EXPECT_TRUE(netlist.GetFaults().empty());
}

TEST_F(CNetlistFixture, StoringAndSidePanelsAreNotInTheEvaluationOrder)
{
    Put(-1, 1, "KEY\tH,PD2");
    Put(1, 1, "T_FF");
    Put(2, 1, "NOT\tR");
    Put(3, 1, "UART\t3,L");
    const CNetlist netlist(grid);

    EXPECT_EQ(netlist.GetEvaluationOrder(), (std::vector<CGridPos>{{2, 1}}));
}

TEST_F(CNetlistFixture, PanelsHaveTheirDocumentedPins)
{
    const struct
    {
        int column;
        const char* line;
        const char* pins;
    } cases[] = {
        {-1, "KEY\tH,PD2", "0R>"},
        {-1, "ANI\tH,PC0,512,256", "0R> 1R>"},
        {-1, "UARI\tC,200,17,5", "0R> 1R> 2R>"},
        {-1, "UARI\tB,3", "0R> 1R> 2R>"},
        {-2, "LAMP\tH,PB5", "0L<"},
        {-2, "BUZZ\tPB1,2000,1000,500", "0L< 1L< 2L<"},
        {-2, "PWM\t1000Hz,100,50", "0L< 1L<"},
        {-2, "PULS\tH,PB2,100,50,0", "0L< 1L< 2L<"},
        {-2, "SMOTO\t1,500", "0L< 1L<"},
        {-2, "LCD\t1,\"Hi\"", "0L<"},
        {-2, "UARO", "0L<"},
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
    Put(-2, 2, "LAMP\tH,PB5");    // beside the counter's second row
    Put(-1, 2, "KEY\tH,PD2");     // into the counter's second row, which has no input
    for (int column = 1; column <= 15; ++column)
        Put(column, 2, "LINE\tLR");
    Put(-1, 10, "UARI\tC,3,2,1");
    Put(1, 12, "NOT\tR");          // beside the receiver's third row
    const CNetlist netlist(grid);

    const int lamp = Net(netlist, {-2, 2}, 0, 'L');
    EXPECT_EQ(netlist.GetNets()[lamp].GetDrivers(),
              (std::vector<CNetPin>{{{16, 1}, 1, 'R', EPinRole::Output}}));
    EXPECT_TRUE(netlist.GetNets()[Net(netlist, {-1, 2}, 0, 'R')].GetLoads().empty());
    EXPECT_EQ(Net(netlist, {1, 12}, 0, 'L'), Net(netlist, {-1, 10}, 2, 'R'));
    EXPECT_EQ(netlist.NetOf({{16, 1}, 1, 'L', EPinRole::Input}), -1); // no such pin
}

TEST_F(CNetlistFixture, DanglingWiresMakeNoNet)
{
    Put(3, 3, "LINE\tLR");
    Put(4, 3, "LINE\tLD");
    const CNetlist netlist(grid);

    EXPECT_TRUE(netlist.GetNets().empty());
    EXPECT_EQ(netlist.NetOf({{3, 3}, 0, 'R', EPinRole::Wire}), -1);
}
