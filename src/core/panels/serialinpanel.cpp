#include "serialinpanel.h"

#include "panelvalues.h"
#include "stringtable.h"

namespace {
enum
{
    CompareMode = 1,
    BitMode = 3
};
}

CSerialInPanel::CSerialInPanel(const QString& line)
    : CPanel({.Area = AreaInput, .BitmapId = 10078, .Sides = "R", .MinTokens = 3, .FixedTokens = 2})
{
    Init(line);
}

QString CSerialInPanel::GetPortName(int i) const
{
    if (TokenCount() < m_minTokens)
        return QString();
    switch (GetMode()) {
    case CompareMode: {
        const QString value = Token(2 + i);
        return value.startsWith(u';') ? QString() : value;
    }
    case BitMode:
        return i < BoundedRows(LeadingInt(Token(2))) ? "bit" + QString::number(7 - i) : QString();
    default:
        return QString();
    }
}

QString CSerialInPanel::GetComment(int i) const
{
    return i == 0 ? CommentName() : QString();
}

int CSerialInPanel::GetMode() const
{
    const QString mode = Token(1);
    return mode == u"C" ? CompareMode : mode == u"B" ? BitMode : 0;
}

QString CSerialInPanel::GetPortText() const
{
    return m_portList.GetAt(0);
}

bool CSerialInPanel::SetLine(const QString& line)
{
    CPanel::SetLine(line);
    m_itemCount = qMax(1, RowCount());
    InvalidateCaption();
    return true;
}

bool CSerialInPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::SerialIn);
}

void CSerialInPanel::UpdateCaption()
{
    const int mode = GetMode();
    const QString type = mode == CompareMode ? CStringTable::Get(Ids::CaptionCompare)
                         : mode == BitMode   ? CStringTable::Get(Ids::CaptionBit)
                                             : QString();
    SetCaptionParts({PortProperty(GetPortText()),
                     type.isEmpty() ? QString() : CStringTable::Format(Ids::TypeFormat, {type})});
}

void CSerialInPanel::AcceptProperties(const QStringList& tokens, int)
{
    m_tokens = tokens;
    m_itemCount = RowCount();
    InvalidateCaption();
}

int CSerialInPanel::RowCount() const
{
    switch (GetMode()) {
    case CompareMode:
        return ArgumentCount() - 2;
    case BitMode:
        return BoundedRows(LeadingInt(Token(2)));
    default:
        return 0;
    }
}
