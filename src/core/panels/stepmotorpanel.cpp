#include "stepmotorpanel.h"

#include "stringtable.h"

CStepMotorPanel::CStepMotorPanel(const QString& line)
    : CPanel({.Area = AreaProcess,
              .BitmapId = 249,
              .Sides = "ULR",
              .MinTokens = 3,
              .ShowsPorts = false,
              .ShowsComment = false,
              .Keyword = "SMOT"})
{
    Init(line);
    m_itemCount = 4;
}

bool CStepMotorPanel::MakeImage(CPanelImage& image)
{
    image.Reset(32, 32);
    for (int id = 245; id <= 248; ++id)
        image.Add(id, QString(), QString(), QString());
    return true;
}

bool CStepMotorPanel::SetLine(const QString& line)
{
    const bool result = CPanel::SetLine(line);
    m_itemCount = 4; // whatever the line says
    return result;
}

bool CStepMotorPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::StepMotor);
}

void CStepMotorPanel::UpdateCaption()
{
    m_caption = m_name + " : ";
    if (TokenCount() <= 1)
        return;
    const QString mode = Token(1);
    if (mode == u"1")
        m_caption += CStringTable::Get(Ids::Excitation1Phase) + u',';
    else if (mode == u"2")
        m_caption += CStringTable::Get(Ids::Excitation2Phase) + u',';
    m_caption += CStringTable::Format(Ids::SpeedFormat, {Token(2)});
}
