// Reading one panel definition file into a palette.
#include "paletteinfo.h"
#include "core/panels/paneltest.h"
#include "stringtable.h"
#include "support/recordingmessenger.h"

#include <QDir>

namespace {

QString Shared(const char* file)
{
    return QDir(QStringLiteral(QUILLON_TEST_DATA "/boards/shared")).filePath(file);
}

// Keeps the icon of every message as well.
class CIconMessenger : public CRecordingMessenger
{
  public:
    EAnswer Message(const QString& text, EButtons buttons, EIcon icon) override
    {
        Icons.append(icon);
        return CRecordingMessenger::Message(text, buttons, icon);
    }

    QList<EIcon> Icons;
};

CPortList BoardPorts()
{
    CPortList ports;
    ports.Add({"1", "P1", "D1"});
    ports.Add({"2", "P2", ""});
    return ports;
}

QStringList Types(const CPaletteInfo& palette, int page)
{
    QStringList types;
    for (int i = 0; i < palette.GetEntryCount(page); ++i)
        types << palette.GetEntry(page, i)->GetType();
    return types;
}

} // namespace

TEST(PaletteInfo, PagesAndEntriesKeepFileOrderAndOtherElementsAreSkipped)
{
    CRecordingMessenger messenger;
    CPaletteInfo palette;
    ASSERT_TRUE(palette.Read(Shared("inout_e.xml"), messenger, BoardPorts()));
    EXPECT_TRUE(messenger.Texts.isEmpty());
    ASSERT_EQ(palette.GetPageCount(), 2);
    EXPECT_EQ(palette.GetPageTitle(0), "In");
    EXPECT_EQ(palette.GetPageTitle(1), "Out");
    EXPECT_EQ(Types(palette, 0), QStringList{"KEY"});
    EXPECT_EQ(Types(palette, 1), (QStringList{"LAMP", "SMOTO"}));
}

TEST(PaletteInfo, EntryMakesItsPrototypeWithNameWeightPortsAndLimit)
{
    CRecordingMessenger messenger;
    CPaletteInfo palette;
    ASSERT_TRUE(palette.Read(Shared("inout_e.xml"), messenger, BoardPorts()));

    const CPaletteEntry* key = palette.GetEntry(0, 0);
    ASSERT_TRUE(key && key->GetPrototype());
    const CPanel& prototype = *key->GetPrototype();
    EXPECT_EQ(prototype.GetTokens().value(0), "KEY");
    EXPECT_EQ(prototype.GetName(), "Key");
    EXPECT_EQ(prototype.GetCaption(), "Key : ") << "the name refreshes the caption";
    EXPECT_EQ(prototype.GetWeight(), 15);
    EXPECT_EQ(key->GetUseLimit(), 2);
    ASSERT_EQ(prototype.GetPortList().GetCount(), 2);
    EXPECT_EQ(prototype.GetPortList().GetEntry(0), (CPortEntry{"1", "P1", "D1"}));
    EXPECT_EQ(prototype.GetPortList().DisplayName("P1"), "P1(D1)");
    EXPECT_EQ(prototype.GetPortList().DisplayName("P2"), "P2");

    const CPaletteEntry* lamp = palette.GetEntry(1, 0);
    ASSERT_TRUE(lamp && lamp->GetPrototype());
    EXPECT_EQ(lamp->GetUseLimit(), -1) << "no USELIMIT, no limit";
    EXPECT_EQ(lamp->GetPrototype()->GetWeight(), 12) << "WEIGHT 12abc read leniently";
    EXPECT_EQ(lamp->GetPrototype()->GetPortList().GetEntry(0), (CPortEntry{"9", "P9", ""}))
        << "a port the board does not list has no alias";
}

TEST(PaletteInfo, WithoutWeightThePrototypeKeepsItsOwn)
{
    CRecordingMessenger messenger;
    CPaletteInfo palette;
    ASSERT_TRUE(palette.Read(Shared("parts_e.xml"), messenger, BoardPorts()));
    const CPaletteEntry* motor = palette.GetEntry(1, 0);
    ASSERT_TRUE(motor && motor->GetPrototype());
    EXPECT_EQ(motor->GetPrototype()->GetWeight(), 10);
}

TEST(PaletteInfo, UnknownTypeKeepsItsPlaceWithoutPrototype)
{
    CRecordingMessenger messenger;
    CPaletteInfo palette;
    ASSERT_TRUE(palette.Read(Shared("parts_e.xml"), messenger, BoardPorts()));
    EXPECT_TRUE(messenger.Texts.isEmpty());
    ASSERT_EQ(Types(palette, 1), (QStringList{"SMOT", "KEY", "BOGUS"}));
    const CPaletteEntry* unknown = palette.GetEntry(1, 2);
    EXPECT_EQ(unknown->GetPrototype(), nullptr);
    EXPECT_EQ(unknown->GetUseLimit(), 4);
    EXPECT_EQ(unknown->GetValue(), "kept");
    EXPECT_EQ(palette.FindEntry("BOGUS"), nullptr) << "nothing to offer for it";
}

TEST(PaletteInfo, FindEntryMatchesThePrototypesKeywordFirstEntryFirst)
{
    CRecordingMessenger messenger;
    CPaletteInfo palette;
    ASSERT_TRUE(palette.Read(Shared("inout_e.xml"), messenger, BoardPorts()));
    EXPECT_EQ(palette.FindEntry("SMOTO"), palette.GetEntry(1, 1));
    EXPECT_EQ(palette.FindEntry("KEY"), palette.GetEntry(0, 0));
    EXPECT_EQ(palette.FindEntry("SMOT"), nullptr);
    EXPECT_EQ(palette.FindEntry(""), nullptr);
}

TEST(PaletteInfo, FileWithoutPagesIsAnEmptyPaletteAndNoFault)
{
    CRecordingMessenger messenger;
    CPaletteInfo palette;
    EXPECT_TRUE(palette.Read(Shared("nopages.xml"), messenger, BoardPorts()));
    EXPECT_EQ(palette.GetPageCount(), 0);
    EXPECT_TRUE(messenger.Texts.isEmpty());
}

TEST(PaletteInfo, UnreadableFileIsReportedOnceAsAnError)
{
    for (const char* file : {"broken.xml", "nosuchfile.xml"}) {
        SCOPED_TRACE(file);
        CIconMessenger messenger;
        CPaletteInfo palette;
        ASSERT_TRUE(palette.Read(Shared("inout_e.xml"), messenger, BoardPorts()));
        EXPECT_FALSE(palette.Read(Shared(file), messenger, BoardPorts()));
        EXPECT_EQ(messenger.Texts, QStringList{"Error found in panel definition file."});
        EXPECT_EQ(messenger.Icons, QList<EIcon>{EIcon::Error});
        EXPECT_EQ(palette.GetPageCount(), 0) << "nothing of the earlier file stays";
    }
}

TEST(PaletteInfo, FaultMessageComesInTheInterfaceLanguage)
{
    CStringTable::SetLanguage(ELanguage::Japanese);
    CRecordingMessenger messenger;
    CPaletteInfo palette;
    const bool read = palette.Read(Shared("broken.xml"), messenger, BoardPorts());
    CStringTable::SetLanguage(ELanguage::English);
    EXPECT_FALSE(read);
    EXPECT_EQ(messenger.Texts, QStringList{"パネル定義ファイルにエラーがあります。"});
}

TEST(PaletteInfo, OutOfRangeAsksAnswerNothing)
{
    CRecordingMessenger messenger;
    CPaletteInfo palette;
    ASSERT_TRUE(palette.Read(Shared("inout_e.xml"), messenger, BoardPorts()));
    EXPECT_EQ(palette.GetEntry(0, 1), nullptr);
    EXPECT_EQ(palette.GetEntry(0, -1), nullptr);
    EXPECT_EQ(palette.GetEntry(2, 0), nullptr);
    EXPECT_EQ(palette.GetEntry(-1, 0), nullptr);
    EXPECT_EQ(palette.GetEntryCount(5), 0);
    EXPECT_EQ(palette.GetPageTitle(5), "");
}
