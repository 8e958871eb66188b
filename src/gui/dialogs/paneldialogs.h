#pragma once

#include "panel.h"

class QWidget;

// The editor's property dialogs: each family's dialog, chosen by what the panel asks for.
// A dialog works on a copy of the panel's tokens and hands them back through
// CPanel::AcceptProperties on OK.
class CPanelDialogs : public IPropertyEditor
{
  public:
    explicit CPanelDialogs(QWidget* parent = nullptr) : m_parent(parent) {}
    void SetParent(QWidget* parent) { m_parent = parent; }

    bool Edit(CPanel& panel, EPanelDialog dialog) override;

    // "Property Settings.(" + name + ")", the title every property dialog shows.
    static QString TitleFor(const CPanel& panel);

  private:
    QWidget* m_parent;
};
