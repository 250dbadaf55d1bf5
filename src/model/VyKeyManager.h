#pragma once
// The key manager's state: pending digit lists and their timers, the key focus and its search
// rectangle, the device identity on the remote bus, the front-panel lamp state and the serial
// keyboard line settings. The key dispatch itself (device key -> focus move or main-view
// action) builds on this state.
#include "runtime/VyList.h"
#include "toolkit/core/VyObject.h"
#include "toolkit/core/VyWidget.h"

#include <cstdint>

class VyTimer;
struct SerialKeyboardBlock;

// Line settings as the platform library takes them.
struct Key485SerConfig {
    int32_t baudIndex = 1;
    uint8_t dataBits = 0;
    uint8_t stopBits = 0;
    uint8_t parity = 0;
};

class VyKeyManager : public VyObject {
    VY_OBJECT(VyKeyManager, VyObject)
public:
    static constexpr int kDigitTimeoutMs = 500; // pending digits are dropped after this
    static constexpr int kRepeatWindowMs = 400; // presses closer than this count as repeats

    VyKeyManager();
    ~VyKeyManager() override;

    // The live one, owned by the UiModels set; null when there is none.
    static VyKeyManager* instance();

    // Device key value for a key code App forwards (notification 186); 0 = ignored.
    static uint32_t serviceKeyToDeviceKey(uint32_t serviceCode);
    // Line settings from parameter block 18 (bytes 2 and 3 are deliberately crossed) and the
    // multiplexer choice (0 = key board, 1 = PTZ).
    static Key485SerConfig serialConfigFrom(const SerialKeyboardBlock& block, int* mux);
    // Hardware class from the board version word: 2 outside 0x40000000..0x7FFFFFFF.
    static int hardwareClassFor(uint32_t boardVersion);

    void appendChannelDigit(uint32_t key);
    const VyList<uint32_t>& channelDigits() const { return m_channelDigits; }
    void appendAddressDigit(uint32_t key);
    const VyList<uint32_t>& addressDigits() const { return m_addressDigits; }

    uint32_t deviceId() const { return m_deviceId; }
    void setDeviceId(uint32_t id) { m_deviceId = id; }
    uint32_t remoteAddress() const { return m_remoteAddress; }
    // A key from an addressed remote is taken only when the remote addresses this device.
    bool acceptsRemote() const { return m_remoteAddress == m_deviceId; }

    int lampMode() const { return m_lampMode; }
    void setLampMode(int mode);
    int hardwareClass() const { return m_hardwareClass; }
    void setBoardVersion(uint32_t boardVersion) {
        m_hardwareClass = hardwareClassFor(boardVersion);
    }
    const Key485SerConfig& serialConfig() const { return m_serialConfig; }
    int serialMux() const { return m_serialMux; }
    void applySerialSettings(const SerialKeyboardBlock& block);

    // Null once the widget is gone, whether or not it could say so.
    VyWidget* keyFocusWidget() const { return m_keyFocus.data(); }
    void setKeyFocusWidget(VyWidget* widget) { m_keyFocus.reset(widget); }

private:
    void clearChannelDigits() { m_channelDigits.clear(); }
    void clearSecondKeys() { m_secondKeys.clear(); }
    void finishAddress();

    VyList<uint32_t> m_channelDigits;
    VyList<uint32_t> m_secondKeys;
    VyList<uint32_t> m_addressDigits;
    VyTimer* m_channelDigitTimer;
    VyTimer* m_secondKeyTimer;
    VyTimer* m_repeatTimer;
    VyPointer<VyWidget> m_keyFocus;
    uint32_t m_deviceId = 0;
    uint32_t m_remoteAddress = 0;
    bool m_addressEntry = false;
    int m_lampMode = 1;
    int m_hardwareClass = 1;
    Key485SerConfig m_serialConfig;
    int m_serialMux = 1;
};
