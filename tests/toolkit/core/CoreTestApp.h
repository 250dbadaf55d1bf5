#pragma once
// The application object every core test runs against, on the in-memory display, and an
// object that records what reaches it.
#include "toolkit/core/VyApplication.h"
#include "toolkit/events/VyEvent.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

class CoreAppTest : public ::testing::Test {
protected:
    void SetUp() override {
        VyApplication::setDisplayDevice("mem:320x240");
        m_app = std::make_unique<VyApplication>();
    }
    void TearDown() override { m_app.reset(); }

    VyApplication* app() const { return m_app.get(); }

private:
    std::unique_ptr<VyApplication> m_app;
};

// Records the type of every event that reaches event() or customEvent().
class EventRecorder : public VyObject {
    VY_OBJECT(EventRecorder, VyObject)
public:
    explicit EventRecorder(VyObject* parent = nullptr)
        : VyObject(parent) {}

    bool event(VyEvent* e) override {
        types.push_back(e->type());
        return VyObject::event(e);
    }
    void customEvent(VyEvent* e) override { types.push_back(e->type()); }

    std::vector<int> types;
};

// An event that counts its own destruction, to see queued events freed without delivery.
class CountedEvent : public VyEvent {
public:
    CountedEvent(int type, int* destroyed)
        : VyEvent(type)
        , m_destroyed(destroyed) {}
    ~CountedEvent() override { ++*m_destroyed; }

private:
    int* m_destroyed;
};
