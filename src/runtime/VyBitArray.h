#pragma once
// A fixed-size set of bits with value semantics: channel masks, motion-detection areas,
// schedule cells. Bits past size() are always zero, so count() and the packed bytes never
// see stale bits after a shrink.
#include "runtime/VyByteArray.h"

#include <cstdint>
#include <vector>

class VyBitArray {
public:
    VyBitArray() = default;
    explicit VyBitArray(int size, bool value = false);

    // Bit i of the result is bit (i % 8) of byte (i / 8) of data; bitCount bits are read,
    // so data must hold at least (bitCount + 7) / 8 bytes.
    static VyBitArray fromBits(const char* data, int bitCount);

    int size() const { return m_size; }
    int count() const { return m_size; }
    // Number of bits set (on) or clear (!on).
    int count(bool on) const;
    bool isEmpty() const { return m_size == 0; }
    void clear() { resize(0); }
    // New bits are clear; a negative size empties the array.
    void resize(int size);
    // Sets every bit to value; with size >= 0 the array is resized first.
    void fill(bool value, int size = -1);
    // Sets bits first..last inclusive; out-of-range ends are clamped.
    void fill(bool value, int first, int last);

    // Out-of-range indexes are programming errors and stop the program.
    bool testBit(int i) const;
    void setBit(int i);
    void setBit(int i, bool value);
    void clearBit(int i);
    bool toggleBit(int i);
    bool at(int i) const { return testBit(i); }
    bool operator[](int i) const { return testBit(i); }

    // The bits packed LSB-first, (size() + 7) / 8 bytes, as the recorder's messages carry
    // channel and area masks.
    VyByteArray toBytes() const;
    const uint8_t* bits() const { return m_bytes.data(); }

    // Binary operators work on the longer size; the shorter operand counts as zero-padded.
    VyBitArray& operator&=(const VyBitArray& o);
    VyBitArray& operator|=(const VyBitArray& o);
    VyBitArray& operator^=(const VyBitArray& o);
    VyBitArray operator~() const;
    friend VyBitArray operator&(VyBitArray a, const VyBitArray& b) { return a &= b; }
    friend VyBitArray operator|(VyBitArray a, const VyBitArray& b) { return a |= b; }
    friend VyBitArray operator^(VyBitArray a, const VyBitArray& b) { return a ^= b; }

    bool operator==(const VyBitArray& o) const {
        return m_size == o.m_size && m_bytes == o.m_bytes;
    }
    bool operator!=(const VyBitArray& o) const { return !(*this == o); }

private:
    void checkIndex(int i) const;
    void clearPadding();

    std::vector<uint8_t> m_bytes;
    int m_size = 0;
};
