#pragma once
// A UiManager built over the doubles of ModelTestSupport.h, with helpers to deliver App's
// messages to it the way the IPC client does (posted, then dispatched).
#include "ModelTestSupport.h"
#include "model/UiManager.h"
#include "model/UiModels.h"
#include "protocol/GeneralSettingsBlock.h"
#include "protocol/OutputSettingsBlock.h"

#include <cstdio>

class SignalCounter : public VyObject {
    VY_OBJECT(SignalCounter, VyObject)
public:
    void hit() { ++count; }
    int count = 0;
};

class UiManagerTest : public ModelTest {
protected:
    void SetUp() override {
        ModelTest::SetUp();
        std::memset(&general, 0, sizeof general);
        std::memset(&output, 0, sizeof output);
    }
    void TearDown() override {
        manager.reset();
        models.reset();
        ModelTest::TearDown();
    }
    // Stores the blocks as the test set them and builds the manager.
    void build() {
        link.store(general);
        link.store(output);
        manager = std::make_unique<UiManager>(models.get(), &timers, &UiManagerTest::today);
        manager->setShell(&shell);
    }
    void deliver(uint16_t mainType, uint16_t subType, uint32_t value, const void* body = nullptr,
                 uint32_t len = 0) {
        VyApplication::postEvent(manager.get(), makeIpcEvent(mainType, subType, value, body, len));
        app()->processPostedEvents();
        // Forwarded events were posted by the handler; deliver them too.
        app()->processPostedEvents();
    }
    static VyDate today() { return s_today; }

    static inline VyDate s_today{2026, 11, 21};
    GeneralSettingsBlock general;
    OutputSettingsBlock output;
    RecordingShell shell;
    ManualTimerSource timers;
    // Made fresh for every case and deleted before the application.
    std::unique_ptr<UiModels> models = std::make_unique<UiModels>();
    std::unique_ptr<UiManager> manager;
};
