// The panel compiler run as the build runs it: what it refuses, and C that avr-gcc takes
// for every family the board offers.
#include "panelctest.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

namespace {

QStringList ErrorLines(const CPanelcWork& work)
{
    QString text = work.Read("PANEL.err");
    EXPECT_TRUE(text.isEmpty() || text.endsWith("\r\n")) << "every line ends in CR LF";
    text.chop(2);
    return text.split("\r\n");
}

} // namespace

TEST(PanelcRefuses, WritesTheFaultsToPanelErrAndExitsOne)
{
    const char* const jumpsJoined = "1,1 ON  \tR|2,1 JPI \t5,L|1,3 ON  \tR|2,3 JPI \t5,L";
    const char* const twoDrivers =
        "Two outputs drive one signal: [Always on(1,1)] and [Always on(1,3)]";
    const struct
    {
        const char* Name;
        QString Layout;
        QString Messages; // one a line, in the order the user fixes them
        int Clock = 1;
    } rows[] = {
        {"two jump-ins with one id join two outputs", jumpsJoined + QString("|3,2 JPO \t5,R"),
         twoDrivers},
        {"gates feeding themselves through a jump",
         "2,1 JPO \t7,D|2,2 AND \tR|3,2 NOT \tR|4,2 JPI \t7,L",
         "These gates feed each other in a loop: [AND(2,2)] and [NOT(3,2)]"},
        {"a lamp on a data pin of the LCD", "O1 LCD \t1,\"Hi\"|O2 LAMP\tH,PD4",
         "The port PD4 is used by the LCD and by [Lamp]"},
        {"a key on a digit pin of the display, named after the display",
         "I1 KEY \tH,PB3|O1 7SEG4\t\t;7SEG4_D",
         "The port PB3 is used by the seven-segment display and by [Push key]"},
        {"a lamp on the third coil of the motor driver", "O1 SMOTO\t1,500|O5 LAMP\tH,PC4\t\t;busy",
         "The port PC4 is used by [Stepping motor driver] and by [Lamp[busy]]"},
        {"a flip-flop of no type", "3,4 FF", "The panel [FF(3,4)] has no properties set."},
        {"a display of no type", "O2 7SEG", "The panel [7-segment LED] has no properties set."},
        {"a network panel on a board without network", "I1 WEBIN\t2\t\t;net",
         "The board cannot run the panel [WEBIN[net]]."},
        {"a lamp on a port the board does not have is a lamp without its port", "O1 LAMP\tH,PX9",
         "The panel [Lamp] has no properties set."},
        {"a buzzer on a pin without a timer", "O1 BUZZ\tPB4,2000",
         "The panel [Buzzer] needs a port with a timer of its own: PD3, PB1, PB2."},
        {"a buzzer and the PWM output on timer 1", "O1 BUZZ\tPB1,2000|O3 PWM \t1000Hz,50",
         "[Buzzer] and [PWM output] need the same timer of the chip: put one of them on another "
         "port."},
        {"a PWM frequency beyond the timer", "O1 PWM \t5000000Hz,50",
         "The panel [PWM output] cannot make 5000000 Hz on the port PB2."},
        {"a clock source the board has not", "O1 LAMP\tH,PB5", "The board has no clock source 2.",
         2},
        {"every fault one line", jumpsJoined + QString("|O1 LCD \t1,\"Hi\"|O2 DGO \tH,PB0|5,5 FF"),
         "The panel [FF(5,5)] has no properties set.\n" + QString(twoDrivers) +
             "\nThe port PB0 is used by the LCD and by [Digital output]"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        CPanelcWork work;
        EXPECT_EQ(work.Compile(row.Layout, row.Clock).ExitCode, 1);
        EXPECT_EQ(ErrorLines(work), row.Messages.split(u'\n'));
        EXPECT_FALSE(QFile::exists(work.Path("BASE.c"))) << "nothing to compile is left behind";
    }
    // A compile that passes removes an earlier PANEL.err.
    CPanelcWork work;
    ASSERT_EQ(work.Compile("3,4 FF").ExitCode, 1);
    ASSERT_EQ(work.Compile("O1 LAMP\tH,PB5").ExitCode, 0);
    EXPECT_FALSE(QFile::exists(work.Path("PANEL.err")));
}

TEST(PanelcRefuses, SpeaksJapaneseWhenOnlyTheJapaneseBoardFileIsThere)
{
    // A board folder of its own: the compiler's folder is the board folder.
    QTemporaryDir board;
    const QDir source = QFileInfo(QStringLiteral(QUILLON_PANELC)).dir();
    for (const char* name :
         {"quillon-panelc", "quillon-avrsize", "board.xml", "inout.xml", "parts.xml"})
        ASSERT_TRUE(QFile::copy(source.filePath(name), QDir(board.path()).filePath(name))) << name;
    QFile::setPermissions(QDir(board.path()).filePath("quillon-panelc"),
                          QFile::permissions(source.filePath("quillon-panelc")));
    CPanelcWork work(QDir(board.path()).filePath("quillon-panelc"));
    EXPECT_EQ(work.Compile("3,4 FF").ExitCode, 1);
    EXPECT_EQ(ErrorLines(work), QStringList{"パネル [FF(3,4)] のプロパティが設定されていません。"});
}

namespace {

QString Features(const CPanelcWork& work)
{
    static const QRegularExpression feature(QStringLiteral("#define (Q_USE_\\w+) 1"));
    QStringList names;
    for (const QRegularExpressionMatch& m : feature.globalMatch(work.Read("BASE.h")))
        names.append(m.captured(1));
    return names.join(' ');
}

} // namespace

// The C of a layout takes the run-time parts the layout uses and no more, and avr-gcc and
// the size check take it as the board's command list runs them. (What each family does on
// the chip is run in the simulator, layout by layout.)
TEST(PanelcCompiles, OnlyTheRunTimePartsALayoutUsesToCThatAvrGccTakes)
{
    const std::pair<const char*, const char*> rows[] = {
        {"I1 KEY \tH,PD2|W1,1|O1 LAMP\tH,PB5", ""},
        {"1,1 DLY \t100.00S", "Q_USE_LONG_TIMES"},
        {"I1 UARI\tC,1|W1,1|O1 UARO", "Q_USE_UART_RX Q_USE_UART_TX"},
        {"O1 BUZZ\tPD3,500|O3 PWM \t31Hz,50", "Q_USE_WAVE_T1B Q_USE_WAVE_T2B"},
        {"I1 ANI \tL,PC0,512|O1 SMOTO\t2,20", "Q_USE_ADC Q_USE_MOTOR"},
        {"O1 LCD \t0,\"\"|O2 PULS\tH,PC1,100,50,0", "Q_USE_LCD Q_USE_PULSE"},
    };
    for (const auto& [layout, features] : rows) {
        SCOPED_TRACE(layout);
        CPanelcWork work;
        ASSERT_EQ(work.Compile(layout).ExitCode, 0) << work.Read("PANEL.err").toStdString();
        EXPECT_TRUE(work.Read("BASE.h").contains("#define F_CPU 16000000UL"));
        EXPECT_EQ(Features(work), features);
        const CProgramRun gcc = work.CompileC();
        ASSERT_EQ(gcc.ExitCode, 0) << gcc.Output.toStdString() << work.Read("BASE.c").toStdString();
        const CProgramRun size = work.CheckSize();
        EXPECT_EQ(size.ExitCode, 0) << size.Output.toStdString();
        EXPECT_TRUE(size.Output.startsWith("Program: ")) << size.Output.toStdString();
    }
}

TEST(PanelcCompiles, GatesRunInTheNetlistsOrderNotTheGridsOrder)
{
    // The NOT in column 3 feeds the NOT in column 2 through a jump, so it runs first.
    CPanelcWork work;
    ASSERT_EQ(work.Compile("1,1 OFF \tR|2,1 LINE\tLR|3,1 NOT \tR|4,1 JPI \t3,L|1,2 JPO \t3,R|"
                           "2,2 NOT \tR|W2,3|O2 LAMP\tH,PB5")
                  .ExitCode,
              0);
    const QString source = work.Read("BASE.c");
    ASSERT_TRUE(source.contains("[NOT(2,2)]") && source.contains("[NOT(3,1)]"));
    EXPECT_LT(source.indexOf("[NOT(3,1)]"), source.indexOf("[NOT(2,2)]"));
}

// The cells file names each side of each net the scan computes, in the cell a layout
// record names, and the state of each storing panel, with the field's place in its type.
TEST(PanelcCompiles, CellsNameEveryPinOfAComputedNetAndEveryStoringPanelsState)
{
    CPanelcWork work;
    ASSERT_EQ(work.Compile(kMappedLayout).ExitCode, 0) << work.Read("PANEL.err").toStdString();
    QStringList lines = work.Read("BASE.cells").split(u'\n', Qt::SkipEmptyParts);
    ASSERT_FALSE(lines.isEmpty());
    EXPECT_EQ(lines.takeFirst(), "; Cells of layout.loc: CELL ITEM SYMBOL OFFSET BYTES");
    QHash<QString, QStringList> entries; // "CELL ITEM" -> symbol, offset, bytes
    for (const QString& line : lines)
        entries.insert(line.section(u' ', 0, 1), line.section(u' ', 2).split(u' '));
    const QString source = work.Read("BASE.c");
    const struct
    {
        const char* Name;
        QString Entry;
        QString Expected; // "= CELL ITEM" the same net, "!= CELL ITEM" another, else
                          // "TYPE OFFSET BYTES" of the state variable
    } rows[] = {
        {"the gate's output is the net the timer reads", "0103 R", "= 0203 L"},
        {"an input's net is named in the input column", "0102 L", "= I_02 R"},
        {"the crossing carries one net across", "0102 R", "= 0102 L"},
        {"and one down", "0102 D", "= 0102 U"},
        {"and shows the two apart", "0102 L", "!= 0102 U"},
        {"a tall panel's row is its own cell", "0304 R", "= O_04 L"},
        {"a timer's elapsed count", "0203 elapsed", "q_timer_t 2 2"},
        {"a counter's value", "0202 count", "q_counter_t 0 2"},
        {"a motor's step position", "0303 position", "q_motor_t 1 1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        const QStringList entry = entries.value(row.Entry), expected = row.Expected.split(u' ');
        ASSERT_EQ(entry.size(), 3) << "no entry " << row.Entry.toStdString();
        if (expected[0] == u"=" || expected[0] == u"!=") {
            const QStringList other = entries.value(expected[1] + u' ' + expected[2]);
            ASSERT_EQ(other.size(), 3);
            EXPECT_EQ(entry[0] == other[0], expected[0] == u"=");
            EXPECT_EQ(entry.mid(1), QStringList({"0", "1"}));
        } else {
            EXPECT_TRUE(source.contains("static " + expected[0] + ' ' + entry[0] + ';'));
            EXPECT_EQ(entry.mid(1), expected.mid(1));
        }
    }
}
