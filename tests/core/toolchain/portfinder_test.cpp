// Finding the board's serial port: in the registry's device enumeration, and among the
// system's serial devices.
#include "registryportfinder.h"
#include "serenumportfinder.h"
#include "serialdeviceportfinder.h"

#include <gtest/gtest.h>

#include <QMap>

#include <variant>

namespace {

const QString kEnumerator = "SYSTEM\\CurrentControlSet\\Services\\serenum\\Enum";
const QString kInstances = "SYSTEM\\CurrentControlSet\\Enum\\";
const QString kBoard = "Quillon Board";

struct CListed
{
    int Index;
    QString Description, PortName; // null: the value is left out
};

// Keys by their exact path, each a map of value names to numbers or texts. Paths are
// compared exactly, so a finder that builds a path wrongly finds nothing.
class CFakeRegistry : public IRegistry
{
  public:
    using CValue = std::variant<quint32, QString>;

    CFakeRegistry() = default;
    CFakeRegistry(const CValue& count, const std::vector<CListed>& devices)
    {
        Set(kEnumerator, "count", count);
        for (const CListed& device : devices) {
            const QString instance = kInstances + Instance(device.Index);
            Set(kEnumerator, QString::number(device.Index), Instance(device.Index));
            m_keys[instance];
            if (!device.Description.isNull())
                Set(instance, "DeviceDesc", device.Description);
            if (!device.PortName.isNull())
                Set(instance + "\\Device Parameters", "PortName", device.PortName);
        }
    }
    static QString Instance(int index)
    {
        return QString("FTDIBUS\\VID_0403+PID_6001+A90%1\\0000").arg(index);
    }
    void Set(const QString& path, const QString& name, const CValue& value)
    {
        m_keys[path][name] = value;
    }
    std::optional<Key> OpenKey(const QString& path) override
    {
        if (!m_keys.contains(path))
            return std::nullopt;
        m_open.insert(++m_lastKey, path);
        return m_lastKey;
    }
    std::optional<quint32> ReadNumber(Key key, const QString& name) override
    {
        return Read<quint32>(key, name);
    }
    std::optional<QString> ReadText(Key key, const QString& name) override
    {
        return Read<QString>(key, name);
    }
    void CloseKey(Key key) override
    {
        if (m_open.remove(key) == 0)
            ADD_FAILURE() << "closed a key that was not open: " << key;
    }
    qsizetype OpenKeys() const { return m_open.size(); }

  private:
    template <typename T> std::optional<T> Read(Key key, const QString& name) const
    {
        if (!m_open.contains(key)) {
            ADD_FAILURE() << "read from a key that is not open: " << key;
            return std::nullopt;
        }
        const auto values = m_keys.value(m_open.value(key));
        const auto found = values.find(name);
        if (found == values.end() || !std::holds_alternative<T>(*found))
            return std::nullopt;
        return std::get<T>(*found);
    }

    QMap<QString, QMap<QString, CValue>> m_keys;
    QMap<Key, QString> m_open;
    Key m_lastKey = 0;
};

} // namespace

TEST(SerenumPortFinder, FindsTheBoardsComNumberAndClosesEveryKey)
{
    const struct
    {
        const char* Name;
        quint32 Count;
        const char* Devices; // "index:description:port;...", "B" the board, "~" left out
        int Expected;
        QString InterfaceName = kBoard;
        const char* Also = ""; // what else the registry holds
    } rows[] = {
        {"first device matches", 1, "0:B:COM3", 3},
        {"sparse indices are both visited", 2, "0:USB Serial Port:COM3;5:B:COM7", 7},
        {"the lower index wins between two boards", 2, "0:B:COM3;5:B:COM7", 3},
        {"index nineteen is the last visited", 1, "19:B:COM9", 9},
        {"index twenty is never visited", 21, "20:B:COM9", 0},
        {"a missing index does not lower the count", 1, "1:B:COM5", 5},
        {"the count ends the search", 1, "0:USB Serial Port:COM3;1:B:COM5", 0},
        {"a zero count visits nothing", 0, "0:B:COM3", 0},
        {"a count that is no number", 1, "0:B:COM3", 0, kBoard, "text count"},
        {"two-digit port", 1, "0:B:COM12", 12},
        {"lower-case com is rejected and the search goes on", 2, "0:B:com4;1:B:COM6", 6},
        {"another port kind is rejected and the search goes on", 2, "0:B:LPT1;1:B:COM2", 2},
        {"COM without a number ends the search", 2, "0:B:COM;1:B:COM2", 0},
        {"the description is case sensitive", 1, "0:quillon board:COM3", 0},
        {"the description must match whole", 2, "0:Quillon Board 2:COM3;1:Quillon:COM4", 0},
        {"an empty name matches an empty description", 2, "0:B:COM3;1::COM8", 8, ""},
        {"devices without a port name are skipped", 3, "0:B:~;1:B:~;2:B:COM4", 4, kBoard,
         "bare parameters 1"},
        {"a device without a description is skipped", 2, "0:~:COM3;1:B:COM6", 6},
        {"a description that is no text is skipped", 2, "0:B:COM3;1:B:COM6", 6, kBoard,
         "number description 0"},
        {"nor does it match an empty name", 2, "0:B:COM3;1:B:COM6", 0, "", "number description 0"},
        {"a device whose instance key is gone is skipped", 2, "1:B:COM5", 5, kBoard, "gone 0"},
        {"but counted", 1, "1:B:COM5", 0, kBoard, "gone 0"},
        // An unreadable instance path counts as missing, so the count still reaches index 1.
        {"an unreadable instance path", 1, "1:B:COM5", 5, kBoard, "unreadable 0"},
    };
    const auto text = [](const QString& field) {
        return field == "~" ? QString() : field == "B" ? kBoard : field;
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        std::vector<CListed> devices;
        for (const QString& device : QString(row.Devices).split(u';')) {
            const QStringList f = device.split(u':');
            devices.push_back({f[0].toInt(), text(f[1]), text(f[2])});
        }
        CFakeRegistry registry(row.Count, devices);
        const QString instance0 = kInstances + CFakeRegistry::Instance(0), also = row.Also;
        if (also == "text count")
            registry.Set(kEnumerator, "count", QString::number(row.Count));
        else if (also == "bare parameters 1")
            registry.Set(kInstances + CFakeRegistry::Instance(1) + "\\Device Parameters", "x", 0u);
        else if (also == "number description 0")
            registry.Set(instance0, "DeviceDesc", 7u);
        else if (!also.isEmpty())
            registry.Set(kEnumerator, "0",
                         also == "gone 0" ? "USB\\VID_1234&PID_0001\\GONE" : QString(200, u'X'));
        EXPECT_EQ(CSerenumPortFinder(registry).FindBoardComPort(row.InterfaceName), row.Expected);
        EXPECT_EQ(registry.OpenKeys(), 0);
    }
    // The search has always read into 200 bytes: 199 characters and the terminator fit.
    for (const int length : {199, 200}) {
        const QString name(length, u'B'), port = "COM" + QString(length - 4, u'0') + "3";
        CFakeRegistry named(1u, {{0, name, "COM3"}}), ported(1u, {{0, kBoard, port}});
        EXPECT_EQ(CSerenumPortFinder(named).FindBoardComPort(name), length == 199 ? 3 : 0);
        EXPECT_EQ(CSerenumPortFinder(ported).FindBoardComPort(kBoard), length == 199 ? 3 : 0);
    }
    CFakeRegistry empty;
    EXPECT_EQ(CSerenumPortFinder(empty).FindBoardComPort(kBoard), 0) << "no enumerator";
}

TEST(RegistryPortFinder, AnswersTheComNumberAsTheWriterOptionWantsIt)
{
    const std::pair<QString, QString> rows[] = {
        {"COM12", "12"}, {"COM1", "1"}, {"COM", ""}, {"COM-3", ""}, {"com4", ""}};
    for (const auto& [portName, expected] : rows) {
        CRegistryPortFinder finder(
            std::make_unique<CFakeRegistry>(1u, std::vector<CListed>{{0, kBoard, portName}}));
        EXPECT_EQ(finder.FindBoardPort(kBoard), expected) << portName.toStdString();
        EXPECT_EQ(finder.FindBoardPort("Another Board"), "");
    }
}

TEST(SerialDevicePortFinder, AnswersTheBoardsDevicePath)
{
    using CDevice = CSerialDevicePortFinder::CDevice;
    const QString acm0 = "/dev/ttyACM0", acm1 = "/dev/ttyACM1", usb0 = "/dev/ttyUSB0",
                  usb1 = "/dev/ttyUSB1", serial = "USB Serial";
    const struct
    {
        const char* Name;
        QList<CDevice> Devices;
        QString Expected;
        QString InterfaceName = kBoard;
    } rows[] = {
        {"by description", {{"", "", "/dev/ttyS0"}, {kBoard, "Corvel", acm0}}, acm0},
        {"else by manufacturer", {{serial, "Other", usb0}, {serial, kBoard, usb1}}, usb1},
        {"a description beats a manufacturer",
         {{serial, kBoard, usb0}, {kBoard, "Corvel", acm1}},
         acm1},
        {"the first of two boards wins", {{kBoard, "", acm0}, {kBoard, "", acm1}}, acm0},
        {"no matching port", {{serial, "Other", usb0}}, ""},
        {"names are case sensitive", {{"QUILLON BOARD", "quillon board", acm0}}, ""},
        {"names must match whole", {{kBoard + " Rev2", "Quillon", acm0}}, ""},
        {"an empty name finds no built-in port", {{"", "", "/dev/ttyS0"}}, "", ""},
    };
    for (const auto& row : rows) {
        CSerialDevicePortFinder finder([&row] { return row.Devices; });
        EXPECT_EQ(finder.FindBoardPort(row.InterfaceName), row.Expected) << row.Name;
    }
    // The ports are listed again on every search.
    QList<CDevice> attached;
    CSerialDevicePortFinder finder([&attached] { return attached; });
    EXPECT_EQ(finder.FindBoardPort(kBoard), "");
    attached.append({kBoard, "", "/dev/ttyACM2"});
    EXPECT_EQ(finder.FindBoardPort(kBoard), "/dev/ttyACM2");
}
