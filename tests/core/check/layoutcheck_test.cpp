#include "core/panels/paneltest.h"
#include "layoutcheck.h"
#include "panelgrid.h"
#include "support/recordingmessenger.h"

#include <QRegularExpression>

namespace {

// A panel, where it goes and the name a board's palette would give it.
struct CNamed
{
    int Column, Row;
    const char* Line;
    const char* Name = "";
};

struct CCheckFixture : testing::Test
{
    CRecordingMessenger messenger;
    CPanelGrid grid{messenger};

    void Put(const CNamed& put)
    {
        auto cell = std::make_unique<CPanelCell>(QString::fromUtf8(put.Line));
        cell->GetPanel()->SetName(QString::fromUtf8(put.Name));
        ASSERT_TRUE(grid.Place(put.Column, put.Row, std::move(cell))) << put.Line;
    }

    // The faults of the report that match the pattern, one a line.
    QStringList Faults(const QString& pattern = QString()) const
    {
        return CLayoutCheck::Run(grid)
            .split("\r\n", Qt::SkipEmptyParts)
            .filter(QRegularExpression(pattern));
    }
};

const QString kIncomplete = QStringLiteral("The connection of panel [%1] is incomplete. ");

} // namespace

TEST_F(CCheckFixture, FaultsOfEachKind)
{
    // WiredRows: wires from column 2 to 16
    const struct
    {
        const char* Name;
        QList<CNamed> Panels;
        QList<int> WiredRows;
        const char* Filter;
        QStringList Faults;
    } cases[] = {
        {"empty layout passes", {}, {}, "", {}},
        {"switch, gate and lamp wired across pass",
         {{-1, 3, "KEY\tH,PD2", "Key"}, {1, 3, "AND\tR"}, {1, 2, "ON\tD"}, {-2, 3, "LAMP\tH,PB5"}},
         {3},
         "",
         {}},
        {"unconnected side panels name their label",
         {{-1, 3, "SW\tH,PD2\t\t;start", "Switch"}, {-2, 4, "LAMP\tH,PB5", "Lamp"}},
         {},
         "",
         {kIncomplete.arg("Switch[start]"), kIncomplete.arg("Lamp")}},
        {"process sides need facing neighbours",
         {{16, 5, "LINE\tLR", "Wire"}, // needs an output panel in row 5
          {15, 5, "NOT\tR", "Not"},    // needs something with R on its left
          {3, 1, "CNT\tC,5"},          // a counter in row 1 needs no upper neighbour
          {2, 1, "ON\tR"},
          {4, 1, "LINE\tLR"},
          {5, 1, "LINE\tLD"},
          {5, 2, "LINE\tUD", "Down"}}, // ends with nothing below
         {},
         "",
         {kIncomplete.arg("Down(5,2)"), kIncomplete.arg("Not(15,5)"),
          kIncomplete.arg("Wire(16,5)")}},
        {"tall panels connect on every row they cover",
         {{-1, 1, "UARI\tC,3,2,1", "Rx"}, // feeds a wire beside its third row
          {1, 1, "LINE\tLR"},
          {1, 3, "LINE\tLR"},
          {-2, 1, "LAMP\tH,P1"},
          {-2, 2, "BUZZ\tP2,2000,1000", "Buzz"}}, // rows 2 and 3: its top row is not wired
         {1, 3},
         "",
         {kIncomplete.arg("Buzz")}},
        {"incomplete panels and doubled ports",
         {{-1, 1, "SW\tH", "In"},
          {-1, 2, "KEY\tH,P1\t\t;a"},
          {-1, 3, "KEY\tH,P1"},
          {-2, 1, "LAMP\tH,P1"},
          {2, 1, "FF", "FF"},
          {1, 2, "AND\tR"}}, // gates are exempt
         {},
         "properties|port",
         {"The properties of panel [In] is none. ", "The properties of panel [FF(2,1)] is none. ",
          "The port assigned two or more panels. port=P1",
          "The port assigned two or more panels. port=P1",
          "The port assigned two or more panels. port=P1"}},
        {"web-in needs web-out",
         {{-1, 1, "WEBIN\t1\t\t;w"}, {1, 1, "LINE\tLR"}, {-2, 1, "LAMP\tH,P2"}},
         {1},
         "",
         {"It is necessary to use the WEB-out panel for the WEB-in panel."}},
        {"web-in with web-out",
         {{-1, 1, "WEBIN\t1\t\t;w"}, {1, 1, "LINE\tLR"}, {-2, 1, "LAMP\tH,P2"}, {-2, 30, "WEBOUT"}},
         {1},
         "",
         {kIncomplete.arg("")}},
        {"jump ids pair across the lists",
         {{1, 1, "JPI\t5,L"}, {2, 1, "JPI\t5,L"}, {3, 1, "JPO\t5,R"}, {4, 1, "JPO\t8,R"}},
         {},
         "jumper",
         {"The jumper panel[5] is not connected to the other.",
          "The jumper panel[8] is not connected to the other."}},
        {"gates and wires of no known kind",
         {{3, 4, "AND\tX", "AND"}, {5, 6, "LINE\tQQ", "Wire"}, {7, 8, "NOT\tR", "NOT"}},
         {},
         "kind",
         {"The kind of panel [AND(3,4)] is unknown: AND\tX",
          "The kind of panel [Wire(5,6)] is unknown: LINE\tQQ"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        grid.ClearAll();
        for (const CNamed& put : c.Panels)
            Put(put);
        for (int row : c.WiredRows)
            for (int column = 2; column <= 16; ++column)
                Put({column, row, "LINE\tLR"});
        EXPECT_EQ(Faults(QString::fromUtf8(c.Filter)), c.Faults);
    }
}

TEST_F(CCheckFixture, CapacityAboveOneThousandOnlyWithTheLimitFlag)
{
    for (int column = 1; column <= 10; ++column)
        for (int row = 1; row <= 10; ++row)
            Put({column, row, "DLY\t1.00S"});
    // Extra: weight of one more panel beside 100 of weight 10
    const struct
    {
        const char* Name;
        int Extra;
        bool LimitFlag;
        bool Fault;
    } cases[] = {
        {"exactly 1000", 0, true, false},
        {"1001", 1, true, true},
        {"1001 while loading", 1, false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        auto extra = std::make_unique<CPanelCell>("AND\tR");
        extra->GetPanel()->SetWeight(c.Extra);
        ASSERT_TRUE(grid.Place(16, 40, std::move(extra)));
        grid.SetLimitFlag(c.LimitFlag);
        EXPECT_EQ(Faults("limit"),
                  c.Fault ? QStringList{"The number of panels larger than limit."} : QStringList{});
        EXPECT_EQ(Faults().value(0) == "The number of panels larger than limit.", c.Fault);
    }
}
