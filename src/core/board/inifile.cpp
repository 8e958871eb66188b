#include "inifile.h"

#include <QFile>
#include <QStringDecoder>

CIniFile::CIniFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray bytes = file.readAll();
    QStringDecoder utf8(QStringConverter::Utf8);
    QString text = utf8(bytes);
    if (utf8.hasError())
        text = QString::fromLocal8Bit(bytes);
    text.replace(u'\r', u'\n');
    QString section;
    for (const QString& raw : text.split(u'\n', Qt::SkipEmptyParts)) {
        const QString line = raw.trimmed();
        if (line.startsWith(u'[')) {
            const qsizetype end = line.indexOf(u']');
            section = line.mid(1, end < 0 ? -1 : end - 1).trimmed();
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (section.isEmpty() || equals <= 0)
            continue;
        QString value = line.mid(equals + 1).trimmed();
        if (value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') &&
            value.back() == value.front())
            value = value.mid(1, value.size() - 2);
        const QString name = Name(section, line.left(equals).trimmed());
        if (!m_values.contains(name))
            m_values.insert(name, value);
    }
}

QString CIniFile::Name(const QString& section, const QString& key)
{
    return section.toCaseFolded() + u'\n' + key.toCaseFolded();
}

bool CIniFile::Contains(const QString& section, const QString& key) const
{
    return m_values.contains(Name(section, key));
}

QString CIniFile::Value(const QString& section, const QString& key) const
{
    return m_values.value(Name(section, key));
}
