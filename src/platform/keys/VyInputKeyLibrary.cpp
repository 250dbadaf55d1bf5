#include "platform/keys/VyInputKeyLibrary.h"

#include "runtime/VyLog.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <linux/input.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr int kEventsPerRead = 32;

bool testBit(const unsigned long* bits, int bit) {
    const int perWord = int(sizeof(unsigned long) * 8);
    return (bits[bit / perWord] >> (bit % perWord)) & 1UL;
}

bool queryDevice(int fd, VyInputKeyLibrary::DeviceInfo* info) {
    char name[256] = {};
    if (ioctl(fd, EVIOCGNAME(sizeof name - 1), name) < 0)
        return false;
    unsigned long
        types[(EV_MAX + 1 + sizeof(unsigned long) * 8 - 1) / (sizeof(unsigned long) * 8)] = {};
    if (ioctl(fd, EVIOCGBIT(0, sizeof types), types) < 0)
        return false;
    info->name = VyString(name);
    info->reportsKeys = testBit(types, EV_KEY) || testBit(types, EV_MSC);
    info->reportsMotion = testBit(types, EV_REL) || testBit(types, EV_ABS);
    return true;
}

int openDevice(const char* path) {
    return ::open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
}

} // namespace

VyInputKeyLibrary::VyInputKeyLibrary(const VyString& directory, Ops ops)
    : m_directory(directory)
    , m_ops(std::move(ops)) {
    if (!m_ops.open)
        m_ops.open = &openDevice;
    if (!m_ops.query)
        m_ops.query = &queryDevice;
    const int fd = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (fd >= 0 &&
        inotify_add_watch(fd, m_directory.c_str(), IN_CREATE | IN_ATTRIB | IN_DELETE) >= 0)
        m_notify.reset(fd);
    else if (fd >= 0)
        ::close(fd);
}

VyInputKeyLibrary::~VyInputKeyLibrary() = default;

void VyInputKeyLibrary::scan() {
    m_pollsSinceScan = 0;
    DIR* dir = opendir(m_directory.c_str());
    if (dir == nullptr)
        return;
    std::vector<VyString> nodes;
    while (dirent* entry = readdir(dir)) {
        if (VyString(entry->d_name).startsWith("event"))
            nodes.push_back(m_directory + "/" + VyString(entry->d_name));
    }
    closedir(dir);
    std::sort(nodes.begin(), nodes.end(), [](const VyString& a, const VyString& b) {
        return a.toStdString() < b.toStdString();
    });
    for (const VyString& path : nodes) {
        const bool open =
            std::any_of(m_devices.begin(), m_devices.end(),
                        [&](const std::unique_ptr<Device>& d) { return d->path == path; });
        const bool passed =
            std::find(m_passedOver.begin(), m_passedOver.end(), path) != m_passedOver.end();
        if (!open && !passed)
            tryOpen(path);
    }
}

void VyInputKeyLibrary::tryOpen(const VyString& path) {
    VyUniqueFd fd(m_ops.open(path.c_str()));
    if (!fd.isValid())
        return; // not readable (yet): udev may still be setting its permissions
    DeviceInfo info;
    if (!m_ops.query(fd.get(), &info) || !info.reportsKeys || info.reportsMotion) {
        m_passedOver.push_back(path);
        return;
    }
    auto device = std::make_unique<Device>();
    if (!device->map.load(VyKeyMap::fileNameFor(info.name))) {
        vyFrameworkLog("input device %s (\"%s\") has no key map %s, left alone\n", path.c_str(),
                       info.name.c_str(), VyKeyMap::fileNameFor(info.name).c_str());
        m_passedOver.push_back(path);
        return;
    }
    device->path = path;
    device->name = info.name;
    device->fd = std::move(fd);
    lamps().addMap(device->map);
    vyFrameworkLog("input device %s (\"%s\"): %d keys mapped\n", path.c_str(), info.name.c_str(),
                   device->map.keyCount());
    m_devices.push_back(std::move(device));
}

bool VyInputKeyLibrary::directoryChanged() {
    if (!m_notify.isValid())
        return ++m_pollsSinceScan >= kRescanPolls;
    alignas(inotify_event) char buffer[1024];
    bool changed = false;
    for (;;) {
        const ssize_t n = ::read(m_notify.get(), buffer, sizeof buffer);
        if (n <= 0)
            break;
        changed = true;
    }
    return changed;
}

void VyInputKeyLibrary::readDevices() {
    if (directoryChanged()) {
        // A node that was passed over may have become readable or been replaced.
        m_passedOver.clear();
        scan();
    }
    for (size_t i = 0; i < m_devices.size();) {
        if (readDevice(*m_devices[i])) {
            ++i;
            continue;
        }
        vyFrameworkLog("input device %s (\"%s\") is gone\n", m_devices[i]->path.c_str(),
                       m_devices[i]->name.c_str());
        m_devices.erase(m_devices.begin() + long(i));
    }
}

bool VyInputKeyLibrary::readDevice(Device& device) {
    input_event events[kEventsPerRead];
    for (;;) {
        ++m_reads;
        const ssize_t n = ::read(device.fd.get(), events, sizeof events);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return errno == EAGAIN || errno == EWOULDBLOCK;
        if (n == 0)
            return false; // end of file: the device went away
        const size_t count = size_t(n) / sizeof(input_event);
        for (size_t i = 0; i < count; ++i) {
            const input_event& ev = events[i];
            if (ev.type == EV_KEY && (ev.value == 1 || ev.value == 2)) {
                keys().push(device.map.deviceKey(int(ev.code)));
            } else if (ev.type == EV_MSC && ev.code == MSC_SCAN) {
                char code[24];
                std::snprintf(code, sizeof code, "scan:%x", unsigned(ev.value));
                keys().push(device.map.deviceKey(VyString(code)));
            }
        }
        if (count < size_t(kEventsPerRead))
            return true;
    }
}
