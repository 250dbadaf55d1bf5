// The smaller models: key manager tables, channel masks, the lazily fetched parameter parts.
#include "ModelTestSupport.h"

#include "model/DeviceParamModel.h"
#include "model/RecDataManager.h"
#include "model/VyKeyManager.h"
#include "protocol/SerialKeyboardBlock.h"

TEST(VyKeyManagerTables, ServiceKeysMapInsideTheirRangeOnly) {
    EXPECT_EQ(VyKeyManager::serviceKeyToDeviceKey(127), 0u);
    EXPECT_EQ(VyKeyManager::serviceKeyToDeviceKey(128), 17u);
    EXPECT_EQ(VyKeyManager::serviceKeyToDeviceKey(131), 0u);
    EXPECT_EQ(VyKeyManager::serviceKeyToDeviceKey(146), 7u);  // digit 0
    EXPECT_EQ(VyKeyManager::serviceKeyToDeviceKey(154), 25u); // Down
    EXPECT_EQ(VyKeyManager::serviceKeyToDeviceKey(162), 29u);
    EXPECT_EQ(VyKeyManager::serviceKeyToDeviceKey(173), 3u);
    EXPECT_EQ(VyKeyManager::serviceKeyToDeviceKey(174), 0u);
    EXPECT_EQ(VyKeyManager::serviceKeyToDeviceKey(0xFFFFFFFFu), 0u);
}

TEST(VyKeyManagerTables, SerialSettingsCrossStopBitsAndParity) {
    SerialKeyboardBlock b{};
    b.baudIndex = 3;
    b.dataBits = 8;
    b.parity = 2;   // byte 2 -> third field
    b.stopBits = 1; // byte 3 -> second field
    b.keyMux = 1;
    int mux = -1;
    const Key485SerConfig c = VyKeyManager::serialConfigFrom(b, &mux);
    EXPECT_EQ(c.baudIndex, 3);
    EXPECT_EQ(c.dataBits, 8);
    EXPECT_EQ(c.stopBits, 1);
    EXPECT_EQ(c.parity, 2);
    EXPECT_EQ(mux, 0);
    b.keyMux = 7;
    VyKeyManager::serialConfigFrom(b, &mux);
    EXPECT_EQ(mux, 1);
    EXPECT_EQ(VyKeyManager::hardwareClassFor(0x3FFFFFFFu), 2);
    EXPECT_EQ(VyKeyManager::hardwareClassFor(0x40000000u), 1);
    EXPECT_EQ(VyKeyManager::hardwareClassFor(0x7FFFFFFFu), 1);
    EXPECT_EQ(VyKeyManager::hardwareClassFor(0x80000000u), 2);
}

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

TEST_F(ModelTest, KeyFocusWidgetIsForgottenWhenItDiesWithItsSignalsBlocked) {
    VyKeyManager keyManager;
    VyKeyManager* keys = &keyManager;
    auto* widget = new VyWidget;
    keys->setKeyFocusWidget(widget);
    EXPECT_EQ(keys->keyFocusWidget(), widget);
    widget->blockSignals(true);
    delete widget;
    EXPECT_EQ(keys->keyFocusWidget(), nullptr);
}
