#include "platform/display/VyVideoPlane.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "runtime/VyUniqueFd.h"

VyString VyVideoPlane::configuredPath() {
    const char* path = std::getenv(kEnvironment);
    return path ? VyString(path) : VyString();
}

bool VyVideoPlane::open(const VyString& path, int width, int height) {
    close();
    if (path.isEmpty() || width < 1 || height < 1)
        return false;
    VyUniqueFd fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!fd.isValid())
        return false;
    struct stat st {};
    const size_t bytes = size_t(width) * size_t(height) * 2;
    if (fstat(fd.get(), &st) != 0 || size_t(st.st_size) < bytes)
        return false;
    void* map = mmap(nullptr, bytes, PROT_READ, MAP_SHARED, fd.get(), 0);
    if (map == MAP_FAILED)
        return false;
    // The mapping outlives the descriptor.
    m_mapping = VyMapping(map, bytes);
    m_pixels = static_cast<const uint16_t*>(map);
    m_width = width;
    return true;
}

void VyVideoPlane::close() {
    m_mapping.reset();
    m_pixels = nullptr;
    m_width = 0;
}

void VyVideoPlane::composeRow(const uint16_t* gui, const uint16_t* video, uint16_t* out, int n) {
    for (int i = 0; i < n; ++i) {
        const uint16_t p = gui[i];
        out[i] = (p & 0x8000) != 0 ? p : video != nullptr ? uint16_t(video[i] | 0x8000) : 0x8000;
    }
}
