#pragma once
// The key source of a Linux board: front-panel buttons and infra-red receivers are input
// devices ("/dev/input/eventN"). They are found by what they can do, not by number: a device
// that reports keys and no pointer movement, and for whose name a key map exists, is read;
// the directory is watched, so a receiver plugged in later is picked up. Reading happens on
// the key poll thread, without blocking: each poll takes what the devices hold. A device that
// goes away is closed and forgotten; nothing retries it until it appears again.
#include <functional>
#include <memory>
#include <vector>

#include "platform/keys/VyKeyMap.h"
#include "platform/keys/VyQueuedKeyLibrary.h"
#include "runtime/VyString.h"
#include "runtime/VyUniqueFd.h"

class VyInputKeyLibrary : public VyQueuedKeyLibrary {
public:
    static constexpr const char* kInputDirectory = "/dev/input";
    // Without directory notifications the directory is scanned again after this many polls.
    static constexpr int kRescanPolls = 14; // about 2 s at 150 ms

    // What a device says about itself.
    struct DeviceInfo {
        VyString name;
        bool reportsKeys = false;
        bool reportsMotion = false; // relative or absolute axes: a mouse, touch or joystick
    };
    // Replaceable by tests: opening a device node and asking it what it is.
    struct Ops {
        std::function<int(const char* path)> open;
        std::function<bool(int fd, DeviceInfo* info)> query;
    };

    explicit VyInputKeyLibrary(const VyString& directory = kInputDirectory, Ops ops = {});
    ~VyInputKeyLibrary() override;

    // Scans the directory now (start-up calls it once; later scans follow notifications).
    void scan();
    int openDeviceCount() const { return int(m_devices.size()); }
    // Reads taken on devices since the start (tests check that a dead device is not read).
    int readCount() const { return m_reads; }

protected:
    void readDevices() override;

private:
    struct Device {
        VyString path;
        VyString name;
        VyUniqueFd fd;
        VyKeyMap map;
    };
    void tryOpen(const VyString& path);
    bool readDevice(Device& device);
    bool directoryChanged();

    VyString m_directory;
    Ops m_ops;
    std::vector<std::unique_ptr<Device>> m_devices;
    // Nodes looked at and not taken (no key map, not a key device); looked at again only
    // after the directory reports a change.
    std::vector<VyString> m_passedOver;
    VyUniqueFd m_notify;
    int m_pollsSinceScan = 0;
    int m_reads = 0;
};
