// The board's size check on programs linked by avr-gcc: what fits, and what does not.
#include "panelctest.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

TEST(AvrSize, RefusesWhatTheChipCannotHoldAndNamesTheSizes)
{
    const QByteArray small = "int main(void) { return 0; }\n",
                     bigData =
                         "volatile char buffer[1900];\nint main(void) { return buffer[3]; }\n";
    const QString unfit = "The program does not fit the chip: it needs ";
    const struct
    {
        const char* Name;
        QByteArray Source; // C to link, or else the bytes of BASE.elf
        QString Limits;    // after the flash size; "" only the flash size
        int ExitCode;
        QString Pattern; // the whole output, as a regular expression
    } cases[] = {
        {"a small program fits", small, "--ram 2048 --stack 256", 0,
         "Program: \\d+ of 32256 bytes of flash, 0 of 2048 bytes of RAM \\(256 bytes kept for "
         "the stack\\)\\.\n"},
        {"initialised data takes flash as well as RAM",
         "volatile char data[1000] = {1};\nint main(void) { return data[5]; }\n",
         "--ram 2048 --stack 256", 0,
         "Program: 1\\d\\d\\d of 32256 bytes of flash, 1000 of 2048 bytes of RAM .*"},
        {"a program in the boot loader's flash",
         "#include <avr/pgmspace.h>\nconst char big[32400] PROGMEM = {1};\n"
         "int main(void) { return pgm_read_byte(&big[5]); }\n",
         "--ram 2048 --stack 256", 1,
         unfit +
             "32\\d\\d\\d bytes of flash, and 32256 bytes are free beside the boot loader\\.\n"},
        {"data in the stack's room", bigData, "--ram 2048 --stack 256", 1,
         unfit + "1900 bytes of RAM, and 1792 bytes are free beside 256 bytes for the stack\\.\n"},
        {"in Japanese when the board asks", bigData, "--ram 2048 --stack 256 --lang ja", 1,
         "プログラムがチップに入りません: RAMが 1900 バイト必要ですが、空きは 1792 "
         "バイトです\\(スタック用に 256 バイトを確保\\)。\n"},
        {"a file that is no program",
         "not an ELF file at all, but long enough to hold an ELF header's 52 bytes",
         "--ram 2048 --stack 256", 2, "BASE\\.elf is no program for the chip\\.\n"},
        {"a missing limit", small, "", 2, ".*"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        QTemporaryDir dir;
        const bool program = c.Source.contains("main(");
        QFile source(QDir(dir.path()).filePath(program ? "p.c" : "BASE.elf"));
        ASSERT_TRUE(source.open(QIODevice::WriteOnly) && source.write(c.Source) > 0);
        source.close();
        if (program) {
            ASSERT_EQ(RunProgram("avr-gcc", {"-mmcu=atmega328p", "-Os", "-o", "BASE.elf", "p.c"},
                                 dir.path())
                          .ExitCode,
                      0);
        }
        const CProgramRun run = RunProgram(QStringLiteral(QUILLON_AVRSIZE),
                                           QStringList{"BASE.elf", "--flash", "32256"} +
                                               c.Limits.split(u' ', Qt::SkipEmptyParts),
                                           dir.path());
        EXPECT_EQ(run.ExitCode, c.ExitCode);
        EXPECT_TRUE(QRegularExpression("^" + c.Pattern + "$",
                                       QRegularExpression::DotMatchesEverythingOption)
                        .match(run.Output)
                        .hasMatch())
            << run.Output.toStdString();
    }
}

// The simulation map of a layout linked by avr-gcc: each entry's address is its variable's
// as avr-nm reads the ELF file, plus the field's offset.
TEST(AvrSizeMap, PlacesEveryCellAtItsVariablesAddress)
{
    CPanelcWork work;
    ASSERT_EQ(work.Compile(kMappedLayout).ExitCode, 0) << work.Read("PANEL.err").toStdString();
    const CProgramRun gcc = work.CompileC();
    ASSERT_EQ(gcc.ExitCode, 0) << gcc.Output.toStdString();
    const CProgramRun map = work.Run("./PANEL.avrsize", "BASE.elf --map BASE.cells BASE.simmap");
    ASSERT_EQ(map.ExitCode, 0) << map.Output.toStdString();
    QHash<QString, uint> addresses; // "00800104 b n3"
    for (const QString& line : work.Run("avr-nm", "BASE.elf").Output.split(u'\n'))
        addresses.insert(line.section(u' ', 2), line.section(u' ', 0, 0).toUInt(nullptr, 16));
    const QStringList cells = work.Read("BASE.cells").split(u'\n', Qt::SkipEmptyParts);
    QStringList lines = work.Read("BASE.simmap").split("\r\n");
    ASSERT_EQ(lines.size(), cells.size() + 1) << "one line a cell, CR LF after each";
    EXPECT_EQ(lines.takeFirst(), "; Simulation map of layout.loc: CELL ITEM ADDRESS BYTES");
    for (qsizetype i = 1; i < cells.size(); ++i) {
        const QStringList cell = cells[i].split(u' ');
        ASSERT_TRUE(addresses.contains(cell[2])) << cell[2].toStdString();
        EXPECT_EQ(lines[i - 1],
                  QStringLiteral("%1 %2 0x%3 %4")
                      .arg(cell[0], cell[1])
                      .arg(addresses[cell[2]] - 0x800000 + cell[3].toUInt(), 4, 16, QChar(u'0'))
                      .arg(cell[4]));
    }
}

TEST(AvrSizeMap, LeavesNoMapWhenACellCannotBePlaced)
{
    CPanelcWork work;
    work.Write("p.c", "volatile char buffer[4];\nint main(void) { return buffer[3]; }\n");
    ASSERT_EQ(work.Run("avr-gcc", "-mmcu=atmega328p -Os -o BASE.elf p.c").ExitCode, 0);
    const QByteArray head = "; Cells of a.loc: CELL ITEM SYMBOL OFFSET BYTES\r\n";
    const QString unused = "The cells file BASE.cells cannot be used: line %1 is not as the "
                           "panel compiler writes it.\n";
    const struct
    {
        const char* Name;
        QByteArray Cells; // "-": no cells file
        QString Output;
        const char* Language = "en";
    } rows[] = {
        {"no cells file", "-", "The cells file BASE.cells cannot be read.\n"},
        {"no heading", "0101 R buffer 0 1\n", unused.arg(1)},
        {"an offset that is no number", head + "0101 R buffer 0 1\n0102 R buffer x 1\n",
         unused.arg(3)},
        {"an entry short of its size", head + "0101 R buffer 0\n", unused.arg(2)},
        {"a symbol the program lacks, after one it has",
         head + "0101 R buffer 0 1\n0102 L n7 0 1\n",
         "The cells file BASE.cells names n7, which the program does not hold.\n"},
        {"a function is no variable", head + "0101 R main 0 1\n",
         "The cells file BASE.cells names main, which the program does not hold.\n"},
        {"in Japanese when the board asks", head + "0101 R n7 0 1\n",
         "セルファイル BASE.cells にある n7 がプログラムにありません。\n", "ja"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        QFile::remove(work.Path("BASE.cells"));
        if (row.Cells != "-")
            work.Write("BASE.cells", row.Cells);
        work.Write("BASE.simmap", "an earlier build's map");
        const CProgramRun run = work.Run(
            QUILLON_AVRSIZE,
            QStringLiteral("BASE.elf --map BASE.cells BASE.simmap --lang ") + row.Language);
        EXPECT_EQ(run.ExitCode, 2);
        EXPECT_EQ(run.Output, row.Output);
        EXPECT_FALSE(QFile::exists(work.Path("BASE.simmap"))) << "no map is left behind";
    }
}
