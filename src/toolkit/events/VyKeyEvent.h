#pragma once
#include "runtime/VyString.h"
#include "toolkit/events/VyEvent.h"

// KeyPress (10); there is no key-release producer in the system.
class VyKeyEvent : public VyEvent {
public:
    // The toolkit's special key codes; a typed digit is its character code 0x30..0x39 and
    // carries the digit as its text. Down is 0x1000010 on purpose: arrows are tested as
    // KeyLeft <= key < 0x1000011.
    enum Key : int32_t {
        KeyEscape = 0x1000000,
        KeyOk = 0x1000002,
        KeyLeft = 0x1000007,
        KeyUp = 0x1000008,
        KeyRight = 0x1000009,
        KeyDown = 0x1000010,
        KeyDigit0 = 0x30,
        KeyDigit9 = 0x39,
    };

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
