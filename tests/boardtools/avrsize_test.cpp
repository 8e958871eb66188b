// The board's size check on programs linked by avr-gcc: what fits, and what does not.
#include "panelctest.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

TEST(AvrSize, RefusesWhatTheChipCannotHoldAndNamesTheSizes)
{
    const struct
    {
        const char* Name;
        QByteArray Source;
        int ExitCode;
        QString Pattern; // the whole output, as a regular expression
    } cases[] = {
        {"a small program fits",
         "int main(void) { return 0; }\n", 0,
         "Program: \\d+ of 32256 bytes of flash, 0 of 2048 bytes of RAM \\(256 bytes kept for the stack\\)\\.\n"},
        {"a program in the boot loader's flash",
         "#include <avr/pgmspace.h>\nconst char big[32400] PROGMEM = {1};\n"
         "int main(void) { return pgm_read_byte(&big[5]); }\n",
         1, "The program does not fit the chip: it needs 32\\d\\d\\d bytes of flash, and 32256 bytes are free "
            "beside the boot loader\\.\n"},
        {"data in the stack's room",
         "volatile char buffer[1900];\nint main(void) { return buffer[3]; }\n", 1,
         "The program does not fit the chip: it needs 1900 bytes of RAM, and 1792 bytes are free beside 256 "
         "bytes for the stack\\.\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        QTemporaryDir dir;
        QFile source(QDir(dir.path()).filePath("p.c"));
        ASSERT_TRUE(source.open(QIODevice::WriteOnly));
        source.write(c.Source);
        source.close();
        ASSERT_EQ(RunProgram("avr-gcc", {"-mmcu=atmega328p", "-Os", "-o", "BASE.elf", "p.c"}, dir.path()).ExitCode, 0);
        const CProgramRun run = RunProgram(QStringLiteral(QUILLON_AVRSIZE),
                                           {"BASE.elf", "--flash", "32256", "--ram", "2048", "--stack", "256"},
                                           dir.path());
        EXPECT_EQ(run.ExitCode, c.ExitCode);
        EXPECT_TRUE(QRegularExpression("^" + c.Pattern + "$").match(run.Output).hasMatch()) << run.Output.toStdString();
    }
}

TEST(AvrSize, AFileThatIsNoProgramAndAMissingLimit)
{
    QTemporaryDir dir;
    QFile text(QDir(dir.path()).filePath("BASE.elf"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("not an ELF file at all, but long enough to hold an ELF header's fifty-two bytes");
    text.close();
    const CProgramRun noElf = RunProgram(QStringLiteral(QUILLON_AVRSIZE),
                                         {"BASE.elf", "--flash", "32256", "--ram", "2048"}, dir.path());
    EXPECT_EQ(noElf.ExitCode, 2);
    EXPECT_EQ(noElf.Output, "BASE.elf is no program for the chip.\n");
    EXPECT_EQ(RunProgram(QStringLiteral(QUILLON_AVRSIZE), {"BASE.elf", "--flash", "32256"}, dir.path()).ExitCode, 2);
}

TEST(AvrSize, SpeaksJapaneseWhenTheBoardAsks)
{
    QTemporaryDir dir;
    QFile source(QDir(dir.path()).filePath("p.c"));
    ASSERT_TRUE(source.open(QIODevice::WriteOnly));
    source.write("volatile char buffer[1900];\nint main(void) { return buffer[3]; }\n");
    source.close();
    ASSERT_EQ(RunProgram("avr-gcc", {"-mmcu=atmega328p", "-Os", "-o", "BASE.elf", "p.c"}, dir.path()).ExitCode, 0);
    const CProgramRun run = RunProgram(QStringLiteral(QUILLON_AVRSIZE),
                                       {"BASE.elf", "--flash", "32256", "--ram", "2048", "--stack", "256", "--lang", "ja"},
                                       dir.path());
    EXPECT_EQ(run.ExitCode, 1);
    EXPECT_EQ(run.Output, QString::fromUtf8("プログラムがチップに入りません: RAMが 1900 バイト必要ですが、空きは 1792 "
                                            "バイトです(スタック用に 256 バイトを確保)。\n"));
}
