#include "scancode.h"

#include "panelname.h"

#include "netlist.h"

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

} // namespace

CScanCode::CScanCode(const CPanelGrid& grid, const CNetlist& netlist, const CBoardInfo& board)
    : m_grid(grid), m_netlist(netlist), m_board(board)
{
}

void CScanCode::Begin(const CPanel& panel, CGridPos pos)
{
    m_panelName = CPanelName::Of(panel, pos);
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

QString CScanCode::State(const QString& type)
{
    const QString name = "s" + QString::number(m_stateCount++);
    m_declarations.append("static " + type + " " + name + "; " + Comment(m_panelName));
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

QByteArray CScanCode::BaseSource(const QString& layoutName) const
{
    QString text = Comment("BASE.c: the layout " + layoutName +
                           ", written by quillon-panelc. One scan runs every millisecond.") +
                   "\n#include \"PANEL.h\"\n\n";
    for (const QString& line : m_declarations)
        text += line + "\n";
    if (!m_declarations.isEmpty())
        text += "\n";
    text += "static void q_scan(void)\n{\n";
    QList<int> nets = m_driven;
    std::sort(nets.begin(), nets.end());
    for (qsizetype i = 0; i < nets.size(); i += 8) {
        QStringList names;
        for (qsizetype j = i; j < std::min(nets.size(), i + 8); ++j)
            names.append(NetName(nets[j]));
        text += "    q_bit " + names.join(", ") + ";\n";
    }
    for (int step = 0; step < StepCount; ++step) {
        if (m_steps[step].isEmpty())
            continue;
        text += "\n    " + Comment(QString::fromLatin1(kStepTitles[step])) + "\n";
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
