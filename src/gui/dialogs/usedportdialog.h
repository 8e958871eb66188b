#pragma once

#include <QDialog>

class CPanelGrid;
class QTreeWidget;

// "List of Used Port": which input and output panels are placed and on which ports. Read only.
class CUsedPortDialog : public QDialog
{
  public:
    CUsedPortDialog(const CPanelGrid& grid, QWidget* parent);

    static void Run(const CPanelGrid& grid, QWidget* parent);

  private:
    QTreeWidget* m_list;
};
