#include "stringtable.h"

#include <QHash>

namespace {

constexpr CStringTable::CEntry kEntries[] = {
#define QUILLON_STRING(name, id, english, japanese) {id, #name, english, japanese},
#include "strings.inc"
#undef QUILLON_STRING
};

ELanguage g_language = ELanguage::English;

// Captions ask for texts on every change of every panel: the texts of both languages are
// converted once and found by id through a hash.
struct CTexts
{
    QHash<int, QString> English;
    QHash<int, QString> Japanese;

    CTexts()
    {
        for (const CStringTable::CEntry& e : kEntries) {
            English.insert(e.Id, QString::fromUtf8(e.English));
            Japanese.insert(e.Id, QString::fromUtf8(e.Japanese));
        }
    }
};

const CTexts& Texts()
{
    static const CTexts texts;
    return texts;
}

} // namespace

void CStringTable::SetLanguage(ELanguage language)
{
    g_language = language;
}

ELanguage CStringTable::GetLanguage()
{
    return g_language;
}

QString CStringTable::Get(int id)
{
    const CTexts& texts = Texts();
    return (g_language == ELanguage::Japanese ? texts.Japanese : texts.English).value(id);
}

QString CStringTable::Format(int id, std::initializer_list<QVariant> args)
{
    return FormatText(Get(id), args);
}

std::span<const CStringTable::CEntry> CStringTable::Entries()
{
    return kEntries;
}

QString FormatText(const QString& pattern, std::initializer_list<QVariant> args)
{
    QString out;
    out.reserve(pattern.size() + 16);
    auto arg = args.begin();
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const qsizetype percent = pattern.indexOf(u'%', i);
        if (percent < 0 || percent + 1 >= pattern.size()) {
            out += QStringView(pattern).mid(i);
            break;
        }
        out += QStringView(pattern).mid(i, percent - i);
        i = percent;
        qsizetype j = i + 1;
        if (pattern[j] == u'%') {
            out += u'%';
            i = j;
            continue;
        }
        bool zero = false, left = false;
        for (; j < pattern.size() && (pattern[j] == u'0' || pattern[j] == u'-'); ++j)
            (pattern[j] == u'0' ? zero : left) = true;
        int width = 0;
        for (; j < pattern.size() && pattern[j].isDigit(); ++j)
            width = width * 10 + pattern[j].digitValue();
        if (j >= pattern.size() || (pattern[j] != u's' && pattern[j] != u'd')) {
            out += pattern.mid(i, j - i); // not a conversion we know: keep it as text
            i = j - 1;
            continue;
        }
        const QVariant value = arg != args.end() ? *arg++ : QVariant();
        QString text;
        if (pattern[j] == u'd') {
            const qlonglong n = value.toLongLong();
            text = QString::number(qAbs(n));
            if (zero && !left && text.size() < width - (n < 0 ? 1 : 0))
                text = QString(width - (n < 0 ? 1 : 0) - text.size(), u'0') + text;
            if (n < 0)
                text.prepend(u'-');
        } else {
            text = value.toString();
        }
        if (text.size() < width)
            text = left ? text.leftJustified(width) : text.rightJustified(width);
        out += text;
        i = j;
    }
    return out;
}
