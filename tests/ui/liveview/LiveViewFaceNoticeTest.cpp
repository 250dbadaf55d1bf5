// App's face recognitions reach the live view as its notice: the person's name and channel
// for someone in the library, nothing for a channel the device lacks.
#include "LiveViewTestApp.h"

#include "ipc/IpcMsgBlock.h"
#include "model/AIManager.h"
#include "model/DeviceProfile.h"
#include "protocol/FaceEntry.h"
#include "protocol/FaceGroupEntry.h"
#include "protocol/FaceRecognition.h"
#include "protocol/FaceReplyHeader.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "toolkit/events/CEvent.h"
#include "toolkit/widgets/VyLabel.h"
#include "ui/liveview/LiveViewController.h"

#include <cstring>

namespace {

// App with one group holding face 5, "Ines Holm".
class FaceLink : public RecordingLink {
public:
    void request(uint16_t mainType, uint16_t subType, const void* body, uint32_t len,
                 std::vector<uint8_t>& reply) override {
        RecordingLink::request(mainType, subType, body, len, reply);
        if (mainType != MainType::Analytics)
            return;
        if (subType == FaceSubType::GroupList) {
            FaceGroupListHeader h;
            h.count = 1;
            FaceGroupEntry g;
            g.groupId = 1;
            append(reply, h);
            append(reply, g);
        } else if (subType == FaceSubType::FaceList) {
            FaceReplyHeader h;
            h.total = h.count = 1;
            FaceEntry f;
            f.faceId = 5;
            f.groupId = 1;
            std::strcpy(f.name, "Ines Holm");
            append(reply, h);
            append(reply, f);
        }
    }
    template <typename T>
    static void append(std::vector<uint8_t>& out, const T& record) {
        const auto* p = reinterpret_cast<const uint8_t*>(&record);
        out.insert(out.end(), p, p + sizeof record);
    }
};

class LiveViewFaceNoticeTest : public LiveViewTest {
protected:
    void SetUp() override {
        LiveViewTest::SetUp();
        RecorderLink::setInstance(&faces);
        DeviceProfile::current().channelCount = 4;
    }
    void TearDown() override {
        DeviceProfile::current() = DeviceProfile{};
        LiveViewTest::TearDown();
    }
    // As the UI manager forwards App's SubType 20.
    void recognise(AIManager* ai, uint32_t faceId, uint32_t channel) {
        FaceRecognition r;
        r.faceId = faceId;
        r.channel = channel;
        r.similarity = 93;
        IpcMsgHeader h;
        h.MainType = MainType::Analytics;
        h.SubType = FaceSubType::RecognitionNote;
        h.dataLen = sizeof r;
        IpcMsgBlock block = ipcAllocBlock(h);
        std::memcpy(ipcBlockBody(block.get()), &r, sizeof r);
        auto e = std::make_unique<CEvent>(UiEventType::FaceInfo);
        e->setData(VyEventData(block.release()));
        VyApplication::postEvent(ai, std::move(e));
        settle();
    }
    VyLabel* notice() const {
        for (VyObject* c : window->children()) {
            if (c->inherits("VyLabel"))
                return static_cast<VyLabel*>(c);
        }
        return nullptr;
    }
    FaceLink faces;
};

} // namespace

TEST_F(LiveViewFaceNoticeTest, AKnownPersonIsNamedWithTheChannelForAWhileAnUnknownChannelNever) {
    AIManager ai;
    open(4);
    VyLabel* label = notice();
    ASSERT_NE(label, nullptr);
    EXPECT_FALSE(label->isVisible());

    recognise(&ai, 5, 7); // CH8 of a four-channel recorder
    EXPECT_FALSE(label->isVisible());

    recognise(&ai, 5, 3);
    ASSERT_TRUE(label->isVisible());
    EXPECT_EQ(label->text().toStdString(), "Ines Holm recognised on channel 4");
    advance(LiveViewController::kNoticeMs + 10);
    EXPECT_FALSE(label->isVisible());
}
