#include "flipflopdialoglogic.h"

#include "stringtable.h"

const QList<CFlipFlopDialogLogic::CType>& CFlipFlopDialogLogic::Types()
{
    static const QList<CType> types = {
        {Ids::FlipFlopRs, 1, "RSFF"},
        {Ids::FlipFlopD, 3, "D_FF"},
        {Ids::FlipFlopT, 2, "T_FF"},
    };
    return types;
}

CFlipFlopDialogLogic::CFlipFlopDialogLogic(const QStringList& tokens)
{
    if (!tokens.isEmpty())
        for (const CType& type : Types())
            if (tokens[0] == QLatin1String(type.Keyword))
                m_type = type.Value;
}

void CFlipFlopDialogLogic::SetType(int value)
{
    m_type = 0;
    for (const CType& type : Types())
        if (type.Value == value)
            m_type = value;
}

QStringList CFlipFlopDialogLogic::Tokens() const
{
    for (const CType& type : Types())
        if (type.Value == m_type)
            return {QLatin1String(type.Keyword)};
    return {};
}
