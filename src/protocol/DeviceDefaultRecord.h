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
    customU64("CustomFuncs/FactoryConfigMask", kCustomFuncsFactoryConfigMask),
    customU64("NumberSetting/BigDvrfsBlkSize", kNumberSettingBigDvrfsBlkSize),
    customU64("NumberSetting/SmallDvrfsBlkSize", kNumberSettingSmallDvrfsBlkSize),
    customU64("NumberSetting/TalkDvrfsBlkSize", kNumberSettingTalkDvrfsBlkSize),
    customU32("NumberSetting/SnapSaveNum", kNumberSettingSnapSaveNum),
    customU32("NumberSetting/BigDvrfsHoldSec", kNumberSettingBigDvrfsHoldSec),
    customU32("NumberSetting/BigDvrfsMaxBlkNum", kNumberSettingBigDvrfsMaxBlkNum),
    customU32("NumberSetting/BigDvrfsMinBlkNum", kNumberSettingBigDvrfsMinBlkNum),
    customU32("NumberSetting/SmallDvrfsHoldSec", kNumberSettingSmallDvrfsHoldSec),
    customU32("NumberSetting/SmallDvrfsMaxBlkNum", kNumberSettingSmallDvrfsMaxBlkNum),
    customU32("NumberSetting/SmallDvrfsMinBlkNum", kNumberSettingSmallDvrfsMinBlkNum),
    customU32("NumberSetting/TalkDvrfsHoldSec", kNumberSettingTalkDvrfsHoldSec),
    customU32("NumberSetting/TalkDvrfsMinBlkNum", kNumberSettingTalkDvrfsMinBlkNum),
    customU32("NumberSetting/TalkDvrfsMaxBlkNum", kNumberSettingTalkDvrfsMaxBlkNum),
    customU32("NumberSetting/SnapFileSize", kNumberSettingSnapFileSize),
    customU32("CopCustom/SubStreamFpsPal", kCopCustomSubStreamFpsPal),
    customU32("CopCustom/SubStreamFpsNtsc", kCopCustomSubStreamFpsNtsc),
    customU32("DecodeBuf/DecodeBufLen", kDecodeBufDecodeBufLen),
    customU32("BlockLen/ReadBlockLen", kBlockLenReadBlockLen),
    customU32("FPS/FpsTotalPal", kFPSFpsTotalPal),
    customU32("FPS/FpsTotalNtsc", kFPSFpsTotalNtsc),
    customU32("FPS/D1FpsTotalPal", kFPSD1FpsTotalPal),
    customU32("FPS/D1FpsTotalNts", kFPSD1FpsTotalNts),
    customU32("FPS/SupportResolutionMode", kFPSSupportResolutionMode),
    customU32("DevInfo/UpgradeType", kDevInfoUpgradeType),
    customU32("DevInfo/SerialNum", kDevInfoSerialNum),
    customU32("DevInfo/AIAnalyzeCap", kDevInfoAIAnalyzeCap),
    customU32("DevInfo/SubStreamMin", kDevInfoSubStreamMin),
    customU32("DevInfo/SubStreamMax", kDevInfoSubStreamMax),
    customU32("DevInfo/SubStreamRestrict", kDevInfoSubStreamRestrict),
    customU32("KeyPara/DevType", kKeyParaDevType),
    customU32("KeyPara/IECustom", kKeyParaIECustom),
    customU32("KeyPara/IELogo", kKeyParaIELogo),
    customU32("SubStream/DefaultFps", kSubStreamDefaultFps),
    customU32("PlayBack/TimeRange", kPlayBackTimeRange),
    customI32("DeviceType/Type", kDeviceTypeType),
    customI8("CustomFuncs/EnableSmartSearch", kCustomFuncsEnableSmartSearch),
    customI8("CustomFuncs/EnableSerial", kCustomFuncsEnableSerial),
    customI8("CustomFuncs/EnableInstantPlayback", kCustomFuncsEnableInstantPlayback),
    customI8("CustomFuncs/EnableHdmiVgaHomol", kCustomFuncsEnableHdmiVgaHomol),
    customI8("CustomFuncs/HdmiEnable", kCustomFuncsHdmiEnable),
    customI8("CustomFuncs/VgaEnable", kCustomFuncsVgaEnable),
    customI8("CustomFuncs/VspotEnable", kCustomFuncsVspotEnable),
    customI8("CustomFuncs/VSpotDevice", kCustomFuncsVSpotDevice),
    customI8("CustomFuncs/AlarmEnable", kCustomFuncsAlarmEnable),
    customI8("CustomFuncs/AlarmLinkagePtzEnable", kCustomFuncsAlarmLinkagePtzEnable),
    customI8("CustomFuncs/EnablePowerPassword", kCustomFuncsEnablePowerPassword),
    customI8("CustomFuncs/PreRecordTimeMode", kCustomFuncsPreRecordTimeMode),
    customI8("CustomFuncs/RecordDelayTimeMode", kCustomFuncsRecordDelayTimeMode),
    customI8("CustomFuncs/EnableRECflagForIE", kCustomFuncsEnableRECflagForIE),
    customI8("CustomFuncs/EnablePromptSystem", kCustomFuncsEnablePromptSystem),
    customI8("CustomFuncs/EnableViDetectAuto", kCustomFuncsEnableViDetectAuto),
    customI8("CustomFuncs/EnableDemo", kCustomFuncsEnableDemo),
    customI8("CustomFuncs/EnableSpotPoll", kCustomFuncsEnableSpotPoll),
    customI8("CustomFuncs/PushSwitch", kCustomFuncsPushSwitch),
    customI8("FuncSwitch/Support960HEnable", kFuncSwitchSupport960HEnable),
    customI8("FuncSwitch/EsataEnable", kFuncSwitchEsataEnable),
    customI8("FuncSwitch/RtspEnable", kFuncSwitchRtspEnable),
    customI8("FuncSwitch/FtpEnable", kFuncSwitchFtpEnable),
    customI8("FuncSwitch/EncodeEnable", kFuncSwitchEncodeEnable),
    customI8("FuncSwitch/EamilTestEnable", kFuncSwitchEamilTestEnable),
    customI8("FuncSwitch/EmailScheduleEnable", kFuncSwitchEmailScheduleEnable),
    customI8("FuncSwitch/FtpAutoUpgradeEnable", kFuncSwitchFtpAutoUpgradeEnable),
    customI8("FuncSwitch/Moudles3GEnable", kFuncSwitchMoudles3GEnable),
    customI8("FuncSwitch/MoudlesPPoeEnable", kFuncSwitchMoudlesPPoeEnable),
    customI8("FuncSwitch/HsMoblieCrlEnable", kFuncSwitchHsMoblieCrlEnable),
    customI8("FuncSwitch/LogEnable", kFuncSwitchLogEnable),
    customI8("FuncSwitch/LthttpAlarmEnable", kFuncSwitchLthttpAlarmEnable),
    customI8("FuncSwitch/KestrowCloudStorage", kFuncSwitchKestrowCloudStorage),
    customI8("FuncSwitch/UsePolygonPirArea", kFuncSwitchUsePolygonPirArea),
    customI8("FuncSwitch/CustomerBankEnable", kFuncSwitchCustomerBankEnable),
    customI8("DebugFuncSwitch/RunOnNfsEnable", kDebugFuncSwitchRunOnNfsEnable),
    customI8("DebugFuncSwitch/DebugOnNfsEnable", kDebugFuncSwitchDebugOnNfsEnable),
    customI8("DebugFuncSwitch/NoWatchDogEnable", kDebugFuncSwitchNoWatchDogEnable),
    customI8("DDNSSwitch/DdnsTestEnable", kDDNSSwitchDdnsTestEnable),
    customI8("DDNSSwitch/DdnsProvider1Enable", kDDNSSwitchDdnsProvider1Enable),
    customI8("DDNSSwitch/DdnsProvider2Enable", kDDNSSwitchDdnsProvider2Enable),
    customI8("DDNSSwitch/DdnsProvider3Enable", kDDNSSwitchDdnsProvider3Enable),
    customI8("DDNSSwitch/DdnsProvider4Enable", kDDNSSwitchDdnsProvider4Enable),
    customI8("DDNSSwitch/DdnsProvider5Enable", kDDNSSwitchDdnsProvider5Enable),
    customI8("DDNSSwitch/DdnsProvider6Enable", kDDNSSwitchDdnsProvider6Enable),
    customI8("DDNSSwitch/DdnsProvider7Enable", kDDNSSwitchDdnsProvider7Enable),
    customI8("CopCustom/FrameAuto", kCopCustomFrameAuto),
    customI8("P2pType/P2pPushEnable", kP2pTypeP2pPushEnable),
    customI8("FPS/LimitFpsSourceEnable", kFPSLimitFpsSourceEnable),
    customI8("FPS/FpsReal720PEnable", kFPSFpsReal720PEnable),
    customI8("FPS/FpsReal1080PEnable", kFPSFpsReal1080PEnable),
    customI8("FPS/FpsReal3mpEnable", kFPSFpsReal3mpEnable),
    customI8("FPS/FpsReal4mpEnable", kFPSFpsReal4mpEnable),
    customI8("SubStream/SubFpsLimitEnable", kSubStreamSubFpsLimitEnable),
    customU8("CustomFuncs/VoutEnable", kCustomFuncsVoutEnable),
    customU8("CustomFuncs/EnableNrahd20orOtherfps", kCustomFuncsEnableNrahd20orOtherfps),
    customU8("CustomFuncs/UsePersianDate", kCustomFuncsUsePersianDate),
    customU8("CustomFuncs/EnableSZStream", kCustomFuncsEnableSZStream),
    customU8("CustomFuncs/KeyBoardEnble", kCustomFuncsKeyBoardEnble),
    customU8("CustomFuncs/CoaxEnable", kCustomFuncsCoaxEnable),
    customU8("DecChnAudioNum/DecChnAudioNum", kDecChnAudioNumDecChnAudioNum),
    customU8("NumberSetting/AudioNum", kNumberSettingAudioNum),
    customU8("NumberSetting/AlarmInputNum", kNumberSettingAlarmInputNum),
    customU8("NumberSetting/AlarmOutputNum", kNumberSettingAlarmOutputNum),
    customU8("NumberSetting/DecodeNum", kNumberSettingDecodeNum),
    customU8("NumberSetting/AduioAiDevNum", kNumberSettingAduioAiDevNum),
    customU8("NumberSetting/AiTalkDevNum", kNumberSettingAiTalkDevNum),
    customU8("NumberSetting/AudioAoDevNum", kNumberSettingAudioAoDevNum),
    customU8("NumberSetting/AudioHdmiAoDevNum", kNumberSettingAudioHdmiAoDevNum),
    customU8("NumberSetting/AudioClockDevNum", kNumberSettingAudioClockDevNum),
    customU8("NumberSetting/TalkAudioInputChnId", kNumberSettingTalkAudioInputChnId),
    customU8("NumberSetting/ViDevNum", kNumberSettingViDevNum),
    customU8("NumberSetting/OutputDevNum", kNumberSettingOutputDevNum),
    customU8("NumberSetting/AudioDevNum", kNumberSettingAudioDevNum),
    customU8("NumberSetting/MaxPictureScreenNum", kNumberSettingMaxPictureScreenNum),
    customU8("NumberSetting/MaxChipNum", kNumberSettingMaxChipNum),
    customU8("FS8816/SclGroup", kFS8816SclGroup),
    customU8("FS8816/SclNum", kFS8816SclNum),
    customU8("FS8816/SdaGroup", kFS8816SdaGroup),
    customU8("FS8816/SdaNum", kFS8816SdaNum),
    customU8("GPIO/HddLedGroup", kGPIOHddLedGroup),
    customU8("GPIO/HddLedBIt", kGPIOHddLedBIt),
    customU8("DevInfo/AIAnalyzeChannels", kDevInfoAIAnalyzeChannels),
    customU8("DevInfo/ResolutioFrameFix", kDevInfoResolutioFrameFix),
    customU8("DevInfo/PreviewOff", kDevInfoPreviewOff),
    customU8("DevInfo/VideoCoverNum", kDevInfoVideoCoverNum),
    customU8("DevInfo/MotionMode", kDevInfoMotionMode),
    customU8("DevInfo/MaxPreviewNum", kDevInfoMaxPreviewNum),
    customU8("DisplaySenceDef/ColorMode", kDisplaySenceDefColorMode),
    customU8("DisplaySenceDef/EnableSharpness", kDisplaySenceDefEnableSharpness),
    customU8("DiskConfig/DiskGroupEnable", kDiskConfigDiskGroupEnable),
    customU8("DiskConfig/MaxDiskNum", kDiskConfigMaxDiskNum),
    customU8("DiskConfig/MaxEsataNum", kDiskConfigMaxEsataNum),
    customU8("DiskConfig/MaxUsbNum", kDiskConfigMaxUsbNum),
    customText("DeviceType/ProductType", kDeviceTypeProductType, 32),
    customText("DeviceType/HardVersion", kDeviceTypeHardVersion, 32),
    customText("DeviceType/ParamDevType", kDeviceTypeParamDevType, 32),
    customText("DeviceType/FtpProductType", kDeviceTypeFtpProductType, 32),
    customText("DeviceType/DeviceType", kDeviceTypeDeviceType, 32),
    customText("FbConfig/FbConfigInit", kFbConfigFbConfigInit, 32),
    customText("FbConfig/VgaFbDevNode", kFbConfigVgaFbDevNode, 32),
    customText("NumberSetting/MtdbLockDevFile", kNumberSettingMtdbLockDevFile, 64),
    customText("NumberSetting/P2PKeyParameter", kNumberSettingP2PKeyParameter, 128),
    customText("Upgrade/UpgradePacketPreFix", kUpgradeUpgradePacketPreFix, 32),
    customText("SoftVersion/AppDisplayVer", kSoftVersionAppDisplayVer, 32),
    customText("SoftVersion/AppUpdataVer", kSoftVersionAppUpdataVer, 32),
    customText("SoftVersion/LogoVersion", kSoftVersionLogoVersion, 32),
    customText("SoftVersion/IEVersion", kSoftVersionIEVersion, 32),
    customText("SoftVersion/AgentUpdataVer", kSoftVersionAgentUpdataVer, 32),
    customText("DevInfo/DevType", kDevInfoDevType, 32),
    customText("UserInfoDef/DefDeviceName", kUserInfoDefDefDeviceName, 64),
    customText("DisplaySenceDef/UIColorDefaultVal", kDisplaySenceDefUIColorDefaultVal, 64),
    customText("DisplaySenceDef/TVIColorDefaultValC", kDisplaySenceDefTVIColorDefaultValC, 64),
};

static_assert(customFieldsDisjoint(kFields, 16, kDiskNodes), "fields overlap");
static_assert(kNodesEnd <= kTail, "node lists overlap the tail");
static_assert(kTail + kTailSize == kSize, "record size");

} // namespace DeviceDefaultRecord
