#pragma once
// A signal is a one-word member of the class that emits it:
//
//     class VyButton : public VyWidget {
//     public:
//         VySignal clicked;
//     };
//
// Its address inside the emitting object is the signal's identity, the key of the
// sender's connection table. Signals carry no arguments; a slot that needs data reads it
// from the sender. The word itself caches the signal's connection list (owned by the
// sender's table), so that emitting needs no lookup and an unconnected signal costs one
// load.
struct ConnectionList;

class VySignal {
public:
    VySignal() = default;
    VySignal(const VySignal&) = delete;
    VySignal& operator=(const VySignal&) = delete;

private:
    friend class VyObject;
    // Kept in step with the sender's table by connect, disconnect and emission.
    mutable ConnectionList* m_list = nullptr;
};
