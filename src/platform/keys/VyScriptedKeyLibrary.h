#pragma once
// The key source of tests: keys pressed by the test wait in the library's queue until the
// key manager's poll cycle takes them and posts them through the application's queue, the
// same path a front-panel key takes. Lamp commands are recorded in order.
#include <mutex>
#include <vector>

#include "platform/keys/VyQueuedKeyLibrary.h"

class VyScriptedKeyLibrary : public VyQueuedKeyLibrary {
public:
    struct LampCommand {
        int command;
        bool withData;
        unsigned int data;
        bool operator==(const LampCommand& o) const {
            return command == o.command && withData == o.withData && data == o.data;
        }
    };

    void press(uint32_t deviceKey) { keys().push(deviceKey); }
    std::vector<LampCommand> takeLampCommands();

protected:
    void lampCommand(int command, bool withData, unsigned int data) override;

private:
    std::mutex m_lampMutex; // guards m_lampCommands
    std::vector<LampCommand> m_lampCommands;
};
