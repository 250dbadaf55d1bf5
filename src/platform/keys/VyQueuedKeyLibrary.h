#pragma once
// The common part of the key library stand-ins: device keys wait in a bounded queue until
// the poll thread takes them, point-of-sale texts and PTZ commands likewise, lamp commands go
// to a VyLampOutput, and the serial and identity settings are kept so that they can be
// inspected. A source (input devices, a desktop window, a test script) only fills the
// queues; it may override readDevices() to read its devices when the poll thread asks.
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>

#include "platform/keys/VyKeyLibrary.h"
#include "platform/keys/VyKeyQueue.h"
#include "platform/keys/VyLampOutput.h"

class VyQueuedKeyLibrary : public VyKeyLibrary {
public:
    static constexpr size_t kMaxPending = 16; // point-of-sale texts and PTZ commands each

    VyQueuedKeyLibrary() = default;

    void InitVersionAndFrontBoard(KeyBoardparam_t* param, KeyCallback callback) override;
    uint32_t GetAllKeyValue_keytype() override;
    int GetAllKeyValue_StringLen(char* text) override;
    void KEYBOARD_SEND_CMD(unsigned char command) override;
    void KEYBOARD_SEND_CMDDATA(unsigned char command, unsigned int data) override;
    void VyDVR_SetKeyboard_Baud(Key_485serconfig_t* config) override;
    void VyDVR_Ptz_ExternalSerialKey_Mux(int mux) override;
    void POS_select485() override;
    void VyDVR_COM_SetDeviceID(unsigned int deviceId) override;
    int VyDVR_HAL_ReadSerialPtzCmd(PTZ_keyvaluet* command) override;
    uint32_t boardVersion() const override;

    // Sources.
    VyKeyQueue& keys() { return m_keys; }
    void pushPosText(const std::string& text);
    void pushPtzCommand(const PTZ_keyvaluet& command);
    void setBoardVersion(uint32_t word);
    VyLampOutput& lamps() { return m_lamps; }

    // What the GUI set up, for inspection.
    struct Settings {
        bool initialised = false;
        std::string name;
        Key_485serconfig_t serial;
        bool baudSet = false;
        int mux = -1; // -1: never chosen
        bool posSelected = false;
        unsigned int deviceId = 0;
        bool deviceIdSet = false;
    };
    Settings settings() const;

protected:
    // Called by GetAllKeyValue_keytype before it takes a key (on the poll thread).
    virtual void readDevices() {}
    // Where lamp commands go; the lamp output by default.
    virtual void lampCommand(int command, bool withData, unsigned int data);

private:
    VyKeyQueue m_keys;
    VyLampOutput m_lamps;
    mutable std::mutex m_mutex; // guards everything below
    std::deque<std::string> m_posTexts;
    std::deque<PTZ_keyvaluet> m_ptzCommands;
    Settings m_settings;
    uint32_t m_boardVersion = 0x40000000u;
};
