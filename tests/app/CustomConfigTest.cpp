#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <unistd.h>
#include <vector>

#include "app/CustomConfig.h"
#include "app/CustomConfigSender.h"
#include "protocol/ColorDefaultBlock.h"
#include "protocol/DefaultParamSet.h"
#include "protocol/DeviceDefaultRecord.h"
#include "runtime/VyIniSettings.h"

namespace {

namespace R = DeviceDefaultRecord;
namespace P = DefaultParamSet;
namespace C = ColorDefaultBlock;

VyIniSettings ini(const std::string& text) {
    return VyIniSettings::fromText(text.data(), text.size());
}

uint64_t readLe(const uint8_t* p, uint32_t size) {
    uint64_t v = 0;
    for (uint32_t i = 0; i < size; ++i)
        v |= uint64_t(p[i]) << (8 * i);
    return v;
}

std::string textAt(const std::vector<uint8_t>& bytes, uint32_t offset) {
    return std::string(reinterpret_cast<const char*>(bytes.data() + offset));
}

// A distinct value for field i that fits its storage, and the text that writes it.
struct Sample {
    std::string text;
    uint64_t stored;
};
Sample sampleFor(const CustomField& f, size_t i) {
    if (f.storage == CustomField::Text)
        return {"txt" + std::to_string(i), 0};
    if (f.size == 1 && f.storage == CustomField::Signed)
        return {"-" + std::to_string(i % 100 + 1), uint64_t(0x100 - (i % 100 + 1))};
    if (f.size == 1)
        return {std::to_string(i % 200 + 1), i % 200 + 1};
    if (f.size == 4)
        return {std::to_string(100000 + i), 100000 + i};
    return {std::to_string(5000000000ULL + i), 5000000000ULL + i};
}

using Overrides = std::map<std::string, std::string>;

template <size_t N>
std::string fileFor(const CustomField (&fields)[N], const Overrides& overrides) {
    std::map<std::string, std::string> bySection;
    auto add = [&bySection](const std::string& key, const std::string& value) {
        const size_t slash = key.find('/');
        bySection[key.substr(0, slash)] += key.substr(slash + 1) + " = " + value + "\n";
    };
    std::set<std::string> fieldKeys;
    for (size_t i = 0; i < N; ++i) {
        fieldKeys.insert(fields[i].key);
        auto o = overrides.find(fields[i].key);
        add(fields[i].key, o != overrides.end() ? o->second : sampleFor(fields[i], i).text);
    }
    for (const auto& o : overrides)
        if (!fieldKeys.count(o.first))
            add(o.first, o.second);
    std::string text;
    for (const auto& s : bySection)
        text += "[" + s.first + "]\n" + s.second;
    return text;
}

template <size_t N>
void expectSamples(const CustomField (&fields)[N], const std::vector<uint8_t>& bytes,
                   const Overrides& skip) {
    for (size_t i = 0; i < N; ++i) {
        const CustomField& f = fields[i];
        if (skip.count(f.key))
            continue;
        const Sample s = sampleFor(f, i);
        if (f.storage == CustomField::Text)
            EXPECT_EQ(textAt(bytes, f.offset), s.text) << f.key;
        else
            EXPECT_EQ(readLe(bytes.data() + f.offset, f.size), s.stored) << f.key;
    }
}

} // namespace

TEST(CustomConfigLayout, EveryFirstGroupKeyLandsAtItsOffset) {
    // Type 0 reads the whole table; one disk node satisfies the node checks.
    const Overrides fixed = {{"DeviceType/Type", "0"},
                             {"DiskConfig/MaxDiskNum", "1"},
                             {"DiskConfig/MaxEsataNum", "0"},
                             {"DiskConfig/MaxUsbNum", "0"},
                             {"DiskConfig/DiskNodes", "sda"}};
    std::vector<uint8_t> record(R::kSize, 0xEE);
    ASSERT_TRUE(
        CustomConfig::packDeviceDefaults(ini(fileFor(R::kFields, fixed)), record.data()).proceed());

    expectSamples(R::kFields, record, fixed);
    EXPECT_EQ(readLe(record.data() + R::kDeviceTypeType, 4), 0u);
    EXPECT_EQ(record[R::kCustomFuncsPresent], 1);
    EXPECT_EQ(record[R::kDiskConfigMaxDiskNum], 1);
    EXPECT_EQ(textAt(record, R::kDiskNodes), "sda");
    // Everything outside the fields was zeroed.
    EXPECT_EQ(readLe(record.data() + R::kFunctionMask, 8), 0u);
    EXPECT_EQ(record[R::kTail], 0);
    EXPECT_EQ(record[R::kSize - 1], 0);
}

TEST(CustomConfigLayout, SecondGroupPatchesOnlyItsFields) {
    std::vector<uint8_t> params(P::kSize, 0xAA);
    CustomConfig::patchDefaultParamSet(ini(fileFor(P::kFields, {})), params.data());
    expectSamples(P::kFields, params, {});
    std::vector<bool> covered(P::kSize, false);
    for (const CustomField& f : P::kFields)
        for (uint32_t b = 0; b < f.size; ++b)
            covered[f.offset + b] = true;
    for (uint32_t b = 0; b < P::kSize; ++b)
        if (!covered[b] && params[b] != 0xAA)
            FAIL() << "byte " << b << " changed";
}

TEST(CustomConfigNodes, BlanksAreRemovedAndCountsChecked) {
    const std::string base = "[DiskConfig]\nDiskNodes = \" sda , sdb ,, sdc \"\n"
                             "EsataNodes = sdx\nusbNodes = \"sdu1, sdu2\"\n"
                             "MaxEsataNum = 1\nMaxUsbNum = 2\n";
    std::vector<uint8_t> record(R::kSize);
    CustomConfig::Outcome ok =
        CustomConfig::packDeviceDefaults(ini(base + "MaxDiskNum = 3\n"), record.data());
    ASSERT_TRUE(ok.proceed());
    EXPECT_EQ(record[R::kDiskConfigMaxDiskNum], 3);
    EXPECT_EQ(textAt(record, R::kDiskNodes), "sda");
    EXPECT_EQ(textAt(record, R::kDiskNodes + R::kDiskNodeSize), "sdb");
    EXPECT_EQ(textAt(record, R::kDiskNodes + 2 * R::kDiskNodeSize), "sdc");
    EXPECT_EQ(textAt(record, R::kEsataNodes), "sdx");
    EXPECT_EQ(textAt(record, R::kUsbNodes + R::kUsbNodeSize), "sdu2");

    CustomConfig::Outcome four =
        CustomConfig::packDeviceDefaults(ini(base + "MaxDiskNum = 4\n"), record.data());
    EXPECT_EQ(four.exitStatus, 1);
    EXPECT_EQ(four.message, "DiskNodes configure incomplete: disk count(4), node count(3), "
                            "please check custom-config.ini !!!\n");

    // Later lists are checked only once the earlier ones pass.
    CustomConfig::Outcome esata = CustomConfig::packDeviceDefaults(
        ini(base + "MaxDiskNum = 2\nMaxEsataNum = 2\nMaxUsbNum = 9\n"), record.data());
    EXPECT_EQ(esata.message, "EsataNodes configure incomplete: esata count(2), node count(1), "
                             "please check custom-config.ini !!!\n");
    CustomConfig::Outcome usb = CustomConfig::packDeviceDefaults(
        ini(base + "MaxDiskNum = 2\nMaxUsbNum = 3\n"), record.data());
    EXPECT_EQ(usb.message, "usbNodes configure incomplete: usb count(3), node count(2), "
                           "please check custom-config.ini !!!\n");
}

TEST(CustomConfigNodes, MoreThanThirtyTwoFailsEvenWithEnoughNodes) {
    std::string nodes;
    for (int i = 0; i < 33; ++i)
        nodes += (i ? "," : "") + std::string("hd") + std::to_string(i);
    std::vector<uint8_t> record(R::kSize);
    const auto make = [&](int count) {
        return ini("[DiskConfig]\nMaxDiskNum = " + std::to_string(count) +
                   "\nDiskNodes = " + nodes + "\n");
    };
    EXPECT_TRUE(CustomConfig::packDeviceDefaults(make(32), record.data()).proceed());
    EXPECT_EQ(textAt(record, R::kDiskNodes + 31 * R::kDiskNodeSize), "hd31");
    const CustomConfig::Outcome out = CustomConfig::packDeviceDefaults(make(33), record.data());
    EXPECT_EQ(out.message, "DiskNodes configure incomplete: disk count(33), node count(33), "
                           "please check custom-config.ini !!!\n");
}

TEST(CustomConfigNodes, LongNodeNamesAreCutToTheirField) {
    std::vector<uint8_t> record(R::kSize);
    ASSERT_TRUE(
        CustomConfig::packDeviceDefaults(
            ini("[DiskConfig]\nMaxDiskNum = 2\nDiskNodes = abcdefghijklmnop,b\n"), record.data())
            .proceed());
    EXPECT_EQ(textAt(record, R::kDiskNodes), "abcdefghijk");
    EXPECT_EQ(textAt(record, R::kDiskNodes + R::kDiskNodeSize), "b");
}

TEST(CustomConfigFactoryType, NonZeroTypeReadsOnlyTheMask) {
    const Overrides fixed = {{"DeviceType/Type", "7"},
                             {"CustomFuncs/FactoryConfigMask", "9223372036854775809"},
                             {"DiskConfig/MaxDiskNum", "40"}};
    std::vector<uint8_t> record(R::kSize, 0xEE);
    ASSERT_TRUE(
        CustomConfig::packDeviceDefaults(ini(fileFor(R::kFields, fixed)), record.data()).proceed());
    EXPECT_EQ(readLe(record.data() + R::kFunctionMask, 8), 0x8000000000000001ULL);
    EXPECT_EQ(readLe(record.data() + R::kCustomFuncsFactoryConfigMask, 8), 0x8000000000000001ULL);
    EXPECT_EQ(readLe(record.data() + R::kDeviceTypeType, 4), 7u);
    EXPECT_EQ(record[R::kCustomFuncsPresent], 0);
    for (const CustomField& f : R::kFields) {
        const std::string key = f.key;
        if (key == "DeviceType/Type" || key == "CustomFuncs/FactoryConfigMask")
            continue;
        EXPECT_EQ(readLe(record.data() + f.offset, std::min<uint32_t>(f.size, 8)), 0u) << key;
    }
}

TEST(CustomConfigColor, FiveValuesOrAPartialClear) {
    uint8_t bytes[8] = {9, 9, 9, 9, 9, 9, 9, 9};
    EXPECT_EQ(CustomConfig::parseColorValues("rgb( 1, 2 ,300, x4,5 )", bytes, 8), 0);
    EXPECT_EQ(std::vector<uint8_t>(bytes, bytes + 6), (std::vector<uint8_t>{1, 2, 44, 4, 5, 9}));

    uint8_t none[8] = {9, 9, 9, 9, 9, 9, 9, 9};
    EXPECT_EQ(CustomConfig::parseColorValues("no numbers", none, 8), -1);
    EXPECT_EQ(std::vector<uint8_t>(none, none + 8), std::vector<uint8_t>(8, 9));

    uint8_t six[8] = {9, 9, 9, 9, 9, 9, 9, 9};
    EXPECT_EQ(CustomConfig::parseColorValues("1,2,3,4,5,6", six, 8), -1);
    EXPECT_EQ(std::vector<uint8_t>(six, six + 8), (std::vector<uint8_t>{0, 0, 0, 0, 0, 0, 9, 9}));

    // Many parts never clear beyond the room left.
    std::string many;
    for (int i = 0; i < 10000; ++i)
        many += "1,";
    uint8_t tail[4] = {9, 9, 9, 9};
    EXPECT_EQ(CustomConfig::parseColorValues(VyString(many), tail, 3), -1);
    EXPECT_EQ(tail[2], 0);
    EXPECT_EQ(tail[3], 9);

    uint8_t big[5] = {};
    EXPECT_EQ(CustomConfig::parseColorValues("99999999999999999999999,256,0,0,1", big, 5), 0);
    EXPECT_EQ(big[0], 0xFF);
    EXPECT_EQ(big[1], 0);
}

TEST(CustomConfigColor, ProfileCodeChoosesTheSection) {
    EXPECT_STREQ(CustomConfig::colorSection(3), "Color_TVI_2823/2853");
    EXPECT_STREQ(CustomConfig::colorSection(17), "Color_TVI_2831");
    EXPECT_STREQ(CustomConfig::colorSection(4), "Color_NORMAL");

    const VyIniSettings file = ini("[Color_NORMAL]\nNormalColorDefaultVal = 1,2,3,4,5\n"
                                   "[Color_TVI_2823/2853]\n"
                                   "NormalColorDefaultVal = 10,20,30,40,50\n"
                                   "TVI720PColorDefaultVal = 7,7\n"
                                   "CVI800WColorDefaultVal = \"6, 7, 8, 9, 10\"\n");
    std::vector<uint8_t> block(C::kSize, 0xEE);
    CustomConfig::packColorDefaults(file, 3, block.data());
    EXPECT_EQ(readLe(block.data() + C::kProfileCode, 4), 3u);
    EXPECT_EQ(readLe(block.data() + C::kFormatCount, 4), 18u);
    EXPECT_EQ(std::vector<uint8_t>(block.begin() + C::kValues, block.begin() + C::kValues + 5),
              (std::vector<uint8_t>{10, 20, 30, 40, 50}));
    const uint32_t last = C::kValues + 17 * C::kValuesPerFormat;
    EXPECT_EQ(std::vector<uint8_t>(block.begin() + last, block.begin() + last + 5),
              (std::vector<uint8_t>{6, 7, 8, 9, 10}));
    const uint32_t tvi720 = C::kValues + 7 * C::kValuesPerFormat;
    EXPECT_EQ(block[tvi720], 0);
    EXPECT_EQ(block[C::kSize - 1], 0);

    CustomConfig::packColorDefaults(file, 99, block.data());
    EXPECT_EQ(std::vector<uint8_t>(block.begin() + C::kValues, block.begin() + C::kValues + 5),
              (std::vector<uint8_t>{1, 2, 3, 4, 5}));
}

TEST(CustomConfigDeviceType, WarnsWhenTheModelCodeNamesAnotherType) {
    EXPECT_EQ(CustomConfig::deviceTypeOf("MODEL-A"), 1);
    EXPECT_EQ(CustomConfig::deviceTypeOf("MODEL-Z"), -1);
    EXPECT_EQ(CustomConfig::deviceTypeWarning(ini("[KeyPara]\nDevType = 2\n")), "");
    EXPECT_EQ(CustomConfig::deviceTypeWarning(
                  ini("[DeviceType]\nDeviceType = MODEL-B\n[KeyPara]\nDevType = 2\n")),
              "");
    EXPECT_EQ(CustomConfig::deviceTypeWarning(
                  ini("[DeviceType]\nDeviceType = MODEL-B\n[KeyPara]\nDevType = 1\n")),
              "The DeviceType is MODEL-B <1>, please check it that you want or");
}

TEST(CustomConfigSample, ShippedFileDescribesAnEightChannelRecorder) {
    const VyIniSettings file(VY_RESOURCES_DIR "/custom-config.ini");
    std::vector<uint8_t> record(R::kSize);
    ASSERT_TRUE(CustomConfig::packDeviceDefaults(file, record.data()).proceed());
    EXPECT_EQ(record[R::kNumberSettingAudioNum], 8);
    EXPECT_EQ(record[R::kDiskConfigMaxDiskNum], 4);
    EXPECT_EQ(textAt(record, R::kDiskNodes + 3 * R::kDiskNodeSize), "sdd");
    EXPECT_EQ(textAt(record, R::kUsbNodes + R::kUsbNodeSize), "sdg");
    EXPECT_EQ(textAt(record, R::kUserInfoDefDefDeviceName), "NVR 8CH");
    EXPECT_EQ(CustomConfig::deviceTypeWarning(file), "");

    std::vector<uint8_t> block(C::kSize);
    CustomConfig::packColorDefaults(file, 3, block.data());
    EXPECT_EQ(block[C::kValues + 7 * C::kValuesPerFormat], 118);
    CustomConfig::packColorDefaults(file, 0, block.data());
    EXPECT_EQ(block[C::kValues + 17 * C::kValuesPerFormat], 128);
}
