// Producer threads post while the GUI thread dispatches and destroys receivers. Run under
// ThreadSanitizer and AddressSanitizer: a race on the queue or a delivery to a freed
// receiver is reported there; the counts below catch lost or doubly freed events.
#include "CoreTestApp.h"

#include "toolkit/core/EventLoop.h"
#include "toolkit/events/CEvent.h"

#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

namespace {

constexpr int kProducers = 4;
constexpr int kPostsPerProducer = 3000;
constexpr int kChurnEvery = 7; // one receiver replaced per this many posts
constexpr int kChurn = 1001;
constexpr int kDone = 1002;

class TrackedEvent : public VyEvent {
public:
    TrackedEvent(std::atomic<int>* freed)
        : VyEvent(VyEvent::Show)
        , m_freed(freed) {}
    ~TrackedEvent() override { m_freed->fetch_add(1); }

private:
    std::atomic<int>* m_freed;
};

class Target : public VyObject {
    VY_OBJECT(Target, VyObject)
public:
    explicit Target(int* delivered)
        : m_delivered(delivered) {}
    bool event(VyEvent* e) override {
        if (e->type() == VyEvent::Show)
            ++*m_delivered;
        return true;
    }

private:
    int* m_delivered;
};

// The receivers producers may post to. A producer posts while holding the registry lock,
// and the GUI thread unregisters a receiver before deleting it, so every post reaches
// either a live receiver or the queue before that receiver's destructor empties it.
class Registry {
public:
    std::mutex mutex;
    std::vector<Target*> live;
};

class Coordinator : public VyObject {
    VY_OBJECT(Coordinator, VyObject)
public:
    Coordinator(Registry* registry, EventLoop* loop, int* delivered)
        : m_registry(registry)
        , m_loop(loop)
        , m_delivered(delivered) {}
    ~Coordinator() override {
        for (Target* t : m_registry->live)
            delete t;
    }
    void customEvent(VyEvent* e) override {
        if (e->type() == kChurn) {
            Target* victim;
            {
                std::lock_guard<std::mutex> lock(m_registry->mutex);
                victim = m_registry->live[static_cast<size_t>(churned) % m_registry->live.size()];
                m_registry->live.erase(m_registry->live.begin() +
                                       static_cast<long>(churned % m_registry->live.size()));
            }
            delete victim;
            auto* fresh = new Target(m_delivered);
            std::lock_guard<std::mutex> lock(m_registry->mutex);
            m_registry->live.push_back(fresh);
            ++churned;
        } else if (e->type() == kDone && ++done == kProducers) {
            m_loop->quit();
        }
    }

    int churned = 0;
    int done = 0;

private:
    Registry* m_registry;
    EventLoop* m_loop;
    int* m_delivered;
};

} // namespace

using ThreadedPost = CoreAppTest;

TEST_F(ThreadedPost, ProducersRaceDispatchAndReceiverDestruction) {
    Registry registry;
    int delivered = 0;
    std::atomic<int> freed{0};
    for (int i = 0; i < 8; ++i)
        registry.live.push_back(new Target(&delivered));
    EventLoop loop;
    Coordinator coordinator(&registry, &loop, &delivered);

    std::vector<std::thread> producers;
    producers.reserve(kProducers);
    for (int p = 0; p < kProducers; ++p) {
        producers.emplace_back([&, p] {
            for (int i = 0; i < kPostsPerProducer; ++i) {
                {
                    std::lock_guard<std::mutex> lock(registry.mutex);
                    Target* t = registry.live[static_cast<size_t>(i + p) % registry.live.size()];
                    VyApplication::postEvent(t, std::make_unique<TrackedEvent>(&freed));
                }
                if (i % kChurnEvery == 0)
                    VyApplication::postEvent(&coordinator, std::make_unique<CEvent>(kChurn));
            }
            VyApplication::postEvent(&coordinator, std::make_unique<CEvent>(kDone));
        });
    }
    EXPECT_EQ(loop.exec(), 0);
    for (std::thread& t : producers)
        t.join();
    app()->processPostedEvents();

    const int posted = kProducers * kPostsPerProducer;
    EXPECT_EQ(freed.load(), posted); // every event freed once, delivered or not
    EXPECT_LE(delivered, posted);
    EXPECT_GT(coordinator.churned, 0);
}
