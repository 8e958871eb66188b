#include "layoutcheck.h"
#include "panelgrid.h"
#include "support/recordingmessenger.h"

#include <gtest/gtest.h>

namespace {

struct CCheckFixture : testing::Test
{
    CRecordingMessenger messenger;
    CPanelGrid grid{messenger};

    // Places a panel and names it as a board's palette would.
    void Put(int column, int row, const QString& line, const QString& name = QString())
    {
        auto cell = std::make_unique<CPanelCell>(line);
        if (!name.isEmpty())
            cell->GetPanel()->SetName(name);
        ASSERT_TRUE(grid.Place(column, row, std::move(cell))) << line.toStdString();
    }

    QString Report() const { return CLayoutCheck::Run(grid); }
};

} // namespace

TEST_F(CCheckFixture, EmptyLayoutPasses)
{
    EXPECT_EQ(Report(), "");
}

TEST_F(CCheckFixture, WiredSwitchGateLampPasses)
{
    Put(-1, 3, "KEY\tH,PD2", "Key");
    Put(1, 3, "AND\tR");
    Put(1, 2, "ON\tD");
    for (int column = 2; column <= 16; ++column)
        Put(column, 3, "LINE\tLR");
    Put(-2, 3, "LAMP\tH,PB5", "Lamp");
    EXPECT_EQ(Report(), "");
}

TEST_F(CCheckFixture, UnconnectedSidePanelsNameTheirLabel)
{
    Put(-1, 3, "SW\tH,PD2\t\t;start", "Switch");
    Put(-2, 4, "LAMP\tH,PB5", "Lamp");
    EXPECT_EQ(Report(), "The connection of panel [Switch[start]] is incomplete. \r\n"
                        "The connection of panel [Lamp] is incomplete. \r\n");
}

TEST_F(CCheckFixture, ProcessSidesNeedFacingNeighbours)
{
    Put(16, 5, "LINE\tLR", "Wire");   // needs an output panel in row 5
    Put(15, 5, "NOT\tR", "Not");      // needs something with R on its left
    Put(3, 1, "CNT\tC,5", "Count");   // a counter in row 1 needs no upper neighbour
    Put(2, 1, "ON\tR");
    Put(4, 1, "LINE\tLR");
    Put(5, 1, "LINE\tLD");
    Put(5, 2, "LINE\tUD", "Down");    // ends with nothing below
    EXPECT_EQ(Report(), "The connection of panel [Down(5,2)] is incomplete. \r\n"
                        "The connection of panel [Not(15,5)] is incomplete. \r\n"
                        "The connection of panel [Wire(16,5)] is incomplete. \r\n");
}

TEST_F(CCheckFixture, TallPanelsConnectOnEveryRowTheyCover)
{
    // A serial receiver of three rows feeds a wire beside its third row.
    Put(-1, 1, "UARI\tC,3,2,1", "Rx");
    Put(1, 1, "LINE\tLR");
    Put(1, 3, "LINE\tLR");
    for (int column = 2; column <= 16; ++column) {
        Put(column, 1, "LINE\tLR");
        Put(column, 3, "LINE\tLR");
    }
    Put(-2, 1, "LAMP\tH,P1");
    Put(-2, 2, "BUZZ\tP2,2000,1000", "Buzz"); // rows 2 and 3: its top row is not wired
    EXPECT_EQ(Report(), "The connection of panel [Buzz] is incomplete. \r\n");
}

TEST_F(CCheckFixture, IncompletePanelsAndDoubledPorts)
{
    Put(-1, 1, "SW\tH", "In");
    Put(-1, 2, "KEY\tH,P1\t\t;a", "Key");
    Put(-1, 3, "KEY\tH,P1", "Key");
    Put(-2, 1, "LAMP\tH,P1", "Lamp");
    Put(1, 1, "FF", "FF");
    Put(1, 2, "AND\tR");      // gates are exempt
    EXPECT_EQ(Report().split("\r\n").mid(0, 5),
              (QStringList{"The properties of panel [In] is none. ",
                           "The properties of panel [FF(1,1)] is none. ",
                           "The port assigned two or more panels. port=P1",
                           "The port assigned two or more panels. port=P1",
                           "The port assigned two or more panels. port=P1"}));
}

TEST_F(CCheckFixture, WebInNeedsWebOut)
{
    Put(-1, 1, "WEBIN\t1\t\t;w");
    Put(1, 1, "LINE\tLR");
    for (int column = 2; column <= 16; ++column)
        Put(column, 1, "LINE\tLR");
    Put(-2, 1, "LAMP\tH,P2");
    EXPECT_EQ(Report(), "It is necessary to use the WEB-out panel for the WEB-in panel.\r\n");
    Put(-2, 30, "WEBOUT");
    EXPECT_EQ(Report(), "The connection of panel [] is incomplete. \r\n");
}

TEST_F(CCheckFixture, JumperIdsPairAcrossLists)
{
    Put(1, 1, "JPI\t5,L");
    Put(2, 1, "JPI\t5,L");
    Put(3, 1, "JPO\t5,R");
    Put(4, 1, "JPO\t8,R");
    const QStringList faults = Report().split("\r\n");
    EXPECT_TRUE(faults.contains("The jumper panel[5] is not connected to the other."));
    EXPECT_TRUE(faults.contains("The jumper panel[8] is not connected to the other."));
    EXPECT_EQ(faults.filter("jumper").size(), 2);
}

TEST_F(CCheckFixture, CapacityAboveOneThousandOnlyWithTheLimitFlag)
{
    const struct
    {
        const char* Name;
        int Extra; // weight of one more panel beside 100 of weight 10
        bool LimitFlag;
        bool Fault;
    } cases[] = {
        {"exactly 1000", 0, true, false},
        {"1001", 1, true, true},
        {"1001 while loading", 1, false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        grid.ClearAll();
        for (int column = 1; column <= 10; ++column)
            for (int row = 1; row <= 10; ++row)
                Put(column, row, "DLY\t1.00S");
        auto extra = std::make_unique<CPanelCell>("AND\tR");
        extra->GetPanel()->SetWeight(c.Extra);
        ASSERT_TRUE(grid.Place(16, 40, std::move(extra)));
        grid.SetLimitFlag(c.LimitFlag);
        EXPECT_EQ(Report().startsWith("The number of panels larger than limit.\r\n"), c.Fault);
        EXPECT_EQ(Report().contains("limit"), c.Fault);
    }
}

TEST_F(CCheckFixture, GatesAndWiresOfNoKnownKindAreNamed)
{
    Put(3, 4, "AND\tX", "AND");
    Put(5, 6, "LINE\tQQ", "Wire");
    Put(7, 8, "NOT\tR", "NOT");
    const QStringList faults = Report().split("\r\n");
    EXPECT_EQ(faults.filter("kind"), (QStringList{"The kind of panel [AND(3,4)] is unknown: AND\tX",
                                                  "The kind of panel [Wire(5,6)] is unknown: LINE\tQQ"}));
}
