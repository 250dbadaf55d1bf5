#include "platform/keys/VyQueuedKeyLibrary.h"

#include <algorithm>
#include <cstring>
#include <string>

void VyQueuedKeyLibrary::InitVersionAndFrontBoard(KeyBoardparam_t* param, KeyCallback) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_settings.initialised = true;
    if (param != nullptr) {
        m_settings.name.assign(param->name, strnlen(param->name, KeyBoardparam_t::kMaxName));
        m_settings.serial = param->serial;
    }
}

uint32_t VyQueuedKeyLibrary::GetAllKeyValue_keytype() {
    readDevices();
    return m_keys.take();
}

int VyQueuedKeyLibrary::GetAllKeyValue_StringLen(char* text) {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_posTexts.empty() || text == nullptr)
        return 0;
    const std::string next = std::move(m_posTexts.front());
    m_posTexts.pop_front();
    const size_t n = std::min(next.size(), size_t(kMaxPosText));
    // A text, not a string: the caller gets the length, no terminator.
    std::copy_n(next.data(), n, text);
    return int(n);
}

void VyQueuedKeyLibrary::KEYBOARD_SEND_CMD(unsigned char command) {
    lampCommand(command, false, 0);
}

void VyQueuedKeyLibrary::KEYBOARD_SEND_CMDDATA(unsigned char command, unsigned int data) {
    lampCommand(command, true, data);
}

void VyQueuedKeyLibrary::lampCommand(int command, bool withData, unsigned int data) {
    if (withData)
        m_lamps.commandWithData(command, data);
    else
        m_lamps.command(command);
}

void VyQueuedKeyLibrary::VyDVR_SetKeyboard_Baud(Key_485serconfig_t* config) {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (config != nullptr) {
        m_settings.serial = *config;
        m_settings.baudSet = true;
    }
}

void VyQueuedKeyLibrary::VyDVR_Ptz_ExternalSerialKey_Mux(int mux) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_settings.mux = mux;
}

void VyQueuedKeyLibrary::POS_select485() {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_settings.posSelected = true;
}

void VyQueuedKeyLibrary::VyDVR_COM_SetDeviceID(unsigned int deviceId) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_settings.deviceId = deviceId;
    m_settings.deviceIdSet = true;
}

int VyQueuedKeyLibrary::VyDVR_HAL_ReadSerialPtzCmd(PTZ_keyvaluet* command) {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_ptzCommands.empty() || command == nullptr)
        return -1;
    *command = m_ptzCommands.front();
    m_ptzCommands.pop_front();
    return 0;
}

uint32_t VyQueuedKeyLibrary::boardVersion() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_boardVersion;
}

void VyQueuedKeyLibrary::pushPosText(const std::string& text) {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_posTexts.size() < kMaxPending)
        m_posTexts.push_back(text);
}

void VyQueuedKeyLibrary::pushPtzCommand(const PTZ_keyvaluet& command) {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_ptzCommands.size() < kMaxPending)
        m_ptzCommands.push_back(command);
}

void VyQueuedKeyLibrary::setBoardVersion(uint32_t word) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_boardVersion = word;
}

VyQueuedKeyLibrary::Settings VyQueuedKeyLibrary::settings() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_settings;
}
