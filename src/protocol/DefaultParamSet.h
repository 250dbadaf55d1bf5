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
    {"KeyPara/DevType", 'U', CustomField::Unsigned, kKeyParaDevType, 4},
    {"KeyPara/IELangMask", 'U', CustomField::Unsigned, kKeyParaIELangMask, 4},
    {"KeyPara/ExtendIELangMask", 'U', CustomField::Unsigned, kKeyParaExtendIELangMask, 4},
    {"KeyPara/IELanguage", 'U', CustomField::Unsigned, kKeyParaIELanguage, 4},
    {"SystemInfo/DefVideoFormat", 'U', CustomField::Unsigned, kSystemInfoDefVideoFormat, 4},
    {"GeneralSetting/LangMask", 'U', CustomField::Unsigned, kGeneralSettingLangMask, 4},
    {"GeneralSetting/ExtendLangMask", 'U', CustomField::Unsigned, kGeneralSettingExtendLangMask, 4},
    {"MainStream/DefResolutionMode", 'U', CustomField::Unsigned, kMainStreamDefResolutionMode, 4},
    {"MainStream/DefResolution", 'U', CustomField::Unsigned, kMainStreamDefResolution, 4},
    {"MainStream/DefAudioEnable", 'U', CustomField::Unsigned, kMainStreamDefAudioEnable, 4},
    {"MainStream/DefBitrate", 'U', CustomField::Unsigned, kMainStreamDefBitrate, 4},
    {"MainStream/VideoQuality", 'U', CustomField::Unsigned, kMainStreamVideoQuality, 4},
    {"SubStream/DefaultFpsValue", 'U', CustomField::Unsigned, kSubStreamDefaultFpsValue, 4},
    {"SubStream/DefaultBitrateValue", 'U', CustomField::Unsigned, kSubStreamDefaultBitrateValue, 4},
    {"SubStream/VideoQuality", 'U', CustomField::Unsigned, kSubStreamVideoQuality, 4},
    {"DisplayOutputDef/ScreenSplitMode", 'U', CustomField::Unsigned,
     kDisplayOutputDefScreenSplitMode, 4},
    {"DisplayOutput/DefVgaResolution", 'U', CustomField::Unsigned, kDisplayOutputDefVgaResolution,
     4},
    {"DDNS/DDNSUseFlag", 'U', CustomField::Unsigned, kDDNSDDNSUseFlag, 4},
    {"DDNS/ExtendDDNSFlag", 'U', CustomField::Unsigned, kDDNSExtendDDNSFlag, 4},
    {"HddManage/Overwite", 'I', CustomField::Signed, kHddManageOverwite, 4},
    {"HddManage/OverWritePeriod", 'I', CustomField::Signed, kHddManageOverWritePeriod, 4},
    {"GeneralSetting/Language", 'I', CustomField::Signed, kGeneralSettingLanguage, 4},
    {"RecordSchedulDef/EnableMotionRecord", 'I', CustomField::Signed,
     kRecordSchedulDefEnableMotionRecord, 4},
    {"RecordSchedulDef/EnableNormalRecord", 'I', CustomField::Signed,
     kRecordSchedulDefEnableNormalRecord, 4},
    {"RecordSchedulDef/EnablePirRecord", 'I', CustomField::Signed, kRecordSchedulDefEnablePirRecord,
     4},
    {"DDNSDefault/ServerAddr", 'T', CustomField::Text, kDDNSDefaultServerAddr, 64},
};

static_assert(customFieldsDisjoint(kFields, 0, kSize), "fields overlap");

} // namespace DefaultParamSet
