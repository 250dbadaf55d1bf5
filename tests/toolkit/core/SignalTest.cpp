#include "CoreTestApp.h"

#include <vector>

namespace {

class Emitter : public VyObject {
    VY_OBJECT(Emitter, VyObject)
public:
    VySignal fired;
    VySignal other;
    void fire() { emitSignal(this, &fired); }
};

// A receiver whose slot behaviour each test chooses.
class Receiver : public VyObject {
    VY_OBJECT(Receiver, VyObject)
public:
    Receiver(int id, std::vector<int>* calls)
        : m_id(id)
        , m_calls(calls) {}

    void onFired(VyObject* sender) {
        m_calls->push_back(m_id);
        lastSender = sender;
        if (action)
            action(this, sender);
    }
    void onOther() { m_calls->push_back(-m_id); }

    void (*action)(Receiver* self, VyObject* sender) = nullptr;
    VyObject* lastSender = nullptr;
    VyObject* extra = nullptr;

private:
    int m_id;
    std::vector<int>* m_calls;
};

const VySlot kFired = VY_SLOT(Receiver, onFired);
const VySlot kOther = VY_SLOT(Receiver, onOther);

} // namespace

using Signals = CoreAppTest;

TEST_F(Signals, SlotsRunInConnectionOrderWithTheirSender) {
    std::vector<int> calls;
    Emitter e;
    Receiver r1(1, &calls), r2(2, &calls);
    ASSERT_TRUE(VyObject::connect(&e, &e.fired, &r1, kFired));
    ASSERT_TRUE(VyObject::connect(&e, &e.fired, &r2, kFired));
    ASSERT_TRUE(VyObject::connect(&e, &e.other, &r1, kOther));
    e.fire();
    EXPECT_EQ(calls, (std::vector<int>{1, 2}));
    EXPECT_EQ(r2.lastSender, &e);

    calls.clear();
    e.blockSignals(true);
    e.fire();
    EXPECT_TRUE(calls.empty());
}

TEST_F(Signals, SecondConnectionOfTheSamePairIsRefusedAndKeepsTheFirstMode) {
    std::vector<int> calls;
    Emitter e;
    Receiver r(1, &calls);
    ASSERT_TRUE(VyObject::connect(&e, &e.fired, &r, kFired, false));
    EXPECT_FALSE(VyObject::connect(&e, &e.fired, &r, kFired, true));
    EXPECT_EQ(VyObject::receivers(&e, &e.fired), 1);
    e.fire();
    // Direct: ran during the emission, nothing was queued for the receiver.
    EXPECT_EQ(calls, (std::vector<int>{1}));
    EXPECT_EQ(r.postedEventCount(), 0);
    // A different slot of the same receiver is a different connection.
    EXPECT_TRUE(VyObject::connect(&e, &e.fired, &r, kOther));
}

TEST_F(Signals, SlotDeletingTheSenderStopsTheEmission) {
    std::vector<int> calls;
    auto* e = new Emitter;
    Receiver r1(1, &calls), r2(2, &calls), r3(3, &calls);
    VyObject::connect(e, &e->fired, &r1, kFired);
    VyObject::connect(e, &e->fired, &r2, kFired);
    VyObject::connect(e, &e->fired, &r3, kFired);
    r2.action = [](Receiver*, VyObject* sender) { delete sender; };
    e->fire(); // ASan reports if the list is freed too early or leaks
    EXPECT_EQ(calls, (std::vector<int>{1, 2}));
    // The receivers no longer know the dead sender: their destruction must not touch it.
}

TEST_F(Signals, SlotDeletingTheSenderInsideANestedEmissionIsSafe) {
    std::vector<int> calls;
    auto* e = new Emitter;
    Receiver outer(1, &calls), inner(2, &calls);
    VyObject::connect(e, &e->fired, &outer, kFired);
    VyObject::connect(e, &e->fired, &inner, kFired);
    // The first slot re-emits; in the nested emission the second slot kills the sender.
    outer.action = [](Receiver* self, VyObject* sender) {
        self->action = nullptr;
        static_cast<Emitter*>(sender)->fire();
    };
    inner.action = [](Receiver*, VyObject* sender) { delete sender; };
    e->fire();
    EXPECT_EQ(calls, (std::vector<int>{1, 1, 2}));
}

TEST_F(Signals, ReceiverConnectedDuringEmissionIsCalledInTheSameEmission) {
    std::vector<int> calls;
    Emitter e;
    Receiver r1(1, &calls), late(2, &calls);
    r1.extra = &late;
    VyObject::connect(&e, &e.fired, &r1, kFired);
    r1.action = [](Receiver* self, VyObject* sender) {
        VyObject::connect(sender, &static_cast<Emitter*>(sender)->fired, self->extra, kFired);
    };
    e.fire();
    EXPECT_EQ(calls, (std::vector<int>{1, 2}));
}

TEST_F(Signals, ReceiverDestroyedOrDisconnectedDuringEmissionIsSkipped) {
    std::vector<int> calls;
    Emitter e;
    Receiver r1(1, &calls), r3(3, &calls);
    auto* r2 = new Receiver(2, &calls);
    auto* r4 = new Receiver(4, &calls);
    VyObject::connect(&e, &e.fired, &r1, kFired);
    VyObject::connect(&e, &e.fired, r2, kFired);
    VyObject::connect(&e, &e.fired, &r3, kFired);
    VyObject::connect(&e, &e.fired, r4, kFired);
    r1.extra = r2;
    r1.action = [](Receiver* self, VyObject*) { delete self->extra; };
    r3.extra = r4;
    r3.action = [](Receiver* self, VyObject* sender) {
        VyObject::disconnect(sender, &static_cast<Emitter*>(sender)->fired, self->extra, kFired);
    };
    e.fire();
    EXPECT_EQ(calls, (std::vector<int>{1, 3}));
    EXPECT_EQ(VyObject::receivers(&e, &e.fired), 2);
    delete r4;
    calls.clear();
    r1.action = nullptr;
    r3.action = nullptr;
    e.fire();
    EXPECT_EQ(calls, (std::vector<int>{1, 3}));
}

TEST_F(Signals, DestroyingEitherSideCutsTheConnection) {
    std::vector<int> calls;
    auto* e = new Emitter;
    auto* r = new Receiver(1, &calls);
    Receiver keeper(2, &calls);
    VyObject::connect(e, &e->fired, r, kFired);
    VyObject::connect(e, &e->fired, &keeper, kFired);
    delete r;
    e->fire();
    EXPECT_EQ(calls, (std::vector<int>{2}));
    delete e; // keeper must not be left holding the dead sender
    Emitter e2;
    EXPECT_TRUE(VyObject::connect(&e2, &e2.fired, &keeper, kFired));
}

TEST_F(Signals, QueuedConnectionRunsWhenTheEventIsDispatched) {
    std::vector<int> calls;
    Emitter e;
    Receiver r(1, &calls);
    ASSERT_TRUE(VyObject::connect(&e, &e.fired, &r, kFired, true));
    e.fire();
    EXPECT_TRUE(calls.empty());
    EXPECT_EQ(r.postedEventCount(), 1);
    app()->processPostedEvents();
    EXPECT_EQ(calls, (std::vector<int>{1}));
    EXPECT_EQ(r.lastSender, &e);
    EXPECT_EQ(r.postedEventCount(), 0);
}
