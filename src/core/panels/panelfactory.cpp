#include "panelfactory.h"

#include "analogpanel.h"
#include "buzzerpanel.h"
#include "counterpanel.h"
#include "delaypanel.h"
#include "flipfloppanel.h"
#include "jumppanel.h"
#include "lamppanel.h"
#include "lcdpanel.h"
#include "logicpanel.h"
#include "pulsepanel.h"
#include "pwmpanel.h"
#include "segmentdecoderpanel.h"
#include "serialbitpanel.h"
#include "serialinpanel.h"
#include "serialoutpanel.h"
#include "sevensegpanel.h"
#include "stepmotoroutpanel.h"
#include "stepmotorpanel.h"
#include "switchpanel.h"
#include "timerpanel.h"
#include "webinpanel.h"
#include "weboutpanel.h"
#include "wirepanel.h"

#include <QByteArray>

namespace {

using CMaker = std::unique_ptr<CPanel> (*)(const QString&);

template <class T> std::unique_ptr<CPanel> Make(const QString& line)
{
    return std::make_unique<T>(line);
}

// The keywords are views, their lengths known when compiled: every panel made looks its
// keyword up here, and most keywords differ from the one sought already in length.
struct CKeyword
{
    QStringView Keyword;
    CMaker Maker;
};

// The order is the order of recognition. Keywords are compared whole, so "7SEG4" is
// itself and not "7SEG".
constexpr CKeyword kKeywords[] = {
    {u"KEY", Make<CSwitchPanel>},
    {u"SW", Make<CSwitchPanel>},
    {u"ANI", Make<CAnalogPanel>},
    {u"DGI", Make<CSwitchPanel>},
    {u"UARI", Make<CSerialInPanel>},
    {u"UARI0", Make<CSerialInPanel>},
    {u"DGO", Make<CLampPanel>},
    {u"BUZZ", Make<CBuzzerPanel>},
    {u"LAMP", Make<CLampPanel>},
    {u"PWM", Make<CPwmPanel>},
    {u"UARO", Make<CSerialOutPanel>},
    {u"UARO0", Make<CSerialOutPanel>},
    {u"7SEG", Make<CSevenSegPanel>},
    {u"7SEG4", Make<CSevenSegPanel>},
    {u"LINE", Make<CWirePanel>},
    {u"JPI", Make<CJumpPanel>},
    {u"UART", Make<CSerialBitPanel>},
    {u"UART0", Make<CSerialBitPanel>},
    {u"7S_", Make<CSegmentDecoderPanel>},
    {u"7S4_", Make<CSegmentDecoderPanel>},
    {u"7S_B", Make<CSegmentDecoderPanel>},
    {u"7S_D", Make<CSegmentDecoderPanel>},
    {u"7S_S", Make<CSegmentDecoderPanel>},
    {u"7S4_B", Make<CSegmentDecoderPanel>},
    {u"7S4_D", Make<CSegmentDecoderPanel>},
    {u"7S4_S", Make<CSegmentDecoderPanel>},
    {u"JPO", Make<CJumpPanel>},
    {u"NOT", Make<CLogicPanel>},
    {u"AND", Make<CLogicPanel>},
    {u"OR", Make<CLogicPanel>},
    {u"XOR", Make<CLogicPanel>},
    {u"ON", Make<CLogicPanel>},
    {u"OFF", Make<CLogicPanel>},
    {u"CNT", Make<CCounterPanel>},
    {u"DLY", Make<CDelayPanel>},
    {u"TIM", Make<CTimerPanel>},
    {u"TIM1", Make<CTimerPanel>},
    {u"RSFF", Make<CFlipFlopPanel>},
    {u"T_FF", Make<CFlipFlopPanel>},
    {u"D_FF", Make<CFlipFlopPanel>},
    {u"FF", Make<CFlipFlopPanel>},
    {u"SMOT", Make<CStepMotorPanel>},
    {u"PULS", Make<CPulsePanel>},
    {u"LCD", Make<CLcdPanel>},
    {u"WEBIN", Make<CWebInPanel>},
    {u"WEBOUT", Make<CWebOutPanel>},
    {u"SMOTO", Make<CStepMotorOutPanel>},
};

// Recognition looks at the first bytes of the line's UTF-8 only; the panel still gets the
// whole line.
constexpr qsizetype kRecognisedBytes = 254;

// The keyword of a line that lies whole within the recognised bytes: a UTF-16 unit takes at
// most three bytes of UTF-8, so a line of up to 84 units does. Every layout record is read
// this way, without encoding the line first.
constexpr qsizetype kShortLine = kRecognisedBytes / 3;

// The first word of a text: leading blanks and TABs skipped, ended by a blank, a TAB or a
// NUL. One scan for the UTF-8 head of a long line and for a short line as it is.
template <class View> View FirstWord(View text)
{
    const auto blank = [](auto c) { return c == ' ' || c == '\t'; };
    qsizetype begin = 0;
    while (begin < text.size() && blank(text[begin]))
        ++begin;
    qsizetype end = begin;
    while (end < text.size() && !blank(text[end]) && text[end] != '\0')
        ++end;
    return text.sliced(begin, end - begin);
}

} // namespace

QString CPanelFactory::Keyword(const QString& line)
{
    const QByteArray head = line.toUtf8().left(kRecognisedBytes);
    return QString::fromUtf8(FirstWord(QByteArrayView(head)));
}

std::unique_ptr<CPanel> CPanelFactory::Create(const QString& line)
{
    const QString longKeyword = line.size() > kShortLine ? Keyword(line) : QString();
    const QStringView keyword =
        line.size() > kShortLine ? QStringView(longKeyword) : FirstWord(QStringView(line));
    for (const CKeyword& k : kKeywords)
        if (keyword == k.Keyword)
            return k.Maker(line);
    return nullptr;
}

QStringList CPanelFactory::Keywords()
{
    QStringList keywords;
    for (const CKeyword& k : kKeywords)
        keywords.append(k.Keyword.toString());
    return keywords;
}
