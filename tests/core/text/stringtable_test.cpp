#include "stringtable.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <set>

namespace {

// Switches the language for one test and back to English afterwards.
struct CLanguageScope
{
    explicit CLanguageScope(ELanguage language) { CStringTable::SetLanguage(language); }
    ~CLanguageScope() { CStringTable::SetLanguage(ELanguage::English); }
};

QStringList Conversions(const QString& text)
{
    static const QRegularExpression conversion(QStringLiteral("%[-0]*[0-9]*[sd%]"));
    QStringList found;
    for (auto it = conversion.globalMatch(text); it.hasNext();)
        found << it.next().captured();
    return found;
}

} // namespace

TEST(StringTable, EveryTextExistsInBothLanguagesOnce)
{
    // Kana, ideographs and full-width forms in an English text are a translation left out.
    static const QRegularExpression japanese(
        QStringLiteral("[\\x{3000}-\\x{9fff}\\x{ff00}-\\x{ffef}]"));
    std::set<int> ids;
    std::set<std::string> names;
    for (const CStringTable::CEntry& e : CStringTable::Entries()) {
        SCOPED_TRACE(e.Name);
        EXPECT_TRUE(ids.insert(e.Id).second) << "id used twice: " << e.Id;
        EXPECT_TRUE(names.insert(e.Name).second);
        EXPECT_STRNE(e.English, "");
        EXPECT_STRNE(e.Japanese, "");
        EXPECT_FALSE(QString::fromUtf8(e.English).contains(japanese)) << e.English;
    }
    EXPECT_GT(ids.size(), 30u);
}

TEST(StringTable, BothLanguagesTakeTheSameArgumentsInTheSameOrder)
{
    for (const CStringTable::CEntry& e : CStringTable::Entries()) {
        SCOPED_TRACE(e.Name);
        EXPECT_EQ(Conversions(QString::fromUtf8(e.English)), Conversions(QString::fromUtf8(e.Japanese)));
        EXPECT_EQ(QString::fromUtf8(e.English).count(u'\n'), QString::fromUtf8(e.Japanese).count(u'\n'));
    }
}

TEST(StringTable, LanguageChoosesTheText)
{
    EXPECT_EQ(CStringTable::Get(Ids::PortFormat), "PORT=%s");
    EXPECT_EQ(CStringTable::Get(Ids::PropertySettings), "Property Settings.");
    {
        CLanguageScope japanese(ELanguage::Japanese);
        EXPECT_EQ(CStringTable::Get(Ids::PropertySettings), QString::fromUtf8("プロパティ設定"));
    }
    EXPECT_EQ(CStringTable::Get(Ids::CounterHold), "HOLD "); // the trailing blank is part of it
    EXPECT_EQ(CStringTable::Get(12345678), "");
}

TEST(StringTable, FormatFillsPrintfConversions)
{
    EXPECT_EQ(CStringTable::Format(Ids::PortFormat, {QStringLiteral("PD2(D2)")}), "PORT=PD2(D2)");
    struct
    {
        const char* Pattern;
        QVariant Value;
        const char* Expected;
    } const rows[] = {
        {"  Used : %3d%%", 7, "  Used :   7%"},
        {"  IN , %2d ", 5, "  IN ,  5 "},
        {"%02d", 5, "05"},
        {"%02d", -5, "-5"},
        {"%03d", -5, "-05"},
        {"%-4s|", QStringLiteral("ab"), "ab  |"},
        {"%s", QString::fromUtf8("名前"), "名前"},
        {"100%", 1, "100%"},
        {"%x", 1, "%x"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FormatText(QString::fromUtf8(row.Pattern), {row.Value}), row.Expected) << row.Pattern;
    EXPECT_EQ(FormatText(QStringLiteral("(%s,%d)"), {QStringLiteral("cc"), 2}), "(cc,2)");
    EXPECT_EQ(FormatText(QStringLiteral("%s and %s"), {QStringLiteral("one")}), "one and ");
}
