#include "windowsregistry.h"

#include <algorithm>
#include <vector>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

namespace {

HKEY ToHandle(IRegistry::Key key)
{
    return reinterpret_cast<HKEY>(key);
}

// QString keeps its text NUL-terminated in UTF-16, which is what the W functions take.
const wchar_t* Wide(const QString& text)
{
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

bool IsText(DWORD type)
{
    return type == REG_SZ || type == REG_EXPAND_SZ;
}

} // namespace

std::optional<IRegistry::Key> CWindowsRegistry::OpenKey(const QString& path)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, Wide(path), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return std::nullopt;
    return reinterpret_cast<Key>(key);
}

std::optional<quint32> CWindowsRegistry::ReadNumber(Key key, const QString& name)
{
    DWORD type = 0;
    DWORD value = 0;
    DWORD size = sizeof(value);
    if (RegQueryValueExW(ToHandle(key), Wide(name), nullptr, &type,
                         reinterpret_cast<LPBYTE>(&value), &size) != ERROR_SUCCESS ||
        type != REG_DWORD || size != sizeof(value))
        return std::nullopt;
    return quint32(value);
}

std::optional<QString> CWindowsRegistry::ReadText(Key key, const QString& name)
{
    DWORD type = 0;
    DWORD size = 0;
    if (RegQueryValueExW(ToHandle(key), Wide(name), nullptr, &type, nullptr, &size) !=
            ERROR_SUCCESS ||
        !IsText(type))
        return std::nullopt;
    // A stored text need not end with its terminator, and its byte count may be odd: round
    // up and keep one spare character. A value that grew since the first query fails.
    std::vector<wchar_t> buffer((size + sizeof(wchar_t) - 1) / sizeof(wchar_t) + 1, L'\0');
    size = DWORD((buffer.size() - 1) * sizeof(wchar_t));
    if (RegQueryValueExW(ToHandle(key), Wide(name), nullptr, &type,
                         reinterpret_cast<LPBYTE>(buffer.data()), &size) != ERROR_SUCCESS ||
        !IsText(type))
        return std::nullopt;
    const auto end = buffer.begin() + size / sizeof(wchar_t);
    const auto terminator = std::find(buffer.begin(), end, L'\0');
    return QString::fromWCharArray(buffer.data(), qsizetype(terminator - buffer.begin()));
}

void CWindowsRegistry::CloseKey(Key key)
{
    RegCloseKey(ToHandle(key));
}
