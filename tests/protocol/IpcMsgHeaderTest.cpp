#include "protocol/IpcMsgHeader.h"
#include "protocol/IpcRemotePointer.h"

#include <gtest/gtest.h>

#include <cstring>

TEST(IpcMsgHeader, EncodesLittleEndianAtTheWireOffsets) {
    IpcMsgHeader h;
    h.headTag = 0x04030201;
    h.validFlag = -2;
    h.reserved6 = 0x0605;
    h.MainType = 1000;
    h.SubType = 134;
    h.dataLen = 692696;
    h.seqNumber = 0xA1B2C3D4;
    h.msgValue = 0x11223344;
    uint8_t raw[kIpcHeaderSize];
    ipcEncodeHeader(h, raw);
    const uint8_t expected[kIpcHeaderSize] = {0x01, 0x02, 0x03, 0x04, 0xFE, 0xFF, 0x05, 0x06,
                                              0xE8, 0x03, 0x86, 0x00, 0xD8, 0x91, 0x0A, 0x00,
                                              0xD4, 0xC3, 0xB2, 0xA1, 0x44, 0x33, 0x22, 0x11};
    EXPECT_EQ(0, std::memcmp(raw, expected, sizeof raw));
}

TEST(IpcMsgHeader, CheckRefusesNonPositiveFlagsAndLengthsAboveTheLimit) {
    IpcMsgHeader h;
    h.dataLen = kIpcMaxDataLen;
    EXPECT_EQ(ipcCheckHeader(h), IpcHeaderCheck::Ok);
    h.dataLen = kIpcMaxDataLen + 1;
    EXPECT_EQ(ipcCheckHeader(h), IpcHeaderCheck::TooLarge);
    h.dataLen = 0;
    for (int16_t flag : {int16_t(0), int16_t(-1), int16_t(-32768)}) {
        h.validFlag = flag;
        EXPECT_EQ(ipcCheckHeader(h), IpcHeaderCheck::Invalid) << flag;
    }
}

TEST(IpcMsgHeader, SequenceNumbersSkipZeroAcrossTheWrap) {
    uint32_t counter = 0;
    EXPECT_EQ(ipcNextSeqNumber(counter), 1u);
    EXPECT_EQ(ipcNextSeqNumber(counter), 2u);
    counter = 0xFFFFFFFFu;
    EXPECT_EQ(ipcNextSeqNumber(counter), 0xFFFFFFFFu);
    EXPECT_EQ(ipcNextSeqNumber(counter), 1u);
}

TEST(IpcRemotePointer, ScalesToTheScreenRoundingHalvesUp) {
    EXPECT_EQ(IpcRemotePointer::scale(960, 1280, 1920), 640);
    EXPECT_EQ(IpcRemotePointer::scale(1, 3, 2), 2);           // 1.5
    EXPECT_EQ(IpcRemotePointer::scale(1, 5, 4), 1);           // 1.25
    EXPECT_EQ(IpcRemotePointer::scale(3, 1, 2), 2);           // 1.5
    EXPECT_EQ(IpcRemotePointer::scale(1079, 720, 1080), 719); // 719.33

    const uint8_t body[11] = {0x80, 0x07, 0x38, 0x04, 100, 0, 200, 0, 0xFF, 0xFF, 3};
    auto p = IpcRemotePointer::decode(body, sizeof body);
    ASSERT_TRUE(p);
    EXPECT_EQ(p->refWidth, 1920);
    EXPECT_EQ(p->refHeight, 1080);
    EXPECT_EQ(p->x, 100);
    EXPECT_EQ(p->y, 200);
    EXPECT_EQ(p->wheel, -1);
    EXPECT_EQ(p->buttons, 3);
    EXPECT_FALSE(IpcRemotePointer::decode(body, 10));
    const uint8_t zeroRef[11] = {0, 0, 0x38, 0x04, 1, 0, 1, 0, 0, 0, 0};
    EXPECT_FALSE(IpcRemotePointer::decode(zeroRef, sizeof zeroRef));
}
