#pragma once
// What the screen knows of an output: size, pitch, the pixel memory and, for outputs that
// are not scanned out by hardware, a way to be told which rectangles changed.
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "runtime/VyGlobal.h"
#include "runtime/VyRect.h"
#include "runtime/VyString.h"

class VyDisplayBackend {
public:
    VyDisplayBackend() = default;
    virtual ~VyDisplayBackend() = default;
    VY_DISABLE_COPY_MOVE(VyDisplayBackend)

    // Acquires the device and maps its memory; false on any failure (a log line says why).
    virtual bool open() = 0;
    // True once the device itself is held, even when a later step of open() failed: the
    // screen then treats itself as open and never retries.
    virtual bool holdsDevice() const = 0;

    virtual int width() const = 0;
    virtual int height() const = 0;
    // Bytes from one line to the next; at least width * 2.
    virtual int lineLength() const = 0;
    // Null until open() succeeded.
    virtual uint8_t* pixels() const = 0;
    // Mapped bytes, which may exceed lineLength * height on a real device.
    virtual size_t length() const = 0;
    // The toolkit draws 16-bit pixels; a device set to another depth shows garbage.
    virtual int bitsPerPixel() const { return 16; }

    // Whether present() does anything; a scanned-out framebuffer needs no telling.
    virtual bool needsPresent() const { return false; }
    // True once the user closed the output (a desktop window); checked after present().
    virtual bool closeRequested() const { return false; }
    // Called after every flush with the rectangles that changed. A scanned-out framebuffer
    // needs nothing; a desktop window copies them to the display.
    virtual void present(const VyRect* rects, int count) {
        (void)rects;
        (void)count;
    }

    // Outputs that bring their own pointer (a desktop window) hand it on as absolute
    // framebuffer positions: buttons 1 = left, 2 = right, 4 = middle; wheel in multiples of
    // 120. Called from pumpEvents(), on the thread that calls it.
    using PointerHandler = std::function<void(int x, int y, int buttons, int wheel)>;
    void setPointerHandler(PointerHandler handler) { m_pointerHandler = std::move(handler); }
    // Outputs with a keyboard of their own (a desktop window) hand on the name of each key
    // pressed ("Up", "Return", "F2"; see keymap/window.ini). Called from pumpEvents().
    using KeyHandler = std::function<void(const char* keyName)>;
    void setKeyHandler(KeyHandler handler) { m_keyHandler = std::move(handler); }
    // A short status text such an output shows where the user sees it (a window's title):
    // the source answers true and fills the text when it changed. Asked from pumpEvents().
    using StatusSource = std::function<bool(std::string* text)>;
    void setStatusSource(StatusSource source) { m_statusSource = std::move(source); }
    // Whether pumpEvents() must be called regularly (a desktop window's event queue).
    virtual bool needsEventPump() const { return false; }
    // Takes the output's pending events: pointer input goes to the pointer handler, a close
    // request sets closeRequested(). Must be called without the framebuffer mutex held.
    virtual void pumpEvents() {}

    // "/dev/fbN" (any path): the Linux framebuffer; "mem:WxH": memory in this process;
    // "mem:WxH:FILE": a shared file mapping another process can read; "window:WxH": a
    // desktop window where built. Null for a name that is none of these (logged).
    static std::unique_ptr<VyDisplayBackend> create(const VyString& device);

protected:
    void notifyPointer(int x, int y, int buttons, int wheel) {
        if (m_pointerHandler)
            m_pointerHandler(x, y, buttons, wheel);
    }
    void notifyKey(const char* keyName) {
        if (m_keyHandler)
            m_keyHandler(keyName);
    }
    bool takeStatus(std::string* text) { return m_statusSource && m_statusSource(text); }

private:
    PointerHandler m_pointerHandler;
    KeyHandler m_keyHandler;
    StatusSource m_statusSource;
};
