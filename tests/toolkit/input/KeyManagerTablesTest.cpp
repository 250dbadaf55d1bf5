// The key manager's fixed tables: service key codes, serial settings, hardware class.
#include "protocol/SerialKeyboardBlock.h"
#include "toolkit/input/VyKeyManager.h"

#include <gtest/gtest.h>

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
    const Key_485serconfig_t c = VyKeyManager::serialConfigFrom(b, &mux);
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
