#pragma once
// The application the control tests run against: a small memory display and a timer core on
// a clock the test moves, so that auto-repeat and animations run without sleeping.
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>

#include "runtime/VyFontEngine.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyTimerCore.h"
#include "toolkit/events/VyHoverEvent.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/style/VyStyle.h"

class ControlTest : public ::testing::Test {
protected:
    static constexpr int64_t kMs = 1000000; // ns
    static constexpr const char* kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

    void SetUp() override {
        // Text widths decide eliding, wrapping and cursor positions: measure with a real font.
        VyFontEngine::instance().setFontFile(kFont, VyFontEngine::kDeviceFontReserveBytes);
        VyApplication::setDisplayDevice("mem:640x480");
        VyApplication::setTimerClock([this] { return m_now; });
        m_app = std::make_unique<VyApplication>();
        VyStyle::instance()->followScreen(m_app->screen());
    }
    void TearDown() override {
        m_app.reset();
        VyApplication::setTimerClock(nullptr);
    }

    VyApplication* app() const { return m_app.get(); }
    // Moves the clock on and delivers whatever fell due.
    void advance(int ms) {
        m_now += ms * kMs;
        m_app->timerCore()->fireExpired();
        m_app->processPostedEvents();
    }
    static bool key(VyObject* receiver, int code, const char* text = "") {
        VyKeyEvent e(VyEvent::KeyPress, code, text);
        VyApplication::sendEvent(receiver, &e);
        return e.isAccepted();
    }
    static void hover(VyObject* receiver, bool enter) {
        VyHoverEvent e(enter ? VyEvent::HoverEnter : VyEvent::HoverLeave, VyPoint(-1, -1),
                       VyPoint(-1, -1));
        VyApplication::sendEvent(receiver, &e);
    }
    // The raw pointer path, as the mouse reader drives it (screen coordinates).
    void pointer(int x, int y, uint8_t buttons = 0) {
        VyApplication::injectPointer(x, y, buttons, 0);
        m_app->processPostedEvents();
    }
    void press(int x, int y) { pointer(x, y, 1); }
    void release(int x, int y) { pointer(x, y, 0); }
    void click(int x, int y) {
        press(x, y);
        release(x, y);
    }
    static bool wheel(VyObject* receiver, int delta) {
        VyWheelEvent e(VyPoint(1, 1), VyPoint(1, 1), delta, 0);
        VyApplication::sendEvent(receiver, &e);
        return e.isAccepted();
    }

private:
    int64_t m_now = 1000 * kMs;
    std::unique_ptr<VyApplication> m_app;
};

// Counts the emissions of one signal.
class SignalCounter : public VyObject {
    VY_OBJECT(SignalCounter, VyObject)
public:
    SignalCounter(VyObject* sender, const VySignal* signal) {
        VyObject::connect(sender, signal, this, VY_SLOT(SignalCounter, hit));
    }
    void hit() { ++count; }
    int count = 0;
};
