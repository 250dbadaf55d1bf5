#pragma once
// Uploading pictures and clips by FTP: the server, its account and folder, and the upload
// schedule (ScheduleGrid::kFtp* bits). Texts are UTF-8, NUL-terminated within their fields.
// The number is ours: none of the recorder's blocks holds FTP.
#include "protocol/ScheduleGrid.h"

#include <cstddef>
#include <cstdint>

struct FtpBlock {
    static constexpr uint32_t kBlockNumber = 92;
    static constexpr size_t kSize = 1024; // bytes on the wire
    static constexpr uint16_t kDefaultPort = 21;

    uint8_t enabled;
    uint8_t reserved1[3];
    uint16_t port; // 1..65535
    uint8_t reserved6[2];
    char server[64];
    char user[32];
    char password[32];
    char folder[64];
    uint8_t schedule[ScheduleGrid::kBytes];
    uint8_t reserved536[488];
};

static_assert(sizeof(FtpBlock) == FtpBlock::kSize, "wire size");
static_assert(offsetof(FtpBlock, server) == 8, "server");
static_assert(offsetof(FtpBlock, schedule) == 200, "schedule");
