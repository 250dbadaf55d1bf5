#pragma once
// The Linux framebuffer device. The only place that knows <linux/fb.h> and ioctl; the
// system calls go through a table so that tests can stand in for the kernel.
#include <memory>
#include <sys/types.h>

#include "platform/console/VyConsole.h"
#include "platform/display/VyDisplayBackend.h"
#include "runtime/VyMapping.h"

struct VyFbdevSystemCalls {
    int (*open)(const char* path, int flags);
    int (*ioctl)(int fd, unsigned long request, void* argument);
    void* (*mmap)(void* address, size_t length, int protection, int flags, int fd, off_t offset);
    int (*munmap)(void* address, size_t length);
    int (*close)(int fd);

    static const VyFbdevSystemCalls& real();
};

class VyFbdevBackend : public VyDisplayBackend {
public:
    // readOnly: map for reading and leave the variable information as it is (a screenshot
    // tool must not disturb the running display).
    explicit VyFbdevBackend(const VyString& path, bool readOnly = false,
                            const VyFbdevSystemCalls& calls = VyFbdevSystemCalls::real());
    ~VyFbdevBackend() override;
    VY_DISABLE_COPY_MOVE(VyFbdevBackend)

    // A console to take once the device is open (a read-only backend never takes it); it
    // is handed back when the backend goes.
    void setConsole(std::unique_ptr<VyConsole> console) { m_console = std::move(console); }
    VyConsole* console() const { return m_console.get(); }

    bool open() override;
    bool holdsDevice() const override { return m_fd >= 0; }
    int width() const override { return m_width; }
    int height() const override { return m_height; }
    int lineLength() const override { return m_lineLength; }
    uint8_t* pixels() const override { return static_cast<uint8_t*>(m_mapping.address()); }
    size_t length() const override { return m_length; }

    int bitsPerPixel() const override { return m_bitsPerPixel; }
    int fd() const { return m_fd; }

private:
    VyString m_path;
    bool m_readOnly;
    const VyFbdevSystemCalls& m_calls;
    int m_fd = -1;
    VyMapping m_mapping; // unmapped through the system-call table
    size_t m_length = 0;
    int m_width = 0;
    int m_height = 0;
    int m_lineLength = 0;
    int m_bitsPerPixel = 0;
    std::unique_ptr<VyConsole> m_console;
};
