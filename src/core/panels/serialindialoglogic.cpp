#include "serialindialoglogic.h"

#include "panelfactory.h"
#include "panelvalues.h"

namespace {

constexpr CFieldRange kByteRange{0, 255};

} // namespace

CSerialInDialogLogic::CSerialInDialogLogic(const QStringList& tokens, const CPortList& ports)
{
    QStringList copy = tokens;
    if (!copy.isEmpty() && copy.last().startsWith(u';'))
        Name = copy.takeLast().mid(1);

    const EPanelKind kind = CPanelFactory::KindOf(copy.value(0));
    const QString pin = kind == EPanelKind::SerialIn    ? QStringLiteral("RxD6")
                        : kind == EPanelKind::SerialIn0 ? QStringLiteral("RxD0")
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

int CSerialInDialogLogic::WrongField() const
{
    return kByteRange.WrongField(Values);
}

bool CSerialInDialogLogic::IsNameValid() const
{
    return FitsInLine(Name, ELineText::Name);
}

bool CSerialInDialogLogic::IsOkEnabled() const
{
    if (Port < 0 || !IsNameValid())
        return false;
    if (Mode == Bit)
        return BitCount >= 0;
    return Mode == Compare && kByteRange.AcceptsValues(Values);
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
        tokens = QStringList{keyword, QStringLiteral("C")} + kByteRange.Values(Values);
    }
    if (!Name.isEmpty())
        tokens.append(u';' + Name);
    return tokens;
}
