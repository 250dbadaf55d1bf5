#pragma once
// Text IDs of the catalogue, by screen. Written by tools/i18n/gen_language_files.py
// from tools/i18n/catalogue.txt (which also documents the ID range of each screen):
// add or change a text there and run the script, never here.
#include <cstdint>

// The script writes this file and its check compares it byte for byte: no reformatting.
// clang-format off
namespace TextId {
namespace Common {
constexpr uint32_t Ok = 100001;          // OK
constexpr uint32_t Close = 100002;       // Close
constexpr uint32_t Keep = 100003;        // Keep
constexpr uint32_t Revert = 100004;      // Revert
constexpr uint32_t Information = 100005; // Information
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
constexpr uint32_t SplitLayout = 103508; // %1 Split
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

// Every ID above, ascending: what each shipped language file must hold, and no more.
constexpr uint32_t kAll[] = {
    Common::Ok,
    Common::Close,
    Common::Keep,
    Common::Revert,
    Common::Information,
    SystemNotice::ShuttingDown,
    SystemNotice::DeviceBusy,
    Resolution::Title,
    Resolution::NotKept,
    Resolution::KeepQuestion,
    Wizard::Title,
    Wizard::Welcome,
    LiveView::SplitLayout,
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
};
} // namespace TextId
// clang-format on
