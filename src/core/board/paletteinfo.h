#pragma once

#include "paletteentry.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

class CPortList;
class IMessenger;

// One of a board's two palettes, read from a panel definition file: titled pages of
// entries, both in file order.
class CPaletteInfo
{
  public:
    // Replaces the palette by the file's. boardPorts is the board's port table: each port an
    // entry lists takes its alias from the row of the same name there. A file that cannot
    // be read or parsed shows "Error found in panel definition file." and answers false.
    bool Read(const QString& path, IMessenger& messenger, const CPortList& boardPorts);
    void Clear();

    int GetPageCount() const { return int(m_titles.size()); }
    QString GetPageTitle(int page) const { return m_titles.value(page); }
    int GetEntryCount(int page) const;
    // Null out of range.
    const CPaletteEntry* GetEntry(int page, int entry) const;
    // The entry whose prototype has this keyword and, when one has, this picture too (a
    // wire of the same kind); else the first with the keyword; null when none.
    const CPaletteEntry* FindEntry(const QString& keyword, int bitmapId = -1) const;

  private:
    QStringList m_titles;
    std::vector<std::vector<CPaletteEntry>> m_pages;
    // Every panel of a layout being read looks for its entry: the (page, entry) places of
    // each keyword, in file order.
    QHash<QString, std::vector<std::pair<int, int>>> m_places;
};
