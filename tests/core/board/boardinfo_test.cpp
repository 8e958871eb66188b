// Reading a board folder: the board file, its faults, and the sample board shipped.
#include "boardinfo.h"
#include "core/panels/paneltest.h"
#include "panelfactory.h"
#include "stringtable.h"
#include "support/boardfolder.h"
#include "support/recordingmessenger.h"
#include "xmldepth.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <memory>

namespace {

// A copy of a fixture board with the shared palettes beside its own files, since a board
// file may name only files inside its folder. A missing fixture stays missing.
QString Fixture(const char* board)
{
    static const QTemporaryDir copies;
    const QDir data(QStringLiteral(QUILLON_TEST_DATA "/boards"));
    const QString copy = QDir(copies.path()).filePath(board);
    if (data.exists(board) && !QFileInfo::exists(copy)) {
        CopyBoardFiles(data.filePath(board), copy);
        CopyBoardFiles(data.filePath("shared"), copy); // the board's own files stay
    }
    return copy;
}

const QString kSample = QStringLiteral(QUILLON_BOARDS "/atmega328p");

// A board read in the given language, with what it said.
struct CRead
{
    explicit CRead(const QString& folder, ELanguage language = ELanguage::English)
    {
        CStringTable::SetLanguage(language);
        Ok = Board.Read(folder, QString(), Messenger);
        CStringTable::SetLanguage(ELanguage::English);
    }
    CRecordingMessenger Messenger;
    CBoardInfo Board;
    bool Ok = false;
};

void WriteFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

} // namespace

TEST(BoardInfo, ReadsWhatTheBoardFileStates)
{
    // A fixture board that reads without a word, in the given language.
    const auto read = [](const char* name, ELanguage language = ELanguage::English) {
        auto board = std::make_shared<CRead>(Fixture(name), language);
        EXPECT_TRUE(board->Ok && board->Messenger.Texts.isEmpty()) << name;
        EXPECT_EQ(board->Board.GetFolder(), Fixture(name));
        return std::shared_ptr<const CBoardInfo>(board, &board->Board);
    };
    const auto full = read("full");
    EXPECT_EQ(
        QStringList({full->GetBoardName(), full->GetInterfaceName(), full->GetCompilerDll(),
                     full->GetCompilerProc(), full->GetCompilerPanel(), full->GetWriterCommand(),
                     full->GetWriterParam(), full->GetInOutFile(), full->GetPartsFile()}),
        QStringList({"Full board", "Test Serial", "compiler.dll", "Compile", "panelc", "writer",
                     "-p x", "inout_e.xml", "parts_e.xml"}));
    EXPECT_EQ(QList<int>({full->GetPwmLowFreq(), full->GetPwmHighFreq(), full->GetSystemClock(),
                          full->HasNetwork(), full->GetInOutPalette().GetPageCount(),
                          full->GetPartsPalette().GetPageCount()}),
              QList<int>({10, 81920, 3, false, 2, 2}));
    EXPECT_EQ(full->GetCommands(), (QStringList{"first step", "second step"}));
    ASSERT_EQ(full->GetPortCount(), 2);
    EXPECT_EQ(full->GetPort(0), (CPortEntry{"1", "P1", "D1"}));
    EXPECT_EQ(full->GetPort(1), (CPortEntry{"2", "P2", ""})) << "a missing alias reads empty";
    EXPECT_EQ(full->FindEntry("KEY")->GetPrototype()->GetPortList().DisplayName("P1"), "P1(D1)")
        << "palettes get the aliases";
    // CMD appends to the empty list, CMD2 grows it, CMD1 then replaces the first one; a gap
    // in the numbers stays a position.
    EXPECT_EQ(read("cmdorder")->GetCommands(), (QStringList{"one", "two", "plain after"}));
    const auto gap = read("cmdgap");
    EXPECT_EQ(gap->GetCommands(), (QStringList{"one", "three"}));
    EXPECT_EQ(gap->GetCommandCount(), 3);
    EXPECT_EQ(gap->GetSystemClock(), 0) << "no SYSTEMCLOCK";
    const auto writer = read("writerdll"); // the writer takes its last command and ignores DLL
    EXPECT_EQ(QStringList(
                  {writer->GetWriterCommand(), writer->GetWriterParam(), writer->GetCompilerDll()}),
              QStringList({"last writer", "params", "compiler.dll"}));
    EXPECT_EQ(read("clock8000")->GetSystemClock(), 8000);
    EXPECT_EQ(read("clockabc")->GetSystemClock(), 0);
    const auto net = read("netboard");
    EXPECT_TRUE(net->HasNetwork() && net->FindEntry("WEBIN"));
    EXPECT_EQ(read("japaneseonly", ELanguage::Japanese)->GetBoardName(),
              "日本語だけのボード"); // only board.xml
}

TEST(BoardInfo, AFaultFailsTheReadAndOnlyAPaletteFaultIsShown)
{
    const char* const palette = "Error found in panel definition file.";
    const struct
    {
        const char* Board;
        ELanguage Language;
        const char* Message;
        int InOutPages, PartsPages;
    } rows[] = {
        // Faults of the board file are kept for whoever reports them, naming the file.
        {"commentfirst", ELanguage::English, "", 0, 0},   // a comment stands before BOARD
        {"lowercaseboard", ELanguage::English, "", 0, 0}, // "board" is not "BOARD"
        {"japaneseonly", ELanguage::English, "", 0,
         0},                                     // only the interface language's file is opened
        {"full", ELanguage::Japanese, "", 0, 0}, // and it has no board.xml
        {"cmd0", ELanguage::English, "", 0, 0},  // command numbers start at 1
        {"cmdletters", ELanguage::English, "", 0, 0},
        {"cmdnegative", ELanguage::English, "", 0, 0},
        {"cmdhuge", ELanguage::English, "", 0, 0}, // CMD1000001: beyond any sensible command list
        {"nosuchboard", ELanguage::English, "", 0, 0},
        // The process palette is fine but is not read after the input/output one failed.
        {"badinout", ELanguage::English, palette, 0, 0},
        {"missinginout", ELanguage::English, palette, 0, 0},
        {"badparts", ELanguage::English, palette, 2, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Board);
        const CRead read(Fixture(row.Board), row.Language);
        EXPECT_FALSE(read.Ok);
        EXPECT_EQ(read.Messenger.Texts, *row.Message ? QStringList{row.Message} : QStringList());
        if (!*row.Message) {
            EXPECT_TRUE(read.Board.ErrorString().contains(row.Board))
                << read.Board.ErrorString().toStdString();
        }
        EXPECT_EQ(read.Board.GetInOutPalette().GetPageCount(), row.InOutPages);
        EXPECT_EQ(read.Board.GetPartsPalette().GetPageCount(), row.PartsPages);
    }
}

TEST(BoardInfo, ReferencesStayInsideTheBoardFolderAndCommandListsGrow)
{
    const QByteArray parts = R"(<PARTS file="parts_e.xml"/></PALETTE>)";
    const struct
    {
        const char* Name;
        QByteArray Inside;
        const char* Error;
    } rows[] = {
        // "": the board reads
        {"palette above the folder", R"(<PALETTE><INOUT file="../inout_e.xml"/>)" + parts,
         "the file ../inout_e.xml must lie inside the board folder"},
        {"palette by absolute path",
         R"(<PALETTE><INOUT file="inout_e.xml"/><PARTS file="/etc/parts_e.xml"/></PALETTE>)",
         "the file /etc/parts_e.xml must lie inside"},
        {"palette through a Windows path",
         R"(<PALETTE><INOUT file="sub\..\..\inout_e.xml"/>)" + parts, "must lie inside"},
        {"command 1000 and beyond",
         R"(<COMPILER><CMD1 var="a"/><CMD1000 var="b"/></COMPILER><PALETTE><INOUT file="inout_e.xml"/>)" +
             parts,
         ""},
        {"XML fault", "<PALETTE>", "line 1, column"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        QTemporaryDir dir;
        CopyBoardFiles(QStringLiteral(QUILLON_TEST_DATA "/boards/shared"), dir.path());
        WriteFile(dir.filePath("board_e.xml"),
                  "<R><BOARD name=\"b\">" + row.Inside + "</BOARD></R>");
        const CRead read(dir.path());
        EXPECT_EQ(read.Ok, !*row.Error);
        EXPECT_TRUE(read.Board.ErrorString().contains(QString::fromUtf8(row.Error)))
            << read.Board.ErrorString().toStdString();
        EXPECT_EQ(read.Board.GetCommand(999), read.Ok ? "b" : "");
    }
}

TEST(BoardInfo, TypesSharingAnIdAreLimitedByTheSmallestLimit)
{
    QTemporaryDir dir;
    CopyBoardFiles(QStringLiteral(QUILLON_TEST_DATA "/boards/shared"), dir.path());
    WriteFile(
        dir.filePath("board_e.xml"),
        R"(<R><BOARD name="b"><PALETTE><INOUT file="keys.xml"/><PARTS file="nopages.xml"/></PALETTE></BOARD></R>)");
    WriteFile(dir.filePath("keys.xml"),
              R"(<PANELS><PALETTE name="p"><PANEL type="KEY" name="a"><USELIMIT value="3"/></PANEL>
                                           <PANEL type="KEY" name="b"><USELIMIT value="2"/></PANEL></PALETTE></PANELS>)");
    const CRead read(dir.path());
    ASSERT_TRUE(read.Ok);
    EXPECT_EQ(read.Board.UseLimits(), (QHash<int, int>{{10074, 2}}));
}

TEST(BoardInfo, DeeplyNestedFileIsRefusedAtOnceWithAMessage)
{
    // 100,000 levels in 700 KB: the DOM reader alone would spend more than half a minute.
    const QByteArray deep = "<?xml version=\"1.0\"?>" + QByteArray("<a>").repeated(100000) +
                            QByteArray("</a>").repeated(100000);
    const std::pair<const char*, int> rows[] = {{"board_e.xml", Ids::MsgBoardFileTooDeep},
                                                {"inout_e.xml", Ids::MsgPanelDefinitionTooDeep},
                                                {"parts_e.xml", Ids::MsgPanelDefinitionTooDeep}};
    for (const auto& [file, message] : rows) {
        SCOPED_TRACE(file);
        const QTemporaryDir dir;
        CopyBoardFiles(kSample, dir.path());
        const QString path = QDir(dir.path()).filePath(file);
        WriteFile(path, deep);
        QElapsedTimer clock;
        clock.start();
        const CRead read(dir.path());
        EXPECT_FALSE(read.Ok);
        EXPECT_LT(clock.elapsed(), 5000);
        EXPECT_EQ(read.Messenger.Texts,
                  QStringList{CStringTable::Format(
                      message, {QDir::toNativeSeparators(path), CXmlDepth::Limit})});
    }
}

// The depth scan looks at bytes, so what may hold a "<" without opening an element must
// not count, and a file it cannot read as bytes goes to a parser.
TEST(XmlDepth, CountsOnlyTheElementsThatNest)
{
    const auto nested = [](int levels, const QByteArray& open, const QByteArray& close) {
        return open.repeated(levels) + close.repeated(levels);
    };
    const auto utf16 = [](const QByteArray& latin) {
        const QString text = QString::fromLatin1(latin);
        return "\xff\xfe" +
               QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    };
    const int limit = CXmlDepth::Limit;
    const QByteArray beyond = nested(limit + 1, "<a>", "");
    const struct
    {
        const char* Behaviour;
        QByteArray Bytes;
        bool Exceeds;
    } rows[] = {
        {"at the limit", nested(limit, "<a>", "</a>"), false},
        {"one level beyond", nested(limit + 1, "<a>", "</a>"), true},
        {"empty elements side by side", "<r>" + QByteArray("<a/>").repeated(100) + "</r>", false},
        {"a slash and a bracket in an attribute value",
         nested(limit + 1, "<a v='/>' w=\"x>\">", "</a>"), true},
        {"markup in a comment, CDATA and an instruction",
         "<r><!--" + beyond + "--><![CDATA[" + beyond + "]]><?pi " + beyond + "?></r>", false},
        {"a declaration with its internal subset",
         "<!DOCTYPE r [<!ENTITY e '<a>'> <!-- ]> --> <!ENTITY f \"]>\">]>" +
             nested(limit, "<a>", "</a>"),
         false},
        {"UTF-16 text beyond the limit", utf16(nested(limit + 1, "<a>", "</a>")), true},
        {"UTF-16 text of many siblings", utf16("<r>" + QByteArray("<a></a>").repeated(40) + "</r>"),
         false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CXmlDepth::Exceeds(row.Bytes), row.Exceeds) << row.Behaviour;
}

TEST(BoardInfo, FindEntryLooksInTheInputOutputPaletteFirstAndANewReadReplacesAll)
{
    CRead read(Fixture("full"));
    ASSERT_TRUE(read.Ok);
    // KEY is not "Key again" of the process palette; BOGUS is listed, but the factory
    // cannot make it.
    const std::pair<const char*, const char*> rows[] = {{"KEY", "Key"},   {"LAMP", "Lamp"},
                                                        {"LINE", "Wire"}, {"SMOT", "Motor"},
                                                        {"BOGUS", ""},    {"CNT", ""}};
    for (const auto& [keyword, name] : rows) {
        const CPaletteEntry* entry = read.Board.FindEntry(keyword);
        EXPECT_EQ(entry ? entry->GetPrototype()->GetName() : QString(), name) << keyword;
    }
    // KEY 10074 limited to 2 (the second KEY shares the id and has none); SMOTO 10093 to 3
    // and SMOT 249 to 1, each counted apart; LAMP and LINE have none, BOGUS no prototype.
    EXPECT_EQ(read.Board.UseLimits(), (QHash<int, int>{{10074, 2}, {249, 1}, {10093, 3}}));

    ASSERT_TRUE(read.Board.Read(Fixture("netboard"), QString(), read.Messenger));
    const CBoardInfo& board = read.Board;
    EXPECT_EQ(QStringList({QString::number(board.GetPortCount()), board.GetPort(0).Name,
                           QString::number(board.GetCommandCount()), board.GetCompilerPanel(),
                           board.GetWriterCommand(), QString::number(board.GetPwmHighFreq()),
                           QString::number(board.GetInOutPalette().GetPageCount())}),
              QStringList({"2", "P10", "0", "", "", "0", "1"}));
    EXPECT_EQ(board.FindEntry("SMOT"), nullptr);
}

// The board shipped with the program, in both languages: the same structure, texts of its own.
TEST(SampleBoard, EveryEntryIsAPanelOnPortsTheBoardHasInBothLanguages)
{
    const CRead english(kSample), japanese(kSample, ELanguage::Japanese);
    ASSERT_TRUE(english.Ok && japanese.Ok && english.Messenger.Texts.isEmpty() &&
                japanese.Messenger.Texts.isEmpty());
    const CBoardInfo& board = english.Board;
    EXPECT_NE(board.GetBoardName(), japanese.Board.GetBoardName());
    EXPECT_EQ(board.GetPorts(), japanese.Board.GetPorts());
    EXPECT_EQ(board.GetCommands(), japanese.Board.GetCommands());
    // One LCD, one stepping motor driver (its coils are four fixed pins) and one serial
    // receive; the process-area motor and lamps are limited by capacity and ports only.
    const QHash<int, int> limits = board.UseLimits();
    EXPECT_EQ(QList<int>({limits.value(10090), limits.value(10093), limits.value(10078)}),
              QList<int>({1, 1, 1}));
    EXPECT_FALSE(limits.contains(249) || limits.contains(10083) || board.FindEntry("WEBIN") ||
                 board.FindEntry("WEBOUT"));
    EXPECT_EQ(board.FindEntry("KEY")->GetPrototype()->GetPortList().DisplayName("PC0"), "PC0(A0)");
    EXPECT_EQ(board.FindEntry("UARI")->GetPrototype()->GetPortList().DisplayName("PD0"),
              "PD0(RxD)");
    // Timer 0 gives the scan tick and PB3 is timer 2's top: PD3, PB1 and PB2 are left. The
    // PWM output's line keeps no port: the first listed is its pin.
    const QHash<QString, QStringList> only{
        {"BUZZ", {"PD3", "PB1", "PB2"}}, {"PWM", {"PB2"}}, {"UARI", {"PD0"}}, {"UARO", {"PD1"}}};
    for (const auto palette : {&CBoardInfo::GetInOutPalette, &CBoardInfo::GetPartsPalette}) {
        const CPaletteInfo& en = (board.*palette)();
        const CPaletteInfo& ja = (japanese.Board.*palette)();
        ASSERT_EQ(en.GetPageCount(), ja.GetPageCount());
        for (int page = 0; page < en.GetPageCount(); ++page) {
            EXPECT_NE(en.GetPageTitle(page), ja.GetPageTitle(page));
            ASSERT_EQ(en.GetEntryCount(page), ja.GetEntryCount(page));
            for (int i = 0; i < en.GetEntryCount(page); ++i) {
                const CPaletteEntry& e = *en.GetEntry(page, i);
                const CPaletteEntry& j = *ja.GetEntry(page, i);
                SCOPED_TRACE(e.GetType().toStdString());
                const CPanel* prototype = e.GetPrototype();
                ASSERT_TRUE(prototype && j.GetPrototype()) << "the factory does not know the type";
                EXPECT_EQ(QString::number(e.GetUseLimit()) + e.GetType(),
                          QString::number(j.GetUseLimit()) + j.GetType());
                EXPECT_EQ(prototype->GetWeight(), j.GetPrototype()->GetWeight());
                EXPECT_EQ(prototype->GetPortList(), j.GetPrototype()->GetPortList());
                // A type may be a whole line ("LINE LR", "AND R"): its keyword names the panel,
                // offered in a kind it can be placed in, never as a "?".
                EXPECT_EQ(prototype->GetTokens().value(0), CPanelFactory::Keyword(e.GetType()));
                EXPECT_NE(prototype->GetBitmapId(), CPanel::NoPanel);
                EXPECT_FALSE(prototype->GetName().isEmpty());
                const CPortList& ports = prototype->GetPortList();
                QStringList names, wanted = only.value(e.GetType());
                for (int p = 0; p < ports.GetCount(); ++p) {
                    const int row = board.GetPorts().IndexOf(names.emplace_back(ports.GetAt(p)));
                    ASSERT_GE(row, 0) << names.last().toStdString() << " is not a board port";
                    EXPECT_EQ(ports.GetEntry(p), board.GetPort(row));
                }
                names.sort();
                wanted.sort();
                if (wanted.isEmpty()) {
                    EXPECT_FALSE(names.contains("PD0") || names.contains("PD1"))
                        << "serial only on the USB pins";
                } else {
                    EXPECT_EQ(names, wanted);
                }
            }
        }
    }
}
