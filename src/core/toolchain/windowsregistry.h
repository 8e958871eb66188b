#pragma once

#include "registry.h"

// The system registry through the Win32 API, read access only.
class CWindowsRegistry : public IRegistry
{
  public:
    std::optional<Key> OpenKey(const QString& path) override;
    // Only REG_DWORD values are numbers.
    std::optional<quint32> ReadNumber(Key key, const QString& name) override;
    // REG_SZ and REG_EXPAND_SZ values, the latter not expanded.
    std::optional<QString> ReadText(Key key, const QString& name) override;
    void CloseKey(Key key) override;
};
