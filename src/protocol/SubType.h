#pragma once
// The SubTypes that code on either end names, per family. The SubTypes that the UI manager
// only forwards by table (MainType::System 8..308) are numbers in that table and in
// docs/protocol.md, not names here.
#include <cstdint>

namespace SystemSubType {

constexpr uint16_t Hello = 0;              // GUI -> App: start-up hello (StartupHello)
constexpr uint16_t Stage1 = 1;             // App -> GUI: App is running
constexpr uint16_t Stage3 = 3;             // App -> GUI: App has finished its initialisation
constexpr uint16_t GuiPid = 4;             // GUI -> App: u32 process id of the GUI
constexpr uint16_t Ntp = 11;               // App -> GUI: time synchronised; forwarded with msgValue
constexpr uint16_t TwoTargets = 13;        // App -> GUI: forwarded to the first of two receivers
constexpr uint16_t Busy = 14;              // App -> GUI: busy notice; GUI -> App: its answer
constexpr uint16_t SystemInfo = 33;        // request: SystemInfoRecord
constexpr uint16_t SubscriptionCheck = 44; // App -> GUI: answered with Busy
constexpr uint16_t Sync45 = 45;            // both: App's notice and the GUI's answer
constexpr uint16_t LedState = 47;          // App -> GUI: front-panel LED state in msgValue
constexpr uint16_t ColorProfile = 104;     // request: u32 colour-profile code
constexpr uint16_t DefaultsConfigured = 105; // GUI -> App: defaults are in place
constexpr uint16_t NetworkStatus = 116;      // App -> GUI: network status in msgValue
constexpr uint16_t RemotePointer = 134;      // App -> GUI: IpcRemotePointer
constexpr uint16_t OutputCheckSkipped = 151; // GUI -> App: no output check at start-up
constexpr uint16_t ServiceKey = 186;         // App -> GUI: a key code in msgValue, ServiceKeyNotice
constexpr uint16_t SerialPtzCommand = 187;   // GUI -> App: SerialPtzCommand
constexpr uint16_t PointOfSaleText = 189;    // GUI -> App: point-of-sale text, see PointOfSaleText
constexpr uint16_t Query199 = 199;           // App -> GUI: answered with Ack201
constexpr uint16_t Ack201 = 201;             // GUI -> App: answer to Query199
constexpr uint16_t Shutdown = 280;           // App -> GUI: the recorder is shutting down
constexpr uint16_t SubscriptionCheck2 = 308; // App -> GUI: answered with Busy
// The live view's notifications, on forwarded SubTypes (UiEventType::ChannelState).
constexpr uint16_t ChannelState = 8;   // App -> GUI: ChannelStateNotice, msgValue = channel
constexpr uint16_t DeviceState = 10;   // App -> GUI: DeviceState bits in msgValue
constexpr uint16_t CameraRoster = 298; // request: u64 mask of the channels with a camera
constexpr uint16_t TalkState = 43; // App -> GUI: DualTalkNotice in msgValue (UiEventType::DualTalk)
constexpr uint16_t TurnPage = 170; // App -> GUI: TurnPageNotice in msgValue, posted as 1078

// App's notifications that the UI manager routes lie in this range.
constexpr uint16_t FirstRouted = 8;
constexpr uint16_t LastRouted = 308;

} // namespace SystemSubType

namespace PreviewSubType {

constexpr uint16_t Show = 0;          // GUI -> App: PreviewRecord
constexpr uint16_t ShowFirst = 1;     // GUI -> App: PreviewRecord, first since the view appeared
constexpr uint16_t StreamPair = 15;   // request: u32 argument -> two u32 words
constexpr uint16_t Control = 20;      // GUI -> App: PreviewControl (tool bar)
constexpr uint16_t SnapshotDone = 21; // App -> GUI: snapshot taken, msgValue = channel
constexpr uint16_t Zoom = 22;         // GUI -> App: PreviewZoom (digital zoom of one channel)

} // namespace PreviewSubType

namespace ParamSubType {

constexpr uint16_t Access = 0;         // GUI -> App: ParamRequest; App -> GUI: block changed
constexpr uint16_t Notice1 = 1;        // App -> GUI: forwarded as UiEventType::ParamNotice1
constexpr uint16_t Notice2 = 2;        // App -> GUI: forwarded as UiEventType::ParamNotice2
constexpr uint16_t DefaultParams = 3;  // request: DefaultParamSet
constexpr uint16_t DeviceDefaults = 4; // GUI -> App: DeviceDefaultRecord
constexpr uint16_t TimeZone = 7;       // App -> GUI: TimeZoneNotice
constexpr uint16_t PatchedParams = 10; // GUI -> App: patched DefaultParamSet
constexpr uint16_t ColorDefaults = 11; // GUI -> App: ColorDefaultBlock
constexpr uint16_t DeviceTail = 14;    // request: the device default record's tail

} // namespace ParamSubType

namespace PlaybackSubType {

// GUI -> App, no body: the live view is in front again, playback decoders may be released.
constexpr uint16_t LiveViewActive = 35;
// GUI -> App, one-way, sent by the record data model.
constexpr uint16_t SplitScreen = 0;   // PlaybackSplitScreen
constexpr uint16_t MonthSearch = 1;   // MonthSearchRequest
constexpr uint16_t Play = 3;          // PlaybackCommand: play and stop
constexpr uint16_t Control = 6;       // PlaybackControl
constexpr uint16_t Jump = 8;          // PlaybackJump
constexpr uint16_t Seek = 9;          // PlaybackSeek
constexpr uint16_t MotionSearch = 13; // MotionSearchRequest
constexpr uint16_t PicPlay = 19;      // PicPlayCommand
constexpr uint16_t TagSearch = 22;    // TagSearchRequest
constexpr uint16_t RecPicWindow = 27; // RecPicWindow, once per cell
constexpr uint16_t DaySearch = 28;    // DaySearchRequest
constexpr uint16_t StopOther = 43;    // PlaybackStopRequest
constexpr uint16_t Export = 44;       // ClipExportRequest
constexpr uint16_t TagAdd = 45;       // PlaybackTag: a custom tag at a playback time
// Both ways: ThumbnailRequest, answered with ThumbnailReply under the same SubType.
constexpr uint16_t Thumbnails = 46;
// App -> GUI, forwarded to the ready playback receiver.
constexpr uint16_t MonthResult = 2; // MonthSearchResult
constexpr uint16_t DayResult = 3;   // DaySearchResult + RecordSegmentEntry list
constexpr uint16_t Status = 14;     // PlaybackStatus
// TagSearch (22) is answered under the same SubType: TagSearchResult + PlaybackTag list.

} // namespace PlaybackSubType

namespace UserSubType {

constexpr uint16_t Login = 0;  // request: UserLoginRequest -> UserLoginAnswer
constexpr uint16_t Logout = 1; // GUI -> App, no body: the user logged in is gone
constexpr uint16_t List = 2;   // request, no body -> UserListHeader + UserListEntry list
// Account changes, each a request: UserEditRequest -> UserEditAnswer.
constexpr uint16_t Add = 3;            // name, password (secret), admin, rights
constexpr uint16_t Delete = 4;         // name
constexpr uint16_t ChangePassword = 5; // name, old password (secret), new one (newSecret)
constexpr uint16_t SetRights = 6;      // name, rights
constexpr uint16_t SetPattern = 7;     // name, password (secret), pattern (newSecret; empty clears)

} // namespace UserSubType

namespace MaintenanceSubType {

constexpr uint16_t Power = 1;         // GUI -> App: MaintenancePower (shut down or restart)
constexpr uint16_t UsbInfo = 2;       // request, no body -> UsbDeviceInfo
constexpr uint16_t LogSearch = 3;     // request: LogSearchRequest -> LogSearchReply + LogEntry list
constexpr uint16_t UpgradeList = 4;   // request, no body -> UpgradeFileList + UpgradeFileEntry list
constexpr uint16_t UpgradeStart = 5;  // GUI -> App: the file name (UpgradeFileEntry::kNameBytes)
constexpr uint16_t UpgradeStatus = 6; // request, no body -> UpgradeProgress
constexpr uint16_t FactoryDefaults = 7; // request: FactoryDefaultsRequest -> FactoryDefaultsAnswer
constexpr uint16_t ConfigExport = 8;    // request, no body -> ConfigTransferAnswer
constexpr uint16_t ConfigImport = 9;    // request, no body -> ConfigTransferAnswer

} // namespace MaintenanceSubType

namespace FaceSubType {

// MainType::Analytics 1..49: face libraries, face search and recognitions.
constexpr uint16_t GroupList = 1;    // request, no body -> FaceGroupListHeader + entries
constexpr uint16_t FaceList = 2;     // request: FaceListRequest -> FaceReplyHeader + FaceEntry
constexpr uint16_t LibraryEdit = 3;  // request: FaceLibraryEdit -> FaceEditAnswer
constexpr uint16_t Picture = 4;      // request: FacePictureRequest -> FacePictureHeader + data
constexpr uint16_t UsbFiles = 5;     // request: UsbFileListRequest -> UsbFileListHeader + entries
constexpr uint16_t Search = 6;       // request: FaceSearchRequest -> FaceReplyHeader + hits
constexpr uint16_t Recognitions = 7; // request: RecognitionListRequest -> header + FaceRecognition
constexpr uint16_t UsbWrite = 8;     // request: UsbWriteRequest + bytes -> FaceEditAnswer
constexpr uint16_t RecognitionNote = 20; // App -> GUI: FaceRecognition (UiEventType::FaceInfo)
constexpr uint16_t ObjectNote = 21;      // App -> GUI: AIObjectNotice (UiEventType::AIObjInfo)

} // namespace FaceSubType
