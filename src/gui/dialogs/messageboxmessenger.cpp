#include "messageboxmessenger.h"

#include <QApplication>
#include <QMessageBox>

EAnswer CMessageBoxMessenger::Message(const QString& text, EButtons buttons, EIcon icon)
{
    QMessageBox::StandardButtons standard;
    switch (buttons) {
    case EButtons::Ok:
        standard = QMessageBox::Ok;
        break;
    case EButtons::OkCancel:
        standard = QMessageBox::Ok | QMessageBox::Cancel;
        break;
    case EButtons::YesNo:
        standard = QMessageBox::Yes | QMessageBox::No;
        break;
    case EButtons::YesNoCancel:
        standard = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        break;
    }
    QMessageBox::Icon shown = QMessageBox::Information;
    if (icon == EIcon::Warning)
        shown = QMessageBox::Warning;
    else if (icon == EIcon::Error || icon == EIcon::Stop)
        shown = QMessageBox::Critical;
    else if (icon == EIcon::Question)
        shown = QMessageBox::Question;
    QMessageBox box(shown, QApplication::applicationDisplayName(), text, standard, m_parent);
    switch (box.exec()) {
    case QMessageBox::Cancel:
        return EAnswer::Cancel;
    case QMessageBox::Yes:
        return EAnswer::Yes;
    case QMessageBox::No:
        return EAnswer::No;
    default:
        return EAnswer::Ok;
    }
}
