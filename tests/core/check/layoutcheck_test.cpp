#include "core/grid/gridtest.h"
#include "layoutcheck.h"

#include <QRegularExpression>

namespace {

struct CCheckFixture : GridFixture
{
    // The faults of the report that match the pattern, each ending in a line feed.
    QString Faults(const QString& pattern = QString()) const
    {
        QString faults;
        for (const QString& fault : CLayoutCheck::Run(grid).split("\r\n", Qt::SkipEmptyParts))
            if (fault.contains(QRegularExpression(pattern)))
                faults += fault + u'\n';
        return faults;
    }
};

QString Incomplete(const char* panel)
{
    return QStringLiteral("The connection of panel [%1] is incomplete. \n").arg(panel);
}

const QString kDoubled = QStringLiteral("The port assigned two or more panels. port=P1\n");

} // namespace

TEST_F(CCheckFixture, FaultsOfEachKind)
{
    // Rows 1 and 2 of a case are wired from column 2 to 16.
    const struct
    {
        const char *Name, *Panels;
        int Row1, Row2;
        const char* Filter;
        QString Faults;
    } cases[] = {
        {"empty layout passes", "", 0, 0, "", ""},
        {"switch, gate and lamp wired across pass",
         "-1,3 KEY\tH,PD2 @Key; 1,3 AND\tR; 1,2 ON\tD; -2,3 LAMP\tH,PB5", 3, 0, "", ""},
        {"unconnected side panels name their label",
         "-1,3 SW\tH,PD2\t\t;start @Switch; -2,4 LAMP\tH,PB5 @Lamp", 0, 0, "",
         Incomplete("Switch[start]") + Incomplete("Lamp")},
        // The wire needs an output panel in row 5, the NOT something with R on its left;
        // a counter in row 1 needs no upper neighbour, and the wire down ends on nothing.
        {"process sides need facing neighbours",
         "16,5 LINE\tLR @Wire; 15,5 NOT\tR @Not; 3,1 CNT\tC,5; 2,1 ON\tR; 4,1 LINE\tLR; "
         "5,1 LINE\tLD; 5,2 LINE\tUD @Down",
         0, 0, "", Incomplete("Down(5,2)") + Incomplete("Not(15,5)") + Incomplete("Wire(16,5)")},
        // The receiver feeds a wire beside its third row; the buzzer's top row is not wired.
        {"tall panels connect on every row they cover",
         "-1,1 UARI\tC,3,2,1 @Rx; 1,1 LINE\tLR; 1,3 LINE\tLR; -2,1 LAMP\tH,P1; "
         "-2,2 BUZZ\tP2,2000,1000 @Buzz",
         1, 3, "", Incomplete("Buzz")},
        // Gates are exempt from properties.
        {"incomplete panels and doubled ports",
         "-1,1 SW\tH @In; -1,2 KEY\tH,P1\t\t;a; -1,3 KEY\tH,P1; -2,1 LAMP\tH,P1; 2,1 FF @FF; "
         "1,2 AND\tR",
         0, 0, "properties|port",
         "The properties of panel [In] is none. \nThe properties of panel [FF(2,1)] is none. \n" +
             kDoubled + kDoubled + kDoubled},
        {"web-in needs web-out", "-1,1 WEBIN\t1\t\t;w; 1,1 LINE\tLR; -2,1 LAMP\tH,P2", 1, 0, "",
         "It is necessary to use the WEB-out panel for the WEB-in panel.\n"},
        {"web-in with web-out", "-1,1 WEBIN\t1\t\t;w; 1,1 LINE\tLR; -2,1 LAMP\tH,P2; -2,30 WEBOUT",
         1, 0, "", Incomplete("")},
        {"jump ids pair across the lists", "1,1 JPI\t5,L; 2,1 JPI\t5,L; 3,1 JPO\t5,R; 4,1 JPO\t8,R",
         0, 0, "jumper",
         "The jumper panel[5] is not connected to the other.\n"
         "The jumper panel[8] is not connected to the other.\n"},
        {"gates and wires of no known kind", "3,4 AND\tX @AND; 5,6 LINE\tQQ @Wire; 7,8 NOT\tR @NOT",
         0, 0, "kind",
         "The kind of panel [AND(3,4)] is unknown: AND\tX\n"
         "The kind of panel [Wire(5,6)] is unknown: LINE\tQQ\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        grid.ClearAll();
        PutAll(grid, c.Panels);
        for (int row : {c.Row1, c.Row2})
            for (int column = 2; row > 0 && column <= 16; ++column)
                ASSERT_TRUE(grid.Place(column, row, Cell("LINE\tLR")));
        EXPECT_EQ(Faults(QString::fromUtf8(c.Filter)), c.Faults);
    }
}

TEST_F(CCheckFixture, CapacityAboveOneThousandOnlyWithTheLimitFlag)
{
    for (int column = 1; column <= 10; ++column)
        for (int row = 1; row <= 10; ++row)
            ASSERT_TRUE(grid.Place(column, row, Cell("DLY\t1.00S")));
    const struct
    {
        const char* Name;
        int Extra; // weight of one more panel beside 100 of weight 10
        bool LimitFlag, Fault;
    } cases[] = {{"exactly 1000", 0, true, false},
                 {"1001", 1, true, true},
                 {"1001 while loading", 1, false, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        auto extra = Cell("AND\tR");
        extra->GetPanel()->SetWeight(c.Extra);
        ASSERT_TRUE(grid.Place(16, 40, std::move(extra)));
        grid.SetLimitFlag(c.LimitFlag);
        const QString limit = QStringLiteral("The number of panels larger than limit.\n");
        EXPECT_EQ(Faults("limit"), c.Fault ? limit : "");
        EXPECT_EQ(Faults().startsWith(limit), c.Fault); // first of the report
    }
}
