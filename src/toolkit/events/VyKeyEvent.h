#pragma once
#include "runtime/VyString.h"
#include "toolkit/events/VyEvent.h"

// KeyPress (10); there is no key-release producer in the system.
class VyKeyEvent : public VyEvent {
public:
    VyKeyEvent(int type, int key, const VyString& text = VyString())
        : VyEvent(type)
        , m_key(key)
        , m_text(text) {}

    int key() const { return m_key; }
    const VyString& text() const { return m_text; }

private:
    int32_t m_key;
    VyString m_text;
};
