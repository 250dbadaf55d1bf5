// Parameter access over a recording link: request bodies, short replies, the null record.
#include "ModelTestSupport.h"

#include "model/ParamAccess.h"

TEST_F(ModelTest, GetParamZeroFillsWhatAShortReplyLeavesOut) {
    link.blocks[40] = {1, 2, 3};
    uint8_t buffer[16];
    std::memset(buffer, 0xAB, sizeof buffer);
    ParamAccess::getParam(40, buffer, sizeof buffer, 7);

    const uint8_t expected[16] = {1, 2, 3};
    EXPECT_EQ(0, std::memcmp(buffer, expected, sizeof buffer));
    ASSERT_EQ(link.requests.size(), 1u);
    EXPECT_EQ(link.requests[0].mainType, 600);
    EXPECT_EQ(link.requests[0].subType, 0);
    EXPECT_EQ(link.requests[0].body, (std::vector<uint8_t>{40, 0, 0, 0, 16, 0, 0, 0, 7, 1, 0, 0}));
}

TEST_F(ModelTest, GetParamCutsALongReplyToTheBuffer) {
    link.blocks[41] = std::vector<uint8_t>(64, 0x5A);
    uint8_t buffer[8 + 4];
    std::memset(buffer, 0, sizeof buffer);
    ParamAccess::getParam(41, buffer, 8);
    EXPECT_EQ(buffer[7], 0x5A);
    EXPECT_EQ(buffer[8], 0); // past the size given: untouched
}

TEST_F(ModelTest, SetParamSendsHeaderAndRecordOrRefusesANullRecord) {
    const uint8_t record[5] = {9, 8, 7, 6, 5};
    ParamAccess::setParam(0x01020304, record, sizeof record);
    ASSERT_EQ(link.sent.size(), 1u);
    EXPECT_EQ(link.sent[0].body,
              (std::vector<uint8_t>{4, 3, 2, 1, 5, 0, 0, 0, 0, 0, 0, 0, 9, 8, 7, 6, 5}));

    ::testing::internal::CaptureStdout();
    ParamAccess::setParam(12, nullptr, 352);
    std::fflush(stdout);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(),
              "\033[0;31m[VySetParam 684]Parameter pointer error!\033[0;39m\n");
    EXPECT_EQ(link.sent.size(), 1u);
}

TEST_F(ModelTest, PairRequestAnswersBothWordsOrZeros) {
    ParamAccess::requestPair(0x11223344);
    ASSERT_EQ(link.requests.size(), 1u);
    EXPECT_EQ(link.requests[0].mainType, 100);
    EXPECT_EQ(link.requests[0].subType, 15);
    EXPECT_EQ(link.requests[0].body, (std::vector<uint8_t>{0x44, 0x33, 0x22, 0x11}));
    // The fake answers nothing for (100, 15): a missing reply reads as zeros.
    EXPECT_EQ(ParamAccess::requestPair(1), std::make_pair(0u, 0u));
}
