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
