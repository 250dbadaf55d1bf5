#pragma once
// Text IDs of the catalogue, by screen. Written by tools/i18n/gen_language_files.py
// from tools/i18n/catalogue.txt (which also documents the ID range of each screen):
// add or change a text there and run the script, never here.
#include <cstdint>

// The script writes this file and its check compares it byte for byte: no reformatting.
// clang-format off
namespace TextId {
namespace Common {
constexpr uint32_t Ok = 100001;             // OK
constexpr uint32_t Close = 100002;          // Close
constexpr uint32_t Keep = 100003;           // Keep
constexpr uint32_t Revert = 100004;         // Revert
constexpr uint32_t Information = 100005;    // Information
constexpr uint32_t Cancel = 100006;         // Cancel
constexpr uint32_t Yes = 100007;            // Yes
constexpr uint32_t No = 100008;             // No
constexpr uint32_t Question = 100009;       // Question
constexpr uint32_t Warning = 100010;        // Warning
constexpr uint32_t SundayShort = 100011;    // Sun
constexpr uint32_t MondayShort = 100012;    // Mon
constexpr uint32_t TuesdayShort = 100013;   // Tue
constexpr uint32_t WednesdayShort = 100014; // Wed
constexpr uint32_t ThursdayShort = 100015;  // Thu
constexpr uint32_t FridayShort = 100016;    // Fri
constexpr uint32_t SaturdayShort = 100017;  // Sat
} // namespace Common
namespace SystemNotice {
constexpr uint32_t ShuttingDown = 101001; // NVR is shutting Down......
constexpr uint32_t DeviceBusy = 101002;   // The device is busy, please wait......
} // namespace SystemNotice
namespace Resolution {
constexpr uint32_t Title = 102001;        // Output Resolution
constexpr uint32_t NotKept = 102002;      // The new output resolution was not kept; %1 is in use.
constexpr uint32_t KeepQuestion = 102003; // Keep the output resolution %1? It is reverted in %2 s.
} // namespace Resolution
namespace Wizard {
constexpr uint32_t Title = 102101;   // Start-up Wizard
constexpr uint32_t Welcome = 102102; // Welcome. The wizard guides you through the first settings.
} // namespace Wizard
namespace LiveView {
constexpr uint32_t SplitLayout = 103508;   // %1 Split
constexpr uint32_t ChannelName = 103509;   // Channel %1
constexpr uint32_t SnapshotSaved = 103510; // Snapshot saved
} // namespace LiveView
namespace Playback {
constexpr uint32_t Search = 104001;          // Search
constexpr uint32_t Exporting = 104002;       // Exporting the clip: %1%
constexpr uint32_t Exported = 104003;        // The clip was exported.
constexpr uint32_t NoUsbDevice = 104004;     // No USB device found.
constexpr uint32_t UsbFull = 104005;         // Not enough free space on the USB device.
constexpr uint32_t ExportCancelled = 104006; // The export was cancelled.
constexpr uint32_t CancelExport = 104007;    // Cancel
constexpr uint32_t HoursSpan = 104008;       // %1 h
constexpr uint32_t MinutesSpan = 104009;     // %1 min
constexpr uint32_t Continuous = 104010;      // Continuous
constexpr uint32_t Motion = 104011;          // Motion detection
constexpr uint32_t Alarm = 104012;           // Alarm
constexpr uint32_t Analytics = 104013;       // Analytics
} // namespace Playback
namespace Settings {
constexpr uint32_t Sunday = 105001;           // Sun
constexpr uint32_t Monday = 105002;           // Mon
constexpr uint32_t Tuesday = 105003;          // Tue
constexpr uint32_t Wednesday = 105004;        // Wed
constexpr uint32_t Thursday = 105005;         // Thu
constexpr uint32_t Friday = 105006;           // Fri
constexpr uint32_t Saturday = 105007;         // Sat
constexpr uint32_t Title = 105010;            // Settings
constexpr uint32_t Apply = 105011;            // Apply
constexpr uint32_t Save = 105012;             // Save
constexpr uint32_t Cancel = 105013;           // Cancel
constexpr uint32_t Default = 105014;          // Default
constexpr uint32_t UnsavedQuestion = 105015;  // The settings have changed. Save the changes?
constexpr uint32_t Camera = 105016;           // Camera
constexpr uint32_t Record = 105017;           // Recording
constexpr uint32_t Alarm = 105018;            // Alarm
constexpr uint32_t Network = 105019;          // Network
constexpr uint32_t Storage = 105020;          // Storage
constexpr uint32_t System = 105021;           // System
constexpr uint32_t Schedule = 105022;         // Schedule
constexpr uint32_t General = 105023;          // General
constexpr uint32_t Channel = 105024;          // Channel
constexpr uint32_t TypeNormal = 105025;       // Normal
constexpr uint32_t TypeMotion = 105026;       // Motion detection
constexpr uint32_t TypeAlarm = 105027;        // Alarm
constexpr uint32_t TypePir = 105028;          // PIR
constexpr uint32_t Copy = 105029;             // Copy
constexpr uint32_t PreRecord = 105030;        // Pre-recording (s)
constexpr uint32_t PostRecord = 105031;       // Post-recording (s)
constexpr uint32_t Language = 105032;         // Language
constexpr uint32_t DateFormat = 105033;       // Date format
constexpr uint32_t Hour12 = 105034;           // 12-hour time
constexpr uint32_t MenuTimeout = 105035;      // Menu time-out (min)
constexpr uint32_t Audio = 105036;            // Audio
constexpr uint32_t AlarmInput = 105037;       // Alarm input
constexpr uint32_t Enable = 105038;           // Enable
constexpr uint32_t NormallyClosed = 105039;   // Normally closed
constexpr uint32_t Buzzer = 105040;           // Buzzer
constexpr uint32_t PopUp = 105041;            // Pop-up
constexpr uint32_t Email = 105042;            // E-mail
constexpr uint32_t RecordChannels = 105043;   // Recording channels
constexpr uint32_t AlarmOutput = 105044;      // Alarm output
constexpr uint32_t PtzPreset = 105045;        // PTZ preset
constexpr uint32_t HoldTime = 105046;         // Hold time (s)
constexpr uint32_t Dhcp = 105047;             // DHCP
constexpr uint32_t IpAddress = 105048;        // IP address
constexpr uint32_t SubnetMask = 105049;       // Subnet mask
constexpr uint32_t Gateway = 105050;          // Gateway
constexpr uint32_t Dns1 = 105051;             // Preferred DNS
constexpr uint32_t Dns2 = 105052;             // Alternate DNS
constexpr uint32_t HttpPort = 105053;         // HTTP port
constexpr uint32_t ServerPort = 105054;       // Server port
constexpr uint32_t InvalidValue = 105055;     // Some values are not valid and were not saved.
constexpr uint32_t RemoteAccess = 105056;     // Remote access
constexpr uint32_t DeviceId = 105057;         // Device ID
constexpr uint32_t Online = 105058;           // Online
constexpr uint32_t Offline = 105059;          // Offline
constexpr uint32_t DeviceInfo = 105060;       // Device information
constexpr uint32_t Model = 105061;            // Model
constexpr uint32_t SoftwareVersion = 105062;  // Software version
constexpr uint32_t HardwareVersion = 105063;  // Hardware version
constexpr uint32_t SerialNumber = 105064;     // Serial number
constexpr uint32_t Disk = 105065;             // Disk
constexpr uint32_t Overwrite = 105066;        // Overwrite when full
constexpr uint32_t Format = 105067;           // Format
constexpr uint32_t FormatQuestion = 105068;   // Formatting erases every recording on the disks chosen. Format now?
constexpr uint32_t StateNormal = 105069;      // Normal
constexpr uint32_t StateUnformatted = 105070; // Unformatted
constexpr uint32_t StateError = 105071;       // Error
constexpr uint32_t StateFormatting = 105072;  // Formatting
constexpr uint32_t HealthGood = 105073;       // Good
constexpr uint32_t HealthWarning = 105074;    // Warning
constexpr uint32_t HealthFailing = 105075;    // Failing
constexpr uint32_t CapacityFree = 105076;     // %1 GB, %2 GB free
constexpr uint32_t NoDisk = 105077;           // No disk
} // namespace Settings

// Every ID above, ascending: what each shipped language file must hold, and no more.
constexpr uint32_t kAll[] = {
    Common::Ok,
    Common::Close,
    Common::Keep,
    Common::Revert,
    Common::Information,
    Common::Cancel,
    Common::Yes,
    Common::No,
    Common::Question,
    Common::Warning,
    Common::SundayShort,
    Common::MondayShort,
    Common::TuesdayShort,
    Common::WednesdayShort,
    Common::ThursdayShort,
    Common::FridayShort,
    Common::SaturdayShort,
    SystemNotice::ShuttingDown,
    SystemNotice::DeviceBusy,
    Resolution::Title,
    Resolution::NotKept,
    Resolution::KeepQuestion,
    Wizard::Title,
    Wizard::Welcome,
    LiveView::SplitLayout,
    LiveView::ChannelName,
    LiveView::SnapshotSaved,
    Playback::Search,
    Playback::Exporting,
    Playback::Exported,
    Playback::NoUsbDevice,
    Playback::UsbFull,
    Playback::ExportCancelled,
    Playback::CancelExport,
    Playback::HoursSpan,
    Playback::MinutesSpan,
    Playback::Continuous,
    Playback::Motion,
    Playback::Alarm,
    Playback::Analytics,
    Settings::Sunday,
    Settings::Monday,
    Settings::Tuesday,
    Settings::Wednesday,
    Settings::Thursday,
    Settings::Friday,
    Settings::Saturday,
    Settings::Title,
    Settings::Apply,
    Settings::Save,
    Settings::Cancel,
    Settings::Default,
    Settings::UnsavedQuestion,
    Settings::Camera,
    Settings::Record,
    Settings::Alarm,
    Settings::Network,
    Settings::Storage,
    Settings::System,
    Settings::Schedule,
    Settings::General,
    Settings::Channel,
    Settings::TypeNormal,
    Settings::TypeMotion,
    Settings::TypeAlarm,
    Settings::TypePir,
    Settings::Copy,
    Settings::PreRecord,
    Settings::PostRecord,
    Settings::Language,
    Settings::DateFormat,
    Settings::Hour12,
    Settings::MenuTimeout,
    Settings::Audio,
    Settings::AlarmInput,
    Settings::Enable,
    Settings::NormallyClosed,
    Settings::Buzzer,
    Settings::PopUp,
    Settings::Email,
    Settings::RecordChannels,
    Settings::AlarmOutput,
    Settings::PtzPreset,
    Settings::HoldTime,
    Settings::Dhcp,
    Settings::IpAddress,
    Settings::SubnetMask,
    Settings::Gateway,
    Settings::Dns1,
    Settings::Dns2,
    Settings::HttpPort,
    Settings::ServerPort,
    Settings::InvalidValue,
    Settings::RemoteAccess,
    Settings::DeviceId,
    Settings::Online,
    Settings::Offline,
    Settings::DeviceInfo,
    Settings::Model,
    Settings::SoftwareVersion,
    Settings::HardwareVersion,
    Settings::SerialNumber,
    Settings::Disk,
    Settings::Overwrite,
    Settings::Format,
    Settings::FormatQuestion,
    Settings::StateNormal,
    Settings::StateUnformatted,
    Settings::StateError,
    Settings::StateFormatting,
    Settings::HealthGood,
    Settings::HealthWarning,
    Settings::HealthFailing,
    Settings::CapacityFree,
    Settings::NoDisk,
};
} // namespace TextId
// clang-format on
