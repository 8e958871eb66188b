#include "portcombo.h"

#include "portlist.h"

CPortCombo::CPortCombo(const CPortList& ports, int selected, QWidget* parent) : QComboBox(parent)
{
    setObjectName(QStringLiteral("port"));
    for (int i = 0; i < ports.GetCount(); ++i)
        addItem(ports.GetEntry(i).Name);
    setCurrentIndex(selected);
}
