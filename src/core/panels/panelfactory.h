#pragma once

#include "panelkind.h"

#include <QString>
#include <QStringList>

#include <memory>

class CPanel;

// The only place where panels are made from text.
class CPanelFactory
{
  public:
    // The keyword of a line as the factory recognises it: the first word of its first 254
    // bytes, ended by a blank or TAB only; "" when the line holds no word at all.
    static QString Keyword(const QString& line);
    // A new panel of the class the line's keyword names, given the whole line; null for
    // a keyword the catalogue does not know (no message: such a line is an empty cell).
    static std::unique_ptr<CPanel> Create(const QString& line);
    // The kind a keyword names; None for a keyword the catalogue does not know.
    static EPanelKind KindOf(QStringView keyword);
    // Every keyword, in the order they are tried.
    static QStringList Keywords();
};
