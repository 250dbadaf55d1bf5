// libFuzzer target: arbitrary bytes as App's answer to every parameter get of the encoding,
// clock, output, DDNS, privacy-mask and network-camera pages (the first byte picks the
// page, the rest is the reply, short or long). A page shows any block without crashing,
// and what it collects from its controls is stable: shown again and collected again, not
// one byte moves (a field read at one offset and written at another, or clamped one way
// and written back another, shows here).
#include "model/DeviceProfile.h"
#include "model/RecorderLink.h"
#include "protocol/MainType.h"
#include "protocol/ParamRequest.h"
#include "protocol/SubType.h"
#include "toolkit/core/VyApplication.h"
#include "ui/settings/DateTimePage.h"
#include "ui/settings/DdnsPage.h"
#include "ui/settings/DstPage.h"
#include "ui/settings/NetworkCameraPage.h"
#include "ui/settings/OutputPage.h"
#include "ui/settings/PrivacyMaskPage.h"
#include "ui/settings/StreamPage.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

// Answers every get with the fuzz bytes; counts sets, of which there must be none.
class ReplayLink : public RecorderLink {
public:
    uint32_t send(uint16_t, uint16_t, const void*, uint32_t) override { return ++sent; }
    void request(uint16_t mainType, uint16_t subType, const void*, uint32_t,
                 std::vector<uint8_t>& out) override {
        out.clear();
        if (mainType == MainType::Param && subType == ParamSubType::Access)
            out = reply;
    }
    void setWaiterMode(bool) override {}
    void setEventReceiver(VyObject*) override {}
    std::vector<uint8_t> reply;
    uint32_t sent = 0;
};

std::vector<std::vector<uint8_t>> edits(SettingsPage* page) {
    std::vector<std::vector<uint8_t>> out;
    out.reserve(size_t(page->blocks().count()));
    for (int i = 0; i < page->blocks().count(); ++i)
        out.push_back(page->blocks().block(i).edit);
    return out;
}

SettingsPage* makePage(int which) {
    switch (which) {
    case 0:
        return new StreamPage;
    case 1:
        return new DateTimePage;
    case 2:
        return new DstPage;
    case 3:
        return new OutputPage;
    case 4:
        return new DdnsPage;
    case 5:
        return new PrivacyMaskPage;
    default:
        return new NetworkCameraPage;
    }
}

constexpr int kPages = 7;
constexpr size_t kMaxReply = 4096; // larger than any block; a longer reply is cut the same

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static ReplayLink link;
    static std::unique_ptr<VyApplication> app = [] {
        VyApplication::setDisplayDevice("mem:640x360");
        DeviceProfile::current().channelCount = 2;
        DeviceProfile::current().audioNum = 1;
        RecorderLink::setInstance(&link);
        return std::make_unique<VyApplication>();
    }();
    if (size < 1 || size > kMaxReply)
        return 0;
    link.reply.assign(data + 1, data + size);
    link.sent = 0;
    std::unique_ptr<SettingsPage> page(makePage(data[0] % kPages));
    page->open();
    page->hasUnsavedChanges(); // the controls into the blocks
    const auto first = edits(page.get());
    for (int i = 0; i < page->blocks().count(); ++i)
        page->parameterChanged(page->blocks().block(i).number);
    page->hasUnsavedChanges();
    if (edits(page.get()) != first || link.sent != 0)
        std::abort();
    return 0;
}
