// What the GUI thread does while it works through events it has already taken off the
// shared queue: posts that must overtake them, receivers that die before their turn.
#include "CoreTestApp.h"

#include "toolkit/core/VyPostedEventQueue.h"

#include <functional>
#include <vector>

namespace {

// Runs a hook on each event it receives, then records it.
class Hooked : public VyObject {
    VY_OBJECT(Hooked, VyObject)
public:
    Hooked(std::vector<int>* log, int id)
        : m_log(log)
        , m_id(id) {}
    bool event(VyEvent* e) override {
        if (onEvent)
            onEvent(e);
        m_log->push_back(m_id * 100 + e->type());
        return true;
    }
    std::function<void(VyEvent*)> onEvent;

private:
    std::vector<int>* m_log;
    int m_id;
};

} // namespace

using PostedEventOrder = CoreAppTest;

TEST_F(PostedEventOrder, LayoutRequestPostedDuringDispatchOvertakesWhatIsAlreadyQueued) {
    std::vector<int> log;
    Hooked a(&log, 1), b(&log, 2);
    bool posted = false;
    a.onEvent = [&](VyEvent* e) {
        if (e->type() != VyEvent::Show || posted)
            return;
        posted = true;
        // Two layouts and a plain event, from inside the dispatch of the first event.
        VyApplication::postEvent(&b, std::make_unique<VyEvent>(VyEvent::LayoutRequest));
        VyApplication::postEvent(&a, std::make_unique<VyEvent>(VyEvent::Close));
        VyApplication::postEvent(&a, std::make_unique<VyEvent>(VyEvent::LayoutRequest));
        EXPECT_EQ(b.postedEventCount(), 3); // the batched Hide and Show count too
    };
    VyApplication::postEvent(&a, std::make_unique<VyEvent>(VyEvent::Show));
    VyApplication::postEvent(&b, std::make_unique<VyEvent>(VyEvent::Hide));
    VyApplication::postEvent(&b, std::make_unique<VyEvent>(VyEvent::Show));

    EXPECT_EQ(app()->processPostedEvents(), 3);
    EXPECT_EQ(app()->processPostedEvents(), 3);
    // Newest LayoutRequest first, as at the head of one queue; the plain one goes last.
    EXPECT_EQ(log, (std::vector<int>{116, 129, 229, 217, 216, 122}));
    EXPECT_EQ(a.postedEventCount() + b.postedEventCount(), 0);
}

TEST_F(PostedEventOrder, ReceiverDestroyedByAnEarlierEventLosesItsTakenEvents) {
    std::vector<int> log;
    int freed = 0;
    Hooked killer(&log, 1);
    auto* victim = new Hooked(&log, 2);
    Hooked survivor(&log, 3);
    killer.onEvent = [&](VyEvent*) {
        EXPECT_EQ(victim->postedEventCount(), 2);
        delete victim;
        victim = nullptr;
    };
    VyApplication::postEvent(&killer, std::make_unique<VyEvent>(VyEvent::Show));
    VyApplication::postEvent(victim, std::make_unique<CountedEvent>(VyEvent::Show, &freed));
    VyApplication::postEvent(&survivor, std::make_unique<VyEvent>(VyEvent::Hide));
    VyApplication::postEvent(victim, std::make_unique<CountedEvent>(VyEvent::Hide, &freed));

    EXPECT_EQ(app()->processPostedEvents(), 2);
    EXPECT_EQ(log, (std::vector<int>{116, 317}));
    EXPECT_EQ(freed, 2);
    EXPECT_EQ(app()->postedEvents()->size(), 0);
}
