#include "app/CustomConfig.h"

#include <algorithm>
#include <cstring>

#include "protocol/ByteOrder.h"
#include "protocol/ColorDefaultBlock.h"
#include "protocol/DefaultParamSet.h"
#include "protocol/DeviceDefaultRecord.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyLog.h"

namespace {

struct ModelRow {
    const char* code;
    int deviceType;
};

// Model codes of our product line and the numeric device type each one is built as.
constexpr ModelRow kModelTable[] = {
    {"MODEL-A", 1}, {"MODEL-B", 2}, {"MODEL-C", 3}, {"MODEL-D", 4},
    {"MODEL-E", 5}, {"MODEL-F", 6}, {"MODEL-G", 7}, {"MODEL-H", 8},
};

struct ColorSectionRow {
    uint32_t code;
    const char* section;
};

constexpr ColorSectionRow kColorSections[] = {
    {2, "Color_AHD_6124B"},  {3, "Color_TVI_2823/2853"}, {7, "Color_AHD_6134"},
    {8, "Color_AHD_6134C"},  {9, "Color_TVI_2826"},      {10, "Color_TVI_2827"},
    {11, "Color_TVI_2827C"}, {12, "Color_AHD_6158"},     {13, "Color_AHD_6158C"},
    {14, "Color_TVI_2829"},  {15, "Color_TVI_2828"},     {16, "Color_TVI_2830"},
    {17, "Color_TVI_2831"},
};
constexpr const char* kDefaultColorSection = "Color_NORMAL";

void putU64(uint8_t* record, uint32_t offset, uint64_t value) {
    ByteOrder::storeLe64(record + offset, value);
}

uint64_t convert(char conversion, const VyString& text) {
    switch (conversion) {
    case 'I':
        return static_cast<uint64_t>(static_cast<int64_t>(text.toInt()));
    case 'L': {
        // Masks and block sizes: unsigned, but a negative mask written by hand is kept too.
        bool ok = false;
        const unsigned long long u = text.toULongLong(&ok);
        return ok ? u : static_cast<uint64_t>(text.toLongLong());
    }
    default:
        return text.toUInt();
    }
}

bool fits(uint64_t value, uint32_t size, bool isSigned) {
    if (size >= 8)
        return true;
    const int bits = 8 * static_cast<int>(size);
    if (!isSigned)
        return value < (uint64_t(1) << bits);
    const auto v = static_cast<int64_t>(value);
    return v >= -(int64_t(1) << (bits - 1)) && v < (int64_t(1) << (bits - 1));
}

// Longest prefix of at most maxBytes that does not cut a UTF-8 sequence.
size_t utf8Prefix(const std::string& s, size_t maxBytes) {
    if (s.size() <= maxBytes)
        return s.size();
    size_t n = maxBytes;
    while (n > 0 && (static_cast<uint8_t>(s[n]) & 0xC0) == 0x80)
        --n;
    return n;
}

void storeNodes(const VyStringList& nodes, int count, uint8_t* dst, uint32_t nodeSize) {
    for (int i = 0; i < count; ++i) {
        const std::string& name = nodes.at(i).toStdString();
        std::memcpy(dst + size_t(i) * nodeSize, name.data(), utf8Prefix(name, nodeSize - 1));
    }
}

} // namespace

bool CustomConfig::storeField(const CustomField& field, const VyString& text, uint8_t* record,
                              size_t recordSize) {
    if (field.size == 0 || field.offset > recordSize || field.size > recordSize - field.offset)
        return false;
    uint8_t* dst = record + field.offset;
    if (field.storage == CustomField::Text) {
        std::memset(dst, 0, field.size);
        const std::string& utf8 = text.toStdString();
        std::memcpy(dst, utf8.data(), utf8Prefix(utf8, field.size - 1));
        return true;
    }
    const uint64_t value = convert(field.conversion, text);
    if (!fits(value, field.size, field.storage == CustomField::Signed))
        vyStartupLog("custom-config.ini: %s = %s does not fit in %u byte(s), kept the low "
                     "bytes\n",
                     field.key, text.c_str(), field.size);
    ByteOrder::storeLe(dst, value, field.size);
    return true;
}

VyStringList CustomConfig::nodeList(const VyString& text) {
    VyString compact = text;
    compact.remove(' ');
    compact.remove('\t');
    return compact.split(',', VyString::SkipEmptyParts);
}

CustomConfig::Outcome CustomConfig::packDeviceDefaults(const VyIniSettings& ini, uint8_t* record) {
    namespace R = DeviceDefaultRecord;
    std::memset(record, 0, R::kSize);

    const int type = ini.value("DeviceType/Type").toInt();
    ByteOrder::storeLe(record + R::kDeviceTypeType, static_cast<uint32_t>(type), 4);
    if (type != 0) {
        // A factory build: the function set comes from the mask alone.
        const uint64_t mask = convert('L', ini.value("CustomFuncs/FactoryConfigMask"));
        putU64(record, R::kCustomFuncsFactoryConfigMask, mask);
        // Bit i of the mask switches factory function i on; the record keeps the same bits.
        putU64(record, R::kFunctionMask, mask);
        return Outcome();
    }
    record[R::kCustomFuncsPresent] = 1;

    for (const CustomField& field : R::kFields)
        storeField(field, ini.value(field.key), record, R::kSize);

    const VyStringList disks = nodeList(ini.value("DiskConfig/DiskNodes"));
    const VyStringList esatas = nodeList(ini.value("DiskConfig/EsataNodes"));
    const VyStringList usbs = nodeList(ini.value("DiskConfig/usbNodes"));
    const int diskCount = static_cast<int>(ini.value("DiskConfig/MaxDiskNum").toUInt());
    const int esataCount = static_cast<int>(ini.value("DiskConfig/MaxEsataNum").toUInt());
    const int usbCount = static_cast<int>(ini.value("DiskConfig/MaxUsbNum").toUInt());

    // A count above the list would make App open nodes that do not exist; the device must
    // not start with such a file.
    const struct {
        const char* text;
        int count;
        int nodes;
    } checks[] = {
        {"DiskNodes configure incomplete: disk count(%1), node count(%2), please check "
         "custom-config.ini !!!\n",
         diskCount, disks.size()},
        {"EsataNodes configure incomplete: esata count(%1), node count(%2), please check "
         "custom-config.ini !!!\n",
         esataCount, esatas.size()},
        {"usbNodes configure incomplete: usb count(%1), node count(%2), please check "
         "custom-config.ini !!!\n",
         usbCount, usbs.size()},
    };
    for (const auto& check : checks) {
        if (check.count < 0 || check.count > kMaxNodeCount || check.count > check.nodes) {
            Outcome out;
            out.exitStatus = kNodeCountExitStatus;
            out.message = VyString(check.text).arg(check.count).arg(check.nodes);
            return out;
        }
    }

    record[R::kDiskConfigMaxDiskNum] = static_cast<uint8_t>(diskCount);
    record[R::kDiskConfigMaxEsataNum] = static_cast<uint8_t>(esataCount);
    record[R::kDiskConfigMaxUsbNum] = static_cast<uint8_t>(usbCount);
    storeNodes(disks, diskCount, record + R::kDiskNodes, R::kDiskNodeSize);
    storeNodes(esatas, esataCount, record + R::kEsataNodes, R::kDiskNodeSize);
    storeNodes(usbs, usbCount, record + R::kUsbNodes, R::kUsbNodeSize);
    return Outcome();
}

void CustomConfig::patchDefaultParamSet(const VyIniSettings& ini, uint8_t* paramSet) {
    for (const CustomField& field : DefaultParamSet::kFields)
        storeField(field, ini.value(field.key), paramSet, DefaultParamSet::kSize);
}

int CustomConfig::deviceTypeOf(const VyString& modelCode) {
    for (const ModelRow& row : kModelTable)
        if (modelCode == row.code)
            return row.deviceType;
    return -1;
}

VyString CustomConfig::deviceTypeWarning(const VyIniSettings& ini) {
    const VyString code = ini.value("DeviceType/DeviceType");
    if (code.isEmpty())
        return VyString();
    const unsigned configured = ini.value("KeyPara/DevType").toUInt();
    if (deviceTypeOf(code) == static_cast<int>(configured))
        return VyString();
    return VyString("The DeviceType is %1 <%2>, please check it that you want or")
        .arg(code)
        .arg(configured);
}

const char* CustomConfig::colorSection(uint32_t profileCode) {
    for (const ColorSectionRow& row : kColorSections)
        if (row.code == profileCode)
            return row.section;
    return kDefaultColorSection;
}

int CustomConfig::parseColorValues(const VyString& text, uint8_t* dst, size_t available) {
    std::string kept;
    for (char c : text.toStdString())
        if (c == ',' || (c >= '0' && c <= '9'))
            kept += c;
    const VyStringList parts = VyString(kept).split(',', VyString::SkipEmptyParts);
    if (parts.size() == static_cast<int>(ColorDefaultBlock::kValuesPerFormat) &&
        available >= ColorDefaultBlock::kValuesPerFormat) {
        for (int i = 0; i < parts.size(); ++i) {
            // Low byte of the number; one too long for 64 bits saturates, as strtoul would.
            bool ok = false;
            const unsigned long long n = parts.at(i).toULongLong(&ok);
            dst[i] = ok ? static_cast<uint8_t>(n) : 0xFF;
        }
        return 0;
    }
    const size_t cleared = std::min(static_cast<size_t>(parts.size()), available);
    std::memset(dst, 0, cleared);
    return -1;
}

void CustomConfig::packColorDefaults(const VyIniSettings& ini, uint32_t profileCode,
                                     uint8_t* block) {
    namespace C = ColorDefaultBlock;
    std::memset(block, 0, C::kSize);
    ByteOrder::storeLe(block + C::kProfileCode, profileCode, 4);
    ByteOrder::storeLe(block + C::kFormatCount, C::kFormatCountValue, 4);
    const VyString section = VyString(colorSection(profileCode)) + "/";
    for (uint32_t i = 0; i < C::kFormatCountValue; ++i) {
        const VyString key = section + C::kFormats[i] + "ColorDefaultVal";
        const uint32_t offset = C::kValues + i * C::kValuesPerFormat;
        const VyString text = ini.value(key);
        if (parseColorValues(text, block + offset, C::kSize - offset) != 0 && !text.isEmpty())
            vyStartupLog("custom-config.ini: %s does not hold five values\n", key.c_str());
    }
}
