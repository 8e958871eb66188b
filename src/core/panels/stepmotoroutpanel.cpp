#include "stepmotoroutpanel.h"

#include "stringtable.h"

CStepMotorOutPanel::CStepMotorOutPanel(const QString& line)
    : CPanel({.Area = AreaOutput,
              // Not the process-area motor's 249: the id is the key of the use limits, and
              // a board limits the driver (its coils are fixed pins) apart from the motor.
              .BitmapId = 10093,
              .Sides = "L",
              .MinTokens = 3,
              .ShowsPorts = false,
              .Keyword = "SMOTO"})
{
    Init(line);
    m_itemCount = 2;
}

QString CStepMotorOutPanel::GetComment(int row) const
{
    return row == 0   ? CStringTable::Get(Ids::MotorEnable)
           : row == 1 ? CStringTable::Get(Ids::MotorDir)
                      : QString();
}

bool CStepMotorOutPanel::SetLine(const QString& line)
{
    CPanel::SetLine(line);
    m_itemCount = 2;
    InvalidateCaption();
    return true;
}

bool CStepMotorOutPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::StepMotorOut);
}

void CStepMotorOutPanel::UpdateCaption()
{
    // Unlike the process-area motor, "1" reads as 1-2 phase excitation here.
    m_caption = m_name + " : ";
    if (TokenCount() > 1) {
        const QString mode = Token(1);
        if (mode == u"1")
            m_caption += CStringTable::Get(Ids::Excitation12Phase) + ", ";
        else if (mode == u"2")
            m_caption += CStringTable::Get(Ids::Excitation2Phase) + ", ";
        m_caption += CStringTable::Format(Ids::SpeedFormat, {Token(2)});
    }
    if (const QString port = GetPortText(); !port.isEmpty())
        m_caption += ", " + PortProperty(port);
}
