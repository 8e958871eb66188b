#pragma once

// Table helpers of the panel and dialog rule tests.
#include "core/panels/paneltest.h"

#include <QRegularExpression>
#include <QVariant>

#include <functional>
#include <map>
#include <span>

// The texts of table rows.
using CText = const char*;

// Tokens, ports or fields written the way a line writes tokens: with commas between them.
inline QStringList Split(const QString& list)
{
    return list.isEmpty() ? QStringList() : list.split(u',');
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
        {"turn", &CPanel::Rotate},
        {"bitmap", &CPanel::GetBitmapId},
        {"sides", &CPanel::GetSides},
        {"mode", &CPanel::GetMode},
        {"items", &CPanel::GetItemCount},
        {"incomplete", &CPanel::IsIncomplete},
        {"caption", &CPanel::GetCaption},
        {"line", &CPanel::GetLine},
        {"comment", &CPanel::GetLineComment},
        {"trailing", &CPanel::GetTrailingComment},
        {"text", &CPanel::GetText},
        {"tokens", [](CPanel& p) { return p.GetTokens().join(u','); }},
        {"port", &CPanel::GetPortIndex},
        {"porttext", &CPanel::GetPortText},
        {"ref", &CPanel::GetReference},
        {"variant", &CPanel::GetVariant},
        {"rotates", &CPanel::CanRotate},
        {"weight", &CPanel::GetWeight},
        {"needsproperties", &CPanel::NeedsProperties},
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
    } else if (const auto fact = kFacts.find(key); fact != kFacts.end()) {
        const QVariant v = fact->second(panel);
        return v.typeId() == QMetaType::Bool ? QString::number(v.toInt()) : v.toString();
    } else if (const int row = key.mid(4).toInt(); key.size() > 4 && key[4].isDigit())
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

// A fact "key=value"; "key" alone stands for "key=1" (true), "!key" for "key=0".
inline std::pair<QString, QString> KeyValue(const QString& fact)
{
    if (fact.contains(u'='))
        return {fact.section(u'=', 0, 0), fact.section(u'=', 1)};
    return {fact.mid(fact.startsWith(u'!')), fact.startsWith(u'!') ? "0" : "1"};
}

// Checks and carries out facts ("key=value|key=value") in their order.
inline void ExpectFacts(CPanel& panel, const QString& facts)
{
    for (const QString& fact : facts.split(u'|', Qt::SkipEmptyParts)) {
        const auto [key, value] = KeyValue(fact);
        EXPECT_EQ(Fact(panel, key, value), value) << key.toStdString();
    }
}

// Rows of "name|line|ports|facts": the board's ports ("PD2:D2" for a port the board labels
// D2) and the facts of the panel made from the line.
inline void CheckPanels(std::span<const CText> rows)
{
    for (const QString row : rows) {
        SCOPED_TRACE(row.section(u'|', 0, 0).toStdString());
        const QString line = row.section(u'|', 1, 1);
        const auto panel = CPanelFactory::Create(line);
        ASSERT_TRUE(panel);
        for (const QString& port : Split(row.section(u'|', 2, 2)))
            panel->PortList().Add({port, port.section(u':', 0, 0), port.section(u':', 1)});
        panel->SetLine(line);
        ExpectFacts(*panel, row.section(u'|', 3));
    }
}

// What a dialog's OK writes, tokens joined by commas; "" while OK is disabled.
template <class Logic> QString Saved(const Logic& logic)
{
    return logic.IsOkEnabled() ? logic.Tokens().join(u',') : QString();
}

// A field of a dialog's logic, read and set as text: lists with commas between their items
// (read without their empty tail), flags as 1 and 0.
template <class T> QString AsText(const T& value)
{
    if constexpr (std::is_same_v<T, QStringList>)
        return value.join(u',').remove(QRegularExpression(",+$"));
    else if constexpr (std::is_same_v<T, QString>)
        return value;
    else
        return QString::number(int(value));
}

// A value of the type a field had, from text; a list keeps its length.
template <class T> T FromText(const QString& text, const T& was)
{
    if constexpr (std::is_same_v<T, QStringList>)
        return Split(text) + QStringList(qMax(0, was.size() - Split(text).size()), QString());
    else if constexpr (std::is_same_v<T, QString>)
        return text;
    else
        return T(text.toInt());
}

// A field made from a member, a getter (and setter), or a count of fields by index.
template <class L> struct CField
{
    template <class G, class S = int>
    CField(G get, S set = 0)
        : Get([=](const L& l) { return AsText(std::invoke(get, l)); }),
          Set([=](L& l, const QString& text) {
              const auto value = FromText(text, std::invoke(get, l));
              if constexpr (std::is_member_object_pointer_v<G>)
                  l.*get = value;
              else if constexpr (std::is_invocable_v<S, L&, decltype(value)>)
                  std::invoke(set, l, value);
              else
                  ADD_FAILURE() << "read-only field";
          })
    {
    }

    template <class T, class I, class A>
    CField(int count, T (L::*get)(I) const, void (L::*set)(I, A))
        : CField(
              [=](const L& l) {
                  QStringList list;
                  for (int i = 0; i < count; ++i)
                      list << AsText((l.*get)(I(i)));
                  return list;
              },
              [=](L& l, const QStringList& list) {
                  for (int i = 0; i < count; ++i)
                      (l.*set)(I(i), FromText(list[i], (l.*get)(I(i))));
              })
    {
    }

    std::function<QString(const L&)> Get;
    std::function<void(L&, const QString&)> Set;
};

template <class L> using CFields = std::map<QString, CField<L>>;

// Rows of "name|opening|ports|facts" for a dialog's logic that open() makes from the opening
// (its tokens) and the board's ports: "field=value" checks a field, ">field=value" sets it;
// every logic has "saved" (see Saved), "tokens" and "ok" (OK is enabled).
template <class L, class Open>
void CheckLogic(std::span<const CText> rows, Open open, CFields<L> fields)
{
    if constexpr (requires(const L& l) { l.Tokens(); }) {
        fields.emplace("saved", &Saved<L>);
        fields.emplace("tokens", [](const L& l) { return l.Tokens().join(u','); });
    }
    fields.emplace("ok", [](const L& l) { return l.IsOkEnabled(); });
    for (const QString row : rows) {
        SCOPED_TRACE(row.section(u'|', 0, 0).toStdString());
        const CPortList ports = Ports(Split(row.section(u'|', 2, 2)));
        L logic = open(row.section(u'|', 1, 1), ports);
        for (const QString& fact : row.section(u'|', 3).split(u'|', Qt::SkipEmptyParts)) {
            const auto [key, value] = KeyValue(fact);
            if (key.startsWith(u'>'))
                fields.at(key.mid(1)).Set(logic, value);
            else
                EXPECT_EQ(fields.at(key).Get(logic), value) << key.toStdString();
        }
    }
}

// Opens a logic from its tokens, and the board's ports where it takes them.
template <class L> L Open(const QString& tokens, const CPortList& ports)
{
    if constexpr (std::is_constructible_v<L, QStringList, CPortList>)
        return L(Split(tokens), ports);
    else
        return L(Split(tokens));
}
