#pragma once
// The default parameter set: the recorder service's factory settings, fetched with (600, 3),
// patched from the second group of keys of the customisation file and returned with (600, 10).
// Only the patched fields are laid down here; the rest of the block belongs to the recorder.
// All integers are little-endian.
#include <cstdint>

#include "protocol/CustomField.h"

namespace DefaultParamSet {

constexpr uint32_t kSize = 690216; // bytes

constexpr uint32_t kKeyParaDevType = 0;                   // KeyPara/DevType: u32
constexpr uint32_t kKeyParaIELangMask = 4;                // KeyPara/IELangMask: u32
constexpr uint32_t kKeyParaExtendIELangMask = 8;          // KeyPara/ExtendIELangMask: u32
constexpr uint32_t kKeyParaIELanguage = 12;               // KeyPara/IELanguage: u32
constexpr uint32_t kSystemInfoDefVideoFormat = 16;        // SystemInfo/DefVideoFormat: u32
constexpr uint32_t kGeneralSettingLangMask = 20;          // GeneralSetting/LangMask: u32
constexpr uint32_t kGeneralSettingExtendLangMask = 24;    // GeneralSetting/ExtendLangMask: u32
constexpr uint32_t kMainStreamDefResolutionMode = 28;     // MainStream/DefResolutionMode: u32
constexpr uint32_t kMainStreamDefResolution = 32;         // MainStream/DefResolution: u32
constexpr uint32_t kMainStreamDefAudioEnable = 36;        // MainStream/DefAudioEnable: u32
constexpr uint32_t kMainStreamDefBitrate = 40;            // MainStream/DefBitrate: u32
constexpr uint32_t kMainStreamVideoQuality = 44;          // MainStream/VideoQuality: u32
constexpr uint32_t kSubStreamDefaultFpsValue = 48;        // SubStream/DefaultFpsValue: u32
constexpr uint32_t kSubStreamDefaultBitrateValue = 52;    // SubStream/DefaultBitrateValue: u32
constexpr uint32_t kSubStreamVideoQuality = 56;           // SubStream/VideoQuality: u32
constexpr uint32_t kDisplayOutputDefScreenSplitMode = 60; // DisplayOutputDef/ScreenSplitMode: u32
constexpr uint32_t kDisplayOutputDefVgaResolution = 64;   // DisplayOutput/DefVgaResolution: u32
constexpr uint32_t kDDNSDDNSUseFlag = 68;                 // DDNS/DDNSUseFlag: u32
constexpr uint32_t kDDNSExtendDDNSFlag = 72;              // DDNS/ExtendDDNSFlag: u32
constexpr uint32_t kHddManageOverwite = 76;               // HddManage/Overwite: i32
constexpr uint32_t kHddManageOverWritePeriod = 80;        // HddManage/OverWritePeriod: i32
constexpr uint32_t kGeneralSettingLanguage = 84;          // GeneralSetting/Language: i32
constexpr uint32_t kRecordSchedulDefEnableMotionRecord =
    88; // RecordSchedulDef/EnableMotionRecord: i32
constexpr uint32_t kRecordSchedulDefEnableNormalRecord =
    92; // RecordSchedulDef/EnableNormalRecord: i32
constexpr uint32_t kRecordSchedulDefEnablePirRecord = 96; // RecordSchedulDef/EnablePirRecord: i32
constexpr uint32_t kDDNSDefaultServerAddr = 100;          // DDNSDefault/ServerAddr: text, 64 bytes

constexpr CustomField kFields[] = {
    customU32("KeyPara/DevType", kKeyParaDevType),
    customU32("KeyPara/IELangMask", kKeyParaIELangMask),
    customU32("KeyPara/ExtendIELangMask", kKeyParaExtendIELangMask),
    customU32("KeyPara/IELanguage", kKeyParaIELanguage),
    customU32("SystemInfo/DefVideoFormat", kSystemInfoDefVideoFormat),
    customU32("GeneralSetting/LangMask", kGeneralSettingLangMask),
    customU32("GeneralSetting/ExtendLangMask", kGeneralSettingExtendLangMask),
    customU32("MainStream/DefResolutionMode", kMainStreamDefResolutionMode),
    customU32("MainStream/DefResolution", kMainStreamDefResolution),
    customU32("MainStream/DefAudioEnable", kMainStreamDefAudioEnable),
    customU32("MainStream/DefBitrate", kMainStreamDefBitrate),
    customU32("MainStream/VideoQuality", kMainStreamVideoQuality),
    customU32("SubStream/DefaultFpsValue", kSubStreamDefaultFpsValue),
    customU32("SubStream/DefaultBitrateValue", kSubStreamDefaultBitrateValue),
    customU32("SubStream/VideoQuality", kSubStreamVideoQuality),
    customU32("DisplayOutputDef/ScreenSplitMode", kDisplayOutputDefScreenSplitMode),
    customU32("DisplayOutput/DefVgaResolution", kDisplayOutputDefVgaResolution),
    customU32("DDNS/DDNSUseFlag", kDDNSDDNSUseFlag),
    customU32("DDNS/ExtendDDNSFlag", kDDNSExtendDDNSFlag),
    customI32("HddManage/Overwite", kHddManageOverwite),
    customI32("HddManage/OverWritePeriod", kHddManageOverWritePeriod),
    customI32("GeneralSetting/Language", kGeneralSettingLanguage),
    customI32("RecordSchedulDef/EnableMotionRecord", kRecordSchedulDefEnableMotionRecord),
    customI32("RecordSchedulDef/EnableNormalRecord", kRecordSchedulDefEnableNormalRecord),
    customI32("RecordSchedulDef/EnablePirRecord", kRecordSchedulDefEnablePirRecord),
    customText("DDNSDefault/ServerAddr", kDDNSDefaultServerAddr, 64),
};

static_assert(customFieldsDisjoint(kFields, 0, kSize), "fields overlap");

} // namespace DefaultParamSet
