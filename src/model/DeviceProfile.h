#pragma once
// What this model of recorder offers, as the settings pages need it: the switches and
// counts of the customisation file and the channel count of the system information. One
// global copy, filled by start-up once the customisation file has been read; zero (nothing
// offered) until then. Tests set it directly.
#include <cstddef>
#include <cstdint>

class VyIniSettings;

struct DeviceProfile {
    int channelCount = 0;
    int alarmInputNum = 0;            // NumberSetting/AlarmInputNum
    int alarmOutputNum = 0;           // NumberSetting/AlarmOutputNum
    int audioNum = 0;                 // NumberSetting/AudioNum
    int maxDiskNum = 0;               // DiskConfig/MaxDiskNum
    bool ftpEnable = false;           // FuncSwitch/FtpEnable
    bool emailScheduleEnable = false; // FuncSwitch/EmailScheduleEnable
    bool emailTestEnable = false;     // FuncSwitch/EamilTestEnable
    bool enablePirRecord = false;     // RecordSchedulDef/EnablePirRecord
    bool enableMotionRecord = false;  // RecordSchedulDef/EnableMotionRecord
    bool enableNormalRecord = false;  // RecordSchedulDef/EnableNormalRecord
    bool usePersianDate = false;      // CustomFuncs/UsePersianDate
    char upgradePrefix[33] = {};      // Upgrade/UpgradePacketPreFix, NUL-terminated
    char deviceType[33] = {};         // DeviceType/DeviceType, NUL-terminated
    uint32_t aiAnalyzeCap = 0;        // DevInfo/AIAnalyzeCap: AnalyticsCap bits
    int aiAnalyzeChannels = 0;        // DevInfo/AIAnalyzeChannels: channels from 0 analysed

    static DeviceProfile& current();

    // The switches and counts packed in the device default record (DeviceDefaultRecord).
    void readDeviceRecord(const uint8_t* record, size_t size);
    // The record-type switches, which go to the recorder in the default parameter set
    // rather than in the device record.
    void readRecordSwitches(const VyIniSettings& ini);
};
