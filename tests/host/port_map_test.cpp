#include "platform/host/port_map.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "platform/host/files.h"
#include "support.h"

namespace cumeron {
namespace {

struct PortMapTest : testing::Test {
    OwnFolders own;
    HostFiles files;
    std::vector<SerialDevice> found;  // what the system finds
    HostPorts ports{files, own.Path("serial"), [this] { return found; }};

    // A device in a folder of the test's own.
    std::string Plug(const std::string& name) {
        WriteFile(own.Path(name), "");
        found.push_back({own.Path(name), "Adapter", "A100"});
        return own.Path(name);
    }
    std::string Link(const std::string& kind, const std::string& name, const std::string& device) {
        const std::string link = own.Path("serial/" + kind + "/" + name);
        std::filesystem::create_directories(own.Path("serial/" + kind));
        std::filesystem::create_symlink(device, link);
        return link;
    }
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const SerialDevice& device : ports.Devices()) names.push_back(device.name);
        return names;
    }
};

using Names_ = std::vector<std::string>;

TEST_F(PortMapTest, ADeviceBearsTheNameThatOutlivesReplugging) {
    const std::string usb0 = Plug("ttyUSB0"), usb1 = Plug("ttyUSB1"), s0 = Plug("ttyS0");
    const std::string path0 = Link("by-path", "pci-1", usb0);
    const std::string path1 = Link("by-path", "pci-2", usb1);
    EXPECT_EQ(Names(), (Names_{path0, path1, s0}));
    Link("by-id", "usb-zz", usb0);
    const std::string id0 = Link("by-id", "usb-A100-port0", usb0);
    EXPECT_EQ(Names(), (Names_{id0, path1, s0}));
    EXPECT_EQ(ports.Devices()[0].description, "Adapter");
    EXPECT_EQ(ports.Devices()[0].serialNumber, "A100");
}

TEST_F(PortMapTest, LinksThatLeadNowhereAreNoNames) {
    const std::string usb0 = Plug("ttyUSB0");
    Link("by-id", "usb-A", own.Path("gone"));
    EXPECT_EQ(Names(), Names_{usb0});
}

TEST_F(PortMapTest, PseudoTerminalsAndDuplicatesAreLeftOut) {
    for (const char* name : {"/dev/pts/3", "/dev/ptmx", "/dev/ptyp0", "/dev/ttyp0", "/dev/ttyef",
                             "/dev/ttyS0", "/dev/ttyS0", "/dev/ttyUSB12", "/dev/ttyACM0"}) {
        found.push_back({name, "", ""});
    }
    EXPECT_EQ(Names(), (Names_{"/dev/ttyS0", "/dev/ttyUSB12", "/dev/ttyACM0"}));
}

TEST_F(PortMapTest, TheSystemsOwnListCanBeAsked) {
    for (const SerialDevice& device : HostPorts(files).Devices()) {
        EXPECT_EQ(device.name.rfind("/dev/", 0), 0U) << device.name;
    }
}

TEST_F(PortMapTest, APairedDeviceStaysAndIsPresentWhileItIsThere) {
    const std::string device = Plug("ttyUSB0");
    files.Replace(files.SettingsFolder() + "/ports.ini", "; mine\n[ports]\n1=/dev/ttyS9\n");
    EXPECT_FALSE(ports.IsPresent(1));
    ports.Pair(1, device);
    ports.Pair(3, "/dev/other");
    EXPECT_EQ(ports.DeviceOf(1), device);
    EXPECT_TRUE(ports.IsPresent(1));
    EXPECT_EQ(PortDevice(files, 3), "/dev/other");
    const std::string text = ReadFile(files.SettingsFolder() + "/ports.ini");
    EXPECT_EQ(text.rfind("; mine\n[ports]\n1=" + device, 0), 0U) << text;
    ::unlink(device.c_str());
    EXPECT_FALSE(ports.IsPresent(1));
    EXPECT_FALSE(ports.IsPresent(14)) << "without any device";
}

TEST_F(PortMapTest, TheFirstPairingMakesTheFile) {
    ports.Pair(2, "/dev/new");
    EXPECT_EQ(ports.DeviceOf(2), "/dev/new");
}

TEST_F(PortMapTest, AMapThatCannotBeReadOrWrittenIsToldAndKept) {
    std::filesystem::create_directories(files.SettingsFolder() + "/ports.ini");
    EXPECT_EQ(ErrorOf([&] { ports.Pair(1, "/dev/new"); }), 75);
    EXPECT_EQ(ports.DeviceOf(1), "/dev/ttyS0");
}

TEST(UsualDevice, TwelvePortsHaveOne) {
    const struct {
        int number;
        const char* device;
    } cases[] = {{0, ""},
                 {1, "/dev/ttyS0"},
                 {4, "/dev/ttyS3"},
                 {5, "/dev/ttyUSB0"},
                 {9, "/dev/ttyACM0"},
                 {12, "/dev/ttyACM3"},
                 {13, ""}};
    for (const auto& c : cases) EXPECT_EQ(UsualDevice(c.number), c.device) << c.number;
}

TEST_F(PortMapTest, EnvironmentGoesBeforeThePortFileAndThatBeforeTheUsualDevice) {
    EXPECT_EQ(PortDevice(files, 2), "/dev/ttyS1");
    files.Replace(files.SettingsFolder() + "/ports.ini", "[ports]\n2=/dev/from_file\n");
    EXPECT_EQ(PortDevice(files, 2), "/dev/from_file");
    qputenv("CUMERON_COM2", "/dev/from_environment");
    EXPECT_EQ(PortDevice(files, 2), "/dev/from_environment");
    EXPECT_EQ(PortDevice(files, 3), "/dev/ttyS2");
    qunsetenv("CUMERON_COM2");
}

}  // namespace
}  // namespace cumeron
