#pragma once

#include <QComboBox>

class CPortList;

// The "Assigned Port" list: one entry per port name of the panel, in the board's order,
// with the given entry selected (none for -1).
class CPortCombo : public QComboBox
{
    Q_OBJECT

  public:
    CPortCombo(const CPortList& ports, int selected, QWidget* parent);
};
