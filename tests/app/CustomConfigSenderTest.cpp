#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <unistd.h>
#include <vector>

#include "app/CustomConfigSender.h"
#include "protocol/ColorDefaultBlock.h"
#include "protocol/DefaultParamSet.h"
#include "protocol/DeviceDefaultRecord.h"

namespace {

struct Sent {
    uint16_t mainType;
    uint16_t subType;
    std::vector<uint8_t> body;
};

// A recorder that answers the two requests and remembers every message in order.
struct ScriptedRecorder {
    std::vector<Sent> log;
    std::vector<uint8_t> paramSet = std::vector<uint8_t>(DefaultParamSet::kSize, 0x5A);
    std::vector<uint8_t> tail = {1, 2, 3, 4};
    std::vector<uint8_t> profileReply = {12, 0, 0, 0, 0xFF};

    CustomConfigLink link() {
        CustomConfigLink l;
        l.send = [this](uint16_t m, uint16_t s, const uint8_t* body, uint32_t size) {
            log.push_back({m, s, std::vector<uint8_t>(body, body + size)});
        };
        l.request = [this](uint16_t m, uint16_t s) {
            log.push_back({m, s, {}});
            if (m == 1000)
                return profileReply;
            return s == 3 ? paramSet : tail;
        };
        return l;
    }
};

VyString writeConfig(const std::string& name, const std::string& text) {
    const std::string path = ::testing::TempDir() + "custom_" + name + ".ini";
    FILE* f = std::fopen(path.c_str(), "w");
    std::fputs(text.c_str(), f);
    std::fclose(f);
    return VyString(path.c_str());
}

const char* const kEightChannel = "[NumberSetting]\nAudioNum = 8\n"
                                  "[DiskConfig]\nMaxDiskNum = 2\nDiskNodes = sda,sdb\n"
                                  "[GeneralSetting]\nLanguage = 3\n";

} // namespace

TEST(CustomConfigSender, ExchangesRecordsInStartupOrder) {
    ScriptedRecorder app;
    CustomConfigSender sender(app.link());
    ASSERT_TRUE(sender.configureDefaults(writeConfig("order", kEightChannel)).proceed());

    ASSERT_EQ(app.log.size(), 4u);
    EXPECT_EQ(app.log[0].subType, 4);
    EXPECT_EQ(app.log[0].body.size(), DeviceDefaultRecord::kSize);
    EXPECT_EQ(app.log[0].body[DeviceDefaultRecord::kNumberSettingAudioNum], 8);
    EXPECT_EQ(app.log[1].subType, 3);
    EXPECT_EQ(app.log[2].subType, 14);
    EXPECT_EQ(app.log[3].subType, 10);
    for (const Sent& s : app.log)
        EXPECT_EQ(s.mainType, 600);

    // The parameter set goes back with the patched field and App's own bytes elsewhere.
    const std::vector<uint8_t>& params = app.log[3].body;
    ASSERT_EQ(params.size(), DefaultParamSet::kSize);
    EXPECT_EQ(params[DefaultParamSet::kGeneralSettingLanguage], 3);
    EXPECT_EQ(params[DefaultParamSet::kGeneralSettingLanguage + 1], 0);
    EXPECT_EQ(params[DefaultParamSet::kSize - 1], 0x5A);

    // App's device information lands in the tail of the record the GUI keeps.
    EXPECT_EQ(sender.deviceRecord()[DeviceDefaultRecord::kTail + 3], 4);
    EXPECT_EQ(sender.deviceRecord()[DeviceDefaultRecord::kDiskConfigMaxDiskNum], 2);
}

TEST(CustomConfigSender, ShortOrOversizedRepliesAreSurvived) {
    ScriptedRecorder app;
    app.paramSet.assign(10, 0x11);
    app.tail.assign(DeviceDefaultRecord::kTailSize + 100, 0x22);
    CustomConfigSender sender(app.link());
    ASSERT_TRUE(sender.configureDefaults(writeConfig("short", kEightChannel)).proceed());
    ASSERT_EQ(app.log.size(), 4u);
    EXPECT_EQ(app.log[3].body.size(), DefaultParamSet::kSize);
    EXPECT_EQ(sender.deviceRecord().size(), DeviceDefaultRecord::kSize);
    EXPECT_EQ(sender.deviceRecord().back(), 0x22);
}

TEST(CustomConfigSender, MissingFileSendsZeroedDefaults) {
    ScriptedRecorder app;
    CustomConfigSender sender(app.link());
    ::testing::internal::CaptureStderr();
    ASSERT_TRUE(sender.configureDefaults(VyString("/nonexistent/custom-config.ini")).proceed());
    ::testing::internal::GetCapturedStderr();
    ASSERT_EQ(app.log.size(), 4u);
    // Type 0 (missing) still marks the customisation as read; every other byte is zero.
    std::vector<uint8_t> expected(DeviceDefaultRecord::kSize, 0);
    expected[DeviceDefaultRecord::kCustomFuncsPresent] = 1;
    EXPECT_EQ(app.log[0].body, expected);
}

TEST(CustomConfigSender, StartupStepsAskForTheProfileAndSendItsColours) {
    ScriptedRecorder app;
    CustomConfigSender sender(app.link());
    const VyString path =
        writeConfig("startup", std::string(kEightChannel) +
                                   "[Color_AHD_6158]\nNormalColorDefaultVal = 1,2,3,4,5\n");
    EXPECT_EQ(sender.configureAppDefaults(path), 12u);
    ASSERT_EQ(app.log.size(), 7u);
    EXPECT_EQ(app.log[4].mainType, 1000);
    EXPECT_EQ(app.log[4].subType, 104);
    EXPECT_EQ(app.log[5].subType, 11);
    EXPECT_EQ(app.log[5].body[ColorDefaultBlock::kValues + 4], 5);
    EXPECT_EQ(app.log[6].mainType, 1000);
    EXPECT_EQ(app.log[6].subType, 105);
    EXPECT_TRUE(app.log[6].body.empty());

    // A reply too short to hold the code falls back to the default section.
    app.log.clear();
    app.profileReply = {7};
    EXPECT_EQ(sender.configureAppDefaults(path), 0u);
}

TEST(CustomConfigSenderDeathTest, NodeCountFailureEndsTheProcessWithStatusOne) {
    const VyString path =
        writeConfig("death", "[DiskConfig]\nMaxDiskNum = 4\nDiskNodes = \"sda , sdb,sdc\"\n");
    EXPECT_EXIT(
        {
            // The message goes to standard output; route it where the death test reads.
            dup2(STDERR_FILENO, STDOUT_FILENO);
            ScriptedRecorder app;
            CustomConfigSender sender(app.link());
            sender.configureDefaultsOrExit(path);
        },
        ::testing::ExitedWithCode(1),
        "^DiskNodes configure incomplete: disk count\\(4\\), node count\\(3\\), please check "
        "custom-config.ini !!!\n$");
}
