#pragma once
// A signal is a one-word member of the class that emits it:
//
//     class VyButton : public VyWidget {
//     public:
//         VySignal clicked;
//     };
//
// It holds no data and is never read: its address inside the emitting object is the
// signal's identity, the key of the sender's connection table. Signals carry no
// arguments; a slot that needs data reads it from the sender.
#include <cstdint>

class VySignal {
public:
    VySignal() = default;
    VySignal(const VySignal&) = delete;
    VySignal& operator=(const VySignal&) = delete;

private:
    // Keeps the member one word wide so that every signal has a distinct address.
    uint32_t m_identity = 0;
};
