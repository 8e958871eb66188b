// Reading one panel definition file into a palette.
#include "core/panels/paneltest.h"
#include "paletteinfo.h"
#include "stringtable.h"
#include "support/recordingmessenger.h"

#include <QDir>

namespace {

// Keeps the icon of every message as well.
struct CIconMessenger : CRecordingMessenger
{
    EAnswer Message(const QString& text, EButtons buttons, EIcon icon) override
    {
        Icons.append(icon);
        return CRecordingMessenger::Message(text, buttons, icon);
    }
    QList<EIcon> Icons;
};

// Reads a file of the shared fixtures against a board with ports P1 (alias D1) and P2.
struct CPalette
{
    explicit CPalette(const char* file)
    {
        CPortList ports;
        ports.Add({"1", "P1", "D1"});
        ports.Add({"2", "P2", ""});
        Ok = Palette.Read(QDir(QStringLiteral(QUILLON_TEST_DATA "/boards/shared")).filePath(file), Messenger, ports);
    }
    QStringList Types(int page) const
    {
        QStringList types;
        for (int i = 0; i < Palette.GetEntryCount(page); ++i)
            types << Palette.GetEntry(page, i)->GetType();
        return types;
    }
    CIconMessenger Messenger;
    CPaletteInfo Palette;
    bool Ok = false;
};

} // namespace

TEST(PaletteInfo, EntriesMakeTheirPrototypesWithNameWeightPortsAndLimit)
{
    const CPalette read("inout_e.xml");
    ASSERT_TRUE(read.Ok);
    const CPaletteInfo& palette = read.Palette;
    EXPECT_TRUE(read.Messenger.Texts.isEmpty());
    // Pages and entries keep file order; elements of other names are skipped.
    EXPECT_EQ(QStringList({palette.GetPageTitle(0), palette.GetPageTitle(1)}), QStringList({"In", "Out"}));
    EXPECT_EQ(read.Types(0), QStringList{"KEY"});
    EXPECT_EQ(read.Types(1), (QStringList{"LAMP", "SMOTO"}));

    const CPanel& key = *palette.GetEntry(0, 0)->GetPrototype();
    EXPECT_EQ(key.GetTokens().value(0), "KEY");
    EXPECT_EQ(key.GetCaption(), "Key : ") << "the name refreshes the caption";
    EXPECT_EQ(key.GetOption(), 15);
    EXPECT_EQ(palette.GetEntry(0, 0)->GetUseLimit(), 2);
    ASSERT_EQ(key.GetPortList().GetCount(), 2);
    EXPECT_EQ(key.GetPortList().GetEntry(0), (CPortEntry{"1", "P1", "D1"}));
    EXPECT_EQ(key.GetPortList().DisplayName("P2"), "P2");

    const CPaletteEntry* lamp = palette.GetEntry(1, 0);
    EXPECT_EQ(lamp->GetUseLimit(), -1) << "no USELIMIT, no limit";
    EXPECT_EQ(lamp->GetPrototype()->GetOption(), 12) << "WEIGHT 12abc read leniently";
    EXPECT_EQ(lamp->GetPrototype()->GetPortList().GetEntry(0), (CPortEntry{"9", "P9", ""}))
        << "a port the board does not list has no alias";

    // The prototype's keyword is matched, the first entry first.
    EXPECT_EQ(palette.FindEntry("SMOTO"), palette.GetEntry(1, 1));
    EXPECT_EQ(palette.FindEntry("KEY"), palette.GetEntry(0, 0));
    EXPECT_EQ(palette.FindEntry("SMOT"), nullptr);
    EXPECT_EQ(palette.FindEntry(""), nullptr);
    // Out of range asks answer nothing.
    EXPECT_EQ(palette.GetEntry(0, 1), nullptr);
    EXPECT_EQ(palette.GetEntry(0, -1), nullptr);
    EXPECT_EQ(palette.GetEntry(2, 0), nullptr);
    EXPECT_EQ(palette.GetEntry(-1, 0), nullptr);
    EXPECT_EQ(palette.GetEntryCount(5), 0);
    EXPECT_EQ(palette.GetPageTitle(5), "");
}

TEST(PaletteInfo, UnknownTypeKeepsItsPlaceWithoutPrototypeAndNoWeightKeepsTheOwn)
{
    const CPalette read("parts_e.xml");
    ASSERT_TRUE(read.Ok);
    EXPECT_TRUE(read.Messenger.Texts.isEmpty());
    ASSERT_EQ(read.Types(1), (QStringList{"SMOT", "KEY", "BOGUS"}));
    EXPECT_EQ(read.Palette.GetEntry(1, 0)->GetPrototype()->GetOption(), 10);
    const CPaletteEntry* unknown = read.Palette.GetEntry(1, 2);
    EXPECT_EQ(unknown->GetPrototype(), nullptr);
    EXPECT_EQ(unknown->GetUseLimit(), 4);
    EXPECT_EQ(unknown->GetValue(), "kept");
    EXPECT_EQ(read.Palette.FindEntry("BOGUS"), nullptr) << "nothing to offer for it";
}

TEST(PaletteInfo, AFaultIsReportedOnceAsAnErrorInTheInterfaceLanguage)
{
    const struct { const char* File; ELanguage Language; const char* Message; /* "" when the file reads */ } rows[] = {
        {"nopages.xml", ELanguage::English, ""}, // an empty palette and no fault
        {"broken.xml", ELanguage::English, "Error found in panel definition file."},
        {"nosuchfile.xml", ELanguage::English, "Error found in panel definition file."},
        {"broken.xml", ELanguage::Japanese, "パネル定義ファイルにエラーがあります。"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.File);
        CStringTable::SetLanguage(row.Language);
        CPalette read("inout_e.xml");
        CPortList ports;
        const bool ok = read.Palette.Read(
            QDir(QStringLiteral(QUILLON_TEST_DATA "/boards/shared")).filePath(row.File), read.Messenger, ports);
        CStringTable::SetLanguage(ELanguage::English);
        EXPECT_EQ(ok, !*row.Message);
        EXPECT_EQ(read.Messenger.Texts, *row.Message ? QStringList{row.Message} : QStringList());
        EXPECT_EQ(read.Messenger.Icons, *row.Message ? QList<EIcon>{EIcon::Error} : QList<EIcon>());
        EXPECT_EQ(read.Palette.GetPageCount(), 0) << "nothing of the earlier file stays";
    }
}
