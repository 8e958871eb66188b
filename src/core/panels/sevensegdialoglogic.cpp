#include "sevensegdialoglogic.h"

#include "panelfactory.h"
#include "stringtable.h"

CSevenSegDialogLogic::CSevenSegDialogLogic(const QStringList& tokens, const CPortList& ports,
                                           int currentMode)
{
    const EPanelKind kind = CPanelFactory::KindOf(tokens.value(0));
    // Modes 1 to 3 belong to the one-digit display, 4 to 6 to the four-digit one.
    const int base = kind == EPanelKind::SevenSeg ? 0 : kind == EPanelKind::SevenSeg4 ? 3 : -1;
    if (base >= 0)
        m_types = {{Ids::SevenSegDigit, base + 2},
                   {Ids::SevenSegSegment, base + 3},
                   {Ids::SevenSegBit, base + 1}};
    SetMode(currentMode);
    if (ports.GetCount() == 1)
        m_portIndex = 0;
    else if (tokens.size() > 2)
        m_portIndex = ports.IndexOf(tokens[2]);
}

void CSevenSegDialogLogic::SetMode(int mode)
{
    m_mode = 0;
    for (const CType& type : m_types)
        if (type.Mode == mode)
            m_mode = mode;
}

QStringList CSevenSegDialogLogic::Tokens() const
{
    if (m_mode == 0)
        return {};
    const QString keyword = m_mode <= 3 ? QStringLiteral("7SEG") : QStringLiteral("7SEG4");
    static const char* const kinds[] = {"B", "D", "S"};
    return {keyword, u';' + keyword + u'_' + QLatin1String(kinds[(m_mode - 1) % 3])};
}
