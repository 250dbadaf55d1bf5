#include "runtime/VyBitArray.h"
#include "runtime/VyByteArray.h"
#include "runtime/VyHash.h"
#include "runtime/VyList.h"
#include "runtime/VyMap.h"
#include "runtime/VyString.h"
#include "runtime/VyVector.h"

#include <gtest/gtest.h>

TEST(VyListDeathTest, BadIndexStopsWithTheLibraryText) {
    VyList<int> list{1, 2, 3};
    EXPECT_DEATH((void)list.at(3), "i >= 0 && i < p.size\\(\\)");
    EXPECT_DEATH((void)list[-1], "i >= 0 && i < p.size\\(\\)");
    VyList<int> empty;
    EXPECT_DEATH((void)empty.takeFirst(), "!isEmpty\\(\\)");
    EXPECT_DEATH((void)empty.first(), "!isEmpty\\(\\)");
}

TEST(ValueSemantics, CopiesNeverAlias) {
    VyList<VyString> list{"a", "b"};
    VyList<VyString> listCopy = list;
    listCopy[0] = "changed";
    listCopy.append("c");
    EXPECT_EQ(list, (VyList<VyString>{"a", "b"}));

    VyVector<int> vec(3, 7);
    VyVector<int> vecCopy(vec);
    vecCopy[1] = 0;
    EXPECT_EQ(vec[1], 7);

    VyMap<int, VyString> map;
    map.insert(1, "one");
    VyMap<int, VyString> mapCopy = map;
    mapCopy.insert(1, "uno");
    EXPECT_EQ(map.value(1), "one");

    VyHash<int, int> hash;
    hash.insert(5, 50);
    VyHash<int, int> hashCopy = hash;
    hashCopy.remove(5);
    EXPECT_TRUE(hash.contains(5));

    VyByteArray bytes("abc");
    VyByteArray bytesCopy = bytes;
    bytesCopy.data()[0] = 'z';
    EXPECT_EQ(bytes, VyByteArray("abc"));

    VyBitArray bits(8);
    VyBitArray bitsCopy = bits;
    bitsCopy.setBit(3);
    EXPECT_FALSE(bits.testBit(3));

    VyString text("same");
    VyString textCopy = text;
    textCopy.replace("s", "g");
    EXPECT_EQ(text, "same");
}

TEST(VyByteArray, BuildsFromRawBytesIncludingZeros) {
    const char raw[] = {'a', '\0', 'b', '\xff'};
    VyByteArray bytes(raw, 4);
    EXPECT_EQ(bytes.size(), 4);
    EXPECT_EQ(bytes.at(1), '\0');
    EXPECT_EQ(bytes.toHex(), "610062ff");
    EXPECT_EQ(VyByteArray("ab\0cd").size(), 2); // without a length, up to the zero
    EXPECT_EQ(VyByteArray(nullptr, 5).size(), 0);
}

TEST(VyByteArray, ResizeFillAppendAndSlices) {
    VyByteArray bytes("xy");
    bytes.resize(4);
    EXPECT_EQ(bytes, VyByteArray("xy\0\0", 4));
    bytes.resize(-3);
    EXPECT_TRUE(bytes.isEmpty());
    bytes.fill('k', 3);
    EXPECT_EQ(bytes, VyByteArray("kkk"));
    bytes.append('!').append(VyByteArray("ab")).append("cd", 1);
    EXPECT_EQ(bytes, VyByteArray("kkk!abc"));
    EXPECT_EQ(bytes.mid(3, 2), VyByteArray("!a"));
    EXPECT_EQ(bytes.mid(5), VyByteArray("bc"));
    EXPECT_EQ(bytes.mid(7), VyByteArray());
    EXPECT_EQ(bytes.mid(-4, 2), VyByteArray("kk"));
    EXPECT_EQ(bytes.left(2), VyByteArray("kk"));
    EXPECT_EQ(bytes.right(2), VyByteArray("bc"));
    EXPECT_EQ(bytes.right(50), bytes);
    EXPECT_EQ(bytes.indexOf('a'), 4);
    EXPECT_NE(bytes, VyByteArray("kkk!abd"));
}

TEST(VyByteArrayDeathTest, BadIndexStops) {
    VyByteArray bytes("ab");
    EXPECT_DEATH((void)bytes.at(2), "i >= 0 && i < size\\(\\)");
}

TEST(VyBitArray, SetTestClearAndCount) {
    VyBitArray bits(70);
    EXPECT_EQ(bits.count(true), 0);
    bits.setBit(0);
    bits.setBit(69);
    bits.setBit(33, true);
    EXPECT_EQ(bits.count(true), 3);
    EXPECT_EQ(bits.count(false), 67);
    EXPECT_TRUE(bits.testBit(69));
    bits.clearBit(0);
    EXPECT_FALSE(bits.testBit(0));
    EXPECT_FALSE(bits.toggleBit(1));
    EXPECT_TRUE(bits.testBit(1));
    bits.fill(true, 10, 12);
    EXPECT_EQ(bits.count(true), 6);
    bits.fill(false);
    EXPECT_EQ(bits.size(), 70);
    EXPECT_EQ(bits.count(true), 0);
}

TEST(VyBitArray, ShrinkingDropsBitsForGood) {
    VyBitArray bits(16, true);
    bits.resize(5);
    EXPECT_EQ(bits.count(true), 5);
    bits.resize(16);
    EXPECT_EQ(bits.count(true), 5);
    EXPECT_FALSE(bits.testBit(5));
    EXPECT_EQ((~VyBitArray(3)).count(true), 3);
}

TEST(VyBitArray, PacksLsbFirstForTheWire) {
    VyBitArray channels(12);
    for (int ch : {0, 2, 8, 11})
        channels.setBit(ch);
    const VyByteArray packed = channels.toBytes();
    ASSERT_EQ(packed.size(), 2);
    EXPECT_EQ(static_cast<unsigned char>(packed.at(0)), 0x05);
    EXPECT_EQ(static_cast<unsigned char>(packed.at(1)), 0x09);
    EXPECT_EQ(VyBitArray::fromBits(packed.data(), 12), channels);
    // Bits beyond the requested count are ignored when reading back.
    const char raw[] = {'\xff'};
    EXPECT_EQ(VyBitArray::fromBits(raw, 3).count(true), 3);
}

TEST(VyBitArray, MasksCombineOverTheLongerSize) {
    VyBitArray selected(8);
    selected.fill(true, 0, 5);
    VyBitArray allowed(16);
    allowed.setBit(1);
    allowed.setBit(5);
    allowed.setBit(12);
    const VyBitArray both = selected & allowed;
    EXPECT_EQ(both.size(), 16);
    EXPECT_EQ(both.count(true), 2);
    EXPECT_TRUE(both.testBit(5));
    const VyBitArray either = selected | allowed;
    EXPECT_EQ(either.count(true), 7);
    EXPECT_EQ((selected ^ allowed).count(true), 5);
}

TEST(VyBitArrayDeathTest, BadIndexStops) {
    VyBitArray bits(4);
    EXPECT_DEATH(bits.setBit(4), "i >= 0 && i < size\\(\\)");
    EXPECT_DEATH((void)bits.testBit(-1), "i >= 0 && i < size\\(\\)");
}
