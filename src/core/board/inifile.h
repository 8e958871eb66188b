#pragma once

#include <QHash>
#include <QString>

// An initialisation file read the way a Windows profile file is: section and key names
// without regard to case, each value exactly as written after its "=" (blanks around it
// trimmed, one pair of enclosing quotes removed), so ";" and "," are text like any other.
// The first of two equal keys in a section wins.
class CIniFile
{
  public:
    // A missing or unreadable file reads as empty.
    explicit CIniFile(const QString& path);

    bool Contains(const QString& section, const QString& key) const;
    QString Value(const QString& section, const QString& key) const;

  private:
    static QString Name(const QString& section, const QString& key);

    QHash<QString, QString> m_values;
};
