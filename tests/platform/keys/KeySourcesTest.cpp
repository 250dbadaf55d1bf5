// The key library stand-ins: key maps, lamps, the input-device reader, the window keyboard
// and the joystick mapping.
#include <gtest/gtest.h>

#include "platform/keys/VyInputKeyLibrary.h"
#include "platform/keys/VyJoystickReader.h"
#include "platform/keys/VyKeyMap.h"
#include "platform/keys/VyLampOutput.h"
#include "platform/keys/VyWindowKeyLibrary.h"
#include "runtime/VyResources.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <linux/input.h>
#include <map>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

VyKeyMap mapOf(const std::string& text) {
    VyKeyMap map;
    map.parse(text.data(), text.size(), "test");
    return map;
}

void writeFile(const std::string& path, const std::string& text) {
    std::FILE* f = std::fopen(path.c_str(), "w");
    ASSERT_NE(f, nullptr);
    std::fputs(text.c_str(), f);
    std::fclose(f);
}

} // namespace

TEST(KeyMap, MalformedLinesAreLoggedAndTheRestIsUsed) {
    const VyKeyMap map = mapOf("[Keys]\n"
                               "103=24\n"
                               "this line has no value\n"
                               "Up=25\n"
                               "1=0\n"
                               "2=150\n"
                               "3=-4\n"
                               "4=24x\n"
                               "\n; comment\n"
                               "[Lamps]\n"
                               "17=green:status,1\n"
                               "18=../../etc,1\n"
                               "20=amber:data\n"
                               "21=amber:data,999\n"
                               "[Other]\nx=1\n");
    EXPECT_EQ(map.deviceKey(103), 24u);
    EXPECT_EQ(map.deviceKey(VyString("Up")), 25u);
    for (int code : {1, 2, 3, 4, 5})
        EXPECT_EQ(map.deviceKey(code), 0u) << code;
    ASSERT_NE(map.lamp(17), nullptr);
    EXPECT_EQ(map.lamp(17)->led, "green:status");
    EXPECT_EQ(map.lamp(17)->brightness, 1);
    ASSERT_NE(map.lamp(20), nullptr);
    EXPECT_EQ(map.lamp(20)->brightness, -1);
    EXPECT_EQ(map.lamp(18), nullptr);
    EXPECT_EQ(map.lamp(21), nullptr);
    EXPECT_EQ(map.rejectedLines(), 8); // the text line, four keys, two lamps, [Other]
}

TEST(LampOutput, NamedLedsAreWrittenOthersGoNowhere) {
    std::vector<std::pair<std::string, int>> writes;
    VyLampOutput lamps([&](const VyString& path, int value) {
        writes.emplace_back(path.toStdString(), value);
        return true;
    });
    lamps.addMap(mapOf("[Lamps]\n17=green:status,1\n18=green:status,0\n20=amber:data\n"));
    lamps.command(17);
    lamps.command(18);
    lamps.commandWithData(20, 6);
    lamps.command(96); // no LED named: the debug channel only
    const std::vector<std::pair<std::string, int>> expected = {
        {"/sys/class/leds/green:status/brightness", 1},
        {"/sys/class/leds/green:status/brightness", 0},
        {"/sys/class/leds/amber:data/brightness", 6}};
    EXPECT_EQ(writes, expected);
}

TEST(WindowKeys, NamesMapToDeviceKeysAndLampsShowAsText) {
    VyWindowKeyLibrary keys(mapOf("[Keys]\nUp=24\nKeypad_Enter=28\n"));
    keys.keyPressed("Up");
    keys.keyPressed("Keypad Enter");
    keys.keyPressed("F13");
    keys.keyPressed(nullptr);
    EXPECT_EQ(keys.GetAllKeyValue_keytype(), 24u);
    EXPECT_EQ(keys.GetAllKeyValue_keytype(), 28u);
    EXPECT_EQ(keys.GetAllKeyValue_keytype(), 0u);

    std::string text;
    EXPECT_FALSE(keys.takeStatusText(&text));
    keys.KEYBOARD_SEND_CMD(17);
    keys.KEYBOARD_SEND_CMD(97);
    keys.KEYBOARD_SEND_CMDDATA(20, 4);
    ASSERT_TRUE(keys.takeStatusText(&text));
    EXPECT_EQ(text, "lamps 17 97 0 data 4");
    keys.KEYBOARD_SEND_CMD(17); // no change: nothing new to show
    EXPECT_FALSE(keys.takeStatusText(&text));
}

TEST(Joystick, AxesAndButtonsBecomeKeysOncePerPush) {
    std::vector<uint32_t> keys;
    VyJoystickReader reader(mapOf("[Keys]\naxis0-=26\naxis0+=27\nbutton0=28\n"),
                            [&](uint32_t key) { keys.push_back(key); });
    constexpr uint8_t kButton = 1, kAxis = 2, kInit = 0x80;
    reader.handleEvent(kAxis | kInit, 0, -32767); // the state at open is not a push
    reader.handleEvent(kAxis, 0, -20000);
    reader.handleEvent(kAxis, 0, -32767); // still pushed
    reader.handleEvent(kAxis, 0, 0);
    reader.handleEvent(kAxis, 0, 30000);
    reader.handleEvent(kButton, 0, 1);
    reader.handleEvent(kButton, 0, 0); // release
    reader.handleEvent(kButton, 5, 1); // not in the map
    reader.handleEvent(kAxis, 200, 30000);
    EXPECT_EQ(keys, (std::vector<uint32_t>{26, 27, 28}));
}

// Input devices in a directory of stand-in nodes; each node is one end of a socket pair the
// test writes input events into.
class InputDevices : public ::testing::Test {
protected:
    void SetUp() override {
        char dirTemplate[] = "/tmp/vy-keys-XXXXXX";
        ASSERT_NE(mkdtemp(dirTemplate), nullptr);
        root = dirTemplate;
        ASSERT_EQ(mkdir((root + "/input").c_str(), 0700), 0);
        ASSERT_EQ(mkdir((root + "/keymap").c_str(), 0700), 0);
        writeFile(root + "/keymap/panel.ini", "[Keys]\n103=24\n352=28\nscan:45=26\n");
        savedRoot = VyResources::root();
        VyResources::setRoot(VyString(root));
    }
    void TearDown() override {
        for (auto& d : devices) {
            ::close(d.second.reader);
            ::close(d.second.writer);
        }
        std::filesystem::remove_all(root);
        VyResources::setRoot(savedRoot);
    }
    // A node named `node` reporting `name`; motion marks a pointer device.
    void addDevice(const std::string& node, const std::string& name, bool motion = false) {
        int pair[2];
        ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, pair), 0);
        writeFile(root + "/input/" + node, "");
        devices[root + "/input/" + node] = {pair[0], pair[1], name, motion};
    }
    void send(const std::string& node, uint16_t type, uint16_t code, int32_t value) {
        input_event ev{};
        ev.type = type;
        ev.code = code;
        ev.value = value;
        ASSERT_EQ(::write(devices[root + "/input/" + node].writer, &ev, sizeof ev),
                  ssize_t(sizeof ev));
    }
    VyInputKeyLibrary::Ops ops() {
        VyInputKeyLibrary::Ops o;
        o.open = [this](const char* path) {
            auto it = devices.find(path);
            return it == devices.end() ? -1 : ::dup(it->second.reader);
        };
        o.query = [this](int fd, VyInputKeyLibrary::DeviceInfo* info) {
            for (auto& d : devices) {
                struct stat a {
                }, b{};
                fstat(fd, &a);
                fstat(d.second.reader, &b);
                if (a.st_ino == b.st_ino) {
                    info->name = VyString(d.second.name);
                    info->reportsKeys = true;
                    info->reportsMotion = d.second.motion;
                    return true;
                }
            }
            return false;
        };
        return o;
    }

    struct Device {
        int reader;
        int writer;
        std::string name;
        bool motion;
    };
    std::string root;
    VyString savedRoot;
    std::map<std::string, Device> devices;
};

TEST_F(InputDevices, KeyDevicesWithAMapAreReadAndAVanishedOneIsNotReadAgain) {
    addDevice("event0", "panel");
    addDevice("event1", "panel", true); // a mouse with the same name: not a key device
    addDevice("event2", "unmapped");    // no key map: left alone
    addDevice("mouse0", "panel");       // not an event node
    VyInputKeyLibrary keys(VyString(root + "/input"), ops());
    keys.scan();
    EXPECT_EQ(keys.openDeviceCount(), 1);

    send("event0", EV_KEY, 103, 1);
    send("event0", EV_KEY, 103, 0); // release
    send("event0", EV_KEY, 352, 2); // auto-repeat counts
    send("event0", EV_MSC, MSC_SCAN, 0x45);
    send("event0", EV_KEY, 999, 1); // not in the map
    EXPECT_EQ(keys.GetAllKeyValue_keytype(), 24u);
    EXPECT_EQ(keys.GetAllKeyValue_keytype(), 28u);
    EXPECT_EQ(keys.GetAllKeyValue_keytype(), 26u);
    EXPECT_EQ(keys.GetAllKeyValue_keytype(), 0u);

    // The device goes away: it is dropped, and later polls do not touch it.
    ::close(devices[root + "/input/event0"].writer);
    devices[root + "/input/event0"].writer = -1;
    EXPECT_EQ(keys.GetAllKeyValue_keytype(), 0u);
    EXPECT_EQ(keys.openDeviceCount(), 0);
    const int reads = keys.readCount();
    for (int i = 0; i < 20; ++i)
        keys.GetAllKeyValue_keytype();
    EXPECT_EQ(keys.readCount(), reads);
}

TEST_F(InputDevices, AReceiverPluggedInLaterIsPickedUp) {
    VyInputKeyLibrary keys(VyString(root + "/input"), ops());
    keys.scan();
    EXPECT_EQ(keys.openDeviceCount(), 0);
    addDevice("event3", "panel");
    // The directory reports the new node (or, without notifications, a rescan finds it).
    for (int i = 0; i <= VyInputKeyLibrary::kRescanPolls && keys.openDeviceCount() == 0; ++i)
        keys.GetAllKeyValue_keytype();
    EXPECT_EQ(keys.openDeviceCount(), 1);
    send("event3", EV_KEY, 103, 1);
    EXPECT_EQ(keys.GetAllKeyValue_keytype(), 24u);
}

TEST(Joystick, TheReaderThreadMapsEventsAndSurvivesAReadError) {
    int pipeEnds[2];
    ASSERT_EQ(pipe(pipeEnds), 0);
    std::atomic<int> opens{0};
    std::atomic<uint32_t> lastKey{0};
    VyJoystickReader reader(
        mapOf("[Keys]\nbutton0=28\n"), [&](uint32_t key) { lastKey = key; }, "js-test",
        [&](const char*) { return opens++ == 0 ? pipeEnds[0] : -1; });
    reader.start();
    const uint8_t press[8] = {0, 0, 0, 0, 1, 0, 1, 0}; // time, value 1, button 0
    ASSERT_EQ(::write(pipeEnds[1], press, sizeof press), 8);
    ::close(pipeEnds[1]); // the device goes away: the next read fails
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while ((lastKey.load() == 0 || reader.readErrors() == 0) &&
           std::chrono::steady_clock::now() < deadline)
        std::this_thread::yield();
    EXPECT_EQ(lastKey.load(), 28u);
    EXPECT_EQ(reader.readErrors(), 1);
    EXPECT_EQ(reader.openCount(), 1);
    reader.stop(); // wakes the retry wait at once
}
