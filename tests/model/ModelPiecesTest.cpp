// The smaller models: channel masks, the lazily fetched parameter parts.
#include "ModelTestSupport.h"

#include "model/DeviceParamModel.h"
#include "model/RecDataManager.h"

TEST_F(ModelTest, ChannelBitArrayHasOneBitOrRefusesOutsideTheDevice) {
    SystemInfoRecord info{};
    info.channelCount = 10;
    RecDataManager records(info);
    RecDataManager* rec = &records;
    EXPECT_EQ(rec->channelToBitArray(9), (std::vector<uint8_t>{0x00, 0x02}));
    EXPECT_EQ(rec->channelToBitArray(0), (std::vector<uint8_t>{0x01, 0x00}));
    ::testing::internal::CaptureStdout();
    EXPECT_TRUE(rec->channelToBitArray(10).empty());
    EXPECT_TRUE(rec->channelToBitArray(-1).empty());
    std::fflush(stdout);
    const std::string out = ::testing::internal::GetCapturedStdout();
    EXPECT_NE(out.find("chnIndex invalid:10 !!!"), std::string::npos) << out;
    EXPECT_NE(out.find("chnIndex invalid:-1 !!!"), std::string::npos) << out;
}

TEST_F(ModelTest, ParameterPartsAreFetchedOnFirstUseOnly) {
    link.blocks[32] = {7, 7, 7};
    DeviceParamModel params;
    DeviceParamModel* model = &params;
    EXPECT_EQ(model->part(16), nullptr); // an unused part number
    EXPECT_EQ(model->part(99), nullptr);
    const CachedParamBlock* network = model->part(1);
    ASSERT_NE(network, nullptr);
    EXPECT_EQ(network->blockNumber(), 32u);
    EXPECT_EQ(network->byteAt(2), 7);
    EXPECT_EQ(network->byteAt(3), 0); // zero-filled past the short reply
    model->part(1);
    EXPECT_EQ(link.paramGets(32), 1);
    EXPECT_TRUE(model->reloadPart(1));
    EXPECT_EQ(link.paramGets(32), 2);
    EXPECT_FALSE(model->reloadPart(16));
}
