#pragma once
// A line-based control channel for drivers that run the GUI from outside (the soak driver):
// $VY_CONTROL_FIFO names a FIFO, each line written to it is one command, run on the GUI
// thread in the order written. Nothing is opened unless the variable is set.
//
//   key N     the device key N, posted to the key manager as its poll thread posts a key
//             (without the poll's one key per 150 ms, so a driver can press keys fast)
//   open NAME opens a screen as the start menu does: playback, settings, backup, analytics
//             or wizard
//   login NAME SECRET
//             logs NAME in with the password SECRET through App, as the login dialog does
//             (a successful login also unlocks a locked screen); nothing of SECRET is logged;
//             prints "login: ok" or "login: refused" once App has answered
//   state     prints one line "state: seq=S windows=A,B modal=M focus=F queue=Q peak=P
//             heap=H held=K" (the shown windows bottom to top by class, the modal depth,
//             the focus widget's class, the events waiting now and the most that ever
//             waited, the heap in use and held from the system in kB)
//
// A driver asks for "state" and waits for the answer whose sequence number follows the
// last it saw, so it never takes a line printed before the state it wants existed.
#include "runtime/VyString.h"
#include "toolkit/core/VyObject.h"

#include <string>

#include <atomic>
#include <cstdint>

class ControlChannel : public VyObject {
    VY_OBJECT(ControlChannel, VyObject)
public:
    // Starts the reader thread on $VY_CONTROL_FIFO; false (and nothing started) when the
    // variable is unset or the FIFO cannot be opened (with a line).
    bool startFromEnvironment();

    // Runs one command line on the calling (GUI) thread; false for an unknown or malformed
    // one, which is logged and otherwise ignored.
    bool runCommand(const VyString& line);

    // The state line as "state" prints it, without the sequence number's increment.
    VyString stateText() const;

protected:
    void customEvent(VyEvent* e) override;

private:
    bool openScreen(const std::string& name);
    bool login(const std::string& arguments);
    static void* readLoop(void* self);
    int m_fd = -1;
    uint32_t m_stateSeq = 0;
};
