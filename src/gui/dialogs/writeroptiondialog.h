#pragma once

#include "writeroptionlogic.h"

#include <QDialog>

class CSettings;
class QComboBox;

// The writer option dialog: the board writer's port and wait, saved at once on OK. Its
// button opens "Flash Writer Settings" for a writer of the user's own.
class CWriterOptionDialog : public QDialog
{
  public:
    // Without devices the system's serial ports are listed.
    static bool Run(CSettings& settings, QWidget* parent);
    static bool Run(CSettings& settings, const QList<CSerialDevicePortFinder::CDevice>& devices,
                    QWidget* parent);

  private:
    CWriterOptionDialog(CSettings& settings, const QList<CSerialDevicePortFinder::CDevice>& devices,
                        QWidget* parent);

    CSettings& m_settings;
    CWriterOptionLogic m_logic;
    QComboBox* m_port;
    QComboBox* m_wait;
};
