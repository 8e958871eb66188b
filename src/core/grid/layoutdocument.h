#pragma once

#include "panelgrid.h"

#include <QString>

class CBoardInfo;
class IMessenger;

// One open layout: its grid, the file it lives in, and whether it changed since it was
// last saved or loaded.
class CLayoutDocument
{
  public:
    CLayoutDocument(const CBoardInfo* board, IMessenger& messenger);

    CPanelGrid& Grid() { return m_grid; }
    const CPanelGrid& Grid() const { return m_grid; }
    const CBoardInfo* Board() const { return m_board; }
    IMessenger& Messenger() { return m_messenger; }

    // "" for a layout that was never saved.
    const QString& GetPath() const { return m_path; }
    // The name shown in the title: the file name, or "Untitled".
    QString GetTitle() const;
    bool IsModified() const { return m_modified; }
    void SetModified(bool modified = true) { m_modified = modified; }

    // Empties the grid for a new layout.
    void New();
    // Replaces the layout by the file's; false (and the layout as it was) when the file is
    // no layout or cannot be read; ErrorString() says why.
    bool Open(const QString& path);
    bool SaveAs(const QString& path);
    bool Save() { return SaveAs(m_path); }
    const QString& ErrorString() const { return m_error; }

  private:
    const CBoardInfo* m_board;
    IMessenger& m_messenger;
    CPanelGrid m_grid;
    QString m_path;
    QString m_error;
    bool m_modified = false;
};
