#pragma once

// Table helpers of the panel and dialog rule tests.
#include "core/panels/paneltest.h"

#include <QVariant>

#include <functional>
#include <map>
#include <tuple>

// The texts of table rows.
using CText = const char*;

// Tokens, ports or fields written the way a line writes tokens: with commas between them.
inline QStringList Split(const char* list)
{
    return *list ? QString::fromUtf8(list).split(u',') : QStringList();
}

inline CPortList Ports(const QStringList& names)
{
    CPortList ports;
    for (const QString& name : names)
        ports.Add({name, name, QString()});
    return ports;
}

// One thing a panel shows, by name. "name2"/"note2" are row 2's port name and comment;
// "pictures", "labels", "notes" and "titles" list its picture items' ids, port texts,
// comments and names. Keys starting with ">" act: ">name=X" and ">line=X" set the name or
// line, ">variant=N" the display variant, ">ok=TOKENS[@PORT]" answers its dialog with OK;
// "dialog" cancels its dialog and "turn" turns it, both giving what they answer.
inline QString Fact(CPanel& panel, const QString& key, const QString& value)
{
    static const std::map<QString, std::function<QVariant(CPanel&)>> kFacts = {
        {"turn", [](CPanel& p) { return p.Rotate(); }},
        {"bitmap", [](CPanel& p) { return p.GetBitmapId(); }},
        {"sides", [](CPanel& p) { return p.GetSides(); }},
        {"mode", [](CPanel& p) { return p.GetMode(); }},
        {"items", [](CPanel& p) { return p.GetItemCount(); }},
        {"incomplete", [](CPanel& p) { return p.IsIncomplete(); }},
        {"caption", [](CPanel& p) { return p.GetCaption(); }},
        {"line", [](CPanel& p) { return p.GetLine(); }},
        {"comment", [](CPanel& p) { return p.GetLineComment(); }},
        {"trailing", [](CPanel& p) { return p.GetTrailingComment(); }},
        {"text", [](CPanel& p) { return p.GetText(); }},
        {"tokens", [](CPanel& p) { return p.GetTokens().join(u','); }},
        {"port", [](CPanel& p) { return p.GetPortIndex(); }},
        {"porttext", [](CPanel& p) { return p.GetPortText(); }},
        {"ref", [](CPanel& p) { return p.GetReference(); }},
        {"variant", [](CPanel& p) { return p.GetVariant(); }},
        {"rotates", [](CPanel& p) { return p.CanRotate(); }},
        {"weight", [](CPanel& p) { return p.GetWeight(); }},
        {"needsproperties", [](CPanel& p) { return p.NeedsProperties(); }},
        // the line as written reads back as the same line
        {"rereads", [](CPanel& p) { return MakePanel(p.GetLine())->GetLine() == p.GetLine(); }},
    };
    static const char* const kDialogs[] = {
        "None",      "Switch",    "FlipFlop",     "Delay", "Buzzer",   "Counter",
        "SevenSeg",  "StepMotor", "StepMotorOut", "Timer", "SerialIn", "SerialBit",
        "SerialOut", "Pulse",     "Pwm",          "WebIn", "Lcd",      "Jump"};
    CFakeEditor editor;
    if (key == ">name")
        panel.SetName(value);
    else if (key == ">line")
        panel.SetLine(value);
    else if (key == ">variant")
        panel.SetVariant(value.toInt());
    else if (key == ">ok") {
        editor.Tokens = value.section(u'@', 0, 0).split(u',');
        editor.PortIndex = value.contains(u'@') ? value.section(u'@', 1).toInt() : -1;
        EXPECT_TRUE(panel.EditProperties(editor));
    } else if (key == "dialog") {
        editor.Ok = false;
        EXPECT_FALSE(panel.EditProperties(editor));
        return kDialogs[int(editor.Asked)];
    } else if (const auto fact = kFacts.find(key); fact != kFacts.end())
        return fact->second(panel).toString();
    else if (const int row = key.mid(4).toInt(); key.size() > 4 && key[4].isDigit())
        return key.startsWith(u"name") ? panel.GetPortName(row) : panel.GetComment(row);
    if (key.startsWith(u'>'))
        return value;
    CPanelImage image;
    if (!panel.MakeImage(image))
        return QStringLiteral("no picture");
    if (key == "size")
        return QStringLiteral("%1x%2").arg(image.Width).arg(image.Height);
    QStringList items;
    for (const CPanelImageItem& item : image.Items)
        items << (key == "pictures" ? QString::number(item.BitmapId)
                  : key == "labels" ? item.PortText
                  : key == "notes"  ? item.Comment
                                    : item.Name);
    EXPECT_TRUE(key == "pictures" || key == "labels" || key == "notes" || key == "titles")
        << "unknown fact " << key.toStdString();
    return items.join(u',');
}

// Checks and carries out facts ("key=value|key=value") in their order.
inline void ExpectFacts(CPanel& panel, const char* facts)
{
    for (const QString& fact : QString::fromUtf8(facts).split(u'|', Qt::SkipEmptyParts)) {
        const QString key = fact.section(u'=', 0, 0);
        const QString value = fact.section(u'=', 1);
        EXPECT_EQ(Fact(panel, key, value), value) << key.toStdString();
    }
}

// Rows of name, line, the board's ports ("PD2:D2" for a port the board labels D2) and the
// facts of the panel made from them.
inline void CheckPanels(std::initializer_list<std::tuple<CText, CText, CText, CText>> rows)
{
    for (const auto& [name, line, ports, facts] : rows) {
        SCOPED_TRACE(name);
        const auto panel = CPanelFactory::Create(QString::fromUtf8(line));
        ASSERT_TRUE(panel);
        for (const QString& port : Split(ports))
            panel->PortList().Add({port, port.section(u':', 0, 0), port.section(u':', 1)});
        panel->SetLine(QString::fromUtf8(line));
        ExpectFacts(*panel, facts);
    }
}

// What a dialog's OK writes, tokens joined by commas; "" while OK is disabled.
template <class Logic> QString Saved(const Logic& logic)
{
    return logic.IsOkEnabled() ? logic.Tokens().join(u',') : QString();
}
