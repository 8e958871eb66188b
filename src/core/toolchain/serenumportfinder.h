#pragma once

#include "registry.h"

#include <QString>

// Finds the COM port of an attached board from what the serial enumerator service records
// in the registry: the device whose description is the board's interface name. No port
// is opened.
class CSerenumPortFinder
{
  public:
    // The enumerator's list of device instances, and where each instance is described.
    static constexpr const char* kEnumeratorPath =
        "SYSTEM\\CurrentControlSet\\Services\\serenum\\Enum";
    static constexpr const char* kInstancePath = "SYSTEM\\CurrentControlSet\\Enum\\";
    // Indices 0 to 19 are visited, never more, whatever the count says.
    static constexpr int kMaxIndices = 20;
    // The search has always read every value into 200 bytes, so a longer text (199
    // characters and its terminator fit) counts as unreadable, like a missing value.
    static constexpr int kMaxTextLength = 199;

    // The registry is borrowed and must outlive the finder.
    explicit CSerenumPortFinder(IRegistry& registry) : m_registry(registry) {}

    // The number of the first enumerated device, in index order, whose description equals
    // interfaceName exactly and whose port name starts with "COM": what follows "COM" read
    // as a decimal number (COM12 gives 12; "COM" alone gives 0 and still ends the search).
    // 0 when no device matches or the enumerator's key or count cannot be read.
    int FindBoardComPort(const QString& interfaceName) const;

  private:
    int SearchDevices(IRegistry::Key enumerator, const QString& interfaceName) const;
    std::optional<QString> ReadText(IRegistry::Key key, const QString& name) const;
    std::optional<QString> ReadKeyText(const QString& path, const QString& name) const;

    IRegistry& m_registry;
};
