#include "writeroptionlogic.h"

#include "settings.h"
#include "stringtable.h"

namespace {

constexpr int kComPorts = 255;

} // namespace

CWriterOptionLogic::CWriterOptionLogic(const CSettings& settings,
                                       const QList<CSerialDevicePortFinder::CDevice>& devices,
                                       bool comNumbers)
    : m_comNumbers(comNumbers)
{
    if (comNumbers) {
        Ports.append({CStringTable::Get(Ids::WriterAutoselect), QStringLiteral("0")});
        for (int n = 1; n <= kComPorts; ++n)
            Ports.append({CStringTable::Format(Ids::WriterComFormat, {n}), QString::number(n)});
        const int com = settings.GetWriteCOM();
        Port = com >= 0 && com <= kComPorts ? com : -1;
    } else {
        Ports.append({CStringTable::Get(Ids::WriterAutoselect), QString()});
        for (const CSerialDevicePortFinder::CDevice& device : devices) {
            const QString text =
                device.Description.isEmpty()
                    ? device.SystemLocation
                    : device.SystemLocation + QStringLiteral(" (") + device.Description + u')';
            Ports.append({text, device.SystemLocation});
        }
        // A port chosen earlier stays on offer while its board is unplugged.
        const QString chosen = settings.GetWritePort();
        for (int i = 0; i < Ports.size() && Port < 0; ++i)
            if (Ports[i].Value == chosen)
                Port = i;
        if (Port < 0) {
            Ports.append({chosen, chosen});
            Port = int(Ports.size()) - 1;
        }
    }
    const int wait = settings.GetWriteWait();
    Wait = wait >= 1 && wait <= WaitTexts().size() ? wait - 1 : -1;
}

void CWriterOptionLogic::Apply(CSettings& settings) const
{
    if (Port >= 0 && Port < Ports.size()) {
        if (m_comNumbers)
            settings.SetWriteCOM(Ports[Port].Value.toInt());
        else
            settings.SetWritePort(Ports[Port].Value);
    }
    if (Wait >= 0)
        settings.SetWriteWait(Wait + 1);
}
