// Reading a board folder: the board file, its faults, and the sample board shipped.
#include "boardinfo.h"
#include "core/panels/paneltest.h"
#include "panelfactory.h"
#include "stringtable.h"
#include "support/boardfolder.h"
#include "support/recordingmessenger.h"
#include "xmldepth.h"

#include <QDir>
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

// A board folder of a test's own with the shared palettes and the given board file.
struct CBoardDir : QTemporaryDir
{
    explicit CBoardDir(const QByteArray& inside,
                       const QString& from = QUILLON_TEST_DATA "/boards/shared")
    {
        CopyBoardFiles(from, path());
        if (!inside.isEmpty())
            Write("board_e.xml", "<R><BOARD name=\"b\">" + inside + "</BOARD></R>");
    }
    void Write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(filePath(name));
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        file.write(bytes);
    }
};

// What the build and the check take of a board, '|' between: name, commands (',' between),
// command positions, clock, writer command and parameters, compiler DLL, network.
QString Summary(const CBoardInfo& b)
{
    return QStringList({b.GetBoardName(), b.GetCommands().join(u','),
                        QString::number(b.GetCommandCount()), QString::number(b.GetSystemClock()),
                        b.GetWriterCommand(), b.GetWriterParam(), b.GetCompilerDll(),
                        QString::number(b.HasNetwork())})
        .join(u'|');
}

} // namespace

TEST(BoardInfo, ReadsWhatTheBoardFileStates)
{
    const std::tuple<const char*, ELanguage, const char*> rows[] = {
        {"full", ELanguage::English,
         "Full board|first step,second step|2|3|writer|-p x|compiler.dll|0"},
        // CMD appends to the empty list, CMD2 grows it, CMD1 then replaces the first one.
        {"cmdorder", ELanguage::English, "cmdorder|one,two,plain after|3|0||||0"},
        {"cmdgap", ELanguage::English, "cmdgap|one,three|3|0||||0"}, // a gap stays a position
        // The writer takes its last command and ignores DLL.
        {"writerdll", ELanguage::English, "writerdll||0|0|last writer|params|compiler.dll|0"},
        {"clock8000", ELanguage::English, "clock8000||0|8000||||0"},
        {"clockabc", ELanguage::English, "clockabc||0|0||||0"},
        {"netboard", ELanguage::English, "Network test board||0|1||||1"},
        {"japaneseonly", ELanguage::Japanese, "日本語だけのボード||0|0||||0"}, // only board.xml
    };
    for (const auto& [name, language, summary] : rows) {
        const CRead read(Fixture(name), language);
        EXPECT_TRUE(read.Ok && read.Messenger.Texts.isEmpty()) << name;
        EXPECT_EQ(read.Board.GetFolder(), Fixture(name));
        EXPECT_EQ(Summary(read.Board), summary);
    }
    const CRead read(Fixture("full"));
    const CBoardInfo& full = read.Board;
    EXPECT_EQ(QStringList({full.GetInterfaceName(), full.GetCompilerProc(), full.GetCompilerPanel(),
                           full.GetInOutFile(), full.GetPartsFile()}),
              QStringList({"Test Serial", "Compile", "panelc", "inout_e.xml", "parts_e.xml"}));
    EXPECT_EQ(
        QList<int>({full.GetPwmLowFreq(), full.GetPwmHighFreq(),
                    full.GetInOutPalette().GetPageCount(), full.GetPartsPalette().GetPageCount()}),
        QList<int>({10, 81920, 2, 2}));
    ASSERT_EQ(full.GetPortCount(), 2);
    EXPECT_EQ(full.GetPort(0), (CPortEntry{"1", "P1", "D1"}));
    EXPECT_EQ(full.GetPort(1), (CPortEntry{"2", "P2", ""})) << "a missing alias reads empty";
    EXPECT_EQ(full.FindEntry("KEY")->GetPrototype()->GetPortList().DisplayName("P1"), "P1(D1)")
        << "palettes get the aliases";
}

TEST(BoardInfo, AFaultFailsTheReadAndOnlyAPaletteFaultIsShown)
{
    const char* const palette = "Error found in panel definition file.";
    const struct
    {
        const char* Board;
        const char* Message = ""; // "": the fault is kept for whoever reports it, naming the file
        int InOutPages = 0, PartsPages = 0;
        ELanguage Language = ELanguage::English;
    } rows[] = {
        {"commentfirst"},                        // a comment stands before BOARD
        {"lowercaseboard"},                      // "board" is not "BOARD"
        {"japaneseonly"},                        // only the interface language's file is opened
        {"full", "", 0, 0, ELanguage::Japanese}, // and it has no board.xml
        {"cmd0"},                                // command numbers start at 1
        {"cmdletters"},
        {"cmdnegative"},
        {"cmdhuge"}, // CMD1000001: beyond any sensible command list
        {"nosuchboard"},
        // The process palette is fine but is not read after the input/output one failed.
        {"badinout", palette},
        {"missinginout", palette},
        {"badparts", palette, 2, 0},
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
        const char* Error; // "": the board reads
    } rows[] = {
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
        const CBoardDir dir(row.Inside);
        const CRead read(dir.path());
        EXPECT_EQ(read.Ok, !*row.Error);
        EXPECT_TRUE(read.Board.ErrorString().contains(QString::fromUtf8(row.Error)))
            << read.Board.ErrorString().toStdString();
        EXPECT_EQ(read.Board.GetCommand(999), read.Ok ? "b" : "");
    }
}

TEST(BoardInfo, TypesSharingAnIdAreLimitedByTheSmallestLimit)
{
    const CBoardDir dir(
        R"(<PALETTE><INOUT file="keys.xml"/><PARTS file="nopages.xml"/></PALETTE>)");
    dir.Write("keys.xml", R"(<PANELS><PALETTE name="p"><PANEL type="KEY" name="a">)"
                          R"(<USELIMIT value="3"/></PANEL><PANEL type="KEY" name="b">)"
                          R"(<USELIMIT value="2"/></PANEL></PALETTE></PANELS>)");
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
        const CBoardDir dir({}, kSample);
        const QString path = dir.filePath(file);
        dir.Write(file, deep);
        const CRead read(dir.path());
        EXPECT_FALSE(read.Ok);
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
                EXPECT_EQ(std::tuple(e.GetUseLimit(), e.GetType(), prototype->GetWeight()),
                          std::tuple(j.GetUseLimit(), j.GetType(), j.GetPrototype()->GetWeight()));
                EXPECT_EQ(prototype->GetPortList(), j.GetPrototype()->GetPortList());
                // A type may be a whole line ("LINE LR", "AND R"): its keyword names the panel,
                // offered in a kind it can be placed in, never as a "?".
                EXPECT_EQ(prototype->GetTokens().value(0), CPanelFactory::Keyword(e.GetType()));
                EXPECT_TRUE(prototype->GetBitmapId() != CPanel::NoPanel &&
                            !prototype->GetName().isEmpty());
                const CPortList& ports = prototype->GetPortList();
                QStringList names, wanted = only.value(e.GetType());
                for (int p = 0; p < ports.GetCount(); ++p) {
                    const int row = board.GetPorts().IndexOf(names.emplace_back(ports.GetAt(p)));
                    ASSERT_GE(row, 0) << names.last().toStdString() << " is not a board port";
                    EXPECT_EQ(ports.GetEntry(p), board.GetPort(row));
                }
                names.sort();
                wanted.sort();
                // Serial only on the USB pins.
                EXPECT_TRUE(wanted.isEmpty() ? !names.contains("PD0") && !names.contains("PD1")
                                             : names == wanted)
                    << names.join(u' ').toStdString();
            }
        }
    }
}
