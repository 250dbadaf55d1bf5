#pragma once
// A device key (1029): front panel, infrared or serial keyboard, or a key App forwards,
// all reduced to one device key value and delivered to the key manager.
#include "toolkit/events/CEvent.h"

#include <cstdint>

class DvrKeyEvent : public CEvent {
public:
    // Only a remote control carries a device address, which the key manager checks
    // against the recorder's own before it acts on the key.
    enum Origin : uint32_t {
        OtherSource = 0,
        AddressedRemote = 1,
    };

    explicit DvrKeyEvent(uint32_t keyValue, uint32_t origin = OtherSource)
        : CEvent(UiEventType::DvrKey)
        , m_keyValue(keyValue)
        , m_origin(origin) {}

    uint32_t keyValue() const { return m_keyValue; }
    uint32_t origin() const { return m_origin; }

private:
    uint32_t m_keyValue;
    uint32_t m_origin;
};
