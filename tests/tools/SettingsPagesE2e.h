#pragma once
// The settings pages against the simulated recorder: the simulator fixture with a recorder
// of two alarm inputs and one output, the settings manager, a window for the pages, and
// helpers to count and read what the recorder stored.
#include "SimUiFixture.h"

#include "model/ParamAccess.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "toolkit/events/VyKeyEvent.h"
#include "ui/settings/SettingsManager.h"

class SettingsPagesE2e : public SimUiFixture {
protected:
    void SetUp() override {
        config.alarmInputs = 2;
        config.alarmOutputs = 1;
        SimUiFixture::SetUp();
        if (HasFatalFailure())
            return;
        DeviceProfile& p = DeviceProfile::current();
        p.enableNormalRecord = p.enableMotionRecord = true;
        p.alarmInputNum = 2;
        p.alarmOutputNum = 1;
        p.emailTestEnable = p.emailScheduleEnable = p.ftpEnable = true;
        p.audioNum = 1;
        settings = std::make_unique<SettingsManager>();
        window = std::make_unique<VyWidget>();
        window->setGeometry(0, 0, 1280, 720);
        window->show();
    }
    void TearDown() override {
        window.reset();
        settings.reset();
        SimUiFixture::TearDown();
    }
    int paramMessages() { return recorder->receivedCount(MainType::Param, ParamSubType::Access); }
    // The recorder counts a message once its handler is done, after the reply is out; a
    // round trip of another kind makes sure every earlier parameter message is counted.
    int settledParamMessages() {
        ParamAccess::requestPair(0);
        return paramMessages();
    }
    static void click(VyWidget* w, int x, int y) {
        for (int type : {int(VyEvent::MouseButtonPress), int(VyEvent::MouseButtonRelease)}) {
            VyMouseEvent e(type, VyPoint(x, y), VyPoint(x, y), 1,
                           type == VyEvent::MouseButtonPress ? 1 : 0);
            VyApplication::sendEvent(w, &e);
        }
    }
    static void drag(VyWidget* w, VyPoint from, VyPoint to) {
        VyMouseEvent press(VyEvent::MouseButtonPress, from, from, 1, 1);
        VyApplication::sendEvent(w, &press);
        VyMouseEvent move(VyEvent::MouseMove, to, to, 0, 1);
        VyApplication::sendEvent(w, &move);
        VyMouseEvent release(VyEvent::MouseButtonRelease, to, to, 1, 0);
        VyApplication::sendEvent(w, &release);
    }
    static void key(VyObject* w, int code) {
        VyKeyEvent e(VyEvent::KeyPress, code, "");
        VyApplication::sendEvent(w, &e);
    }
    template <typename Page>
    Page* openPage() {
        auto* page = new Page(window.get());
        page->setGeometry(0, 0, 1280, 720);
        page->show();
        settings->setCurrentPage(page);
        beforeOpen = settledParamMessages();
        page->open();
        return page;
    }

    std::unique_ptr<SettingsManager> settings;
    std::unique_ptr<VyWidget> window;
    int beforeOpen = 0; // parameter messages the UiManager's own start had sent
};
