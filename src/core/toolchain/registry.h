#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

// Read-only access to the keys below HKEY_LOCAL_MACHINE, as much as the serial port search
// needs. A key is a plain handle; whoever opened it closes it again.
class IRegistry
{
  public:
    using Key = quintptr;

    virtual ~IRegistry() = default;

    // path is relative to HKEY_LOCAL_MACHINE, parts separated by "\".
    virtual std::optional<Key> OpenKey(const QString& path) = 0;
    // A 32-bit number value; nullopt when it is missing or of another type.
    virtual std::optional<quint32> ReadNumber(Key key, const QString& name) = 0;
    // The whole text of a string value, up to its first terminator; nullopt when it is
    // missing or of another type. Any size limit is the caller's to apply.
    virtual std::optional<QString> ReadText(Key key, const QString& name) = 0;
    virtual void CloseKey(Key key) = 0;
};
