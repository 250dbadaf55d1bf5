#include "model/DeviceProfile.h"

#include "protocol/DeviceDefaultRecord.h"
#include "runtime/VyIniSettings.h"

DeviceProfile& DeviceProfile::current() {
    static DeviceProfile profile;
    return profile;
}

void DeviceProfile::readDeviceRecord(const uint8_t* record, size_t size) {
    auto byteAt = [&](uint32_t offset) { return offset < size ? record[offset] : uint8_t(0); };
    alarmInputNum = byteAt(DeviceDefaultRecord::kNumberSettingAlarmInputNum);
    alarmOutputNum = byteAt(DeviceDefaultRecord::kNumberSettingAlarmOutputNum);
    audioNum = byteAt(DeviceDefaultRecord::kNumberSettingAudioNum);
    maxDiskNum = byteAt(DeviceDefaultRecord::kDiskConfigMaxDiskNum);
    ftpEnable = byteAt(DeviceDefaultRecord::kFuncSwitchFtpEnable) != 0;
    emailScheduleEnable = byteAt(DeviceDefaultRecord::kFuncSwitchEmailScheduleEnable) != 0;
    emailTestEnable = byteAt(DeviceDefaultRecord::kFuncSwitchEamilTestEnable) != 0;
    usePersianDate = byteAt(DeviceDefaultRecord::kCustomFuncsUsePersianDate) != 0;
    // Text fields of 32 bytes, not always terminated: cut at the field's end.
    auto text = [&](uint32_t offset, char* out) {
        for (uint32_t i = 0; i < 32; ++i)
            out[i] = char(byteAt(offset + i));
        out[32] = '\0';
    };
    text(DeviceDefaultRecord::kUpgradeUpgradePacketPreFix, upgradePrefix);
    text(DeviceDefaultRecord::kDeviceTypeDeviceType, deviceType);
    // Little-endian like every field of the record.
    aiAnalyzeCap = 0;
    for (uint32_t i = 0; i < 4; ++i)
        aiAnalyzeCap |= uint32_t(byteAt(DeviceDefaultRecord::kDevInfoAIAnalyzeCap + i)) << (8 * i);
    aiAnalyzeChannels = byteAt(DeviceDefaultRecord::kDevInfoAIAnalyzeChannels);
}

void DeviceProfile::readRecordSwitches(const VyIniSettings& ini) {
    enablePirRecord = ini.intValue("RecordSchedulDef/EnablePirRecord") != 0;
    enableMotionRecord = ini.intValue("RecordSchedulDef/EnableMotionRecord") != 0;
    enableNormalRecord = ini.intValue("RecordSchedulDef/EnableNormalRecord") != 0;
}
