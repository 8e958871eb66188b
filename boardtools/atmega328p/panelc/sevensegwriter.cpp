#include "sevensegwriter.h"

#include "gridorder.h"
#include "scancode.h"

#include "panel.h"
#include "panelgrid.h"
#include "panelvalues.h"

#include <algorithm>

namespace {

struct CDecoder
{
    int Index = 0;
    QString Input;
};

// The display type's letter: "B" bit, "D" digit, "S" segment (modes 1-3 one digit, 4-6
// four digits).
QChar TypeLetter(int mode)
{
    return QStringLiteral("BDS").at((mode - 1) % 3);
}

// The decoders working in the display's type with an index the display has.
std::vector<CDecoder> DecodersOf(QChar type, int limit, CScanCode& code)
{
    std::vector<CDecoder> decoders;
    for (const CGridPos pos : CGridOrder::Panels(code.Grid())) {
        const CPanel& panel = *code.Grid().GetCell(pos)->GetPanel();
        const QString keyword = panel.GetTokens().value(0);
        if (keyword != u"7S_" && keyword != u"7S4_" && !keyword.startsWith(u"7S_") &&
            !keyword.startsWith(u"7S4_"))
            continue;
        // The untyped decoders work in the display's type.
        const QChar letter = keyword.endsWith(u'_') ? type : keyword.back();
        const int index = LeadingInt(panel.GetTokens().value(1));
        if (letter == type && index >= 0 && index < limit)
            decoders.push_back({index, code.In(pos, 0, 'L')});
    }
    return decoders;
}

// Bits or segments that add up: "(in ? 1 << index : 0) | ...".
QString Sum(const std::vector<CDecoder>& decoders, const char* one)
{
    QStringList terms;
    for (const CDecoder& decoder : decoders)
        terms.append(
            QStringLiteral("(%1 ? %2 << %3 : 0)").arg(decoder.Input, one).arg(decoder.Index));
    return terms.isEmpty() ? QStringLiteral("0") : terms.join(" | ");
}

// Of the digit decoders that are on, the largest number wins.
QString Largest(std::vector<CDecoder> decoders)
{
    std::stable_sort(decoders.begin(), decoders.end(),
                     [](const CDecoder& a, const CDecoder& b) { return a.Index > b.Index; });
    QString value;
    for (const CDecoder& decoder : decoders)
        value += QStringLiteral("%1 ? %2u : ").arg(decoder.Input).arg(decoder.Index);
    return value + "Q_SEG_BLANK";
}

} // namespace

bool CSevenSegWriter::Handles(const QString& keyword)
{
    return QStringList{"7SEG", "7SEG4", "7S_",   "7S4_",  "7S_B",
                       "7S_D", "7S_S",  "7S4_B", "7S4_D", "7S4_S"}
        .contains(keyword);
}

void CSevenSegWriter::Write(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    const int mode = panel.GetMode();
    if (!panel.GetTokens().value(0).startsWith(u"7SEG") || mode < 1 || mode > 6)
        return;
    const bool four = mode >= 4;
    code.Use(four ? "Q_USE_SEG4" : "Q_USE_SEG1");
    code.AfterScan("q_seg_refresh();");
    const QString lit = code.In(pos, 0, 'L');
    const QChar type = TypeLetter(mode);
    QString line;
    if (type == u'B')
        line = QStringLiteral("q_seg_hex((uint16_t)(%1), %2);")
                   .arg(Sum(DecodersOf(type, four ? 16 : 4, code), "1u"), lit);
    else if (type == u'D')
        line = QStringLiteral("q_seg_number(%1, %2);")
                   .arg(Largest(DecodersOf(type, four ? 10000 : 10, code)), lit);
    else
        line = QStringLiteral("q_seg_pattern(%1, %2);")
                   .arg(Sum(DecodersOf(type, four ? 32 : 8, code), "1UL"), lit);
    code.Add(CScanCode::Outputs, line);
}
