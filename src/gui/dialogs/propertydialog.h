#pragma once

#include <QDialog>
#include <QList>

#include <utility>

class CPanel;
class QComboBox;
class QFormLayout;
class QLabel;
class QPushButton;

// What every property dialog of a panel shares: the panel's title, rows of labelled
// controls, a note, and OK and CANCEL. OK hands the family's tokens to the panel; a
// family whose tokens are not ready answers false from Commit and the dialog stays open.
class CPropertyDialog : public QDialog
{
    Q_OBJECT

  public:
    void accept() override;

  protected:
    // title "" keeps the window title empty for the caller to set.
    CPropertyDialog(CPanel* panel, const QString& title, QWidget* parent);

    // A label from the string table whose mnemonic moves the focus to field.
    QLabel* AddRow(int labelId, QWidget* field);
    void AddWidget(QWidget* widget);
    void AddNote(int textId);
    // A note, hidden until the dialog refuses what was typed, telling why.
    QLabel* AddRefusal(int textId);
    void SetOkEnabled(bool enabled);
    // A drop-down list of texts from the string table, each with its value as item data,
    // the entry of selectedValue chosen (none when no entry has it).
    QComboBox* NewChoice(const QList<std::pair<int, int>>& textAndValue, int selectedValue);
    // The chosen entry's value, 0 when none is chosen.
    static int ChoiceValue(const QComboBox* combo);
    QPushButton* OkButton() const { return m_ok; }

    // Hands the tokens to the panel; false keeps the dialog open.
    virtual bool Commit() = 0;

    CPanel* m_panel;

  private:
    QFormLayout* m_form;
    QPushButton* m_ok;
};
