#pragma once
// Cuts the device's byte stream into 4-byte wheel-mouse packets. Bytes can be lost (a
// short read, a reconnected mouse, line noise), so the decoder does not trust a fixed
// framing: a packet starts only at a byte with bit 3 set (always set in a first byte) whose
// sign bits agree with the two movement bytes that follow and whose fourth byte is a wheel
// count a wheel can send (-8..7); otherwise the first byte is dropped and the next one
// tried. Packets with an overflow bit are dropped whole.
#include <cstddef>
#include <cstdint>

#include "toolkit/input/VyMousePacket.h"

class VyMousePacketDecoder {
public:
    static constexpr int kPacketSize = 4;     // bytes of a wheel-mouse packet
    static constexpr uint8_t kSyncBit = 0x08; // always set in a packet's first byte
    static constexpr uint8_t kOverflowBits = 0xC0;
    static constexpr uint8_t kXSignBit = 0x10;
    static constexpr uint8_t kYSignBit = 0x20;
    static constexpr uint8_t kButtonBits = 0x07;
    static constexpr int kWheelStep = 120; // wheel delta of one notch
    // The wheel counts a wheel mouse sends in one packet (a 4-bit signed count).
    static constexpr int kMinWheelCount = -8;
    static constexpr int kMaxWheelCount = 7;

    // Calls onPacket for every complete, valid packet in the bytes, keeping an incomplete
    // tail for the next call. Returns the number of bytes skipped to find the framing.
    template <typename OnPacket>
    int feed(const uint8_t* data, size_t size, OnPacket onPacket) {
        int skipped = 0;
        for (size_t i = 0; i < size; ++i) {
            m_bytes[m_count++] = data[i];
            while (m_count > 0) {
                const int verdict = check();
                if (verdict == kIncomplete)
                    break;
                if (verdict == kMisframed) {
                    dropFirst();
                    ++skipped;
                    continue;
                }
                if (verdict == kValid)
                    onPacket(decode());
                m_count = 0; // a valid or an overflowing packet is consumed whole
            }
        }
        return skipped;
    }
    void reset() { m_count = 0; }

private:
    enum Verdict { kIncomplete, kMisframed, kOverflow, kValid };
    Verdict check() const;
    VyMousePacket decode() const;
    void dropFirst();

    uint8_t m_bytes[kPacketSize] = {};
    int m_count = 0;
};
