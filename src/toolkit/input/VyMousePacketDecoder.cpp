#include "toolkit/input/VyMousePacketDecoder.h"

namespace {

// A two's-complement byte of the packet, as the device means it.
int signedByte(uint8_t b) {
    return b < 0x80 ? int(b) : int(b) - 0x100;
}

} // namespace

VyMousePacketDecoder::Verdict VyMousePacketDecoder::check() const {
    if (!(m_bytes[0] & kSyncBit))
        return kMisframed;
    if (m_count < kPacketSize)
        return kIncomplete;
    // A wheel reports a notch or two per sample; a fourth byte beyond a 4-bit count is the
    // first byte of the next packet (bit 3 set), seen through a lost byte.
    const int wheel = signedByte(m_bytes[3]);
    if (wheel < kMinWheelCount || wheel > kMaxWheelCount)
        return kMisframed;
    if (m_bytes[0] & kOverflowBits)
        return kOverflow;
    // The 9th bit of each movement lives in byte 0; movement the device can send in one
    // byte has it equal to that byte's top bit. A mismatch means the bytes are not one
    // packet (or a jump of more than 127 counts in 5 ms, which no hand makes).
    const bool xSign = (m_bytes[0] & kXSignBit) != 0;
    const bool ySign = (m_bytes[0] & kYSignBit) != 0;
    if (xSign != ((m_bytes[1] & 0x80) != 0) || ySign != ((m_bytes[2] & 0x80) != 0))
        return kMisframed;
    return kValid;
}

VyMousePacket VyMousePacketDecoder::decode() const {
    VyMousePacket p;
    p.buttons = m_bytes[0] & kButtonBits;
    p.dx = signedByte(m_bytes[1]);
    p.dy = signedByte(m_bytes[2]);
    p.wheel = signedByte(m_bytes[3]) * kWheelStep;
    return p;
}

void VyMousePacketDecoder::dropFirst() {
    for (int i = 1; i < m_count; ++i)
        m_bytes[i - 1] = m_bytes[i];
    --m_count;
}
