#include "runtime/VyBitArray.h"

#include "runtime/VyGlobal.h"

#include <algorithm>

namespace {

size_t bytesFor(int bits) {
    return static_cast<size_t>((bits + 7) / 8);
}

} // namespace

VyBitArray::VyBitArray(int size, bool value) {
    fill(value, size);
}

VyBitArray VyBitArray::fromBits(const char* data, int bitCount) {
    VyBitArray out;
    if (!data || bitCount <= 0)
        return out;
    out.resize(bitCount);
    std::copy(data, data + out.m_bytes.size(), out.m_bytes.begin());
    out.clearPadding();
    return out;
}

int VyBitArray::count(bool on) const {
    int set = 0;
    for (uint8_t b : m_bytes)
        set += __builtin_popcount(b);
    return on ? set : m_size - set;
}

void VyBitArray::resize(int size) {
    if (size < 0)
        size = 0;
    m_size = size;
    m_bytes.resize(bytesFor(size), 0);
    clearPadding();
}

void VyBitArray::fill(bool value, int size) {
    if (size >= 0)
        resize(size);
    std::fill(m_bytes.begin(), m_bytes.end(), value ? 0xFF : 0x00);
    clearPadding();
}

void VyBitArray::fill(bool value, int first, int last) {
    first = std::max(first, 0);
    last = std::min(last, m_size - 1);
    for (int i = first; i <= last; ++i)
        setBit(i, value);
}

void VyBitArray::checkIndex(int i) const {
    VY_ASSERT_X(i >= 0 && i < m_size, "i >= 0 && i < size()");
}

bool VyBitArray::testBit(int i) const {
    checkIndex(i);
    return (m_bytes[static_cast<size_t>(i >> 3)] >> (i & 7)) & 1;
}

void VyBitArray::setBit(int i) {
    checkIndex(i);
    m_bytes[static_cast<size_t>(i >> 3)] |= static_cast<uint8_t>(1u << (i & 7));
}

void VyBitArray::setBit(int i, bool value) {
    if (value)
        setBit(i);
    else
        clearBit(i);
}

void VyBitArray::clearBit(int i) {
    checkIndex(i);
    m_bytes[static_cast<size_t>(i >> 3)] &= static_cast<uint8_t>(~(1u << (i & 7)));
}

bool VyBitArray::toggleBit(int i) {
    const bool was = testBit(i);
    setBit(i, !was);
    return was;
}

VyByteArray VyBitArray::toBytes() const {
    return VyByteArray(reinterpret_cast<const char*>(m_bytes.data()),
                       static_cast<int>(m_bytes.size()));
}

VyBitArray& VyBitArray::operator&=(const VyBitArray& o) {
    resize(std::max(m_size, o.m_size));
    for (size_t i = 0; i < m_bytes.size(); ++i)
        m_bytes[i] &= i < o.m_bytes.size() ? o.m_bytes[i] : 0;
    return *this;
}

VyBitArray& VyBitArray::operator|=(const VyBitArray& o) {
    resize(std::max(m_size, o.m_size));
    for (size_t i = 0; i < o.m_bytes.size(); ++i)
        m_bytes[i] |= o.m_bytes[i];
    return *this;
}

VyBitArray& VyBitArray::operator^=(const VyBitArray& o) {
    resize(std::max(m_size, o.m_size));
    for (size_t i = 0; i < o.m_bytes.size(); ++i)
        m_bytes[i] ^= o.m_bytes[i];
    return *this;
}

VyBitArray VyBitArray::operator~() const {
    VyBitArray out(*this);
    for (uint8_t& b : out.m_bytes)
        b = static_cast<uint8_t>(~b);
    out.clearPadding();
    return out;
}

void VyBitArray::clearPadding() {
    if (m_size & 7)
        m_bytes.back() &= static_cast<uint8_t>((1u << (m_size & 7)) - 1);
}
