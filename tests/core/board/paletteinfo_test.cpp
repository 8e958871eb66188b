// Reading one panel definition file into a palette.
#include "core/panels/paneltest.h"
#include "paletteinfo.h"
#include "panelcell.h"
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
bool Read(CPaletteInfo& palette, const char* file, IMessenger& messenger)
{
    CPortList ports;
    ports.Add({"1", "P1", "D1"});
    ports.Add({"2", "P2", ""});
    return palette.Read(QDir(QStringLiteral(QUILLON_TEST_DATA "/boards/shared")).filePath(file),
                        messenger, ports);
}

// Page titles, then each page's entries as type, use limit, weight and ports.
QStringList Contents(const CPaletteInfo& palette)
{
    QStringList text;
    for (int page = 0; page < palette.GetPageCount(); ++page) {
        text << palette.GetPageTitle(page) + u':';
        for (int i = 0; i < palette.GetEntryCount(page); ++i) {
            const CPaletteEntry* entry = palette.GetEntry(page, i);
            QString line = entry->GetType() + u' ' + QString::number(entry->GetUseLimit());
            if (const CPanel* prototype = entry->GetPrototype()) {
                line += u' ' + QString::number(prototype->GetWeight());
                for (int p = 0; p < prototype->GetPortList().GetCount(); ++p)
                    line += u' ' +
                            prototype->GetPortList().DisplayName(prototype->GetPortList().GetAt(p));
            }
            text << line;
        }
    }
    return text;
}

} // namespace

TEST(PaletteInfo, EntriesMakeTheirPrototypesWithWeightPortsAndLimitInFileOrder)
{
    CRecordingMessenger messenger;
    CPaletteInfo inOut, parts;
    ASSERT_TRUE(Read(inOut, "inout_e.xml", messenger) && Read(parts, "parts_e.xml", messenger));
    EXPECT_TRUE(messenger.Texts.isEmpty());
    // Elements of other names are skipped; no USELIMIT is no limit, WEIGHT 12abc reads 12, a
    // port the board does not list has no alias, and without WEIGHT the panel keeps its own.
    EXPECT_EQ(Contents(inOut), QStringList({"In:", "KEY 2 15 P1(D1) P2", "Out:", "LAMP -1 12 P9 P2",
                                            "SMOTO 3 10 P1(D1)"}));
    // An unknown type keeps its place without a prototype, and is not offered.
    EXPECT_EQ(Contents(parts),
              QStringList({"Wires:", "LINE -1 0", "Misc:", "SMOT 1 10", "KEY -1 10", "BOGUS 4"}));
    EXPECT_EQ(parts.GetEntry(1, 2)->GetValue(), "kept");
    EXPECT_EQ(parts.FindEntry("BOGUS"), nullptr);
    const CPanel& key = *inOut.GetEntry(0, 0)->GetPrototype();
    EXPECT_EQ(key.GetTokens().value(0), "KEY");
    EXPECT_EQ(key.GetCaption(), "Key : ") << "the name refreshes the caption";
    // A panel taken from the palette is the prototype whole: weight and ports as well.
    const std::unique_ptr<CPanelCell> cell = inOut.GetEntry(0, 0)->MakeCell();
    EXPECT_EQ(cell->GetPanel()->GetWeight(), 15);
    EXPECT_EQ(cell->GetPanel()->GetPortList(), key.GetPortList());
    // The prototype's keyword is matched, the first entry first.
    EXPECT_EQ(inOut.FindEntry("SMOTO"), inOut.GetEntry(1, 1));
    EXPECT_EQ(parts.FindEntry("KEY"), parts.GetEntry(1, 1));
    EXPECT_EQ(inOut.FindEntry("SMOT"), nullptr);
    EXPECT_EQ(inOut.FindEntry(""), nullptr);
    EXPECT_TRUE(inOut.GetEntry(0, 1) == nullptr && inOut.GetEntry(0, -1) == nullptr &&
                inOut.GetEntry(2, 0) == nullptr && inOut.GetEntry(-1, 0) == nullptr &&
                inOut.GetEntryCount(5) == 0 && inOut.GetPageTitle(5).isEmpty());
}

TEST(PaletteInfo, AFaultIsReportedOnceAsAnErrorInTheInterfaceLanguage)
{
    const struct
    {
        const char* File;
        ELanguage Language;
        const char* Message; /* "" when the file reads */
    } rows[] = {
        {"nopages.xml", ELanguage::English, ""}, // an empty palette and no fault
        {"broken.xml", ELanguage::English, "Error found in panel definition file."},
        {"nosuchfile.xml", ELanguage::English, "Error found in panel definition file."},
        {"broken.xml", ELanguage::Japanese, "パネル定義ファイルにエラーがあります。"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.File);
        CIconMessenger messenger;
        CPaletteInfo palette;
        ASSERT_TRUE(Read(palette, "inout_e.xml", messenger));
        CStringTable::SetLanguage(row.Language);
        EXPECT_EQ(Read(palette, row.File, messenger), !*row.Message);
        CStringTable::SetLanguage(ELanguage::English);
        EXPECT_EQ(messenger.Texts, *row.Message ? QStringList{row.Message} : QStringList());
        EXPECT_EQ(messenger.Icons, *row.Message ? QList<EIcon>{EIcon::Error} : QList<EIcon>());
        EXPECT_EQ(palette.GetPageCount(), 0) << "nothing of the earlier file stays";
    }
}
