#pragma once

#include <QDialog>

class QFormLayout;
class QLabel;
class QPushButton;

// The shape the small setting dialogs share: labelled rows, then OK and CANCEL. The
// subclass adds its rows and says when OK may be pressed.
class CFormDialog : public QDialog
{
public:
    CFormDialog(const QString& title, QWidget* parent);

protected:
    // A row labelled by the text of labelId; the label is the field's buddy, so its
    // mnemonic reaches the field.
    void AddRow(int labelId, QWidget* field);
    void AddRow(QWidget* field);
    // A note, hidden until the dialog refuses what was typed, telling why.
    QLabel* AddRefusal(int textId);
    QPushButton* OkButton() const { return m_ok; }

private:
    QFormLayout* m_form;
    QPushButton* m_ok;
};
