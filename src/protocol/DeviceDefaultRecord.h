#pragma once
// The device default record: the device customisation file packed for the recorder service,
// sent once at start-up with (600, 4). The recorder simulator reads it through this header too.
// All integers are little-endian; unused bytes are zero.
#include <cstdint>

#include "protocol/CustomField.h"

namespace DeviceDefaultRecord {

constexpr uint32_t kSize = 692696; // bytes; also the second word of the first handshake message

// Filled from "CustomFuncs/FactoryConfigMask" when "DeviceType/Type" is non-zero: bit i
// enables factory function i (bits 0 to 63).
constexpr uint32_t kFunctionMask = 0; // u64
// 1 when "DeviceType/Type" is zero and the keys of the customisation file were read.
constexpr uint32_t kCustomFuncsPresent = 8; // u8

// One field per key of the customisation file, grouped by width so that nothing is padded.
constexpr uint32_t kCustomFuncsFactoryConfigMask = 16;     // CustomFuncs/FactoryConfigMask: u64
constexpr uint32_t kNumberSettingBigDvrfsBlkSize = 24;     // NumberSetting/BigDvrfsBlkSize: u64
constexpr uint32_t kNumberSettingSmallDvrfsBlkSize = 32;   // NumberSetting/SmallDvrfsBlkSize: u64
constexpr uint32_t kNumberSettingTalkDvrfsBlkSize = 40;    // NumberSetting/TalkDvrfsBlkSize: u64
constexpr uint32_t kNumberSettingSnapSaveNum = 48;         // NumberSetting/SnapSaveNum: u32
constexpr uint32_t kNumberSettingBigDvrfsHoldSec = 52;     // NumberSetting/BigDvrfsHoldSec: u32
constexpr uint32_t kNumberSettingBigDvrfsMaxBlkNum = 56;   // NumberSetting/BigDvrfsMaxBlkNum: u32
constexpr uint32_t kNumberSettingBigDvrfsMinBlkNum = 60;   // NumberSetting/BigDvrfsMinBlkNum: u32
constexpr uint32_t kNumberSettingSmallDvrfsHoldSec = 64;   // NumberSetting/SmallDvrfsHoldSec: u32
constexpr uint32_t kNumberSettingSmallDvrfsMaxBlkNum = 68; // NumberSetting/SmallDvrfsMaxBlkNum: u32
constexpr uint32_t kNumberSettingSmallDvrfsMinBlkNum = 72; // NumberSetting/SmallDvrfsMinBlkNum: u32
constexpr uint32_t kNumberSettingTalkDvrfsHoldSec = 76;    // NumberSetting/TalkDvrfsHoldSec: u32
constexpr uint32_t kNumberSettingTalkDvrfsMinBlkNum = 80;  // NumberSetting/TalkDvrfsMinBlkNum: u32
constexpr uint32_t kNumberSettingTalkDvrfsMaxBlkNum = 84;  // NumberSetting/TalkDvrfsMaxBlkNum: u32
constexpr uint32_t kNumberSettingSnapFileSize = 88;        // NumberSetting/SnapFileSize: u32
constexpr uint32_t kCopCustomSubStreamFpsPal = 92;         // CopCustom/SubStreamFpsPal: u32
constexpr uint32_t kCopCustomSubStreamFpsNtsc = 96;        // CopCustom/SubStreamFpsNtsc: u32
constexpr uint32_t kDecodeBufDecodeBufLen = 100;           // DecodeBuf/DecodeBufLen: u32
constexpr uint32_t kBlockLenReadBlockLen = 104;            // BlockLen/ReadBlockLen: u32
constexpr uint32_t kFPSFpsTotalPal = 108;                  // FPS/FpsTotalPal: u32
constexpr uint32_t kFPSFpsTotalNtsc = 112;                 // FPS/FpsTotalNtsc: u32
constexpr uint32_t kFPSD1FpsTotalPal = 116;                // FPS/D1FpsTotalPal: u32
constexpr uint32_t kFPSD1FpsTotalNts = 120;                // FPS/D1FpsTotalNts: u32
constexpr uint32_t kFPSSupportResolutionMode = 124;        // FPS/SupportResolutionMode: u32
constexpr uint32_t kDevInfoUpgradeType = 128;              // DevInfo/UpgradeType: u32
constexpr uint32_t kDevInfoSerialNum = 132;                // DevInfo/SerialNum: u32
constexpr uint32_t kDevInfoAIAnalyzeCap = 136;             // DevInfo/AIAnalyzeCap: u32
constexpr uint32_t kDevInfoSubStreamMin = 140;             // DevInfo/SubStreamMin: u32
constexpr uint32_t kDevInfoSubStreamMax = 144;             // DevInfo/SubStreamMax: u32
constexpr uint32_t kDevInfoSubStreamRestrict = 148;        // DevInfo/SubStreamRestrict: u32
constexpr uint32_t kKeyParaDevType = 152;                  // KeyPara/DevType: u32
constexpr uint32_t kKeyParaIECustom = 156;                 // KeyPara/IECustom: u32
constexpr uint32_t kKeyParaIELogo = 160;                   // KeyPara/IELogo: u32
constexpr uint32_t kSubStreamDefaultFps = 164;             // SubStream/DefaultFps: u32
constexpr uint32_t kPlayBackTimeRange = 168;               // PlayBack/TimeRange: u32
constexpr uint32_t kDeviceTypeType = 172;                  // DeviceType/Type: i32
constexpr uint32_t kCustomFuncsEnableSmartSearch = 176;    // CustomFuncs/EnableSmartSearch: i8
constexpr uint32_t kCustomFuncsEnableSerial = 177;         // CustomFuncs/EnableSerial: i8
constexpr uint32_t kCustomFuncsEnableInstantPlayback = 178; // CustomFuncs/EnableInstantPlayback: i8
constexpr uint32_t kCustomFuncsEnableHdmiVgaHomol = 179;    // CustomFuncs/EnableHdmiVgaHomol: i8
constexpr uint32_t kCustomFuncsHdmiEnable = 180;            // CustomFuncs/HdmiEnable: i8
constexpr uint32_t kCustomFuncsVgaEnable = 181;             // CustomFuncs/VgaEnable: i8
constexpr uint32_t kCustomFuncsVspotEnable = 182;           // CustomFuncs/VspotEnable: i8
constexpr uint32_t kCustomFuncsVSpotDevice = 183;           // CustomFuncs/VSpotDevice: i8
constexpr uint32_t kCustomFuncsAlarmEnable = 184;           // CustomFuncs/AlarmEnable: i8
constexpr uint32_t kCustomFuncsAlarmLinkagePtzEnable = 185; // CustomFuncs/AlarmLinkagePtzEnable: i8
constexpr uint32_t kCustomFuncsEnablePowerPassword = 186;   // CustomFuncs/EnablePowerPassword: i8
constexpr uint32_t kCustomFuncsPreRecordTimeMode = 187;     // CustomFuncs/PreRecordTimeMode: i8
constexpr uint32_t kCustomFuncsRecordDelayTimeMode = 188;   // CustomFuncs/RecordDelayTimeMode: i8
constexpr uint32_t kCustomFuncsEnableRECflagForIE = 189;    // CustomFuncs/EnableRECflagForIE: i8
constexpr uint32_t kCustomFuncsEnablePromptSystem = 190;    // CustomFuncs/EnablePromptSystem: i8
constexpr uint32_t kCustomFuncsEnableViDetectAuto = 191;    // CustomFuncs/EnableViDetectAuto: i8
constexpr uint32_t kCustomFuncsEnableDemo = 192;            // CustomFuncs/EnableDemo: i8
constexpr uint32_t kCustomFuncsEnableSpotPoll = 193;        // CustomFuncs/EnableSpotPoll: i8
constexpr uint32_t kCustomFuncsPushSwitch = 194;            // CustomFuncs/PushSwitch: i8
constexpr uint32_t kFuncSwitchSupport960HEnable = 195;      // FuncSwitch/Support960HEnable: i8
constexpr uint32_t kFuncSwitchEsataEnable = 196;            // FuncSwitch/EsataEnable: i8
constexpr uint32_t kFuncSwitchRtspEnable = 197;             // FuncSwitch/RtspEnable: i8
constexpr uint32_t kFuncSwitchFtpEnable = 198;              // FuncSwitch/FtpEnable: i8
constexpr uint32_t kFuncSwitchEncodeEnable = 199;           // FuncSwitch/EncodeEnable: i8
constexpr uint32_t kFuncSwitchEamilTestEnable = 200;        // FuncSwitch/EamilTestEnable: i8
constexpr uint32_t kFuncSwitchEmailScheduleEnable = 201;    // FuncSwitch/EmailScheduleEnable: i8
constexpr uint32_t kFuncSwitchFtpAutoUpgradeEnable = 202;   // FuncSwitch/FtpAutoUpgradeEnable: i8
constexpr uint32_t kFuncSwitchMoudles3GEnable = 203;        // FuncSwitch/Moudles3GEnable: i8
constexpr uint32_t kFuncSwitchMoudlesPPoeEnable = 204;      // FuncSwitch/MoudlesPPoeEnable: i8
constexpr uint32_t kFuncSwitchHsMoblieCrlEnable = 205;      // FuncSwitch/HsMoblieCrlEnable: i8
constexpr uint32_t kFuncSwitchLogEnable = 206;              // FuncSwitch/LogEnable: i8
constexpr uint32_t kFuncSwitchLthttpAlarmEnable = 207;      // FuncSwitch/LthttpAlarmEnable: i8
constexpr uint32_t kFuncSwitchKestrowCloudStorage = 208;    // FuncSwitch/KestrowCloudStorage: i8
constexpr uint32_t kFuncSwitchUsePolygonPirArea = 209;      // FuncSwitch/UsePolygonPirArea: i8
constexpr uint32_t kFuncSwitchCustomerBankEnable = 210;     // FuncSwitch/CustomerBankEnable: i8
constexpr uint32_t kDebugFuncSwitchRunOnNfsEnable = 211;    // DebugFuncSwitch/RunOnNfsEnable: i8
constexpr uint32_t kDebugFuncSwitchDebugOnNfsEnable = 212;  // DebugFuncSwitch/DebugOnNfsEnable: i8
constexpr uint32_t kDebugFuncSwitchNoWatchDogEnable = 213;  // DebugFuncSwitch/NoWatchDogEnable: i8
constexpr uint32_t kDDNSSwitchDdnsTestEnable = 214;         // DDNSSwitch/DdnsTestEnable: i8
constexpr uint32_t kDDNSSwitchDdnsProvider1Enable = 215;    // DDNSSwitch/DdnsProvider1Enable: i8
constexpr uint32_t kDDNSSwitchDdnsProvider2Enable = 216;    // DDNSSwitch/DdnsProvider2Enable: i8
constexpr uint32_t kDDNSSwitchDdnsProvider3Enable = 217;    // DDNSSwitch/DdnsProvider3Enable: i8
constexpr uint32_t kDDNSSwitchDdnsProvider4Enable = 218;    // DDNSSwitch/DdnsProvider4Enable: i8
constexpr uint32_t kDDNSSwitchDdnsProvider5Enable = 219;    // DDNSSwitch/DdnsProvider5Enable: i8
constexpr uint32_t kDDNSSwitchDdnsProvider6Enable = 220;    // DDNSSwitch/DdnsProvider6Enable: i8
constexpr uint32_t kDDNSSwitchDdnsProvider7Enable = 221;    // DDNSSwitch/DdnsProvider7Enable: i8
constexpr uint32_t kCopCustomFrameAuto = 222;               // CopCustom/FrameAuto: i8
constexpr uint32_t kP2pTypeP2pPushEnable = 223;             // P2pType/P2pPushEnable: i8
constexpr uint32_t kFPSLimitFpsSourceEnable = 224;          // FPS/LimitFpsSourceEnable: i8
constexpr uint32_t kFPSFpsReal720PEnable = 225;             // FPS/FpsReal720PEnable: i8
constexpr uint32_t kFPSFpsReal1080PEnable = 226;            // FPS/FpsReal1080PEnable: i8
constexpr uint32_t kFPSFpsReal3mpEnable = 227;              // FPS/FpsReal3mpEnable: i8
constexpr uint32_t kFPSFpsReal4mpEnable = 228;              // FPS/FpsReal4mpEnable: i8
constexpr uint32_t kSubStreamSubFpsLimitEnable = 229;       // SubStream/SubFpsLimitEnable: i8
constexpr uint32_t kCustomFuncsVoutEnable = 230;            // CustomFuncs/VoutEnable: u8
constexpr uint32_t kCustomFuncsEnableNrahd20orOtherfps =
    231;                                                  // CustomFuncs/EnableNrahd20orOtherfps: u8
constexpr uint32_t kCustomFuncsUsePersianDate = 232;      // CustomFuncs/UsePersianDate: u8
constexpr uint32_t kCustomFuncsEnableSZStream = 233;      // CustomFuncs/EnableSZStream: u8
constexpr uint32_t kCustomFuncsKeyBoardEnble = 234;       // CustomFuncs/KeyBoardEnble: u8
constexpr uint32_t kCustomFuncsCoaxEnable = 235;          // CustomFuncs/CoaxEnable: u8
constexpr uint32_t kDecChnAudioNumDecChnAudioNum = 236;   // DecChnAudioNum/DecChnAudioNum: u8
constexpr uint32_t kNumberSettingAudioNum = 237;          // NumberSetting/AudioNum: u8
constexpr uint32_t kNumberSettingAlarmInputNum = 238;     // NumberSetting/AlarmInputNum: u8
constexpr uint32_t kNumberSettingAlarmOutputNum = 239;    // NumberSetting/AlarmOutputNum: u8
constexpr uint32_t kNumberSettingDecodeNum = 240;         // NumberSetting/DecodeNum: u8
constexpr uint32_t kNumberSettingAduioAiDevNum = 241;     // NumberSetting/AduioAiDevNum: u8
constexpr uint32_t kNumberSettingAiTalkDevNum = 242;      // NumberSetting/AiTalkDevNum: u8
constexpr uint32_t kNumberSettingAudioAoDevNum = 243;     // NumberSetting/AudioAoDevNum: u8
constexpr uint32_t kNumberSettingAudioHdmiAoDevNum = 244; // NumberSetting/AudioHdmiAoDevNum: u8
constexpr uint32_t kNumberSettingAudioClockDevNum = 245;  // NumberSetting/AudioClockDevNum: u8
constexpr uint32_t kNumberSettingTalkAudioInputChnId = 246; // NumberSetting/TalkAudioInputChnId: u8
constexpr uint32_t kNumberSettingViDevNum = 247;            // NumberSetting/ViDevNum: u8
constexpr uint32_t kNumberSettingOutputDevNum = 248;        // NumberSetting/OutputDevNum: u8
constexpr uint32_t kNumberSettingAudioDevNum = 249;         // NumberSetting/AudioDevNum: u8
constexpr uint32_t kNumberSettingMaxPictureScreenNum = 250; // NumberSetting/MaxPictureScreenNum: u8
constexpr uint32_t kNumberSettingMaxChipNum = 251;          // NumberSetting/MaxChipNum: u8
constexpr uint32_t kFS8816SclGroup = 252;                   // FS8816/SclGroup: u8
constexpr uint32_t kFS8816SclNum = 253;                     // FS8816/SclNum: u8
constexpr uint32_t kFS8816SdaGroup = 254;                   // FS8816/SdaGroup: u8
constexpr uint32_t kFS8816SdaNum = 255;                     // FS8816/SdaNum: u8
constexpr uint32_t kGPIOHddLedGroup = 256;                  // GPIO/HddLedGroup: u8
constexpr uint32_t kGPIOHddLedBIt = 257;                    // GPIO/HddLedBIt: u8
constexpr uint32_t kDevInfoAIAnalyzeChannels = 258;         // DevInfo/AIAnalyzeChannels: u8
constexpr uint32_t kDevInfoResolutioFrameFix = 259;         // DevInfo/ResolutioFrameFix: u8
constexpr uint32_t kDevInfoPreviewOff = 260;                // DevInfo/PreviewOff: u8
constexpr uint32_t kDevInfoVideoCoverNum = 261;             // DevInfo/VideoCoverNum: u8
constexpr uint32_t kDevInfoMotionMode = 262;                // DevInfo/MotionMode: u8
constexpr uint32_t kDevInfoMaxPreviewNum = 263;             // DevInfo/MaxPreviewNum: u8
constexpr uint32_t kDisplaySenceDefColorMode = 264;         // DisplaySenceDef/ColorMode: u8
constexpr uint32_t kDisplaySenceDefEnableSharpness = 265;   // DisplaySenceDef/EnableSharpness: u8
constexpr uint32_t kDiskConfigDiskGroupEnable = 266;        // DiskConfig/DiskGroupEnable: u8
constexpr uint32_t kDiskConfigMaxDiskNum = 267;             // DiskConfig/MaxDiskNum: u8
constexpr uint32_t kDiskConfigMaxEsataNum = 268;            // DiskConfig/MaxEsataNum: u8
constexpr uint32_t kDiskConfigMaxUsbNum = 269;              // DiskConfig/MaxUsbNum: u8
constexpr uint32_t kDeviceTypeProductType = 270;    // DeviceType/ProductType: text, 32 bytes
constexpr uint32_t kDeviceTypeHardVersion = 302;    // DeviceType/HardVersion: text, 32 bytes
constexpr uint32_t kDeviceTypeParamDevType = 334;   // DeviceType/ParamDevType: text, 32 bytes
constexpr uint32_t kDeviceTypeFtpProductType = 366; // DeviceType/FtpProductType: text, 32 bytes
constexpr uint32_t kDeviceTypeDeviceType = 398;     // DeviceType/DeviceType: text, 32 bytes
constexpr uint32_t kFbConfigFbConfigInit = 430;     // FbConfig/FbConfigInit: text, 32 bytes
constexpr uint32_t kFbConfigVgaFbDevNode = 462;     // FbConfig/VgaFbDevNode: text, 32 bytes
constexpr uint32_t kNumberSettingMtdbLockDevFile =
    494; // NumberSetting/MtdbLockDevFile: text, 64 bytes
constexpr uint32_t kNumberSettingP2PKeyParameter =
    558; // NumberSetting/P2PKeyParameter: text, 128 bytes
constexpr uint32_t kUpgradeUpgradePacketPreFix = 686; // Upgrade/UpgradePacketPreFix: text, 32 bytes
constexpr uint32_t kSoftVersionAppDisplayVer = 718;   // SoftVersion/AppDisplayVer: text, 32 bytes
constexpr uint32_t kSoftVersionAppUpdataVer = 750;    // SoftVersion/AppUpdataVer: text, 32 bytes
constexpr uint32_t kSoftVersionLogoVersion = 782;     // SoftVersion/LogoVersion: text, 32 bytes
constexpr uint32_t kSoftVersionIEVersion = 814;       // SoftVersion/IEVersion: text, 32 bytes
constexpr uint32_t kSoftVersionAgentUpdataVer = 846;  // SoftVersion/AgentUpdataVer: text, 32 bytes
constexpr uint32_t kDevInfoDevType = 878;             // DevInfo/DevType: text, 32 bytes
constexpr uint32_t kUserInfoDefDefDeviceName = 910;   // UserInfoDef/DefDeviceName: text, 64 bytes
constexpr uint32_t kDisplaySenceDefUIColorDefaultVal =
    974; // DisplaySenceDef/UIColorDefaultVal: text, 64 bytes
constexpr uint32_t kDisplaySenceDefTVIColorDefaultValC =
    1038; // DisplaySenceDef/TVIColorDefaultValC: text, 64 bytes

// Storage node names, "sda" style, without "/dev/"; the first MaxDiskNum (MaxEsataNum,
// MaxUsbNum) entries are used, the rest stay zero.
constexpr uint32_t kMaxNodes = 32;     // per list
constexpr uint32_t kDiskNodeSize = 12; // bytes per disk or eSATA node name
constexpr uint32_t kUsbNodeSize = 32;  // bytes per USB node name
constexpr uint32_t kDiskNodes = 1152;  // kMaxNodes x kDiskNodeSize
constexpr uint32_t kEsataNodes = kDiskNodes + kMaxNodes * kDiskNodeSize;
constexpr uint32_t kUsbNodes = kEsataNodes + kMaxNodes * kDiskNodeSize;
constexpr uint32_t kNodesEnd = kUsbNodes + kMaxNodes * kUsbNodeSize;

// The recorder's answer to (600, 14), its device information, fills the rest of the record.
constexpr uint32_t kTail = 4096;
constexpr uint32_t kTailSize = kSize - kTail; // bytes

constexpr CustomField kFields[] = {
    {"CustomFuncs/FactoryConfigMask", 'L', CustomField::Unsigned, kCustomFuncsFactoryConfigMask, 8},
    {"NumberSetting/BigDvrfsBlkSize", 'L', CustomField::Unsigned, kNumberSettingBigDvrfsBlkSize, 8},
    {"NumberSetting/SmallDvrfsBlkSize", 'L', CustomField::Unsigned, kNumberSettingSmallDvrfsBlkSize,
     8},
    {"NumberSetting/TalkDvrfsBlkSize", 'L', CustomField::Unsigned, kNumberSettingTalkDvrfsBlkSize,
     8},
    {"NumberSetting/SnapSaveNum", 'U', CustomField::Unsigned, kNumberSettingSnapSaveNum, 4},
    {"NumberSetting/BigDvrfsHoldSec", 'U', CustomField::Unsigned, kNumberSettingBigDvrfsHoldSec, 4},
    {"NumberSetting/BigDvrfsMaxBlkNum", 'U', CustomField::Unsigned, kNumberSettingBigDvrfsMaxBlkNum,
     4},
    {"NumberSetting/BigDvrfsMinBlkNum", 'U', CustomField::Unsigned, kNumberSettingBigDvrfsMinBlkNum,
     4},
    {"NumberSetting/SmallDvrfsHoldSec", 'U', CustomField::Unsigned, kNumberSettingSmallDvrfsHoldSec,
     4},
    {"NumberSetting/SmallDvrfsMaxBlkNum", 'U', CustomField::Unsigned,
     kNumberSettingSmallDvrfsMaxBlkNum, 4},
    {"NumberSetting/SmallDvrfsMinBlkNum", 'U', CustomField::Unsigned,
     kNumberSettingSmallDvrfsMinBlkNum, 4},
    {"NumberSetting/TalkDvrfsHoldSec", 'U', CustomField::Unsigned, kNumberSettingTalkDvrfsHoldSec,
     4},
    {"NumberSetting/TalkDvrfsMinBlkNum", 'U', CustomField::Unsigned,
     kNumberSettingTalkDvrfsMinBlkNum, 4},
    {"NumberSetting/TalkDvrfsMaxBlkNum", 'U', CustomField::Unsigned,
     kNumberSettingTalkDvrfsMaxBlkNum, 4},
    {"NumberSetting/SnapFileSize", 'U', CustomField::Unsigned, kNumberSettingSnapFileSize, 4},
    {"CopCustom/SubStreamFpsPal", 'U', CustomField::Unsigned, kCopCustomSubStreamFpsPal, 4},
    {"CopCustom/SubStreamFpsNtsc", 'U', CustomField::Unsigned, kCopCustomSubStreamFpsNtsc, 4},
    {"DecodeBuf/DecodeBufLen", 'U', CustomField::Unsigned, kDecodeBufDecodeBufLen, 4},
    {"BlockLen/ReadBlockLen", 'U', CustomField::Unsigned, kBlockLenReadBlockLen, 4},
    {"FPS/FpsTotalPal", 'U', CustomField::Unsigned, kFPSFpsTotalPal, 4},
    {"FPS/FpsTotalNtsc", 'U', CustomField::Unsigned, kFPSFpsTotalNtsc, 4},
    {"FPS/D1FpsTotalPal", 'U', CustomField::Unsigned, kFPSD1FpsTotalPal, 4},
    {"FPS/D1FpsTotalNts", 'U', CustomField::Unsigned, kFPSD1FpsTotalNts, 4},
    {"FPS/SupportResolutionMode", 'U', CustomField::Unsigned, kFPSSupportResolutionMode, 4},
    {"DevInfo/UpgradeType", 'U', CustomField::Unsigned, kDevInfoUpgradeType, 4},
    {"DevInfo/SerialNum", 'U', CustomField::Unsigned, kDevInfoSerialNum, 4},
    {"DevInfo/AIAnalyzeCap", 'U', CustomField::Unsigned, kDevInfoAIAnalyzeCap, 4},
    {"DevInfo/SubStreamMin", 'U', CustomField::Unsigned, kDevInfoSubStreamMin, 4},
    {"DevInfo/SubStreamMax", 'U', CustomField::Unsigned, kDevInfoSubStreamMax, 4},
    {"DevInfo/SubStreamRestrict", 'U', CustomField::Unsigned, kDevInfoSubStreamRestrict, 4},
    {"KeyPara/DevType", 'U', CustomField::Unsigned, kKeyParaDevType, 4},
    {"KeyPara/IECustom", 'U', CustomField::Unsigned, kKeyParaIECustom, 4},
    {"KeyPara/IELogo", 'U', CustomField::Unsigned, kKeyParaIELogo, 4},
    {"SubStream/DefaultFps", 'U', CustomField::Unsigned, kSubStreamDefaultFps, 4},
    {"PlayBack/TimeRange", 'U', CustomField::Unsigned, kPlayBackTimeRange, 4},
    {"DeviceType/Type", 'I', CustomField::Signed, kDeviceTypeType, 4},
    {"CustomFuncs/EnableSmartSearch", 'I', CustomField::Signed, kCustomFuncsEnableSmartSearch, 1},
    {"CustomFuncs/EnableSerial", 'I', CustomField::Signed, kCustomFuncsEnableSerial, 1},
    {"CustomFuncs/EnableInstantPlayback", 'I', CustomField::Signed,
     kCustomFuncsEnableInstantPlayback, 1},
    {"CustomFuncs/EnableHdmiVgaHomol", 'I', CustomField::Signed, kCustomFuncsEnableHdmiVgaHomol, 1},
    {"CustomFuncs/HdmiEnable", 'I', CustomField::Signed, kCustomFuncsHdmiEnable, 1},
    {"CustomFuncs/VgaEnable", 'I', CustomField::Signed, kCustomFuncsVgaEnable, 1},
    {"CustomFuncs/VspotEnable", 'I', CustomField::Signed, kCustomFuncsVspotEnable, 1},
    {"CustomFuncs/VSpotDevice", 'I', CustomField::Signed, kCustomFuncsVSpotDevice, 1},
    {"CustomFuncs/AlarmEnable", 'I', CustomField::Signed, kCustomFuncsAlarmEnable, 1},
    {"CustomFuncs/AlarmLinkagePtzEnable", 'I', CustomField::Signed,
     kCustomFuncsAlarmLinkagePtzEnable, 1},
    {"CustomFuncs/EnablePowerPassword", 'I', CustomField::Signed, kCustomFuncsEnablePowerPassword,
     1},
    {"CustomFuncs/PreRecordTimeMode", 'I', CustomField::Signed, kCustomFuncsPreRecordTimeMode, 1},
    {"CustomFuncs/RecordDelayTimeMode", 'I', CustomField::Signed, kCustomFuncsRecordDelayTimeMode,
     1},
    {"CustomFuncs/EnableRECflagForIE", 'I', CustomField::Signed, kCustomFuncsEnableRECflagForIE, 1},
    {"CustomFuncs/EnablePromptSystem", 'I', CustomField::Signed, kCustomFuncsEnablePromptSystem, 1},
    {"CustomFuncs/EnableViDetectAuto", 'I', CustomField::Signed, kCustomFuncsEnableViDetectAuto, 1},
    {"CustomFuncs/EnableDemo", 'I', CustomField::Signed, kCustomFuncsEnableDemo, 1},
    {"CustomFuncs/EnableSpotPoll", 'I', CustomField::Signed, kCustomFuncsEnableSpotPoll, 1},
    {"CustomFuncs/PushSwitch", 'I', CustomField::Signed, kCustomFuncsPushSwitch, 1},
    {"FuncSwitch/Support960HEnable", 'I', CustomField::Signed, kFuncSwitchSupport960HEnable, 1},
    {"FuncSwitch/EsataEnable", 'I', CustomField::Signed, kFuncSwitchEsataEnable, 1},
    {"FuncSwitch/RtspEnable", 'I', CustomField::Signed, kFuncSwitchRtspEnable, 1},
    {"FuncSwitch/FtpEnable", 'I', CustomField::Signed, kFuncSwitchFtpEnable, 1},
    {"FuncSwitch/EncodeEnable", 'I', CustomField::Signed, kFuncSwitchEncodeEnable, 1},
    {"FuncSwitch/EamilTestEnable", 'I', CustomField::Signed, kFuncSwitchEamilTestEnable, 1},
    {"FuncSwitch/EmailScheduleEnable", 'I', CustomField::Signed, kFuncSwitchEmailScheduleEnable, 1},
    {"FuncSwitch/FtpAutoUpgradeEnable", 'I', CustomField::Signed, kFuncSwitchFtpAutoUpgradeEnable,
     1},
    {"FuncSwitch/Moudles3GEnable", 'I', CustomField::Signed, kFuncSwitchMoudles3GEnable, 1},
    {"FuncSwitch/MoudlesPPoeEnable", 'I', CustomField::Signed, kFuncSwitchMoudlesPPoeEnable, 1},
    {"FuncSwitch/HsMoblieCrlEnable", 'I', CustomField::Signed, kFuncSwitchHsMoblieCrlEnable, 1},
    {"FuncSwitch/LogEnable", 'I', CustomField::Signed, kFuncSwitchLogEnable, 1},
    {"FuncSwitch/LthttpAlarmEnable", 'I', CustomField::Signed, kFuncSwitchLthttpAlarmEnable, 1},
    {"FuncSwitch/KestrowCloudStorage", 'I', CustomField::Signed, kFuncSwitchKestrowCloudStorage, 1},
    {"FuncSwitch/UsePolygonPirArea", 'I', CustomField::Signed, kFuncSwitchUsePolygonPirArea, 1},
    {"FuncSwitch/CustomerBankEnable", 'I', CustomField::Signed, kFuncSwitchCustomerBankEnable, 1},
    {"DebugFuncSwitch/RunOnNfsEnable", 'I', CustomField::Signed, kDebugFuncSwitchRunOnNfsEnable, 1},
    {"DebugFuncSwitch/DebugOnNfsEnable", 'I', CustomField::Signed, kDebugFuncSwitchDebugOnNfsEnable,
     1},
    {"DebugFuncSwitch/NoWatchDogEnable", 'I', CustomField::Signed, kDebugFuncSwitchNoWatchDogEnable,
     1},
    {"DDNSSwitch/DdnsTestEnable", 'I', CustomField::Signed, kDDNSSwitchDdnsTestEnable, 1},
    {"DDNSSwitch/DdnsProvider1Enable", 'I', CustomField::Signed, kDDNSSwitchDdnsProvider1Enable, 1},
    {"DDNSSwitch/DdnsProvider2Enable", 'I', CustomField::Signed, kDDNSSwitchDdnsProvider2Enable, 1},
    {"DDNSSwitch/DdnsProvider3Enable", 'I', CustomField::Signed, kDDNSSwitchDdnsProvider3Enable, 1},
    {"DDNSSwitch/DdnsProvider4Enable", 'I', CustomField::Signed, kDDNSSwitchDdnsProvider4Enable, 1},
    {"DDNSSwitch/DdnsProvider5Enable", 'I', CustomField::Signed, kDDNSSwitchDdnsProvider5Enable, 1},
    {"DDNSSwitch/DdnsProvider6Enable", 'I', CustomField::Signed, kDDNSSwitchDdnsProvider6Enable, 1},
    {"DDNSSwitch/DdnsProvider7Enable", 'I', CustomField::Signed, kDDNSSwitchDdnsProvider7Enable, 1},
    {"CopCustom/FrameAuto", 'I', CustomField::Signed, kCopCustomFrameAuto, 1},
    {"P2pType/P2pPushEnable", 'I', CustomField::Signed, kP2pTypeP2pPushEnable, 1},
    {"FPS/LimitFpsSourceEnable", 'I', CustomField::Signed, kFPSLimitFpsSourceEnable, 1},
    {"FPS/FpsReal720PEnable", 'I', CustomField::Signed, kFPSFpsReal720PEnable, 1},
    {"FPS/FpsReal1080PEnable", 'I', CustomField::Signed, kFPSFpsReal1080PEnable, 1},
    {"FPS/FpsReal3mpEnable", 'I', CustomField::Signed, kFPSFpsReal3mpEnable, 1},
    {"FPS/FpsReal4mpEnable", 'I', CustomField::Signed, kFPSFpsReal4mpEnable, 1},
    {"SubStream/SubFpsLimitEnable", 'I', CustomField::Signed, kSubStreamSubFpsLimitEnable, 1},
    {"CustomFuncs/VoutEnable", 'U', CustomField::Unsigned, kCustomFuncsVoutEnable, 1},
    {"CustomFuncs/EnableNrahd20orOtherfps", 'U', CustomField::Unsigned,
     kCustomFuncsEnableNrahd20orOtherfps, 1},
    {"CustomFuncs/UsePersianDate", 'U', CustomField::Unsigned, kCustomFuncsUsePersianDate, 1},
    {"CustomFuncs/EnableSZStream", 'U', CustomField::Unsigned, kCustomFuncsEnableSZStream, 1},
    {"CustomFuncs/KeyBoardEnble", 'U', CustomField::Unsigned, kCustomFuncsKeyBoardEnble, 1},
    {"CustomFuncs/CoaxEnable", 'U', CustomField::Unsigned, kCustomFuncsCoaxEnable, 1},
    {"DecChnAudioNum/DecChnAudioNum", 'U', CustomField::Unsigned, kDecChnAudioNumDecChnAudioNum, 1},
    {"NumberSetting/AudioNum", 'U', CustomField::Unsigned, kNumberSettingAudioNum, 1},
    {"NumberSetting/AlarmInputNum", 'U', CustomField::Unsigned, kNumberSettingAlarmInputNum, 1},
    {"NumberSetting/AlarmOutputNum", 'U', CustomField::Unsigned, kNumberSettingAlarmOutputNum, 1},
    {"NumberSetting/DecodeNum", 'U', CustomField::Unsigned, kNumberSettingDecodeNum, 1},
    {"NumberSetting/AduioAiDevNum", 'U', CustomField::Unsigned, kNumberSettingAduioAiDevNum, 1},
    {"NumberSetting/AiTalkDevNum", 'U', CustomField::Unsigned, kNumberSettingAiTalkDevNum, 1},
    {"NumberSetting/AudioAoDevNum", 'U', CustomField::Unsigned, kNumberSettingAudioAoDevNum, 1},
    {"NumberSetting/AudioHdmiAoDevNum", 'U', CustomField::Unsigned, kNumberSettingAudioHdmiAoDevNum,
     1},
    {"NumberSetting/AudioClockDevNum", 'U', CustomField::Unsigned, kNumberSettingAudioClockDevNum,
     1},
    {"NumberSetting/TalkAudioInputChnId", 'U', CustomField::Unsigned,
     kNumberSettingTalkAudioInputChnId, 1},
    {"NumberSetting/ViDevNum", 'U', CustomField::Unsigned, kNumberSettingViDevNum, 1},
    {"NumberSetting/OutputDevNum", 'U', CustomField::Unsigned, kNumberSettingOutputDevNum, 1},
    {"NumberSetting/AudioDevNum", 'U', CustomField::Unsigned, kNumberSettingAudioDevNum, 1},
    {"NumberSetting/MaxPictureScreenNum", 'U', CustomField::Unsigned,
     kNumberSettingMaxPictureScreenNum, 1},
    {"NumberSetting/MaxChipNum", 'U', CustomField::Unsigned, kNumberSettingMaxChipNum, 1},
    {"FS8816/SclGroup", 'U', CustomField::Unsigned, kFS8816SclGroup, 1},
    {"FS8816/SclNum", 'U', CustomField::Unsigned, kFS8816SclNum, 1},
    {"FS8816/SdaGroup", 'U', CustomField::Unsigned, kFS8816SdaGroup, 1},
    {"FS8816/SdaNum", 'U', CustomField::Unsigned, kFS8816SdaNum, 1},
    {"GPIO/HddLedGroup", 'U', CustomField::Unsigned, kGPIOHddLedGroup, 1},
    {"GPIO/HddLedBIt", 'U', CustomField::Unsigned, kGPIOHddLedBIt, 1},
    {"DevInfo/AIAnalyzeChannels", 'U', CustomField::Unsigned, kDevInfoAIAnalyzeChannels, 1},
    {"DevInfo/ResolutioFrameFix", 'U', CustomField::Unsigned, kDevInfoResolutioFrameFix, 1},
    {"DevInfo/PreviewOff", 'U', CustomField::Unsigned, kDevInfoPreviewOff, 1},
    {"DevInfo/VideoCoverNum", 'U', CustomField::Unsigned, kDevInfoVideoCoverNum, 1},
    {"DevInfo/MotionMode", 'U', CustomField::Unsigned, kDevInfoMotionMode, 1},
    {"DevInfo/MaxPreviewNum", 'U', CustomField::Unsigned, kDevInfoMaxPreviewNum, 1},
    {"DisplaySenceDef/ColorMode", 'U', CustomField::Unsigned, kDisplaySenceDefColorMode, 1},
    {"DisplaySenceDef/EnableSharpness", 'U', CustomField::Unsigned, kDisplaySenceDefEnableSharpness,
     1},
    {"DiskConfig/DiskGroupEnable", 'U', CustomField::Unsigned, kDiskConfigDiskGroupEnable, 1},
    {"DiskConfig/MaxDiskNum", 'U', CustomField::Unsigned, kDiskConfigMaxDiskNum, 1},
    {"DiskConfig/MaxEsataNum", 'U', CustomField::Unsigned, kDiskConfigMaxEsataNum, 1},
    {"DiskConfig/MaxUsbNum", 'U', CustomField::Unsigned, kDiskConfigMaxUsbNum, 1},
    {"DeviceType/ProductType", 'T', CustomField::Text, kDeviceTypeProductType, 32},
    {"DeviceType/HardVersion", 'T', CustomField::Text, kDeviceTypeHardVersion, 32},
    {"DeviceType/ParamDevType", 'T', CustomField::Text, kDeviceTypeParamDevType, 32},
    {"DeviceType/FtpProductType", 'T', CustomField::Text, kDeviceTypeFtpProductType, 32},
    {"DeviceType/DeviceType", 'T', CustomField::Text, kDeviceTypeDeviceType, 32},
    {"FbConfig/FbConfigInit", 'T', CustomField::Text, kFbConfigFbConfigInit, 32},
    {"FbConfig/VgaFbDevNode", 'T', CustomField::Text, kFbConfigVgaFbDevNode, 32},
    {"NumberSetting/MtdbLockDevFile", 'T', CustomField::Text, kNumberSettingMtdbLockDevFile, 64},
    {"NumberSetting/P2PKeyParameter", 'T', CustomField::Text, kNumberSettingP2PKeyParameter, 128},
    {"Upgrade/UpgradePacketPreFix", 'T', CustomField::Text, kUpgradeUpgradePacketPreFix, 32},
    {"SoftVersion/AppDisplayVer", 'T', CustomField::Text, kSoftVersionAppDisplayVer, 32},
    {"SoftVersion/AppUpdataVer", 'T', CustomField::Text, kSoftVersionAppUpdataVer, 32},
    {"SoftVersion/LogoVersion", 'T', CustomField::Text, kSoftVersionLogoVersion, 32},
    {"SoftVersion/IEVersion", 'T', CustomField::Text, kSoftVersionIEVersion, 32},
    {"SoftVersion/AgentUpdataVer", 'T', CustomField::Text, kSoftVersionAgentUpdataVer, 32},
    {"DevInfo/DevType", 'T', CustomField::Text, kDevInfoDevType, 32},
    {"UserInfoDef/DefDeviceName", 'T', CustomField::Text, kUserInfoDefDefDeviceName, 64},
    {"DisplaySenceDef/UIColorDefaultVal", 'T', CustomField::Text, kDisplaySenceDefUIColorDefaultVal,
     64},
    {"DisplaySenceDef/TVIColorDefaultValC", 'T', CustomField::Text,
     kDisplaySenceDefTVIColorDefaultValC, 64},
};

static_assert(customFieldsDisjoint(kFields, 16, kDiskNodes), "fields overlap");
static_assert(kNodesEnd <= kTail, "node lists overlap the tail");
static_assert(kTail + kTailSize == kSize, "record size");

} // namespace DeviceDefaultRecord
