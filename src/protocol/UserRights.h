#pragma once
// What one user may do: a bit per function and, for live view and playback, a bit per
// channel. Part of UserLoginAnswer and UserListEntry. An administrator's rights are all set.
#include <cstddef>
#include <cstdint>

struct UserRights {
    static constexpr size_t kSize = 24; // bytes on the wire

    // Function bits of `functions`.
    static constexpr uint32_t kLiveView = 1u << 0;
    static constexpr uint32_t kPlayback = 1u << 1;
    static constexpr uint32_t kBackup = 1u << 2;
    static constexpr uint32_t kPtz = 1u << 3;
    // One bit per settings category, in the settings window's order (camera first).
    static constexpr uint32_t kSettingsCamera = 1u << 4;
    static constexpr uint32_t kSettingsRecord = 1u << 5;
    static constexpr uint32_t kSettingsAlarm = 1u << 6;
    static constexpr uint32_t kSettingsNetwork = 1u << 7;
    static constexpr uint32_t kSettingsStorage = 1u << 8;
    static constexpr uint32_t kSettingsSystem = 1u << 9; // users and maintenance included
    static constexpr uint32_t kShutdown = 1u << 10;
    static constexpr uint32_t kAllFunctions = (1u << 11) - 1;
    static constexpr int kSettingsCategories = 6;
    static constexpr int kMaxChannels = 64; // bits of the channel masks

    uint32_t functions = 0;
    uint32_t reserved = 0;
    uint64_t liveChannels = 0;     // bit n: channel n + 1
    uint64_t playbackChannels = 0; // bit n: channel n + 1

    static constexpr uint32_t settingsBit(int category) {
        return category >= 0 && category < kSettingsCategories ? kSettingsCamera << category : 0;
    }
};

static_assert(sizeof(UserRights) == UserRights::kSize, "wire size");
