#pragma once
// Event types of the recorder-level events (CEvent and its subclasses, 1000 and up) that
// carry App's messages or the GUI's own recorder events. The UI manager forwards App's
// notifications under the types of its routing table (model/UiRouteTable.cpp, listed in
// docs/protocol.md); the types that code names are named here.
#include <cstdint>

namespace UiEventType {

constexpr int32_t IpcMessage = 1000; // a message block from App as the IPC client posts it
constexpr int32_t NtpUpdate = 1014;
constexpr int32_t ChannelState = 1018;   // SystemSubType::ChannelState and DeviceState      //
                                         // SystemSubType::Ntp, msgValue as the event parameter
constexpr int32_t ParamNotice1 = 1015;   // ParamSubType::Notice1
constexpr int32_t ParamNotice2 = 1016;   // ParamSubType::Notice2
constexpr int32_t MainViewNotice = 1024; // any MainType::Preview message
constexpr int32_t ChineseInput = 1027;   // the pinyin input panel's result
constexpr int32_t ParamChanged = 1028;   // ParamSubType::Access from App: a block changed
constexpr int32_t DvrKey = 1029;         // a device key (front panel, remote, App's key 186)
constexpr int32_t CtrlReq = 1031;        // CtrlReqEvent and CommonCtrlEvent, by request code
constexpr int32_t DualTalk = 1034;       // two-way audio state (SubType 43)
constexpr int32_t FaceInfo = 1074;       // face analytics result
constexpr int32_t PlaybackReq = 1077;    // a playback screen's request
constexpr int32_t TurnPage = 1078;       // page turn of a list screen
constexpr int32_t AIObjInfo = 1093;      // analytics object information

} // namespace UiEventType
