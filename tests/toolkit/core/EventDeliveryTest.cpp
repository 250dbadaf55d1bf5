#include "CoreTestApp.h"

#include "toolkit/core/VyPostedEventQueue.h"
#include "toolkit/events/CEvent.h"

#include <vector>

namespace {

// Records what it sees and swallows the event types it is told to.
class Filter : public VyObject {
    VY_OBJECT(Filter, VyObject)
public:
    bool eventFilter(VyObject* watched, VyEvent* e) override {
        seen.push_back(e->type());
        lastWatched = watched;
        if (removeSelfFrom)
            removeSelfFrom->removeEventFilter(this);
        return e->type() == swallow;
    }

    std::vector<int> seen;
    VyObject* lastWatched = nullptr;
    VyObject* removeSelfFrom = nullptr;
    int swallow = -1;
};

// Deletes itself, signals blocked, the first time it is asked.
class SelfDeletingFilter : public VyObject {
    VY_OBJECT(SelfDeletingFilter, VyObject)
public:
    bool eventFilter(VyObject*, VyEvent*) override {
        blockSignals(true);
        delete this;
        return false;
    }
};

int g_freed = 0;
void countingFree(void* p) {
    ++g_freed;
    std::free(p);
}

} // namespace

using EventDelivery = CoreAppTest;

TEST_F(EventDelivery, RecorderLevelEventsBypassEveryFilter) {
    Filter appFilter, ownFilter;
    EventRecorder target;
    app()->installEventFilter(&appFilter);
    target.installEventFilter(&ownFilter);
    appFilter.swallow = ownFilter.swallow = VyEvent::User;

    CEvent user(VyEvent::User);
    CEvent dvrKey(UiEventType::DvrKey);
    VyApplication::sendEvent(&target, &user);
    VyApplication::sendEvent(&target, &dvrKey);
    VyEvent close(VyEvent::Close);
    VyApplication::sendEvent(&target, &close);

    EXPECT_EQ(appFilter.seen, (std::vector<int>{VyEvent::Close}));
    EXPECT_EQ(ownFilter.seen, (std::vector<int>{VyEvent::Close}));
    EXPECT_EQ(target.types, (std::vector<int>{VyEvent::User, UiEventType::DvrKey, VyEvent::Close}));
}

TEST_F(EventDelivery, ApplicationFilterStopsDeliveryAndAcceptsAlsoForTheApplication) {
    Filter appFilter, ownFilter;
    EventRecorder target;
    app()->installEventFilter(&appFilter);
    target.installEventFilter(&ownFilter);
    appFilter.swallow = VyEvent::Show;

    VyEvent show(VyEvent::Show);
    EXPECT_TRUE(VyApplication::sendEvent(&target, &show));
    EXPECT_TRUE(show.isAccepted());
    EXPECT_EQ(appFilter.lastWatched, &target);
    EXPECT_TRUE(ownFilter.seen.empty());
    EXPECT_TRUE(target.types.empty());

    VyEvent toApp(VyEvent::Show);
    EXPECT_TRUE(VyApplication::sendEvent(app(), &toApp));
    EXPECT_TRUE(toApp.isAccepted());
    EXPECT_EQ(appFilter.lastWatched, app());
}

TEST_F(EventDelivery, FilterOrderIsNewestFirstAndRemovalDuringFilteringIsSafe) {
    Filter older, newer;
    EventRecorder target;
    target.installEventFilter(&older);
    target.installEventFilter(&newer);
    target.installEventFilter(nullptr);
    newer.swallow = VyEvent::Hide;
    newer.removeSelfFrom = &target; // removes itself while being asked
    VyEvent hide(VyEvent::Hide);
    VyApplication::sendEvent(&target, &hide);
    EXPECT_EQ(newer.seen.size(), 1u);
    EXPECT_TRUE(older.seen.empty());
    VyApplication::sendEvent(&target, &hide);
    EXPECT_EQ(newer.seen.size(), 1u);
    EXPECT_EQ(older.seen.size(), 1u);
    EXPECT_EQ(target.types, (std::vector<int>{VyEvent::Hide}));
    // Re-installing drops the removed entry and moves the filter to the front, once.
    target.installEventFilter(&older);
    EXPECT_EQ(target.eventFilters().size(), 1);
}

TEST_F(EventDelivery, AFilterDeletedWhileInstalledLeavesEveryWatchedList) {
    EventRecorder target;
    Filter survivor;
    target.installEventFilter(&survivor);
    auto* doomed = new Filter;
    target.installEventFilter(doomed);
    app()->installEventFilter(doomed);
    // Without a destroyed signal: the lists must not depend on it.
    doomed->blockSignals(true);
    delete doomed;
    EXPECT_EQ(target.eventFilters(), VyList<VyObject*>() << &survivor);
    EXPECT_TRUE(app()->eventFilters().isEmpty());
    VyEvent hide(VyEvent::Hide);
    VyApplication::sendEvent(&target, &hide);
    EXPECT_EQ(survivor.seen, (std::vector<int>{VyEvent::Hide}));
    EXPECT_EQ(target.types, (std::vector<int>{VyEvent::Hide}));
}

TEST_F(EventDelivery, AFilterThatDeletesItselfWhileFilteringIsSkippedAfterwards) {
    EventRecorder target;
    Filter older;
    target.installEventFilter(&older);
    target.installEventFilter(new SelfDeletingFilter);
    VyEvent show(VyEvent::Show);
    VyApplication::sendEvent(&target, &show);
    VyApplication::sendEvent(&target, &show);
    EXPECT_EQ(older.seen, (std::vector<int>{VyEvent::Show, VyEvent::Show}));
    EXPECT_EQ(target.eventFilters().size(), 1);
}

TEST_F(EventDelivery, LayoutRequestOvertakesTenQueuedEvents) {
    EventRecorder target;
    for (int i = 0; i < 10; ++i)
        VyApplication::postEvent(&target, std::make_unique<VyEvent>(VyEvent::Show));
    VyApplication::postEvent(&target, std::make_unique<VyEvent>(VyEvent::LayoutRequest));
    EXPECT_EQ(target.postedEventCount(), 11);
    app()->processPostedEvents();
    ASSERT_EQ(target.types.size(), 11u);
    EXPECT_EQ(target.types.front(), VyEvent::LayoutRequest);
    EXPECT_EQ(target.types.back(), VyEvent::Show);
    EXPECT_EQ(target.postedEventCount(), 0);
}

TEST_F(EventDelivery, RemovedAndOrphanedEventsAreFreedUndelivered) {
    int freed = 0;
    EventRecorder kept;
    EventRecorder dropped;
    auto* dying = new EventRecorder;
    for (int i = 0; i < 3; ++i) {
        VyApplication::postEvent(&dropped, std::make_unique<CountedEvent>(VyEvent::Show, &freed));
        VyApplication::postEvent(dying, std::make_unique<CountedEvent>(VyEvent::Show, &freed));
        VyApplication::postEvent(&kept, std::make_unique<CountedEvent>(VyEvent::Hide, &freed));
    }
    app()->removePostedEvents(&dropped);
    EXPECT_EQ(freed, 3);
    EXPECT_EQ(dropped.postedEventCount(), 0);
    delete dying; // takes its queued events with it
    EXPECT_EQ(freed, 6);
    app()->processPostedEvents();
    EXPECT_EQ(kept.types, (std::vector<int>(3, VyEvent::Hide)));
    EXPECT_TRUE(dropped.types.empty());
    EXPECT_EQ(freed, 9);
}

TEST_F(EventDelivery, DeferredDeleteOfAPlainObjectIsIgnored) {
    EventRecorder target;
    target.deleteLater();
    app()->processPostedEvents();
    EXPECT_EQ(target.types, (std::vector<int>{VyEvent::DeferredDelete}));
}

TEST_F(EventDelivery, ScreenChangeReachesEveryDescendant) {
    EventRecorder root;
    auto* child = new EventRecorder(&root);
    auto* grandChild = new EventRecorder(child);
    VyEvent change(VyEvent::ScreenChange);
    VyApplication::sendEvent(&root, &change);
    EXPECT_EQ(child->types, (std::vector<int>{VyEvent::ScreenChange}));
    EXPECT_EQ(grandChild->types, (std::vector<int>{VyEvent::ScreenChange}));
}

TEST_F(EventDelivery, ForwardedMessageBlockIsFreedExactlyOnce) {
    g_freed = 0;
    EventRecorder target;
    auto* first = new CEvent(UiEventType::IpcMessage, 7);
    first->setData(VyEventData(std::malloc(24), &countingFree));
    auto forwarded = std::make_unique<CEvent>(1013);
    forwarded->setData(first->takeData());
    EXPECT_EQ(first->data(), nullptr);
    delete first;
    EXPECT_EQ(g_freed, 0);
    VyApplication::postEvent(&target, std::move(forwarded));
    app()->processPostedEvents();
    EXPECT_EQ(g_freed, 1);

    // A consumer that takes the block frees it itself.
    CEvent kept(1013);
    kept.setData(VyEventData(std::malloc(8), &countingFree));
    void* raw = kept.takeData().release();
    EXPECT_EQ(g_freed, 1);
    std::free(raw);
}
