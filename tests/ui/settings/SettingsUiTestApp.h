#pragma once
// The application the settings tests draw into: a memory display, the repository's
// resources (style sheets, language files) and English texts.
#include "runtime/VyFontMetrics.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/i18n/VyTranslation.h"

#include <gtest/gtest.h>

#include <memory>

class SettingsUiTest : public ::testing::Test {
protected:
    static constexpr const char* kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

    void SetUp() override {
        VyResources::setRoot(VY_RESOURCES_DIR);
        VyFontMetrics::setFontFile(kFont, 5242880);
        m_translation = new VyTranslation(VyString(VY_RESOURCES_DIR "/language"), nullptr);
        VyTranslation::resetInstance(m_translation);
        m_translation->changeLanguage(VyTranslation::kEnglish);
        VyApplication::setDisplayDevice(displayDevice());
        m_app = std::make_unique<VyApplication>();
        m_app->screen()->cursor()->hide();
    }
    void TearDown() override {
        m_app.reset();
        VyTranslation::resetInstance();
    }
    virtual const char* displayDevice() const { return "mem:640x360"; }

    VyApplication* app() const { return m_app.get(); }
    void settle() {
        for (int i = 0; i < 5; ++i)
            m_app->processPostedEvents();
    }
    uint16_t pixel(int x, int y) const {
        VyScreen* s = m_app->screen();
        return reinterpret_cast<const uint16_t*>(s->mapping() + y * s->lineLength())[x];
    }
    static uint16_t opaque1555(vyargb c) {
        return uint16_t(0x8000 | ((c >> 19) & 0x1F) << 10 | ((c >> 11) & 0x1F) << 5 |
                        ((c >> 3) & 0x1F));
    }
    // Mouse events straight to a widget, in its own coordinates.
    static bool mouse(VyObject* w, int type, int x, int y, uint8_t button = 1) {
        const uint8_t buttons = type == VyEvent::MouseButtonRelease ? 0 : 1;
        VyMouseEvent e(type, VyPoint(x, y), VyPoint(x, y), type == VyEvent::MouseMove ? 0 : button,
                       buttons);
        VyApplication::sendEvent(w, &e);
        return e.isAccepted();
    }
    static bool key(VyObject* w, int code) {
        VyKeyEvent e(VyEvent::KeyPress, code, "");
        VyApplication::sendEvent(w, &e);
        return e.isAccepted();
    }

private:
    VyTranslation* m_translation = nullptr; // owned by the translation's instance slot
    std::unique_ptr<VyApplication> m_app;
};
