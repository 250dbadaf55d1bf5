#include "platform/keys/VyScriptedKeyLibrary.h"

#include <utility>

std::vector<VyScriptedKeyLibrary::LampCommand> VyScriptedKeyLibrary::takeLampCommands() {
    std::lock_guard<std::mutex> lock(m_lampMutex);
    return std::exchange(m_lampCommands, {});
}

void VyScriptedKeyLibrary::lampCommand(int command, bool withData, unsigned int data) {
    std::lock_guard<std::mutex> lock(m_lampMutex);
    m_lampCommands.push_back({command, withData, withData ? data : 0});
}
