// Finding the board's serial port: in the registry's device enumeration, and among the
// system's serial devices.
#include "registryportfinder.h"
#include "serenumportfinder.h"
#include "serialdeviceportfinder.h"

#include <gtest/gtest.h>

#include <QMap>

#include <functional>
#include <variant>

namespace {

const QString kEnumerator = "SYSTEM\\CurrentControlSet\\Services\\serenum\\Enum";
const QString kInstances = "SYSTEM\\CurrentControlSet\\Enum\\";
const QString kBoard = "Quillon Board";

// Keys by their exact path, each a map of value names to numbers or texts. Paths are
// compared exactly, so a finder that builds a path wrongly finds nothing.
class CFakeRegistry : public IRegistry
{
  public:
    using CValue = std::variant<quint32, QString>;

    void Set(const QString& path, const QString& name, const CValue& value)
    {
        m_keys[path][name] = value;
    }
    static QString Instance(int index)
    {
        return QString("FTDIBUS\\VID_0403+PID_6001+A90%1\\0000").arg(index);
    }
    void AddKey(const QString& path) { m_keys[path]; }
    // One device as the enumerator lists it at index: its instance key and its port. A null
    // description leaves the value out, a null port name the whole parameters key.
    void AddDevice(int index, const QString& description, const QString& portName)
    {
        const QString instance = Instance(index);
        Set(kEnumerator, QString::number(index), instance);
        AddKey(kInstances + instance);
        if (!description.isNull())
            Set(kInstances + instance, "DeviceDesc", description);
        if (!portName.isNull())
            Set(kInstances + instance + "\\Device Parameters", "PortName", portName);
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
        const auto& values = m_keys[m_open[key]];
        const auto found = values.find(name);
        if (found == values.end() || !std::holds_alternative<T>(*found))
            return std::nullopt;
        return std::get<T>(*found);
    }

    QMap<QString, QMap<QString, CValue>> m_keys;
    QMap<Key, QString> m_open;
    Key m_lastKey = 0;
};

struct CListed
{
    int Index;
    QString Description, PortName;
};

} // namespace

TEST(SerenumPortFinder, FindsTheBoardsComNumberAndClosesEveryKey)
{
    const QString fits(199, u'B'), tooLong(200, u'B');
    const struct
    {
        const char* Name;
        CFakeRegistry::CValue Count;
        std::vector<CListed> Devices;
        int Expected;
        QString InterfaceName = kBoard;
        std::function<void(CFakeRegistry&)> Also = {};
    } rows[] = {
        {"first device matches", 1u, {{0, kBoard, "COM3"}}, 3},
        {"sparse indices are both visited",
         2u,
         {{0, "USB Serial Port", "COM3"}, {5, kBoard, "COM7"}},
         7},
        {"the lower index wins between two boards",
         2u,
         {{0, kBoard, "COM3"}, {5, kBoard, "COM7"}},
         3},
        {"index nineteen is the last visited", 1u, {{19, kBoard, "COM9"}}, 9},
        {"index twenty is never visited", 21u, {{20, kBoard, "COM9"}}, 0},
        {"a missing index does not lower the count", 1u, {{1, kBoard, "COM5"}}, 5},
        {"the count ends the search", 1u, {{0, "USB Serial Port", "COM3"}, {1, kBoard, "COM5"}}, 0},
        {"a zero count visits nothing", 0u, {{0, kBoard, "COM3"}}, 0},
        {"a count that is no number", QString("1"), {{0, kBoard, "COM3"}}, 0},
        {"two-digit port", 1u, {{0, kBoard, "COM12"}}, 12},
        {"lower-case com is rejected and the search goes on",
         2u,
         {{0, kBoard, "com4"}, {1, kBoard, "COM6"}},
         6},
        {"another port kind is rejected and the search goes on",
         2u,
         {{0, kBoard, "LPT1"}, {1, kBoard, "COM2"}},
         2},
        {"COM without a number ends the search", 2u, {{0, kBoard, "COM"}, {1, kBoard, "COM2"}}, 0},
        {"the description is case sensitive", 1u, {{0, "quillon board", "COM3"}}, 0},
        {"the description must match whole",
         2u,
         {{0, kBoard + " 2", "COM3"}, {1, "Quillon", "COM4"}},
         0},
        {"an empty name matches an empty description",
         2u,
         {{0, kBoard, "COM3"}, {1, "", "COM8"}},
         8,
         ""},
        {"matching devices without a port name are skipped",
         3u,
         {{0, kBoard, QString()}, {1, kBoard, QString()}, {2, kBoard, "COM4"}},
         4,
         kBoard,
         [](CFakeRegistry& r) {
             r.AddKey(kInstances + CFakeRegistry::Instance(1) + "\\Device Parameters");
         }},
        {"a device without a description is skipped",
         2u,
         {{0, QString(), "COM3"}, {1, kBoard, "COM6"}},
         6},
        {"a description that is no text is skipped",
         2u,
         {{0, kBoard, "COM3"}, {1, kBoard, "COM6"}},
         6,
         kBoard,
         [](CFakeRegistry& r) {
             r.Set(kInstances + CFakeRegistry::Instance(0), "DeviceDesc", 7u);
         }},
        {"nor does it match an empty name",
         2u,
         {{0, kBoard, "COM3"}, {1, kBoard, "COM6"}},
         0,
         "",
         [](CFakeRegistry& r) {
             r.Set(kInstances + CFakeRegistry::Instance(0), "DeviceDesc", 7u);
         }},
        {"a device whose instance key is gone is skipped but counted",
         2u,
         {{1, kBoard, "COM5"}},
         5,
         kBoard,
         [](CFakeRegistry& r) {
             r.Set(kEnumerator, "0", QString("USB\\VID_1234&PID_0001\\GONE"));
         }},
        {"and counted",
         1u,
         {{1, kBoard, "COM5"}},
         0,
         kBoard,
         [](CFakeRegistry& r) {
             r.Set(kEnumerator, "0", QString("USB\\VID_1234&PID_0001\\GONE"));
         }},
        // The search has always read into 200 bytes: 199 characters and the terminator fit.
        {"199 characters of description fit", 1u, {{0, fits, "COM3"}}, 3, fits},
        {"200 do not", 1u, {{0, tooLong, "COM3"}}, 0, tooLong},
        {"199 characters of port fit", 1u, {{0, kBoard, "COM" + QString(195, u'0') + "3"}}, 3},
        {"200 do not", 1u, {{0, kBoard, "COM" + QString(196, u'0') + "3"}}, 0},
        // An unreadable instance path counts as missing, so the count still reaches index 1.
        {"an unreadable instance path",
         1u,
         {{1, kBoard, "COM5"}},
         5,
         kBoard,
         [](CFakeRegistry& r) { r.Set(kEnumerator, "0", QString(200, u'X')); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        CFakeRegistry registry;
        registry.Set(kEnumerator, "count", row.Count);
        for (const CListed& device : row.Devices)
            registry.AddDevice(device.Index, device.Description, device.PortName);
        if (row.Also)
            row.Also(registry);
        EXPECT_EQ(CSerenumPortFinder(registry).FindBoardComPort(row.InterfaceName), row.Expected);
        EXPECT_EQ(registry.OpenKeys(), 0);
    }
    CFakeRegistry empty;
    EXPECT_EQ(CSerenumPortFinder(empty).FindBoardComPort(kBoard), 0) << "no enumerator";
}

TEST(RegistryPortFinder, AnswersTheComNumberAsTheWriterOptionWantsIt)
{
    const std::pair<QString, QString> rows[] = {
        {"COM12", "12"}, {"COM1", "1"}, {"COM", ""}, {"COM-3", ""}, {"com4", ""}};
    for (const auto& [portName, expected] : rows) {
        auto registry = std::make_unique<CFakeRegistry>();
        registry->Set(kEnumerator, "count", 1u);
        registry->AddDevice(0, kBoard, portName);
        CRegistryPortFinder finder(std::move(registry));
        EXPECT_EQ(finder.FindBoardPort(kBoard), expected) << portName.toStdString();
        EXPECT_EQ(finder.FindBoardPort("Another Board"), "");
    }
}

TEST(SerialDevicePortFinder, AnswersTheBoardsDevicePath)
{
    using CDevice = CSerialDevicePortFinder::CDevice;
    const struct
    {
        const char* Name;
        QList<CDevice> Devices;
        QString Expected;
        QString InterfaceName = kBoard;
    } rows[] = {
        {"by description",
         {{"", "", "/dev/ttyS0"}, {kBoard, "Corvel", "/dev/ttyACM0"}},
         "/dev/ttyACM0"},
        {"else by manufacturer",
         {{"USB Serial", "Other", "/dev/ttyUSB0"}, {"USB Serial", kBoard, "/dev/ttyUSB1"}},
         "/dev/ttyUSB1"},
        {"a description beats an earlier manufacturer",
         {{"USB Serial", kBoard, "/dev/ttyUSB0"}, {kBoard, "Corvel", "/dev/ttyACM1"}},
         "/dev/ttyACM1"},
        {"the first of two boards wins",
         {{kBoard, "Corvel", "/dev/ttyACM0"}, {kBoard, "Corvel", "/dev/ttyACM1"}},
         "/dev/ttyACM0"},
        {"no matching port", {{"USB Serial", "Other", "/dev/ttyUSB0"}}, ""},
        {"no ports at all", {}, ""},
        {"names are case sensitive", {{"QUILLON BOARD", "quillon board", "/dev/ttyACM0"}}, ""},
        {"names must match whole", {{kBoard + " Rev2", "Quillon", "/dev/ttyACM0"}}, ""},
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
