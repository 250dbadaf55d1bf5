#include "platform/display/VyFbdevBackend.h"

#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <linux/fb.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {

int realOpen(const char* path, int flags) {
    return ::open(path, flags);
}
int realIoctl(int fd, unsigned long request, void* argument) {
    return ::ioctl(fd, request, argument);
}

} // namespace

const VyFbdevSystemCalls& VyFbdevSystemCalls::real() {
    static const VyFbdevSystemCalls calls = {realOpen, realIoctl, ::mmap, ::munmap, ::close};
    return calls;
}

VyFbdevBackend::VyFbdevBackend(const VyString& path, bool readOnly, const VyFbdevSystemCalls& calls)
    : m_path(path)
    , m_readOnly(readOnly)
    , m_calls(calls) {}

VyFbdevBackend::~VyFbdevBackend() {
    m_console.reset();
    m_mapping.reset();
    if (m_fd >= 0)
        m_calls.close(m_fd);
}

bool VyFbdevBackend::open() {
    // A descriptor kept from an earlier attempt counts as open, even when that attempt
    // failed in an ioctl or the mapping: the device is never opened twice.
    if (m_fd >= 0)
        return true;
    m_fd = m_calls.open(m_path.c_str(), m_readOnly ? O_RDONLY : O_RDWR);
    if (m_fd < 0)
        return false;

    // 68 and 160 bytes on the 32-bit board; the kernel's own layout on any other host.
    fb_fix_screeninfo fixed;
    fb_var_screeninfo variable;
    std::memset(&fixed, 0, sizeof fixed);
    std::memset(&variable, 0, sizeof variable);
    if (m_calls.ioctl(m_fd, FBIOGET_FSCREENINFO, &fixed) < 0) {
        perror("FBIOGET_FSCREENINFO failed");
        return false;
    }
    if (m_calls.ioctl(m_fd, FBIOGET_VSCREENINFO, &variable) < 0) {
        perror("FBIOGET_VSCREENINFO failed");
        return false;
    }
    if (!m_readOnly) {
        // The visible area always starts at the first line: no panning, no page flipping.
        variable.xoffset = 0;
        variable.yoffset = 0;
        if (m_calls.ioctl(m_fd, FBIOPUT_VSCREENINFO, &variable) < 0) {
            perror("FBIOPUT_VSCREENINFO failed");
            return false;
        }
    }
    const int protection = m_readOnly ? PROT_READ : PROT_READ | PROT_WRITE;
    void* map = m_calls.mmap(nullptr, fixed.smem_len, protection, MAP_SHARED, m_fd, 0);
    if (map == MAP_FAILED || !map) {
        perror("mmap framebuffer failed");
        return false;
    }
    m_mapping = VyMapping(map, fixed.smem_len, m_calls.munmap);
    m_length = fixed.smem_len;
    m_width = static_cast<int>(variable.xres);
    m_height = static_cast<int>(variable.yres);
    m_lineLength = static_cast<int>(fixed.line_length);
    m_bitsPerPixel = static_cast<int>(variable.bits_per_pixel);
    // Drawing trusts width, height and pitch; never let them reach past the mapping.
    if (m_lineLength < m_width * 2)
        m_width = m_lineLength / 2;
    if (m_lineLength > 0 && static_cast<size_t>(m_lineLength) * m_height > m_length)
        m_height = static_cast<int>(m_length / m_lineLength);
    if (m_console && !m_readOnly)
        m_console->take();
    return true;
}
