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
constexpr uint32_t SplitLayout = 103508; // %1 Split
} // namespace LiveView

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
};
} // namespace TextId
// clang-format on
