// Opening and reopening the output.
#include "toolkit/core/VyScreen.h"

#include <cstring>

#include "platform/display/VyDisplayBackend.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyTimerEvent.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/graphics/VyWindowSurface.h"

VyScreen::VyScreen(VyObject* parent)
    : VyObject(parent) {}

VyScreen::~VyScreen() {
    // The cursor reads the mapping; it goes first.
    m_cursor.reset();
    m_windows.clear();
    m_front.reset();
    m_backend.reset();
}

bool VyScreen::isOpen() const {
    return m_backend && m_backend->holdsDevice();
}

bool VyScreen::open(const VyString& device) {
    if (isOpen())
        return true;
    return openBackend(device);
}

bool VyScreen::openBackend(const VyString& device) {
    std::unique_ptr<VyDisplayBackend> backend = VyDisplayBackend::create(device);
    if (!backend)
        return false;
    if (!backend->open()) {
        // A device that was opened but could not be set up stays held: it counts as open
        // from now on and is not tried again.
        if (backend->holdsDevice()) {
            std::lock_guard<std::mutex> lock(m_framebufferMutex);
            m_backend = std::move(backend);
            m_device = device;
        }
        return false;
    }

    std::lock_guard<std::mutex> lock(m_framebufferMutex);
    m_backend = std::move(backend);
    m_device = device;
    m_mapping = m_backend->pixels();
    m_length = m_backend->length();
    m_mappingEnd = m_mapping + m_length;
    m_width = m_backend->width();
    m_height = m_backend->height();
    m_lineLength = m_backend->lineLength();
    m_clipRect = VyRect::fromEdges(0, 0, m_width - 1, m_height - 1);
    m_presents = m_backend->needsPresent();
    m_backend->setPointerHandler(m_pointerHandler);
    m_backend->setKeyHandler(m_keyHandler);
    m_backend->setStatusSource(m_statusSource);
    vyFrameworkLog("FrameBuffer length:%d(bytes), (%dx%d) \n", static_cast<int>(m_length), m_width,
                   m_height);
    if (m_backend->bitsPerPixel() != 16)
        vyFrameworkLog("display (%s) has %d bits per pixel, the GUI draws 16 !!!\n", device.c_str(),
                       m_backend->bitsPerPixel());
    m_front = std::make_unique<VyFbCanvas>(m_mapping, m_width, m_height, m_lineLength);
    std::memset(m_mapping, 0, static_cast<size_t>(m_lineLength) * m_height);
    if (m_cursor)
        m_cursor->reinitialiseLocked();
    else
        m_cursor = std::make_unique<VyScreenCursor>(this);
    m_cursor->saveAndDrawLocked();
    return true;
}

void VyScreen::closeLocked() {
    m_presents = false;
    m_front.reset();
    m_backend.reset();
    m_mapping = nullptr;
    m_mappingEnd = nullptr;
    m_length = 0;
    m_width = 0;
    m_height = 0;
    m_lineLength = 0;
    m_clipRect = VyRect();
    if (m_cursor)
        m_cursor->reinitialiseLocked();
}

bool VyScreen::reopen(const VyString& device) {
    const VyString previous = m_device;
    {
        std::lock_guard<std::mutex> lock(m_framebufferMutex);
        closeLocked();
    }
    bool opened = openBackend(device);
    if (!opened) {
        vyFrameworkLog("reopen (%s) failed, back to (%s) !!!\n", device.c_str(), previous.c_str());
        {
            std::lock_guard<std::mutex> lock(m_framebufferMutex);
            closeLocked();
        }
        openBackend(previous);
    }
    // The old picture is gone: everything is composed again.
    m_dirtyRegion.clear();
    m_dirtyParts.clear();
    m_updatePending = false;
    for (int i = 0; i < windowCount(); ++i)
        update(m_windows[i].get());
    if (m_windows.empty() && isOpen())
        markDirty(-1, VyRegion(m_clipRect));
    emitSignal(this, &geometryChanged);
    return opened;
}

void VyScreen::setPointerHandler(VyDisplayBackend::PointerHandler handler) {
    m_pointerHandler = std::move(handler);
    if (m_backend)
        m_backend->setPointerHandler(m_pointerHandler);
}

void VyScreen::setKeyHandler(VyDisplayBackend::KeyHandler handler) {
    m_keyHandler = std::move(handler);
    if (m_backend)
        m_backend->setKeyHandler(m_keyHandler);
}

void VyScreen::setStatusSource(VyDisplayBackend::StatusSource source) {
    m_statusSource = std::move(source);
    if (m_backend)
        m_backend->setStatusSource(m_statusSource);
}

void VyScreen::startEventPump() {
    if (m_pumpTimerId == 0 && m_backend && m_backend->needsEventPump())
        m_pumpTimerId = startTimer(kEventPumpIntervalMs);
}

void VyScreen::timerEvent(VyTimerEvent* e) {
    if (e->timerId() != m_pumpTimerId || !m_backend)
        return;
    // Outside the framebuffer mutex: the pointer handler moves the cursor, which takes it.
    m_backend->pumpEvents();
    if (m_backend->closeRequested() && !m_closeAnnounced) {
        m_closeAnnounced = true;
        emitSignal(this, &displayClosed);
    }
}
