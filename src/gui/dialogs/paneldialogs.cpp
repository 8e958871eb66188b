#include "paneldialogs.h"

#include "buzzerdialog.h"
#include "counterdialog.h"
#include "flipflopdialog.h"
#include "lcddialog.h"
#include "numberdialog.h"
#include "pulsedialog.h"
#include "pwmdialog.h"
#include "serialindialog.h"
#include "serialoutdialog.h"
#include "sevensegdialog.h"
#include "stepmotordialog.h"
#include "stepmotoroutdialog.h"
#include "stringtable.h"
#include "switchdialog.h"
#include "timedialog.h"
#include "timerdialog.h"
#include "webindialog.h"

// One line a family: its dialog's Run(panel, parent) answers true on OK.
bool CPanelDialogs::Edit(CPanel& panel, EPanelDialog dialog)
{
    switch (dialog) {
    case EPanelDialog::StepMotor:
        return CStepMotorDialog::Run(panel, m_parent);
    case EPanelDialog::StepMotorOut:
        return CStepMotorOutDialog::Run(panel, m_parent);
    case EPanelDialog::SerialIn:
        return CSerialInDialog::Run(panel, m_parent);
    case EPanelDialog::SerialOut:
        return CSerialOutDialog::Run(panel, m_parent);
    case EPanelDialog::Pulse:
        return CPulseDialog::Run(panel, m_parent);
    case EPanelDialog::Pwm:
        return CPwmDialog::Run(panel, m_parent);
    case EPanelDialog::WebIn:
        return CWebInDialog::Run(panel, m_parent);
    case EPanelDialog::Lcd:
        return CLcdDialog::Run(panel, m_parent);
    case EPanelDialog::Switch:
        return CSwitchDialog::Run(panel, m_parent);
    case EPanelDialog::FlipFlop:
        return CFlipFlopDialog::Run(panel, m_parent);
    case EPanelDialog::Delay:
        return CTimeDialog::Run(panel, m_parent);
    case EPanelDialog::Timer:
        return CTimerDialog::Run(panel, m_parent);
    case EPanelDialog::Buzzer:
        return CBuzzerDialog::Run(panel, m_parent);
    case EPanelDialog::Counter:
        return CCounterDialog::Run(panel, m_parent);
    case EPanelDialog::SevenSeg:
        return CSevenSegDialog::Run(panel, m_parent);
    case EPanelDialog::SerialBit:
        return CNumberDialog::Run(panel, CNumberDialogLogic::SerialBit, m_parent);
    case EPanelDialog::Jump:
        return CNumberDialog::Run(panel, CNumberDialogLogic::Jump, m_parent);
    default:
        return false;
    }
}

QString CPanelDialogs::TitleFor(const CPanel& panel)
{
    return CStringTable::Get(Ids::PropertySettings) + u'(' + panel.GetName() + u')';
}
