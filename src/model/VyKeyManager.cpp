#include "model/VyKeyManager.h"

#include "model/ModelInstance.h"

#include "protocol/SerialKeyboardBlock.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyTimer.h"

namespace {

constexpr uint32_t kFirstServiceCode = 128;
constexpr uint32_t kLastServiceCode = 173;
constexpr int kMaxAddressDigits = 3; // remote addresses run 0..999

// Service key code 128..173 -> device key value; 0 = ignored.
const uint8_t kServiceKeys[kLastServiceCode - kFirstServiceCode + 1] = {
    17, 45, 43, 0,  0, 10, 9, 8, 39, 13, 12, 11, 41, 16, 15, 14, // 128..143
    0,  0,  7,  68, 0, 24, 0, 0, 0,  27, 25, 26, 40, 0,  28, 0,  // 144..159
    0,  29, 29, 30, 0, 0,  0, 0, 44, 57, 0,  0,  73, 3,          // 160..173
};

// Device key values of the digits 0..9 (digit 0 is 7, digits 1..9 are 8..16).
int digitOf(uint32_t key) {
    return key >= 7 && key <= 16 ? int(key) - 7 : -1;
}

} // namespace

VyKeyManager* VyKeyManager::instance() {
    return ModelInstance<VyKeyManager>::get();
}

VyKeyManager::VyKeyManager()
    : m_channelDigitTimer(new VyTimer(this))
    , m_secondKeyTimer(new VyTimer(this))
    , m_repeatTimer(new VyTimer(this)) {
    ModelInstance<VyKeyManager>::set(this);
    m_channelDigitTimer->setSingleShot(true);
    m_channelDigitTimer->setInterval(kDigitTimeoutMs);
    m_secondKeyTimer->setSingleShot(true);
    m_secondKeyTimer->setInterval(kDigitTimeoutMs);
    m_repeatTimer->setSingleShot(true);
    m_repeatTimer->setInterval(kRepeatWindowMs);
    connect(m_channelDigitTimer, &m_channelDigitTimer->timeout, this,
            VY_SLOT(VyKeyManager, clearChannelDigits));
    connect(m_secondKeyTimer, &m_secondKeyTimer->timeout, this,
            VY_SLOT(VyKeyManager, clearSecondKeys));
}

VyKeyManager::~VyKeyManager() {
    ModelInstance<VyKeyManager>::clear(this);
}

uint32_t VyKeyManager::serviceKeyToDeviceKey(uint32_t serviceCode) {
    if (serviceCode < kFirstServiceCode || serviceCode > kLastServiceCode)
        return 0;
    return kServiceKeys[serviceCode - kFirstServiceCode];
}

Key485SerConfig VyKeyManager::serialConfigFrom(const SerialKeyboardBlock& block, int* mux) {
    Key485SerConfig c;
    c.baudIndex = block.baudIndex;
    c.dataBits = block.dataBits;
    // The platform library's field order differs from the block's: byte 2 lands in the
    // third field and byte 3 in the second.
    c.parity = block.parity;
    c.stopBits = block.stopBits;
    if (mux != nullptr)
        *mux = block.keyMux == 1 ? 0 : 1;
    return c;
}

int VyKeyManager::hardwareClassFor(uint32_t boardVersion) {
    return boardVersion >= 0x40000000u && boardVersion <= 0x7FFFFFFFu ? 1 : 2;
}

void VyKeyManager::applySerialSettings(const SerialKeyboardBlock& block) {
    if (block.enabled == 0) {
        m_serialConfig = Key485SerConfig{};
        m_serialMux = 1;
        return;
    }
    m_serialConfig = serialConfigFrom(block, &m_serialMux);
}

void VyKeyManager::appendChannelDigit(uint32_t key) {
    if (digitOf(key) < 0)
        return;
    m_channelDigits.append(key);
    m_channelDigitTimer->start();
}

void VyKeyManager::appendAddressDigit(uint32_t key) {
    if (digitOf(key) < 0)
        return;
    m_addressEntry = true;
    m_addressDigits.append(key);
    if (m_addressDigits.size() >= kMaxAddressDigits)
        finishAddress();
}

void VyKeyManager::finishAddress() {
    uint32_t address = 0;
    for (uint32_t key : m_addressDigits)
        address = address * 10 + uint32_t(digitOf(key));
    m_remoteAddress = address;
    m_addressDigits.clear();
    m_addressEntry = false;
}

void VyKeyManager::setLampMode(int mode) {
    if (mode < 1 || mode > 3) {
        vyFrameworkLog("lamp mode %d out of range !!!\n", mode);
        return;
    }
    m_lampMode = mode;
}
