#include "simvectors.h"

#include "simsignals.h"
#include "stringtable.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

// Reads one line from left to right; At() is the 1-based column of what comes next.
class CLineReader
{
  public:
    explicit CLineReader(const QString& line) : m_line(line) {}

    int At() const { return int(m_pos) + 1; }
    // Blanks skipped; false at the end of the line or of its text (a comment follows).
    bool More()
    {
        while (m_pos < m_line.size() && m_line[m_pos].isSpace())
            ++m_pos;
        return m_pos < m_line.size() && m_line[m_pos] != u'#' && m_line[m_pos] != u';';
    }
    bool Peek(QChar c) const { return m_pos < m_line.size() && m_line[m_pos] == c; }
    void Skip() { ++m_pos; }
    // A run up to a blank or stop character.
    QString Word(const QString& stops = QString())
    {
        const qsizetype begin = m_pos;
        while (m_pos < m_line.size() && !m_line[m_pos].isSpace() && !stops.contains(m_line[m_pos]))
            ++m_pos;
        return m_line.mid(begin, m_pos - begin);
    }
    // A text in double quotes with C escapes, as bytes; nullopt when it is not closed or an
    // escape is unknown.
    std::optional<QByteArray> Quoted()
    {
        Skip();
        const QByteArray line = m_line.toUtf8();
        QByteArray text;
        // Columns count characters, so the text is walked as characters, each as UTF-8.
        while (m_pos < m_line.size()) {
            const QChar c = m_line[m_pos++];
            if (c == u'"')
                return text;
            if (c != u'\\') {
                text += QString(c).toUtf8();
                continue;
            }
            if (m_pos >= m_line.size())
                return std::nullopt;
            const QChar e = m_line[m_pos++];
            static const QString simple = QStringLiteral("nrt\\\"0");
            static const char values[] = {'\n', '\r', '\t', '\\', '"', '\0'};
            if (const qsizetype i = simple.indexOf(e); i >= 0) {
                text += values[i];
            } else if (e == u'x' && m_pos + 2 <= m_line.size()) {
                bool ok = false;
                text += char(m_line.mid(m_pos, 2).toInt(&ok, 16));
                m_pos += 2;
                if (!ok)
                    return std::nullopt;
            } else {
                return std::nullopt;
            }
        }
        return std::nullopt;
    }

  private:
    const QString& m_line;
    qsizetype m_pos = 0;
};

} // namespace

double CSimVectors::ParseTime(const QString& text)
{
    static const QRegularExpression time(QStringLiteral("^([0-9]+(?:\\.[0-9]*)?)(s|ms|us)$"));
    const QRegularExpressionMatch match = time.match(text);
    if (!match.hasMatch())
        return -1;
    const double value = match.captured(1).toDouble();
    const QString unit = match.captured(2);
    return unit == u"s" ? value * 1000 : unit == u"ms" ? value : value / 1000;
}

bool CSimVectors::Parse(const QString& text, const QString& source)
{
    const QStringList lines = QString(text)
                                  .replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
                                  .split(QRegularExpression(QStringLiteral("[\r\n]")));
    for (int i = 0; i < lines.size(); ++i)
        if (!ParseLine(lines[i], i + 1, source))
            return false;
    return true;
}

bool CSimVectors::ParseInput(const QString& change)
{
    const qsizetype at = change.lastIndexOf(u'@');
    if (at < 0) {
        m_error = CStringTable::Format(Ids::SimInputSyntax, {change});
        return false;
    }
    return ParseLine(change.mid(at + 1) + QStringLiteral(" set ") + change.left(at), 0,
                     QStringLiteral("--input"));
}

void CSimVectors::AddSerial(double ms, const QByteArray& bytes)
{
    CEvent event;
    event.Ms = ms;
    event.Kind = CEvent::SendSerial;
    event.Text = bytes;
    m_events.append(event);
}

bool CSimVectors::ParseLine(const QString& line, int number, const QString& source)
{
    CLineReader reader(line);
    const auto fail = [&](int column, int why, std::initializer_list<QVariant> args = {}) {
        const QString what = args.size() ? CStringTable::Format(why, args) : CStringTable::Get(why);
        m_error = number > 0
                      ? CStringTable::Format(Ids::SimVectorsFault, {source, number, column, what})
                      : source + QStringLiteral(": ") + what;
        return false;
    };
    if (!reader.More())
        return true;
    const int timeColumn = reader.At();
    const double ms = ParseTime(reader.Word());
    if (ms < 0)
        return fail(timeColumn, Ids::SimVectorsTime);
    if (!reader.More())
        return fail(reader.At(), Ids::SimVectorsAction);

    QString action;
    while (reader.More()) {
        const int column = reader.At();
        if (!reader.Peek(u'"')) {
            const QString word = reader.Word(QStringLiteral("="));
            if (!reader.Peek(u'=')) {
                if (word != u"set" && word != u"expect" && word != u"serial")
                    return fail(column, Ids::SimVectorsAction);
                action = word;
                if (action != u"serial")
                    continue;
                if (!reader.More() || !reader.Peek(u'"'))
                    return fail(reader.At(), Ids::SimVectorsText);
                const int textColumn = reader.At();
                const std::optional<QByteArray> text = reader.Quoted();
                if (!text)
                    return fail(textColumn, Ids::SimVectorsText);
                AddSerial(ms, *text);
                m_events.last().Line = number;
                continue;
            }
            // name=value for the action before it
            reader.Skip();
            if (action != u"set" && action != u"expect")
                return fail(column, Ids::SimVectorsAction);
            CEvent event;
            event.Ms = ms;
            event.Line = number;
            event.Name = word;
            const int valueColumn = reader.At();
            const bool lcd = word == u"lcd1" || word == u"lcd2";
            if (action == u"expect" && (word == u"serial" || lcd)) {
                const std::optional<QByteArray> text =
                    reader.Peek(u'"') ? reader.Quoted() : std::nullopt;
                if (!text)
                    return fail(valueColumn, Ids::SimVectorsText);
                event.Kind = lcd ? CEvent::ExpectLcd : CEvent::ExpectSerial;
                event.Value = lcd ? word.back().digitValue() : 0;
                event.Text = *text;
                m_events.append(event);
                continue;
            }
            const CSimSignals::CSignal* signal = m_signals.Find(word);
            if (!signal)
                return fail(column, Ids::SimVectorsName, {word});
            bool ok = false;
            event.Value = reader.Word().toInt(&ok);
            event.Pin = signal->Pin;
            event.Channel = signal->Channel;
            const bool reading = action == u"set" && signal->Channel >= 0;
            if (!ok || event.Value < 0 || event.Value > (reading ? 1023 : 1))
                return fail(valueColumn, reading ? Ids::SimVectorsReading : Ids::SimVectorsLevel);
            if (action == u"set" && !signal->Input)
                return fail(column, Ids::SimVectorsNotInput, {word});
            event.Kind = action == u"expect" ? CEvent::ExpectLevel
                         : reading           ? CEvent::SetReading
                                             : CEvent::SetLevel;
            m_events.append(event);
        } else {
            return fail(column, Ids::SimVectorsAction);
        }
    }
    return true;
}

QList<CSimVectors::CEvent> CSimVectors::Events() const
{
    QList<CEvent> events = m_events;
    std::stable_sort(events.begin(), events.end(),
                     [](const CEvent& a, const CEvent& b) { return a.Ms < b.Ms; });
    return events;
}

double CSimVectors::LastMs() const
{
    double last = 0;
    for (const CEvent& event : m_events)
        last = std::max(last, event.Ms);
    return last;
}
