#pragma once

#include "targetsettingslogic.h"

#include <QDialog>

class CBoardInfo;
class CSettings;
class IMessenger;
class QComboBox;
class QLabel;
class QLineEdit;

// "Target CPU Setting": the board, its clock source and its network addresses.
class CTargetDialog : public QDialog
{
  public:
    // On OK asks through messenger before storing another board, then saves the settings.
    static bool Run(const CBoardInfo& inUse, CSettings& settings, const QString& targetFolder,
                    IMessenger& messenger, QWidget* parent);

  private:
    CTargetDialog(const CBoardInfo& inUse, const CSettings& settings, const QString& targetFolder,
                  QWidget* parent);
    void ShowLogic();
    void TargetChosen(int entry);

    CTargetSettingsLogic m_logic;
    QComboBox* m_target;
    QComboBox* m_clock;
    QLabel* m_addressLabel;
    QLineEdit* m_address;
    QLabel* m_maskLabel;
    QLineEdit* m_mask;
};
