// libFuzzer target: every settings page of every category, opened over parameter blocks whose
// bytes come from the input, shown, drawn and applied. App may send any bytes in a block (an
// older firmware, a block of another model, a corrupt flash page): names without their NUL,
// values far out of range, counts that index past a table. None of it may crash a page or
// make it write outside its block.
//
// Input: per block the page asks for, two bytes of length (little-endian) and that many bytes;
// when the input runs out, the remaining blocks come back empty (App silent).
#include "model/DeviceProfile.h"
#include "model/RecorderLink.h"
#include "protocol/ParamRequest.h"
#include "runtime/VyFontMetrics.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/i18n/VyTranslation.h"
#include "ui/settings/SettingsManager.h"
#include "ui/settings/SettingsPage.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

class FuzzedLink : public RecorderLink {
public:
    void reset(const uint8_t* data, size_t size) {
        m_data = data;
        m_left = size;
    }
    uint32_t send(uint16_t, uint16_t, const void*, uint32_t) override { return 1; }
    void request(uint16_t, uint16_t, const void*, uint32_t, std::vector<uint8_t>& reply) override {
        reply.clear();
        if (m_left < 2)
            return;
        const size_t len = std::min<size_t>(size_t(m_data[0]) | size_t(m_data[1]) << 8, m_left - 2);
        reply.assign(m_data + 2, m_data + 2 + len);
        m_data += 2 + len;
        m_left -= 2 + len;
    }
    void setWaiterMode(bool) override {}
    void setEventReceiver(VyObject*) override {}

private:
    const uint8_t* m_data = nullptr;
    size_t m_left = 0;
};

// Everything a model can have, so every page exists.
void fullProfile() {
    DeviceProfile& p = DeviceProfile::current();
    p = DeviceProfile{};
    p.channelCount = 16;
    p.alarmInputNum = 16;
    p.alarmOutputNum = 4;
    p.audioNum = 4;
    p.maxDiskNum = 8;
    p.ftpEnable = true;
    p.emailScheduleEnable = true;
    p.emailTestEnable = true;
    p.enablePirRecord = true;
    p.enableMotionRecord = true;
    p.enableNormalRecord = true;
}

struct World {
    World() {
        const char* root = std::getenv("VY_RESOURCES");
        VyResources::setRoot(root != nullptr ? root : "resources");
        VyFontMetrics::setFontFile("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", 5242880);
        translation = new VyTranslation(VyResources::path("language"), nullptr);
        VyTranslation::resetInstance(translation);
        translation->changeLanguage(VyTranslation::kEnglish);
        VyApplication::setDisplayDevice("mem:640x360");
        app = std::make_unique<VyApplication>();
        RecorderLink::setInstance(&link);
        fullProfile();
    }
    VyTranslation* translation;
    std::unique_ptr<VyApplication> app;
    FuzzedLink link;
};

World& world() {
    static World w;
    return w;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > 64 * 1024)
        return 0;
    World& w = world();
    w.link.reset(data, size);
    VyWidget parent;
    parent.setGeometry(VyRect(0, 0, 640, 360));
    parent.show();
    for (int category = 0; category < SettingsManager::CategoryCount; ++category) {
        for (const auto& entry : SettingsManager::pagesOf(category, DeviceProfile::current())) {
            SettingsPage* page = entry.make(&parent);
            page->setGeometry(VyRect(0, 0, 640, 320));
            page->show();
            page->open();
            for (int i = 0; i < 3; ++i)
                w.app->processPostedEvents();
            (void)page->hasUnsavedChanges();
            (void)page->apply();
            delete page;
        }
    }
    w.app->processPostedEvents();
    return 0;
}
