#include "serialindialoglogic.h"

#include "panels/panelvalues.h"

namespace {

bool InByteRange(const QString& text)
{
    const int value = LeadingInt(text);
    return value >= 0 && value <= 255;
}

} // namespace

CSerialInDialogLogic::CSerialInDialogLogic(const QStringList& tokens, const CPortList& ports)
{
    QStringList copy = tokens;
    if (!copy.isEmpty() && copy.last().startsWith(u';'))
        Name = copy.takeLast().mid(1);

    const QString keyword = copy.value(0);
    const QString pin = keyword == u"UARI" ? QStringLiteral("RxD6")
                        : keyword == u"UARI0" ? QStringLiteral("RxD0")
                                              : QString();
    for (int i = 0; i < ports.GetCount(); ++i) {
        Ports.append(ports.GetAt(i));
        if (Port < 0 && !pin.isEmpty() && Ports.last().contains(pin))
            Port = i;
    }

    if (copy.size() > 2) {
        const QString mode = copy[1];
        if (mode == u"C" || mode == u"CW") {
            Mode = Compare;
            Values = DescendingDistinct(copy.mid(2)).mid(0, kValueFields);
        } else if (mode == u"B") {
            Mode = Bit;
            BitCount = int(BitCounts().indexOf(copy[2]));
        }
    }
    while (Values.size() < kValueFields)
        Values.append(QString());
}

QStringList CSerialInDialogLogic::BitCounts()
{
    return {"1", "2", "3", "4", "5", "6", "7", "8"};
}

int CSerialInDialogLogic::OutOfRangeField() const
{
    for (int i = 0; i < Values.size(); ++i)
        if (!Values[i].trimmed().isEmpty() && !InByteRange(Values[i]))
            return i;
    return -1;
}

bool CSerialInDialogLogic::IsOkEnabled() const
{
    if (Port < 0)
        return false;
    if (Mode == Bit)
        return BitCount >= 0;
    if (Mode != Compare || OutOfRangeField() >= 0)
        return false;
    for (const QString& value : Values)
        if (!value.trimmed().isEmpty())
            return true;
    return false;
}

QStringList CSerialInDialogLogic::Tokens() const
{
    if (!IsOkEnabled())
        return {};
    // A port on both pins counts as the RxD6 one.
    const QString port = Ports.value(Port);
    const QString keyword = port.contains(u"RxD0") && !port.contains(u"RxD6")
                                ? QStringLiteral("UARI0")
                                : QStringLiteral("UARI");
    QStringList tokens;
    if (Mode == Bit) {
        tokens = {keyword, QStringLiteral("B"), BitCounts().value(BitCount)};
    } else {
        QStringList numbers;
        for (const QString& value : Values)
            if (!value.trimmed().isEmpty() && InByteRange(value))
                numbers.append(QString::number(LeadingInt(value)));
        tokens = QStringList{keyword, QStringLiteral("C")} + DescendingDistinct(numbers);
    }
    if (!Name.isEmpty())
        tokens.append(u';' + Name);
    return tokens;
}
