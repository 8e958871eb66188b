#include "portfinder.h"
#include "registryportfinder.h"
#include "serenumportfinder.h"
#include "serialdeviceportfinder.h"

#include <gtest/gtest.h>

#include <QMap>

#include <ostream>
#include <variant>
#include <vector>

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
    void AddKey(const QString& path) { m_keys[path]; }

    // One device as the enumerator lists it at index: its instance key and its port.
    void AddDevice(int index, const QString& description, const QString& portName)
    {
        const QString instance = InstanceOf(index);
        Set(kEnumerator, QString::number(index), instance);
        Set(kInstances + instance, "DeviceDesc", description);
        Set(kInstances + instance + "\\Device Parameters", "PortName", portName);
    }
    static QString InstanceOf(int index)
    {
        return QString("FTDIBUS\\VID_0403+PID_6001+A90%1\\0000").arg(index);
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
        const CValue* value = Find(key, name);
        if (!value || !std::holds_alternative<quint32>(*value))
            return std::nullopt;
        return std::get<quint32>(*value);
    }
    std::optional<QString> ReadText(Key key, const QString& name) override
    {
        const CValue* value = Find(key, name);
        if (!value || !std::holds_alternative<QString>(*value))
            return std::nullopt;
        return std::get<QString>(*value);
    }
    void CloseKey(Key key) override
    {
        if (m_open.remove(key) == 0)
            ADD_FAILURE() << "closed a key that was not open: " << key;
    }

    qsizetype OpenKeys() const { return m_open.size(); }

private:
    const CValue* Find(Key key, const QString& name) const
    {
        if (!m_open.contains(key)) {
            ADD_FAILURE() << "read from a key that is not open: " << key;
            return nullptr;
        }
        const auto& values = m_keys[m_open[key]];
        const auto found = values.find(name);
        return found != values.end() ? &*found : nullptr;
    }

    QMap<QString, QMap<QString, CValue>> m_keys;
    QMap<Key, QString> m_open;
    Key m_lastKey = 0;
};

struct CListedDevice
{
    int Index;
    QString Description;
    QString PortName;
};

struct CSearchCase
{
    const char* Name;
    quint32 Count;
    std::vector<CListedDevice> Devices;
    QString InterfaceName;
    int Expected;
};

const CSearchCase kSearchCases[] = {
    {"FirstDeviceMatches", 1, {{0, kBoard, "COM3"}}, kBoard, 3},
    {"SparseIndicesAreBothVisited", 2, {{0, "USB Serial Port", "COM3"}, {5, kBoard, "COM7"}},
     kBoard, 7},
    {"LowerIndexWinsBetweenTwoBoards", 2, {{0, kBoard, "COM3"}, {5, kBoard, "COM7"}}, kBoard, 3},
    {"IndexNineteenIsTheLastVisited", 1, {{19, kBoard, "COM9"}}, kBoard, 9},
    {"IndexTwentyIsNeverVisited", 21, {{20, kBoard, "COM9"}}, kBoard, 0},
    {"MissingIndexDoesNotLowerTheCount", 1, {{1, kBoard, "COM5"}}, kBoard, 5},
    {"CountEndsTheSearch", 1, {{0, "USB Serial Port", "COM3"}, {1, kBoard, "COM5"}}, kBoard, 0},
    {"ZeroCountVisitsNothing", 0, {{0, kBoard, "COM3"}}, kBoard, 0},
    {"TwoDigitPort", 1, {{0, kBoard, "COM12"}}, kBoard, 12},
    {"LowerCaseComIsRejectedAndTheSearchGoesOn", 2, {{0, kBoard, "com4"}, {1, kBoard, "COM6"}},
     kBoard, 6},
    {"OtherPortKindIsRejectedAndTheSearchGoesOn", 2, {{0, kBoard, "LPT1"}, {1, kBoard, "COM2"}},
     kBoard, 2},
    {"ComWithoutNumberEndsTheSearch", 2, {{0, kBoard, "COM"}, {1, kBoard, "COM2"}}, kBoard, 0},
    {"DescriptionIsCaseSensitive", 1, {{0, "quillon board", "COM3"}}, kBoard, 0},
    {"DescriptionMustMatchWhole", 2, {{0, kBoard + " 2", "COM3"}, {1, "Quillon", "COM4"}},
     kBoard, 0},
    {"EmptyNameMatchesEmptyDescription", 2, {{0, kBoard, "COM3"}, {1, "", "COM8"}}, "", 8},
};

void PrintTo(const CSearchCase& row, std::ostream* out)
{
    *out << row.Name;
}

class CSerenumSearch : public testing::TestWithParam<CSearchCase>
{
};

TEST_P(CSerenumSearch, FindsTheBoardsPortAndClosesEveryKey)
{
    const CSearchCase& row = GetParam();
    CFakeRegistry registry;
    registry.Set(kEnumerator, "count", row.Count);
    for (const CListedDevice& device : row.Devices)
        registry.AddDevice(device.Index, device.Description, device.PortName);

    EXPECT_EQ(CSerenumPortFinder(registry).FindBoardComPort(row.InterfaceName), row.Expected);
    EXPECT_EQ(registry.OpenKeys(), 0);
}

INSTANTIATE_TEST_SUITE_P(Rows, CSerenumSearch, testing::ValuesIn(kSearchCases),
                         [](const testing::TestParamInfo<CSearchCase>& info) {
                             return std::string(info.param.Name);
                         });

struct CSerenumFinder : testing::Test
{
    CFakeRegistry registry;

    int Find(const QString& interfaceName = kBoard)
    {
        const int port = CSerenumPortFinder(registry).FindBoardComPort(interfaceName);
        EXPECT_EQ(registry.OpenKeys(), 0);
        return port;
    }
};

TEST_F(CSerenumFinder, MissingEnumeratorOrCountFindsNothing)
{
    EXPECT_EQ(Find(), 0);

    registry.AddDevice(0, kBoard, "COM3");
    EXPECT_EQ(Find(), 0);

    registry.Set(kEnumerator, "count", QString("1"));
    EXPECT_EQ(Find(), 0);

    registry.Set(kEnumerator, "count", 1u);
    EXPECT_EQ(Find(), 3);
}

TEST_F(CSerenumFinder, DeviceWhoseInstanceKeyCannotBeOpenedIsSkippedButCounted)
{
    registry.Set(kEnumerator, "0", QString("USB\\VID_1234&PID_0001\\GONE"));
    registry.AddDevice(1, kBoard, "COM5");

    registry.Set(kEnumerator, "count", 2u);
    EXPECT_EQ(Find(), 5);

    registry.Set(kEnumerator, "count", 1u);
    EXPECT_EQ(Find(), 0);
}

TEST_F(CSerenumFinder, MatchingDeviceWithoutPortNameIsSkipped)
{
    registry.Set(kEnumerator, "count", 3u);
    registry.Set(kEnumerator, "0", CFakeRegistry::InstanceOf(0));
    registry.Set(kInstances + CFakeRegistry::InstanceOf(0), "DeviceDesc", kBoard);
    registry.Set(kEnumerator, "1", CFakeRegistry::InstanceOf(1));
    registry.Set(kInstances + CFakeRegistry::InstanceOf(1), "DeviceDesc", kBoard);
    registry.AddKey(kInstances + CFakeRegistry::InstanceOf(1) + "\\Device Parameters");
    registry.AddDevice(2, kBoard, "COM4");
    EXPECT_EQ(Find(), 4);
}

TEST_F(CSerenumFinder, DeviceWithoutDescriptionIsSkipped)
{
    registry.Set(kEnumerator, "count", 2u);
    registry.AddDevice(0, kBoard, "COM3");
    registry.Set(kInstances + CFakeRegistry::InstanceOf(0), "DeviceDesc", 7u);
    registry.AddDevice(1, kBoard, "COM6");
    EXPECT_EQ(Find(), 6);
    EXPECT_EQ(Find(""), 0);
}

// The search has always read into 200 bytes: 199 characters and the terminator fit.
TEST_F(CSerenumFinder, TextsLongerThan199CharactersAreUnreadable)
{
    const QString fits(199, u'B');
    const QString tooLong(200, u'B');
    registry.Set(kEnumerator, "count", 1u);
    registry.AddDevice(0, fits, "COM3");
    EXPECT_EQ(Find(fits), 3);

    registry.AddDevice(0, tooLong, "COM3");
    EXPECT_EQ(Find(tooLong), 0);

    registry.AddDevice(0, kBoard, "COM" + QString(195, u'0') + "3");
    EXPECT_EQ(Find(), 3);
    registry.AddDevice(0, kBoard, "COM" + QString(196, u'0') + "3");
    EXPECT_EQ(Find(), 0);

    // An unreadable instance path counts as missing, so the count still reaches index 1.
    registry.Set(kEnumerator, "0", QString(200, u'X'));
    registry.AddDevice(1, kBoard, "COM5");
    EXPECT_EQ(Find(), 5);
}

TEST(RegistryPortFinder, AnswersTheComNumberAsTheWriterOptionWantsIt)
{
    const struct
    {
        QString PortName;
        QString Expected;
    } rows[] = {{"COM12", "12"}, {"COM1", "1"}, {"COM", ""}, {"COM-3", ""}, {"com4", ""}};
    for (const auto& row : rows) {
        auto registry = std::make_unique<CFakeRegistry>();
        registry->Set(kEnumerator, "count", 1u);
        registry->AddDevice(0, kBoard, row.PortName);
        CRegistryPortFinder finder(std::move(registry));
        EXPECT_EQ(finder.FindBoardPort(kBoard), row.Expected) << row.PortName.toStdString();
        EXPECT_EQ(finder.FindBoardPort("Another Board"), "");
    }
}

using CDevice = CSerialDevicePortFinder::CDevice;

struct CDeviceCase
{
    const char* Name;
    QList<CDevice> Devices;
    QString InterfaceName;
    QString Expected;
};

const CDeviceCase kDeviceCases[] = {
    {"MatchesByDescription",
     {{"", "", "/dev/ttyS0"}, {kBoard, "Corvel", "/dev/ttyACM0"}}, kBoard, "/dev/ttyACM0"},
    {"FallsBackToManufacturer",
     {{"USB Serial", "Other", "/dev/ttyUSB0"}, {"USB Serial", kBoard, "/dev/ttyUSB1"}}, kBoard,
     "/dev/ttyUSB1"},
    {"DescriptionMatchBeatsEarlierManufacturerMatch",
     {{"USB Serial", kBoard, "/dev/ttyUSB0"}, {kBoard, "Corvel", "/dev/ttyACM1"}}, kBoard,
     "/dev/ttyACM1"},
    {"FirstOfTwoBoardsWins",
     {{kBoard, "Corvel", "/dev/ttyACM0"}, {kBoard, "Corvel", "/dev/ttyACM1"}}, kBoard,
     "/dev/ttyACM0"},
    {"NoMatchingPort", {{"USB Serial", "Other", "/dev/ttyUSB0"}}, kBoard, ""},
    {"NoPortsAtAll", {}, kBoard, ""},
    {"NamesAreCaseSensitive", {{"QUILLON BOARD", "quillon board", "/dev/ttyACM0"}}, kBoard, ""},
    {"NamesMustMatchWhole", {{kBoard + " Rev2", "Quillon", "/dev/ttyACM0"}}, kBoard, ""},
    {"EmptyNameFindsNoBuiltInPort", {{"", "", "/dev/ttyS0"}}, "", ""},
};

void PrintTo(const CDeviceCase& row, std::ostream* out)
{
    *out << row.Name;
}

class CSerialDeviceSearch : public testing::TestWithParam<CDeviceCase>
{
};

TEST_P(CSerialDeviceSearch, AnswersTheBoardsDevicePath)
{
    const CDeviceCase& row = GetParam();
    CSerialDevicePortFinder finder([&row] { return row.Devices; });
    EXPECT_EQ(finder.FindBoardPort(row.InterfaceName), row.Expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, CSerialDeviceSearch, testing::ValuesIn(kDeviceCases),
                         [](const testing::TestParamInfo<CDeviceCase>& info) {
                             return std::string(info.param.Name);
                         });

TEST(SerialDevicePortFinder, ListsThePortsAgainOnEverySearch)
{
    QList<CDevice> attached;
    CSerialDevicePortFinder finder([&attached] { return attached; });
    EXPECT_EQ(finder.FindBoardPort(kBoard), "");
    attached.append({kBoard, "", "/dev/ttyACM2"});
    EXPECT_EQ(finder.FindBoardPort(kBoard), "/dev/ttyACM2");
}

#ifndef Q_OS_WIN
// Whatever this machine has attached, no port announces that name.
TEST(PlatformPortFinder, SearchesTheSystemsSerialPorts)
{
    const auto finder = CreatePlatformPortFinder();
    ASSERT_NE(finder, nullptr);
    EXPECT_EQ(finder->FindBoardPort("Quillon test board that is never attached"), "");
}
#endif

} // namespace
