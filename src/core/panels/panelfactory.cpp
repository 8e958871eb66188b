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
    EPanelKind Kind;
    CMaker Maker;
};

// The order is the order of recognition and of the kinds. Keywords are compared whole, so "7SEG4"
// is itself and not "7SEG".
constexpr CKeyword kKeywords[] = {
    {u"KEY", EPanelKind::Key, Make<CSwitchPanel>},
    {u"SW", EPanelKind::Switch, Make<CSwitchPanel>},
    {u"ANI", EPanelKind::AnalogIn, Make<CAnalogPanel>},
    {u"DGI", EPanelKind::DigitalIn, Make<CSwitchPanel>},
    {u"UARI", EPanelKind::SerialIn, Make<CSerialInPanel>},
    {u"UARI0", EPanelKind::SerialIn0, Make<CSerialInPanel>},
    {u"DGO", EPanelKind::DigitalOut, Make<CLampPanel>},
    {u"BUZZ", EPanelKind::Buzzer, Make<CBuzzerPanel>},
    {u"LAMP", EPanelKind::Lamp, Make<CLampPanel>},
    {u"PWM", EPanelKind::Pwm, Make<CPwmPanel>},
    {u"UARO", EPanelKind::SerialOut, Make<CSerialOutPanel>},
    {u"UARO0", EPanelKind::SerialOut0, Make<CSerialOutPanel>},
    {u"7SEG", EPanelKind::SevenSeg, Make<CSevenSegPanel>},
    {u"7SEG4", EPanelKind::SevenSeg4, Make<CSevenSegPanel>},
    {u"LINE", EPanelKind::Wire, Make<CWirePanel>},
    {u"JPI", EPanelKind::JumpIn, Make<CJumpPanel>},
    {u"UART", EPanelKind::SerialBit, Make<CSerialBitPanel>},
    {u"UART0", EPanelKind::SerialBit0, Make<CSerialBitPanel>},
    {u"7S_", EPanelKind::Decoder, Make<CSegmentDecoderPanel>},
    {u"7S4_", EPanelKind::Decoder4, Make<CSegmentDecoderPanel>},
    {u"7S_B", EPanelKind::BitDecoder, Make<CSegmentDecoderPanel>},
    {u"7S_D", EPanelKind::DigitDecoder, Make<CSegmentDecoderPanel>},
    {u"7S_S", EPanelKind::SegmentDecoder, Make<CSegmentDecoderPanel>},
    {u"7S4_B", EPanelKind::BitDecoder4, Make<CSegmentDecoderPanel>},
    {u"7S4_D", EPanelKind::DigitDecoder4, Make<CSegmentDecoderPanel>},
    {u"7S4_S", EPanelKind::SegmentDecoder4, Make<CSegmentDecoderPanel>},
    {u"JPO", EPanelKind::JumpOut, Make<CJumpPanel>},
    {u"NOT", EPanelKind::Not, Make<CLogicPanel>},
    {u"AND", EPanelKind::And, Make<CLogicPanel>},
    {u"OR", EPanelKind::Or, Make<CLogicPanel>},
    {u"XOR", EPanelKind::Xor, Make<CLogicPanel>},
    {u"ON", EPanelKind::On, Make<CLogicPanel>},
    {u"OFF", EPanelKind::Off, Make<CLogicPanel>},
    {u"CNT", EPanelKind::Counter, Make<CCounterPanel>},
    {u"DLY", EPanelKind::Delay, Make<CDelayPanel>},
    {u"TIM", EPanelKind::Timer, Make<CTimerPanel>},
    {u"TIM1", EPanelKind::Timer1, Make<CTimerPanel>},
    {u"RSFF", EPanelKind::RsFlipFlop, Make<CFlipFlopPanel>},
    {u"T_FF", EPanelKind::TFlipFlop, Make<CFlipFlopPanel>},
    {u"D_FF", EPanelKind::DFlipFlop, Make<CFlipFlopPanel>},
    {u"FF", EPanelKind::FlipFlop, Make<CFlipFlopPanel>},
    {u"SMOT", EPanelKind::StepMotor, Make<CStepMotorPanel>},
    {u"PULS", EPanelKind::Pulse, Make<CPulsePanel>},
    {u"LCD", EPanelKind::Lcd, Make<CLcdPanel>},
    {u"WEBIN", EPanelKind::WebIn, Make<CWebInPanel>},
    {u"WEBOUT", EPanelKind::WebOut, Make<CWebOutPanel>},
    {u"SMOTO", EPanelKind::StepMotorOut, Make<CStepMotorOutPanel>},
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

EPanelKind CPanelFactory::KindOf(QStringView keyword)
{
    for (const CKeyword& k : kKeywords)
        if (keyword == k.Keyword)
            return k.Kind;
    return EPanelKind::None;
}

QStringList CPanelFactory::Keywords()
{
    QStringList keywords;
    for (const CKeyword& k : kKeywords)
        keywords.append(k.Keyword.toString());
    return keywords;
}
