#include "platform/display/VyMemoryBackend.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include "runtime/VyLog.h"

VyMemoryBackend::VyMemoryBackend(int width, int height, const VyString& file)
    : m_width(width)
    , m_height(height)
    , m_file(file) {}

bool VyMemoryBackend::open() {
    if (holdsDevice())
        return m_pixels != nullptr;
    if (m_width < 1 || m_height < 1) {
        vyFrameworkLog("memory display of %dx%d refused !!!\n", m_width, m_height);
        return false;
    }
    const size_t bytes = static_cast<size_t>(m_width) * static_cast<size_t>(m_height) * 2;
    if (m_file.isEmpty()) {
        m_memory.assign(bytes / 2, 0);
        m_pixels = reinterpret_cast<uint8_t*>(m_memory.data());
        m_length = bytes;
        m_opened = true;
        return true;
    }
    m_fd.reset(::open(m_file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644));
    if (!m_fd.isValid()) {
        vyFrameworkLog("open display file (%s) failed: %s !!!\n", m_file.c_str(),
                       std::strerror(errno));
        return false;
    }
    if (ftruncate(m_fd.get(), static_cast<off_t>(bytes)) != 0) {
        vyFrameworkLog("resize display file (%s) failed: %s !!!\n", m_file.c_str(),
                       std::strerror(errno));
        return false;
    }
    void* map = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, m_fd.get(), 0);
    if (map == MAP_FAILED) {
        vyFrameworkLog("map display file (%s) failed: %s !!!\n", m_file.c_str(),
                       std::strerror(errno));
        return false;
    }
    m_mapping = VyMapping(map, bytes);
    m_pixels = static_cast<uint8_t*>(map);
    m_length = bytes;
    m_opened = true;
    return true;
}
