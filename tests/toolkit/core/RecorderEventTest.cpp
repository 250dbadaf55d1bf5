// The recorder-level event classes: each carries its own type number and, being 1000 or
// above, goes past every filter straight to customEvent.
#include "CoreTestApp.h"

#include "toolkit/events/AIObjInfoEvent.h"
#include "toolkit/events/ChineseInputEvent.h"
#include "toolkit/events/CommonCtrlEvent.h"
#include "toolkit/events/CtrlReqEvent.h"
#include "toolkit/events/DualTalkEvent.h"
#include "toolkit/events/DvrKeyEvent.h"
#include "toolkit/events/FaceInfoEvent.h"
#include "toolkit/events/NtpUpdateEvent.h"
#include "toolkit/events/PlaybackReqEvent.h"
#include "toolkit/events/TurnPageEvent.h"

#include <memory>
#include <vector>

namespace {

class SwallowAll : public VyObject {
    VY_OBJECT(SwallowAll, VyObject)
public:
    bool eventFilter(VyObject*, VyEvent*) override {
        ++seen;
        return true;
    }
    int seen = 0;
};

// Keeps what customEvent saw, read back through the concrete classes.
class Sink : public VyObject {
    VY_OBJECT(Sink, VyObject)
public:
    void customEvent(VyEvent* e) override {
        types.push_back(e->type());
        if (e->type() == UiEventType::DvrKey) {
            auto* key = static_cast<DvrKeyEvent*>(e);
            keyValue = key->keyValue();
            keyOrigin = key->origin();
        }
    }
    std::vector<int> types;
    uint32_t keyValue = 0;
    uint32_t keyOrigin = 0;
};

} // namespace

using RecorderEvents = CoreAppTest;

TEST_F(RecorderEvents, EachClassCarriesItsTypeAndReachesCustomEventPastFilters) {
    SwallowAll appFilter, ownFilter;
    Sink sink;
    app()->installEventFilter(&appFilter);
    sink.installEventFilter(&ownFilter);

    std::vector<std::unique_ptr<CEvent>> events;
    events.push_back(std::make_unique<NtpUpdateEvent>());
    events.push_back(std::make_unique<ChineseInputEvent>());
    events.push_back(std::make_unique<DvrKeyEvent>(42u, DvrKeyEvent::AddressedRemote));
    events.push_back(std::make_unique<CtrlReqEvent>(7));
    events.push_back(std::make_unique<CommonCtrlEvent>(8, 3));
    events.push_back(std::make_unique<DualTalkEvent>());
    events.push_back(std::make_unique<FaceInfoEvent>());
    events.push_back(std::make_unique<PlaybackReqEvent>());
    events.push_back(std::make_unique<TurnPageEvent>());
    events.push_back(std::make_unique<AIObjInfoEvent>());
    for (const auto& e : events)
        EXPECT_TRUE(VyApplication::sendEvent(&sink, e.get()));

    EXPECT_EQ(sink.types,
              (std::vector<int>{1014, 1027, 1029, 1031, 1031, 1034, 1074, 1077, 1078, 1093}));
    EXPECT_EQ(appFilter.seen + ownFilter.seen, 0);
    EXPECT_EQ(sink.keyValue, 42u);
    EXPECT_EQ(sink.keyOrigin, 1u);
    // A control request given one argument leaves the second unset.
    EXPECT_EQ(static_cast<CommonCtrlEvent*>(events[4].get())->arg2(), -1);
}
