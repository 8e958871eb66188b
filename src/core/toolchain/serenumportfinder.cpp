#include "serenumportfinder.h"

#include "panelvalues.h"

int CSerenumPortFinder::FindBoardComPort(const QString& interfaceName) const
{
    const auto enumerator = m_registry.OpenKey(QString::fromLatin1(kEnumeratorPath));
    if (!enumerator)
        return 0;
    const int port = SearchDevices(*enumerator, interfaceName);
    m_registry.CloseKey(*enumerator);
    return port;
}

int CSerenumPortFinder::SearchDevices(IRegistry::Key enumerator, const QString& interfaceName) const
{
    const auto count = m_registry.ReadNumber(enumerator, QStringLiteral("count"));
    if (!count)
        return 0;
    // The enumerator may leave gaps between its indices: only an index that holds a device
    // uses up the count.
    quint32 remaining = *count;
    for (int index = 0; index < kMaxIndices && remaining >= 1; ++index) {
        const auto instance = ReadText(enumerator, QString::number(index));
        if (!instance)
            continue;
        --remaining;
        const QString instancePath = QString::fromLatin1(kInstancePath) + *instance;
        const auto description = ReadKeyText(instancePath, QStringLiteral("DeviceDesc"));
        if (!description || *description != interfaceName)
            continue;
        const auto portName = ReadKeyText(instancePath + QStringLiteral("\\Device Parameters"),
                                          QStringLiteral("PortName"));
        if (portName && portName->startsWith(QStringLiteral("COM")))
            return LeadingInt(portName->mid(3));
    }
    return 0;
}

std::optional<QString> CSerenumPortFinder::ReadText(IRegistry::Key key, const QString& name) const
{
    auto text = m_registry.ReadText(key, name);
    if (text && text->size() > kMaxTextLength)
        return std::nullopt;
    return text;
}

std::optional<QString> CSerenumPortFinder::ReadKeyText(const QString& path,
                                                       const QString& name) const
{
    const auto key = m_registry.OpenKey(path);
    if (!key)
        return std::nullopt;
    auto text = ReadText(*key, name);
    m_registry.CloseKey(*key);
    return text;
}
