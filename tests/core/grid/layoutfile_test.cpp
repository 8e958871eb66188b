#include "boardinfo.h"
#include "gridtest.h"
#include "layoutfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <unistd.h>

namespace {

QByteArray ReadAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool WriteAll(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QString Fixture(const char* name)
{
    return QStringLiteral(QUILLON_TEST_DATA "/layouts/") + QString::fromLatin1(name);
}

const QString kNotLoaded =
    QStringLiteral("Some lines of the file were not loaded as they stand:\n");

struct CLayoutFixture : GridFixture
{
    CLayoutFile file{nullptr, messenger};
    QTemporaryDir dir;

    QString Path(const char* name) const { return dir.filePath(QString::fromLatin1(name)); }
};

} // namespace

TEST_F(CLayoutFixture, GoldenLayoutOfEveryFamilyRoundTripsByteForByte)
{
    const QByteArray golden = ReadAll(Fixture("golden.loc"));
    ASSERT_TRUE(file.Load(grid, Fixture("golden.loc"))) << file.ErrorString().toStdString();
    // Compared as lines, so a failure shows which record differs.
    EXPECT_EQ(QString::fromUtf8(CLayoutFile::Write(grid)).split("\r\n"),
              QString::fromUtf8(golden).split("\r\n"));
    EXPECT_EQ(messenger.Texts, QStringList());
    ASSERT_TRUE(file.Save(grid, Path("copy.loc")));
    EXPECT_EQ(ReadAll(Path("copy.loc")), golden);
}

TEST_F(CLayoutFixture, ReadingNamesEveryLineItLeavesOutInOneMessage)
{
    file.Read(grid, ";INPUT\n"
                    "  I_03:SW\tH,P1  \n"
                    "I_00:SW\tH,P2\n" // row 0
                    "0000:AND\tR\n"   // column 0
                    "9912:AND\tR\n"   // column 99 is off the grid
                    "0212:\n"         // empty record
                    "O_1\n"           // too short
                    "O_02:BOGUS\tX\n" // unknown keyword
                    "0103:OR\tD\r\n"  // any of the three line ends ends a line
                    "OUTPUT\r"
                    "I_04:LAMP\tH,P3\n" // the prefix decides the column, not the heading
                    "0104:AND\tX\n"     // a gate of no kind stays, but is named
                    "0105:LINE\tQQ\n"
                    "0138:CNT\tC,3,2,1\n" // rows 38-40
                    "0139:AND\tR\n"       // covered by the counter
                    "0239:CNT\tC,3,2,1\n" // would reach row 41
                    "0203:AND\tR\n"
                    "0201:CNT\tC,3,2,1\n"); // would cover the gate
    EXPECT_EQ(Cells(grid), "-1,3 SW  \tH,P1; -1,4 LAMP\tH,P3; 1,3 OR  \tD; 1,4 AND \tX; "
                           "1,5 LINE\tQQ; 1,38 CNT \tC,3,2,1; 1,39 +; 1,40 +; 2,3 AND \tR");
    const QString unknown = QStringLiteral(
        "the kind of this gate or wire is unknown; it is placed, and the check names it.\n");
    EXPECT_EQ(messenger.Texts, QStringList{kNotLoaded +
                                           "Line 3: there is no such position.\n"
                                           "Line 4: there is no such position.\n"
                                           "Line 5: there is no such position.\n"
                                           "Line 6: it is no panel record.\n"
                                           "Line 7: it is no panel record.\n"
                                           "Line 8: there is no panel \"BOGUS\".\n"
                                           "Line 12: " +
                                           unknown + "Line 13: " + unknown +
                                           "Line 15: line 14 already put a panel there.\n"
                                           "Line 16: the panel reaches below the last row.\n"
                                           "Line 18: the panel would cover another panel."});
}

TEST_F(CLayoutFixture, DuplicateRecordsAreNamedOnceWithoutAQuestion)
{
    // Complete panels, which placing by hand would ask before replacing.
    QString text = "0101:DLY\t1.00S\nI_01:KEY\tH,P1\n";
    for (int i = 0; i < 30; ++i)
        text += "0101:DLY\t2.00S\n";
    file.Read(grid, text + "I_01:KEY\tH,P2\n");
    EXPECT_EQ(Cells(grid), "-1,1 KEY \tH,P1; 1,1 DLY \t1.00S");
    ASSERT_EQ(messenger.Texts.size(), 1);
    const QStringList lines = messenger.Texts[0].split(u'\n');
    // The first twenty faults by line, then how many more.
    ASSERT_EQ(lines.size(), 22);
    EXPECT_EQ(lines[1], "Line 3: line 1 already put a panel there.");
    EXPECT_EQ(lines[20], "Line 22: line 1 already put a panel there.");
    EXPECT_EQ(lines[21], "... and 11 more lines.");
}

TEST_F(CLayoutFixture, CapacityIsAnnouncedOnceAfterTheWholeFile)
{
    QString text;
    for (int column = 1; column <= 10; ++column)
        for (int row = 1; row <= 10; ++row)
            text += QStringLiteral("%1%2:DLY\t1.00S\n")
                        .arg(column, 2, 10, QChar(u'0'))
                        .arg(row, 2, 10, QChar(u'0'));
    // A panel already there of weight 1, and 100 read of weight 10.
    auto first = Cell("KEY\tH,P1");
    first->GetPanel()->SetWeight(1);
    ASSERT_TRUE(grid.Place(-1, 1, std::move(first)));
    file.Read(grid, text);
    EXPECT_EQ(grid.GetWeightedTotal(), 1001);
    EXPECT_EQ(messenger.Texts, Said(Ids::MsgOverLimit));
    EXPECT_TRUE(grid.GetLimitFlag());
    EXPECT_FALSE(grid.CanUndo()); // loading is no step to undo
}

TEST_F(CLayoutFixture, JapaneseWindowsFileKeepsItsNames)
{
    ASSERT_TRUE(file.Load(grid, Fixture("cp932.loc")));
    EXPECT_EQ(grid.GetCell(-1, 1)->GetPanel()->GetLineComment(), QString::fromUtf8("スタート"));
    EXPECT_EQ(grid.GetCell(-2, 1)->GetPanel()->GetPortName(0), QString::fromUtf8("ランプ"));
    EXPECT_TRUE(CLayoutFile::Write(grid).contains(QString::fromUtf8(";スタート").toUtf8()));
}

TEST_F(CLayoutFixture, FilesThatAreNoLayoutAreRefused)
{
    ASSERT_TRUE(WriteAll(Path("x.loc"), QByteArray("I_01:SW\tH\0\1\2", 12)));
    EXPECT_FALSE(file.Load(grid, Path("x.loc")));
    EXPECT_EQ(file.ErrorString(), "It is no LOC file.");
    ASSERT_TRUE(WriteAll(Path("notes.loc"), "root:x:0:0:root:/root:/bin/bash\nDear diary,\n"));
    EXPECT_FALSE(file.Load(grid, Path("notes.loc")));
    EXPECT_FALSE(file.Load(grid, Path("missing.loc")));
    EXPECT_FALSE(file.ErrorString().isEmpty());
}

TEST_F(CLayoutFixture, FailedSaveSaysWhichFileAndWhyAndWritesNothing)
{
    PutAll(grid, "1,1 AND\tR");
    const QString missing = Path("no/such/folder/x.loc");
    EXPECT_FALSE(file.Save(grid, missing));
    EXPECT_EQ(messenger.Texts, QStringList{"Error occured. It was not saved.\n" + missing +
                                           "\nNo such file or directory"});
    // A folder standing where the file should be is left as it was.
    ASSERT_TRUE(QDir(dir.path()).mkdir("taken.loc"));
    EXPECT_FALSE(file.Save(grid, Path("taken.loc")));
    EXPECT_TRUE(QFileInfo(Path("taken.loc")).isDir());
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList());
    EXPECT_FALSE(file.Save(grid, QString()));
    EXPECT_EQ(messenger.Texts.size(), 2); // no path: no message
    // A full disk, as the system reports it.
    if (QFileInfo::exists("/dev/full")) {
        EXPECT_FALSE(file.Save(grid, "/dev/full"));
        EXPECT_TRUE(messenger.Texts.value(2).endsWith("\n/dev/full\nNo space left on device"));
    }
}

TEST_F(CLayoutFixture, SavingKeepsLinksAndFallsBackToWritingInPlace)
{
    PutAll(grid, "1,1 AND\tR");
    const QByteArray bytes = CLayoutFile::Write(grid);
    // A hard link and a symbolic link still share the file after the save, and a file
    // replaced whole keeps who may read it.
    ASSERT_TRUE(WriteAll(Path("a.loc"), "old"));
    ASSERT_TRUE(WriteAll(Path("c.loc"), "old"));
    ASSERT_TRUE(QFile::link(Path("c.loc"), Path("symbolic.loc")));
    ASSERT_EQ(::link(QFile::encodeName(Path("a.loc")).constData(),
                     QFile::encodeName(Path("hard.loc")).constData()),
              0);
    ASSERT_TRUE(file.Save(grid, Path("hard.loc")));
    EXPECT_EQ(ReadAll(Path("a.loc")), bytes);
    ASSERT_TRUE(file.Save(grid, Path("symbolic.loc")));
    EXPECT_TRUE(QFileInfo(Path("symbolic.loc")).isSymLink());
    EXPECT_EQ(ReadAll(Path("c.loc")), bytes);
    ASSERT_TRUE(QFile::setPermissions(Path("c.loc"), QFile::ReadOwner | QFile::WriteOwner));
    const QFile::Permissions permissions = QFile::permissions(Path("c.loc"));
    ASSERT_TRUE(file.Save(grid, Path("c.loc")));
    EXPECT_EQ(QFile::permissions(Path("c.loc")), permissions);

    // A save killed before its rename left its whole temporary file; the next save of the
    // file removes it. Where no temporary file can be made, the file itself is written.
    ASSERT_TRUE(WriteAll(Path(".b.loc.saving"), "stray"));
    ASSERT_TRUE(file.Save(grid, Path("b.loc")));
    EXPECT_FALSE(QFileInfo::exists(Path(".b.loc.saving")));
    ASSERT_TRUE(QDir(dir.path()).mkdir(".b.loc.saving"));
    PutAll(grid, "2,1 OR\tR");
    ASSERT_TRUE(file.Save(grid, Path("b.loc")));
    EXPECT_EQ(ReadAll(Path("b.loc")), CLayoutFile::Write(grid));
    EXPECT_EQ(messenger.Texts, QStringList());
}

TEST_F(CLayoutFixture, OnTheBoardWireKindsAreNamedAndAMotorDriverIsLimited)
{
    CBoardInfo board;
    ASSERT_TRUE(board.Read(QStringLiteral(QUILLON_BOARDS "/atmega328p"), QString(), messenger));
    grid.SetUseLimits(board.UseLimits());
    CLayoutFile(&board, messenger)
        .Read(grid, "0101:LINE\tLR\n0102:LINE\tUD\n0103:AND\tD\n0201:SMOT\t2,20\n"
                    "0601:SMOT\t1,10\nO_01:SMOTO\t1,100\nO_05:SMOTO\t1,100\n");
    EXPECT_EQ(grid.GetCell(1, 1)->GetPanel()->GetName(), "Wire (left-right)");
    EXPECT_EQ(grid.GetCell(1, 2)->GetPanel()->GetName(), "Wire (up-down)");
    // A turned gate has no entry of its own and takes its gate's.
    EXPECT_EQ(grid.GetCell(1, 3)->GetPanel()->GetName(), "AND");
    // A motor and its driver load together; the driver's four coils are fixed pins, and
    // the board has room for one.
    EXPECT_EQ(messenger.Texts,
              QStringList{kNotLoaded + "Line 7: the board allows no more panels of this type."});
}
