#pragma once
// An output in plain memory: the test double of the framebuffer, and with a backing file
// a framebuffer another process (fbshot, a viewer) can read at any time.
#include <vector>

#include "platform/display/VyDisplayBackend.h"
#include "runtime/VyMapping.h"
#include "runtime/VyUniqueFd.h"

class VyMemoryBackend : public VyDisplayBackend {
public:
    // An empty file keeps the pixels in this process only.
    VyMemoryBackend(int width, int height, const VyString& file = VyString());
    VY_DISABLE_COPY_MOVE(VyMemoryBackend)

    bool open() override;
    bool holdsDevice() const override { return m_opened || m_fd.isValid(); }
    int width() const override { return m_width; }
    int height() const override { return m_height; }
    int lineLength() const override { return m_width * 2; }
    uint8_t* pixels() const override { return m_pixels; }
    size_t length() const override { return m_length; }

    const VyString& file() const { return m_file; }

private:
    int m_width;
    int m_height;
    VyString m_file;
    VyUniqueFd m_fd;
    bool m_opened = false;
    uint8_t* m_pixels = nullptr;
    size_t m_length = 0;
    std::vector<uint16_t> m_memory; // used when there is no backing file
    VyMapping m_mapping;            // of the backing file; unmapped before m_fd closes
};
