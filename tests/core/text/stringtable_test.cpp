// The one string table: no text without its translation, and printf-style formatting.
#include "stringtable.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <set>

TEST(StringTable, EveryTextExistsInBothLanguagesOnceWithTheSameArguments)
{
    // Kana, ideographs and full-width forms in an English text are a translation left out.
    static const QRegularExpression japanese(
        QStringLiteral("[\\x{3000}-\\x{9fff}\\x{ff00}-\\x{ffef}]"));
    static const QRegularExpression conversion(QStringLiteral("%[-0]*[0-9]*[sd%]"));
    const auto conversions = [](const char* text) {
        QStringList found;
        for (auto it = conversion.globalMatch(QString::fromUtf8(text)); it.hasNext();)
            found << it.next().captured();
        return found;
    };
    std::set<int> ids;
    std::set<std::string> names;
    for (const CStringTable::CEntry& e : CStringTable::Entries()) {
        SCOPED_TRACE(e.Name);
        EXPECT_TRUE(ids.insert(e.Id).second) << "id used twice: " << e.Id;
        EXPECT_TRUE(names.insert(e.Name).second);
        EXPECT_STRNE(e.English, "");
        EXPECT_STRNE(e.Japanese, "");
        EXPECT_FALSE(QString::fromUtf8(e.English).contains(japanese)) << e.English;
        EXPECT_EQ(conversions(e.English), conversions(e.Japanese));
        EXPECT_EQ(QString::fromUtf8(e.English).count(u'\n'),
                  QString::fromUtf8(e.Japanese).count(u'\n'));
    }
    EXPECT_GT(ids.size(), 30u);
}

TEST(StringTable, LanguageChoosesTheTextAndFormatFillsPrintfConversions)
{
    const CStringTable::CEntry& entry = CStringTable::Entries().front();
    CStringTable::SetLanguage(ELanguage::Japanese);
    const QString japanese = CStringTable::Get(entry.Id);
    CStringTable::SetLanguage(ELanguage::English);
    EXPECT_EQ(japanese, QString::fromUtf8(entry.Japanese));
    EXPECT_EQ(CStringTable::Get(entry.Id), QString::fromUtf8(entry.English));
    EXPECT_EQ(CStringTable::Get(12345678), "");
    EXPECT_EQ(CStringTable::Format(Ids::PortFormat, {QStringLiteral("PD2(D2)")}), "PORT=PD2(D2)");
    const std::tuple<const char*, QVariant, const char*> rows[] = {
        {"  Used : %3d%%", 7, "  Used :   7%"},
        {"  IN , %2d ", 5, "  IN ,  5 "},
        {"%02d", 5, "05"},
        {"%02d", -5, "-5"},
        {"%03d", -5, "-05"},
        {"%-4s|", "ab", "ab  |"},
        {"%s", "名前", "名前"},
        {"100%", 1, "100%"},
        {"%x", 1, "%x"}};
    for (const auto& [pattern, value, expected] : rows)
        EXPECT_EQ(FormatText(QString::fromUtf8(pattern), {value}), QString::fromUtf8(expected))
            << pattern;
    EXPECT_EQ(FormatText(QStringLiteral("(%s,%d)"), {QStringLiteral("cc"), 2}), "(cc,2)");
    EXPECT_EQ(FormatText(QStringLiteral("%s and %s"), {QStringLiteral("one")}), "one and ");
}
