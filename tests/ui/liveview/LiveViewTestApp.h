#pragma once
// The live view under test: a 1920x1080 memory display, timers and double clicks on clocks
// the test moves, the main-view manager and a link to App that records what is sent.
#include "model/MainViewManager.h"
#include "model/RecorderLink.h"
#include "runtime/VyFontEngine.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/core/VyTimerCore.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyStyle.h"
#include "ui/MainViewWindow.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <vector>

struct RecordedMessage {
    uint16_t mainType;
    uint16_t subType;
    std::vector<uint8_t> body;
};

class RecordingLink : public RecorderLink {
public:
    uint32_t send(uint16_t mainType, uint16_t subType, const void* body, uint32_t len) override {
        const auto* p = static_cast<const uint8_t*>(body);
        sent.push_back({mainType, subType, std::vector<uint8_t>(p, p + (p ? len : 0))});
        return uint32_t(sent.size());
    }
    void request(uint16_t mainType, uint16_t subType, const void*, uint32_t,
                 std::vector<uint8_t>& reply) override {
        sent.push_back({mainType, subType, {}});
        reply.clear();
        if (mainType == 1000 && subType == 298)
            reply = rosterReply;
    }
    void setWaiterMode(bool) override {}
    void setEventReceiver(VyObject*) override {}
    int count(uint16_t mainType, uint16_t subType) const {
        int n = 0;
        for (const RecordedMessage& m : sent)
            n += m.mainType == mainType && m.subType == subType;
        return n;
    }
    const RecordedMessage* last(uint16_t mainType) const {
        for (auto it = sent.rbegin(); it != sent.rend(); ++it)
            if (it->mainType == mainType)
                return &*it;
        return nullptr;
    }

    std::vector<RecordedMessage> sent;
    std::vector<uint8_t> rosterReply;
};

class LiveViewTest : public ::testing::Test {
protected:
    static constexpr int64_t kMs = 1000000; // ns

    void SetUp() override {
        VyResources::setRoot(VY_RESOURCES_DIR);
        VyFontEngine::instance().setFontFile("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
                                             VyFontEngine::kDeviceFontReserveBytes);
        auto* t = new VyTranslation(VyString(VY_RESOURCES_DIR "/language"), nullptr);
        VyTranslation::resetInstance(t);
        t->changeLanguage(VyTranslation::kEnglish);
        VyApplication::setDisplayDevice(display());
        VyApplication::setTimerClock([this] { return m_now; });
        m_app = std::make_unique<VyApplication>();
        m_app->setInputClocks([this] { return m_now / kMs; },
                              [this] { return m_now / kMs / 1000; });
        m_app->screen()->cursor()->hide();
        VyStyle::instance()->followScreen(m_app->screen());
        RecorderLink::setInstance(&link);
        manager = std::make_unique<MainViewManager>();
    }
    void TearDown() override {
        window.reset();
        manager.reset();
        RecorderLink::setInstance(nullptr);
        m_app.reset();
        VyApplication::setTimerClock(nullptr);
        VyTranslation::resetInstance();
    }
    virtual const char* display() const { return "mem:1920x1080"; }

    // The main view with `channels` channels in the start-up layout, flushed.
    void open(int channels, uint64_t cameras = ~0ull) {
        link.rosterReply.assign(8, 0);
        for (int i = 0; i < 8; ++i)
            link.rosterReply[size_t(i)] = uint8_t(cameras >> (8 * i));
        window = std::make_unique<MainViewWindow>();
        window->show();
        manager->setShown(true);
        window->startLiveView(channels);
        settle();
    }
    void settle() {
        for (int i = 0; i < 4; ++i)
            m_app->processPostedEvents();
    }
    void advance(int ms) {
        m_now += ms * kMs;
        m_app->timerCore()->fireExpired();
        settle();
    }
    void pointer(int x, int y, uint8_t buttons) {
        VyApplication::injectPointer(int16_t(x), int16_t(y), buttons, 0);
        m_app->processPostedEvents();
    }
    void click(VyPoint p, uint8_t button = 1) {
        pointer(p.x, p.y, button);
        pointer(p.x, p.y, 0);
        advance(600); // past the double-click interval
    }
    VyApplication* app() const { return m_app.get(); }

    RecordingLink link;
    std::unique_ptr<MainViewManager> manager;
    std::unique_ptr<MainViewWindow> window;

private:
    int64_t m_now = 1000 * kMs;
    std::unique_ptr<VyApplication> m_app;
};
