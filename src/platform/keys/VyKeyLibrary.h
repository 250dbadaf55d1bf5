#pragma once
// The operations of the device's key library: front panel, infra-red receiver, EIA-485 control
// keyboard and serial PTZ keyboard on one side, the front-panel lamps on the other. The key
// manager talks to this interface only; what stands behind it is chosen at start-up (Linux
// input devices on a board, the desktop window's keyboard on a PC, a scripted source in
// tests).
//
// The operation names are the library's own. Every operation may be called from the key
// poll thread and from the GUI thread (lamps are driven from both); implementations lock
// what they share.
#include <cstdint>

// Serial keyboard line settings, in the library's field order.
struct Key_485serconfig_t {
    int32_t baudIndex = 1;
    uint8_t dataBits = 0;
    uint8_t stopBits = 0;
    uint8_t parity = 0;
};

// What the front panel is opened with: a name of at most 16 characters and the serial
// settings.
struct KeyBoardparam_t {
    static constexpr int kMaxName = 16; // characters
    char name[kMaxName + 1] = {};
    Key_485serconfig_t serial;
};

// One command of the serial PTZ keyboard: a command number 1..17 and its parameters.
struct PTZ_keyvaluet {
    int32_t command = 0;
    int32_t param[3] = {0, 0, 0};
};

class VyKeyLibrary {
public:
    // The library can call back on each key; the GUI polls instead and always passes null.
    using KeyCallback = void (*)(uint32_t keyValue);
    // Longest text an attached point-of-sale device delivers at once.
    static constexpr int kMaxPosText = 64; // bytes

    virtual ~VyKeyLibrary() = default;

    virtual void InitVersionAndFrontBoard(KeyBoardparam_t* param, KeyCallback callback) = 0;
    // The next pending device key value, 0 when none.
    virtual uint32_t GetAllKeyValue_keytype() = 0;
    // A pending point-of-sale text copied into `text` (kMaxPosText bytes, not terminated);
    // its length, 0 when none.
    virtual int GetAllKeyValue_StringLen(char* text) = 0;
    // Front-panel lamp and panel commands; their meaning is the panel's.
    virtual void KEYBOARD_SEND_CMD(unsigned char command) = 0;
    virtual void KEYBOARD_SEND_CMDDATA(unsigned char command, unsigned int data) = 0;
    virtual void VyDVR_SetKeyboard_Baud(Key_485serconfig_t* config) = 0;
    // 0: the serial port carries the external key board; 1: PTZ.
    virtual void VyDVR_Ptz_ExternalSerialKey_Mux(int mux) = 0;
    virtual void POS_select485() = 0;
    virtual void VyDVR_COM_SetDeviceID(unsigned int deviceId) = 0;
    // One pending PTZ command; -1 when there is none.
    virtual int VyDVR_HAL_ReadSerialPtzCmd(PTZ_keyvaluet* command) = 0;

    // The board version word (decides the lamp hardware class); read from the platform,
    // not through the front panel.
    virtual uint32_t boardVersion() const { return 0x40000000u; }
};
