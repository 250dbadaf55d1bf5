#pragma once
// Parameter block 53, sending e-mail: the SMTP server and its account, who sends and who
// receives, and the test: a set with `testRequest` 1 asks App to send a test mail with these
// settings; App stores the request as 0, puts the outcome in `testResult` and sends
// "parameter changed". Texts are UTF-8, NUL-terminated within their fields.
#include "protocol/ParamBlock.h"

#include <cstddef>
#include <cstdint>

struct EmailBlock {
    static constexpr uint32_t kBlockNumber = ParamBlock::Email.number;
    static constexpr size_t kSize = ParamBlock::Email.size; // bytes on the wire
    static constexpr uint16_t kDefaultPort = 25;
    enum TestResult : uint8_t { TestNone = 0, TestSent = 1, TestFailed = 2 };

    uint8_t enabled;
    uint8_t ssl;
    uint8_t testRequest; // GUI -> App
    uint8_t testResult;  // App -> GUI: TestResult
    uint16_t port;       // 1..65535
    uint8_t reserved6[2];
    char server[64];
    char sender[64];
    char receiver[64];
    char user[32];
    char password[24];
};

static_assert(sizeof(EmailBlock) == EmailBlock::kSize, "wire size");
static_assert(offsetof(EmailBlock, server) == 8, "server");
static_assert(offsetof(EmailBlock, password) == 232, "password");
