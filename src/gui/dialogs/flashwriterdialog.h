#pragma once

#include <QDialog>

class CSettings;
class QLineEdit;

// "Flash Writer Settings": the user's own writer program and its option text, where
// "%hex%" stands for the HEX file.
class CFlashWriterDialog : public QDialog
{
  public:
    // On OK stores Writer and WriterOptions and saves the settings.
    static bool Run(CSettings& settings, QWidget* parent);

  private:
    CFlashWriterDialog(const CSettings& settings, QWidget* parent);
    void Browse();

    QLineEdit* m_program;
    QLineEdit* m_options;
};
