// Reading a board folder: the board file, its faults, and the sample board shipped.
#include "boardinfo.h"
#include "panelfactory.h"
#include "xmldepth.h"
#include "core/panels/paneltest.h"
#include "stringtable.h"
#include "support/boardfolder.h"
#include "support/recordingmessenger.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSet>
#include <QTemporaryDir>

namespace {

// Switches the language for one test and back to English afterwards.
struct CLanguageScope
{
    explicit CLanguageScope(ELanguage language) { CStringTable::SetLanguage(language); }
    ~CLanguageScope() { CStringTable::SetLanguage(ELanguage::English); }
};

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

QString SampleFolder()
{
    return QDir(QStringLiteral(QUILLON_BOARDS)).filePath("atmega328p");
}

// Every entry of both palettes, the input/output palette first.
QList<const CPaletteEntry*> Entries(const CBoardInfo& board)
{
    QList<const CPaletteEntry*> entries;
    for (const CPaletteInfo* palette : {&board.GetInOutPalette(), &board.GetPartsPalette()})
        for (int page = 0; page < palette->GetPageCount(); ++page)
            for (int i = 0; i < palette->GetEntryCount(page); ++i)
                entries << palette->GetEntry(page, i);
    return entries;
}

QStringList PortNames(const CPanel& panel)
{
    QStringList names;
    for (int i = 0; i < panel.GetPortList().GetCount(); ++i)
        names << panel.GetPortList().GetAt(i);
    return names;
}

} // namespace

TEST(BoardInfo, ReadsEveryFieldOfTheBoardFile)
{
    CRecordingMessenger messenger;
    CBoardInfo board;
    ASSERT_TRUE(board.Read(Fixture("full"), QString(), messenger));
    EXPECT_TRUE(messenger.Texts.isEmpty());
    EXPECT_EQ(board.GetFolder(), Fixture("full"));
    EXPECT_EQ(board.GetBoardName(), "Full board");
    EXPECT_EQ(board.GetInterfaceName(), "Test Serial");
    EXPECT_EQ(board.GetCompilerDll(), "compiler.dll");
    EXPECT_EQ(board.GetCompilerProc(), "Compile");
    EXPECT_EQ(board.GetCompilerPanel(), "panelc");
    EXPECT_EQ(board.GetCommands(), (QStringList{"first step", "second step"}));
    EXPECT_EQ(board.GetWriterCommand(), "writer");
    EXPECT_EQ(board.GetWriterParam(), "-p x");
    EXPECT_EQ(board.GetInOutFile(), "inout_e.xml");
    EXPECT_EQ(board.GetPartsFile(), "parts_e.xml");
    EXPECT_EQ(board.GetPwmLowFreq(), 10);
    EXPECT_EQ(board.GetPwmHighFreq(), 81920);
    EXPECT_EQ(board.GetSystemClock(), 3);
    EXPECT_FALSE(board.HasNetwork()) << "no NETWORK element";
    ASSERT_EQ(board.GetPortCount(), 2);
    EXPECT_EQ(board.GetPort(0), (CPortEntry{"1", "P1", "D1"}));
    EXPECT_EQ(board.GetPort(1), (CPortEntry{"2", "P2", ""})) << "missing alias reads empty";
    EXPECT_EQ(board.GetInOutPalette().GetPageCount(), 2);
    EXPECT_EQ(board.GetPartsPalette().GetPageCount(), 2);
}

TEST(BoardInfo, FaultsInTheBoardFileFailTheReadWithoutAMessage)
{
    const char* boards[] = {
        "commentfirst",   // a comment stands before BOARD
        "lowercaseboard", // "board" is not "BOARD"
        "japaneseonly",   // English is chosen and only board.xml exists
        "cmd0",           // command numbers start at 1
        "cmdletters",     // CMDx
        "cmdnegative",    // CMD-1
        "cmdhuge",        // CMD1000001: beyond any sensible command list
        "nosuchboard",    // no folder at all
    };
    for (const char* name : boards) {
        CRecordingMessenger messenger;
        CBoardInfo board;
        EXPECT_FALSE(board.Read(Fixture(name), QString(), messenger)) << name;
        EXPECT_TRUE(messenger.Texts.isEmpty()) << name;
        // Kept for whoever reports it, naming the file.
        EXPECT_TRUE(board.ErrorString().contains(name)) << name << ": " << board.ErrorString().toStdString();
    }
}

TEST(BoardInfo, ReferencesStayInsideTheBoardFolderAndCommandListsGrow)
{
    const struct
    {
        const char* Name;
        const char* Inside; // the COMPILER and PALETTE children
        const char* Error;  // "" when the board reads
    } rows[] = {
        {"palette above the folder", R"(<PALETTE><INOUT file="../inout_e.xml"/><PARTS file="parts_e.xml"/></PALETTE>)",
         "the file ../inout_e.xml must lie inside the board folder"},
        {"palette by absolute path", R"(<PALETTE><INOUT file="inout_e.xml"/><PARTS file="/etc/parts_e.xml"/></PALETTE>)",
         "the file /etc/parts_e.xml must lie inside"},
        {"palette through a Windows path", R"(<PALETTE><INOUT file="sub\..\..\inout_e.xml"/><PARTS file="parts_e.xml"/></PALETTE>)",
         "must lie inside"},
        {"command 1000 and beyond", R"(<COMPILER><CMD1 var="a"/><CMD1000 var="b"/></COMPILER>
            <PALETTE><INOUT file="inout_e.xml"/><PARTS file="parts_e.xml"/></PALETTE>)", ""},
        {"XML fault", R"(<PALETTE>)", "line 1, column"},
    };
    for (const auto& row : rows) {
        QTemporaryDir dir;
        CopyBoardFiles(QStringLiteral(QUILLON_TEST_DATA "/boards/shared"), dir.path());
        QFile file(dir.filePath("board_e.xml"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("<R><BOARD name=\"b\">") + row.Inside + "</BOARD></R>");
        file.close();
        CRecordingMessenger messenger;
        CBoardInfo board;
        EXPECT_EQ(board.Read(dir.path(), QString(), messenger), !*row.Error) << row.Name;
        EXPECT_TRUE(board.ErrorString().contains(QString::fromUtf8(row.Error))) << row.Name << ": "
                                                                              << board.ErrorString().toStdString();
        if (!*row.Error) {
            EXPECT_EQ(board.GetCommandCount(), 1000) << row.Name;
            EXPECT_EQ(board.GetCommand(999), "b") << row.Name;
        }
    }
}

TEST(BoardInfo, OnlyTheFileOfTheInterfaceLanguageIsOpened)
{
    CRecordingMessenger messenger;
    CBoardInfo board;
    EXPECT_FALSE(board.Read(Fixture("japaneseonly"), QString(), messenger));
    const CLanguageScope japanese(ELanguage::Japanese);
    ASSERT_TRUE(board.Read(Fixture("japaneseonly"), QString(), messenger));
    EXPECT_EQ(board.GetBoardName(), "日本語だけのボード");
    EXPECT_FALSE(board.Read(Fixture("full"), QString(), messenger)) << "full has no board.xml";
}

TEST(BoardInfo, CommandNumbersArePositionsAndPlainCommandsAppend)
{
    const struct
    {
        const char* Board;
        QStringList Commands;
    } rows[] = {
        // CMD appends to the empty list, CMD2 grows it, CMD1 then replaces the first one.
        {"cmdorder", {"one", "two", "plain after"}},
        {"cmdgap", {"one", "three"}},
    };
    for (const auto& row : rows) {
        CRecordingMessenger messenger;
        CBoardInfo board;
        ASSERT_TRUE(board.Read(Fixture(row.Board), QString(), messenger)) << row.Board;
        EXPECT_EQ(board.GetCommands(), row.Commands) << row.Board;
        EXPECT_EQ(board.GetCommandCount(), 3);
        EXPECT_EQ(board.GetCommand(3), "") << "beyond the end";
    }
}

TEST(BoardInfo, WriterTakesItsLastCommandAndIgnoresDll)
{
    CRecordingMessenger messenger;
    CBoardInfo board;
    ASSERT_TRUE(board.Read(Fixture("writerdll"), QString(), messenger));
    EXPECT_EQ(board.GetWriterCommand(), "last writer");
    EXPECT_EQ(board.GetWriterParam(), "params");
    EXPECT_EQ(board.GetCompilerDll(), "compiler.dll");
    EXPECT_EQ(board.GetCompilerProc(), "Compile");
}

TEST(BoardInfo, SystemClockIsReadLeniently)
{
    const struct
    {
        const char* Board;
        int Clock;
    } rows[] = {{"full", 3}, {"clock8000", 8000}, {"clockabc", 0}, {"cmdgap", 0}};
    for (const auto& row : rows) {
        CRecordingMessenger messenger;
        CBoardInfo board;
        ASSERT_TRUE(board.Read(Fixture(row.Board), QString(), messenger)) << row.Board;
        EXPECT_EQ(board.GetSystemClock(), row.Clock) << row.Board;
    }
}

TEST(BoardInfo, PaletteFaultIsReportedOnceAndFailsTheRead)
{
    const struct
    {
        const char* Board;
        int InOutPages;
        int PartsPages;
    } rows[] = {
        // The process palette is fine but is not read after the input/output one failed.
        {"badinout", 0, 0},
        {"missinginout", 0, 0},
        {"badparts", 2, 0},
    };
    for (const auto& row : rows) {
        CRecordingMessenger messenger;
        CBoardInfo board;
        EXPECT_FALSE(board.Read(Fixture(row.Board), QString(), messenger)) << row.Board;
        EXPECT_EQ(messenger.Texts, QStringList{"Error found in panel definition file."})
            << row.Board;
        EXPECT_EQ(board.GetInOutPalette().GetPageCount(), row.InOutPages) << row.Board;
        EXPECT_EQ(board.GetPartsPalette().GetPageCount(), row.PartsPages) << row.Board;
    }
}

TEST(BoardInfo, DeeplyNestedFileIsRefusedAtOnceWithAMessage)
{
    // 100,000 levels in 700 KB: the DOM reader alone would spend more than half a minute.
    const QByteArray deep = "<?xml version=\"1.0\"?>" + QByteArray("<a>").repeated(100000) +
                            QByteArray("</a>").repeated(100000);
    const struct
    {
        const char* File;
        int Message;
    } rows[] = {
        {"board_e.xml", Ids::MsgBoardFileTooDeep},
        {"inout_e.xml", Ids::MsgPanelDefinitionTooDeep},
        {"parts_e.xml", Ids::MsgPanelDefinitionTooDeep},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.File);
        const QTemporaryDir dir;
        CopyBoardFiles(SampleFolder(), dir.path());
        const QString path = QDir(dir.path()).filePath(row.File);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(deep);
        file.close();
        CRecordingMessenger messenger;
        CBoardInfo board;
        QElapsedTimer clock;
        clock.start();
        EXPECT_FALSE(board.Read(dir.path(), QString(), messenger));
        EXPECT_LT(clock.elapsed(), 5000);
        EXPECT_EQ(messenger.Texts,
                  QStringList{CStringTable::Format(row.Message, {QDir::toNativeSeparators(path), CXmlDepth::Limit})});
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
        return "\xff\xfe" + QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    };
    const int limit = CXmlDepth::Limit;
    const struct
    {
        const char* Behaviour;
        QByteArray Bytes;
        bool Exceeds;
    } rows[] = {
        {"at the limit", nested(limit, "<a>", "</a>"), false},
        {"one level beyond", nested(limit + 1, "<a>", "</a>"), true},
        {"empty elements side by side", "<r>" + QByteArray("<a/>").repeated(100) + "</r>", false},
        {"a slash and a bracket in an attribute value", nested(limit + 1, "<a v='/>' w=\"x>\">", "</a>"), true},
        {"markup in a comment, CDATA and an instruction",
         "<r><!--" + nested(limit + 1, "<a>", "") + "--><![CDATA[" + nested(limit + 1, "<a>", "") + "]]><?pi " +
             nested(limit + 1, "<a>", "") + "?></r>",
         false},
        {"a declaration with its internal subset",
         "<!DOCTYPE r [<!ENTITY e '<a>'> <!-- ]> --> <!ENTITY f \"]>\">]>" + nested(limit, "<a>", "</a>"), false},
        {"UTF-16 text beyond the limit", utf16(nested(limit + 1, "<a>", "</a>")), true},
        {"UTF-16 text of many siblings", utf16("<r>" + QByteArray("<a></a>").repeated(40) + "</r>"), false},
    };
    const QTemporaryDir dir;
    const QString path = QDir(dir.path()).filePath("file.xml");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Behaviour);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(row.Bytes);
        file.close();
        EXPECT_EQ(CXmlDepth::Exceeds(path), row.Exceeds);
    }
}

TEST(BoardInfo, PalettePortsTakeTheBoardsAliases)
{
    CRecordingMessenger messenger;
    CBoardInfo board;
    ASSERT_TRUE(board.Read(Fixture("full"), QString(), messenger));
    const CPaletteEntry* key = board.FindEntry("KEY");
    ASSERT_TRUE(key && key->GetPrototype());
    EXPECT_EQ(key->GetPrototype()->GetPortList().GetEntry(0), (CPortEntry{"1", "P1", "D1"}));
    EXPECT_EQ(key->GetPrototype()->GetPortList().DisplayName("P1"), "P1(D1)");
}

TEST(BoardInfo, FindEntryLooksInTheInputOutputPaletteFirst)
{
    CRecordingMessenger messenger;
    CBoardInfo board;
    ASSERT_TRUE(board.Read(Fixture("full"), QString(), messenger));
    const struct
    {
        const char* Keyword;
        const char* Name; // "" when the board offers no such panel
    } rows[] = {
        {"KEY", "Key"}, // not "Key again" of the process palette
        {"LAMP", "Lamp"},  {"LINE", "Wire"},
        {"SMOT", "Motor"}, {"BOGUS", ""}, // listed, but the factory cannot make it
        {"CNT", ""},
    };
    for (const auto& row : rows) {
        const CPaletteEntry* entry = board.FindEntry(row.Keyword);
        EXPECT_EQ(entry ? entry->GetPrototype()->GetName() : QString(), row.Name) << row.Keyword;
    }
}

TEST(BoardInfo, UseLimitsByTypeIdSmallestWhereTypesShareAnId)
{
    CRecordingMessenger messenger;
    CBoardInfo board;
    ASSERT_TRUE(board.Read(Fixture("full"), QString(), messenger));
    // KEY 10074 limited to 2 (the second KEY shares the id and has none); SMOTO 10093 to 3
    // and SMOT 249 to 1, each counted apart; LAMP and LINE have none, BOGUS no prototype.
    const QHash<int, int> expected{{10074, 2}, {249, 1}, {10093, 3}};
    EXPECT_EQ(board.UseLimits(), expected);
}

TEST(BoardInfo, NetworkFlagFollowsTheElement)
{
    CRecordingMessenger messenger;
    CBoardInfo board;
    ASSERT_TRUE(board.Read(Fixture("netboard"), QString(), messenger));
    EXPECT_TRUE(board.HasNetwork());
    EXPECT_TRUE(board.FindEntry("WEBIN") && board.FindEntry("WEBOUT"));
    ASSERT_TRUE(board.Read(Fixture("full"), QString(), messenger));
    EXPECT_FALSE(board.HasNetwork());
}

TEST(BoardInfo, ANewReadReplacesTheOldBoardWhole)
{
    CRecordingMessenger messenger;
    CBoardInfo board;
    ASSERT_TRUE(board.Read(Fixture("full"), QString(), messenger));
    ASSERT_TRUE(board.Read(Fixture("netboard"), QString(), messenger));
    EXPECT_EQ(board.GetPortCount(), 2);
    EXPECT_EQ(board.GetPort(0).Name, "P10");
    EXPECT_EQ(board.GetCommandCount(), 0);
    EXPECT_EQ(board.GetCompilerPanel(), "");
    EXPECT_EQ(board.GetWriterCommand(), "");
    EXPECT_EQ(board.GetPwmHighFreq(), 0);
    EXPECT_EQ(board.GetInOutPalette().GetPageCount(), 1);
    EXPECT_EQ(board.FindEntry("SMOT"), nullptr);
}

// The board shipped with the program, in both languages.
class SampleBoard : public testing::TestWithParam<ELanguage>
{
  protected:
    void SetUp() override
    {
        CStringTable::SetLanguage(GetParam());
        ASSERT_TRUE(Board.Read(SampleFolder(), QString(), Messenger));
        ASSERT_TRUE(Messenger.Texts.isEmpty());
    }
    void TearDown() override { CStringTable::SetLanguage(ELanguage::English); }

    CRecordingMessenger Messenger;
    CBoardInfo Board;
};

TEST_P(SampleBoard, DescribesAnUnoClassBoard)
{
    const bool english = GetParam() == ELanguage::English;
    EXPECT_EQ(Board.GetInOutFile(), english ? "inout_e.xml" : "inout.xml");
    EXPECT_EQ(Board.GetPartsFile(), english ? "parts_e.xml" : "parts.xml");
    EXPECT_EQ(Board.GetInterfaceName(), "USB2.0-Serial");
    EXPECT_EQ(Board.GetSystemClock(), 0);
    EXPECT_FALSE(Board.HasNetwork());
    EXPECT_EQ(Board.GetPwmLowFreq(), 31);
    EXPECT_EQ(Board.GetPwmHighFreq(), 62500);
    EXPECT_EQ(Board.GetCompilerPanel(), "quillon-panelc");
    ASSERT_EQ(Board.GetCommandCount(), 3);
    EXPECT_TRUE(Board.GetCommand(0).startsWith("avr-gcc -mmcu=atmega328p"));
    EXPECT_TRUE(Board.GetCommand(1).startsWith("./PANEL.avrsize BASE.elf"));
    EXPECT_TRUE(Board.GetCommand(2).startsWith("avr-objcopy"));
    EXPECT_EQ(Board.GetWriterCommand(), "quillon-writer");
    EXPECT_EQ(Board.GetPortCount(), 20);
}

TEST_P(SampleBoard, EveryEntryMakesItsPrototypeOnPortsTheBoardHas)
{
    const QList<const CPaletteEntry*> entries = Entries(Board);
    ASSERT_FALSE(entries.isEmpty());
    for (const CPaletteEntry* entry : entries) {
        SCOPED_TRACE(entry->GetType().toStdString());
        const CPanel* prototype = entry->GetPrototype();
        ASSERT_NE(prototype, nullptr) << "the factory does not know the type";
        // A type may be a whole line ("LINE LR", "AND R"): its keyword names the panel.
        EXPECT_EQ(prototype->GetTokens().value(0), CPanelFactory::Keyword(entry->GetType()));
        // Wires and gates are offered in a kind they can be placed in, never as a "?".
        EXPECT_NE(prototype->GetBitmapId(), CPanel::NoPanel);
        EXPECT_FALSE(prototype->GetName().isEmpty());
        const CPortList& ports = prototype->GetPortList();
        for (int i = 0; i < ports.GetCount(); ++i) {
            const int row = Board.GetPorts().IndexOf(ports.GetAt(i));
            ASSERT_GE(row, 0) << ports.GetAt(i).toStdString() << " is not a board port";
            EXPECT_EQ(ports.GetEntry(i), Board.GetPort(row));
        }
    }
}

TEST_P(SampleBoard, TimedOutputsOnlyOnTimerPinsSerialOnlyOnTheUsbPins)
{
    // Timer 0 gives the scan tick and PB3 is timer 2's top: PD3, PB1 and PB2 are left.
    const QSet<QString> timerPins{"PD3", "PB1", "PB2"};
    for (const CPaletteEntry* entry : Entries(Board)) {
        const QString type = entry->GetType();
        const QStringList ports = PortNames(*entry->GetPrototype());
        SCOPED_TRACE(type.toStdString());
        if (type == "BUZZ")
            EXPECT_EQ(QSet<QString>(ports.begin(), ports.end()), timerPins);
        else if (type == "PWM") // its line keeps no port: the first listed is its pin
            EXPECT_EQ(ports, QStringList{"PB2"});
        else if (type == "UARI")
            EXPECT_EQ(ports, QStringList{"PD0"});
        else if (type == "UARO")
            EXPECT_EQ(ports, QStringList{"PD1"});
        else
            EXPECT_FALSE(ports.contains("PD0") || ports.contains("PD1"));
    }
}

TEST_P(SampleBoard, OffersEveryFamilyItCanDriveButNoNetworkPanels)
{
    const char* offered[] = {
        "KEY",  "SW",   "DGI",   "ANI",   "UARI",  "LAMP", "DGO",  "BUZZ", "PWM",  "PULS",
        "UARO", "7SEG", "7SEG4", "LCD",   "SMOTO", "LINE", "JPI",  "JPO",  "UART", "7S_B",
        "7S_D", "7S_S", "7S4_B", "7S4_D", "7S4_S", "NOT",  "AND",  "OR",   "XOR",  "ON",
        "OFF",  "CNT",  "DLY",   "TIM",   "TIM1",  "RSFF", "T_FF", "D_FF", "SMOT",
    };
    for (const char* keyword : offered)
        EXPECT_NE(Board.FindEntry(keyword), nullptr) << keyword;
    EXPECT_EQ(Board.FindEntry("WEBIN"), nullptr);
    EXPECT_EQ(Board.FindEntry("WEBOUT"), nullptr);
}

TEST_P(SampleBoard, WeightsAndLimitsGiveTheUsePaneAMeaning)
{
    const struct
    {
        const char* Keyword;
        int Weight;
    } weights[] = {{"LINE", 0}, {"JPI", 0}, {"JPO", 0}, {"LAMP", 10}, {"KEY", 10}, {"CNT", 20}};
    for (const auto& row : weights)
        EXPECT_EQ(Board.FindEntry(row.Keyword)->GetPrototype()->GetWeight(), row.Weight)
            << row.Keyword;
    const QHash<int, int> limits = Board.UseLimits();
    EXPECT_EQ(limits.value(10090), 1) << "one LCD";
    // The driver's coils are four fixed pins; the process-area motor is logic only.
    EXPECT_EQ(limits.value(10093), 1) << "one stepping motor driver";
    EXPECT_FALSE(limits.contains(249)) << "motors are limited by the capacity only";
    EXPECT_EQ(limits.value(10078), 1) << "one serial receive";
    EXPECT_FALSE(limits.contains(10083)) << "lamps are limited by the ports only";
}

TEST_P(SampleBoard, PortsShowTheBoardsPinLabels)
{
    const CPanel* key = Board.FindEntry("KEY")->GetPrototype();
    EXPECT_EQ(key->GetPortList().DisplayName("PD2"), "PD2(D2)");
    EXPECT_EQ(key->GetPortList().DisplayName("PC0"), "PC0(A0)");
    const CPanel* receive = Board.FindEntry("UARI")->GetPrototype();
    EXPECT_EQ(receive->GetPortList().DisplayName("PD0"), "PD0(RxD)");
}

INSTANTIATE_TEST_SUITE_P(BothLanguages, SampleBoard,
                         testing::Values(ELanguage::English, ELanguage::Japanese),
                         [](const testing::TestParamInfo<ELanguage>& info) {
                             return info.param == ELanguage::English ? "English" : "Japanese";
                         });

TEST(SampleBoardLanguages, JapaneseFilesHaveTheEnglishStructureWithTheirOwnTexts)
{
    CRecordingMessenger messenger;
    CBoardInfo english;
    ASSERT_TRUE(english.Read(SampleFolder(), QString(), messenger));
    CBoardInfo japanese;
    {
        const CLanguageScope scope(ELanguage::Japanese);
        ASSERT_TRUE(japanese.Read(SampleFolder(), QString(), messenger));
    }
    EXPECT_NE(english.GetBoardName(), japanese.GetBoardName());
    EXPECT_EQ(english.GetPorts(), japanese.GetPorts());
    EXPECT_EQ(english.GetCommands(), japanese.GetCommands());
    for (const auto palette : {&CBoardInfo::GetInOutPalette, &CBoardInfo::GetPartsPalette}) {
        const CPaletteInfo& en = (english.*palette)();
        const CPaletteInfo& ja = (japanese.*palette)();
        ASSERT_EQ(en.GetPageCount(), ja.GetPageCount());
        for (int page = 0; page < en.GetPageCount(); ++page) {
            EXPECT_NE(en.GetPageTitle(page), ja.GetPageTitle(page));
            ASSERT_EQ(en.GetEntryCount(page), ja.GetEntryCount(page));
            for (int i = 0; i < en.GetEntryCount(page); ++i) {
                const CPaletteEntry& e = *en.GetEntry(page, i);
                const CPaletteEntry& j = *ja.GetEntry(page, i);
                SCOPED_TRACE(e.GetType().toStdString());
                EXPECT_EQ(e.GetType(), j.GetType());
                EXPECT_EQ(e.GetUseLimit(), j.GetUseLimit());
                EXPECT_EQ(e.GetPrototype()->GetWeight(), j.GetPrototype()->GetWeight());
                EXPECT_EQ(e.GetPrototype()->GetPortList(), j.GetPrototype()->GetPortList());
            }
        }
    }
}
