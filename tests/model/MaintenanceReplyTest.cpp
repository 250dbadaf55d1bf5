// App's maintenance answers as the GUI takes them: a log page whose counts disagree with its
// length, the page asked for or each other is refused whole; a good page keeps every entry
// with its text cut inside the field.
#include "model/MaintenanceReply.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace {

std::vector<uint8_t> logPage(uint32_t total, uint32_t first, uint32_t count, size_t entries) {
    LogSearchReply head;
    head.total = total;
    head.first = first;
    head.count = count;
    std::vector<uint8_t> out(sizeof head + entries * sizeof(LogEntry));
    std::memcpy(out.data(), &head, sizeof head);
    for (size_t i = 0; i < entries; ++i) {
        LogEntry e;
        e.type = LogSearchRequest::kAlarm;
        std::memset(e.text, 'x', sizeof e.text); // no closing zero
        std::memcpy(out.data() + sizeof head + i * sizeof e, &e, sizeof e);
    }
    return out;
}

TEST(MaintenanceReply, LogPagesWithBadCountsAreRefused) {
    LogSearchRequest asked;
    asked.first = 200;
    asked.maxCount = 50;
    struct Case {
        const char* what;
        std::vector<uint8_t> body;
        bool accepted;
    };
    const Case cases[] = {
        {"a full page", logPage(10000, 200, 50, 50), true},
        {"the last, short page", logPage(230, 200, 30, 30), true},
        {"nothing past the end", logPage(200, 200, 0, 0), true},
        {"more entries than asked", logPage(10000, 200, 51, 51), false},
        {"count larger than the body", logPage(10000, 200, 50, 49), false},
        {"body longer than count", logPage(10000, 200, 49, 50), false},
        {"another page than asked", logPage(10000, 100, 50, 50), false},
        {"entries beyond the total", logPage(220, 200, 30, 30), false},
        {"first beyond the total", logPage(100, 200, 0, 0), false},
        {"a total no log has", logPage(LogSearchReply::kMaxTotal + 1, 200, 50, 50), false},
        {"a count that wraps a 32-bit size", logPage(0xFFFFFFFFu, 200, 0x04000001u, 1), false},
        {"a head cut short", std::vector<uint8_t>(LogSearchReply::kSize - 1), false},
    };
    for (const Case& c : cases) {
        const auto page = MaintenanceReply::parseLogPage(c.body.data(), c.body.size(), asked);
        EXPECT_EQ(page.has_value(), c.accepted) << c.what;
        if (page) {
            for (const LogEntry& e : page->entries)
                EXPECT_EQ(std::strlen(e.text), sizeof e.text - 1) << c.what;
            LogSearchReply head;
            std::memcpy(&head, c.body.data(), sizeof head);
            EXPECT_EQ(page->entries.size(), head.count) << c.what;
            EXPECT_EQ(page->total, head.total) << c.what;
        }
    }
}

TEST(MaintenanceReply, UsbInformationMustBeWholeAndConsistent) {
    auto parse = [](UsbDeviceInfo info, size_t len) {
        std::vector<uint8_t> b(sizeof info + 4);
        std::memcpy(b.data(), &info, sizeof info);
        return MaintenanceReply::parseUsbInfo(b.data(), len).has_value();
    };
    UsbDeviceInfo ok;
    ok.present = 1;
    ok.totalMiB = 4096;
    ok.freeMiB = 1024;
    EXPECT_TRUE(parse(ok, sizeof ok));
    EXPECT_FALSE(parse(ok, sizeof ok - 1));
    EXPECT_FALSE(parse(ok, sizeof ok + 4));
    UsbDeviceInfo moreFree = ok;
    moreFree.freeMiB = 4097;
    EXPECT_FALSE(parse(moreFree, sizeof ok));
    UsbDeviceInfo oddFlag = ok;
    oddFlag.present = 2;
    EXPECT_FALSE(parse(oddFlag, sizeof ok));
}

} // namespace
