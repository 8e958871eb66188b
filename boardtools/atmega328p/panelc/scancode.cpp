#include "scancode.h"

#include "panelname.h"

#include "layoutfile.h"
#include "netlist.h"
#include "panelgrid.h"

#include <algorithm>

namespace {

const char* const kStepTitles[] = {
    "Inputs are sampled.",
    "Storing panels show their state.",
    "Gates, each after the gates feeding it.",
    "Outputs are written.",
    "Storing panels take their inputs.",
};

// A C comment of any text: names may hold anything, even the end of a comment.
QString Comment(QString text)
{
    text.replace("*/", "* /");
    return "/* " + text + " */";
}

QString CString(const QByteArray& bytes)
{
    QString text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte == '"' || byte == '\\')
            text += u'\\' + QChar(byte);
        else if (byte >= 0x20 && byte < 0x7F)
            text += QChar(byte);
        else // octal, so a following digit cannot join the escape
            text += QStringLiteral("\\%1").arg(byte, 3, 8, QChar(u'0'));
    }
    return u'"' + text + u'"';
}

// Where the simulation map finds what a storing panel holds: the field of its run-time
// type, its offset and its size. BASE.c asserts every row it uses, so a change to PANEL.h
// stops the build instead of moving the map off its fields. A timer's count is a q_time_t,
// which long times make four bytes.
enum class ETimes
{
    Any,
    Short,
    Long
};

struct CMapField
{
    const char* Type;
    const char* Item;
    const char* Field;
    int Offset;
    int Bytes;
    ETimes Times;
};

constexpr CMapField kMapFields[] = {
    {"q_timer_t", "elapsed", "count", 2, 2, ETimes::Short},
    {"q_timer_t", "elapsed", "count", 2, 4, ETimes::Long},
    {"q_counter_t", "count", "count", 0, 2, ETimes::Any},
    {"q_motor_t", "position", "pos", 1, 1, ETimes::Any},
};

const CMapField* FieldOf(const QString& type, const QString& item, bool longTimes)
{
    for (const CMapField& field : kMapFields)
        if (type == QLatin1String(field.Type) && item == QLatin1String(field.Item) &&
            (field.Times == ETimes::Any || (field.Times == ETimes::Long) == longTimes))
            return &field;
    return nullptr;
}

} // namespace

CScanCode::CScanCode(const CPanelGrid& grid, const CNetlist& netlist, const CBoardInfo& board)
    : m_grid(grid), m_netlist(netlist), m_board(board)
{
}

void CScanCode::Begin(const CPanel& panel, CGridPos pos)
{
    m_panelName = CPanelName::Of(panel, pos);
    m_panelPos = pos;
    ++m_panelIndex;
}

QString CScanCode::In(CGridPos pos, int row, char side) const
{
    const int net = m_netlist.NetOf({pos, row, side});
    if (net < 0 || m_netlist.GetNets()[net].GetDrivers().empty())
        return QStringLiteral("0");
    return NetName(net);
}

void CScanCode::Drive(EStep step, CGridPos pos, int row, char side, const QString& value)
{
    // A net nothing reads needs no value.
    const int net = m_netlist.NetOf({pos, row, side});
    if (net < 0 || m_netlist.GetNets()[net].GetLoads().empty())
        return;
    if (!m_driven.contains(net))
        m_driven.append(net);
    Add(step, NetName(net) + " = " + value + ";");
}

void CScanCode::Add(EStep step, const QString& line)
{
    if (m_namedIn[step] != m_panelIndex) {
        m_namedIn[step] = m_panelIndex;
        m_steps[step].append(Comment(m_panelName));
    }
    m_steps[step].append(line);
}

QString CScanCode::State(const QString& type, const QString& item)
{
    const QString name = "s" + QString::number(m_stateCount++);
    m_declarations.append("static " + type + " " + name + "; " + Comment(m_panelName));
    if (!item.isEmpty())
        m_mapped.append({m_panelPos, item, name, type});
    return name;
}

QString CScanCode::FlashText(const QByteArray& bytes)
{
    const QString name = "t" + QString::number(m_textCount++);
    m_declarations.append("static const char " + name + "[] PROGMEM = " + CString(bytes) + "; " +
                          Comment(m_panelName));
    return name;
}

void CScanCode::Setup(const QString& line)
{
    m_setup.append(line + " " + Comment(m_panelName));
}

void CScanCode::AfterScan(const QString& line)
{
    if (!m_afterScan.contains(line))
        m_afterScan.append(line);
}

void CScanCode::Use(const QString& feature)
{
    m_features.insert(feature);
}

QByteArray CScanCode::BaseHeader(const QString& layoutName) const
{
    QStringList features(m_features.begin(), m_features.end());
    features.sort();
    QString text = Comment("BASE.h: the board's clock and the run-time parts " + layoutName +
                           " uses; written by quillon-panelc.") +
                   "\n#ifndef BASE_H\n#define BASE_H\n\n#define F_CPU " + QString::number(m_clock) +
                   "UL\n";
    for (const QString& feature : features)
        text += "#define " + feature + " 1\n";
    text += "\n#endif\n";
    return text.toUtf8();
}

QList<int> CScanCode::ComputedNets() const
{
    QList<int> nets = m_driven;
    std::sort(nets.begin(), nets.end());
    return nets;
}

QByteArray CScanCode::BaseSource(const QString& layoutName) const
{
    QString text = Comment("BASE.c: the layout " + layoutName +
                           ", written by quillon-panelc. One scan runs every millisecond.") +
                   "\n#include \"PANEL.h\"\n\n";
    const bool longTimes = Uses("Q_USE_LONG_TIMES");
    for (const CMapField& field : kMapFields)
        if (std::any_of(m_mapped.begin(), m_mapped.end(), [&](const CMappedState& state) {
                return FieldOf(state.Type, state.Item, longTimes) == &field;
            }))
            text += QStringLiteral("_Static_assert(offsetof(%1, %2) == %3 && sizeof(((%1*)0)->%2) "
                                   "== %4, \"BASE.cells places %5 at %1.%2: offset %3, size "
                                   "%4\");\n")
                        .arg(QLatin1String(field.Type), QLatin1String(field.Field))
                        .arg(field.Offset)
                        .arg(field.Bytes)
                        .arg(QLatin1String(field.Item));
    if (!m_mapped.isEmpty())
        text += "\n";
    for (const QString& line : m_declarations)
        text += line + "\n";
    // The nets live in RAM, where the simulator reads them after each scan.
    const QList<int> nets = ComputedNets();
    for (qsizetype i = 0; i < nets.size(); i += 8) {
        QStringList names;
        for (qsizetype j = i; j < std::min(nets.size(), i + 8); ++j)
            names.append(NetName(nets[j]));
        text += "Q_MAPPED static q_bit " + names.join(", ") + ";\n";
    }
    if (!m_declarations.isEmpty() || !nets.isEmpty())
        text += "\n";
    text += "static void q_scan(void)\n{\n";
    bool first = true;
    for (int step = 0; step < StepCount; ++step) {
        if (m_steps[step].isEmpty())
            continue;
        text +=
            (first ? "    " : "\n    ") + Comment(QString::fromLatin1(kStepTitles[step])) + "\n";
        first = false;
        for (const QString& line : m_steps[step])
            text += "    " + line + "\n";
    }
    text += "}\n\nint main(void)\n{\n    q_begin();\n";
    for (const QString& line : m_setup)
        text += "    " + line + "\n";
    text += "    for (;;) {\n        q_wait_tick();\n        q_scan();\n";
    for (const QString& line : m_afterScan)
        text += "        " + line + "\n";
    text += "    }\n}\n";
    return text.toUtf8();
}

QByteArray CScanCode::BaseCells(const QString& layoutName) const
{
    // The heading is one line whatever the name holds.
    QString name = layoutName;
    for (QChar& c : name)
        if (c.unicode() < 0x20)
            c = u'?';
    QString text = "; Cells of " + name + ": CELL ITEM SYMBOL OFFSET BYTES\n";
    // The map names every net a wire shows: each pin of the net, on whichever side.
    for (const int net : ComputedNets())
        for (const CNetPin& pin : m_netlist.GetNets()[net].GetPins())
            text += CLayoutFile::PositionText(pin.Cell()) + u' ' + QChar(pin.Side) + u' ' +
                    NetName(net) + " 0 1\n";
    const bool longTimes = Uses("Q_USE_LONG_TIMES");
    for (const CMappedState& state : m_mapped)
        if (const CMapField* field = FieldOf(state.Type, state.Item, longTimes))
            text += QStringLiteral("%1 %2 %3 %4 %5\n")
                        .arg(CLayoutFile::PositionText(state.Cell), state.Item, state.Symbol)
                        .arg(field->Offset)
                        .arg(field->Bytes);
    return text.toUtf8();
}
