#include "model/MaintenanceReply.h"

#include "runtime/VyLog.h"

#include <algorithm>
#include <cstring>

namespace {

// A reply that is one record: exactly its size, or nothing (with a line naming it).
template <typename Record>
std::optional<Record> wholeRecord(const uint8_t* body, size_t len, const char* what) {
    Record r;
    if (body == nullptr || len != sizeof r) {
        VY_GUI_LOG("%s of %zu bytes refused\n", what, len);
        return std::nullopt;
    }
    std::memcpy(&r, body, sizeof r);
    return r;
}

} // namespace

std::optional<UsbDeviceInfo> MaintenanceReply::parseUsbInfo(const uint8_t* body, size_t len) {
    const std::optional<UsbDeviceInfo> info =
        wholeRecord<UsbDeviceInfo>(body, len, "USB information");
    if (!info)
        return std::nullopt;
    if (info->present > 1 || info->freeMiB > info->totalMiB) {
        VY_GUI_LOG("USB information refused: present %u, %u MiB free of %u\n", info->present,
                   info->freeMiB, info->totalMiB);
        return std::nullopt;
    }
    return info;
}

std::optional<MaintenanceReply::LogPage>
MaintenanceReply::parseLogPage(const uint8_t* body, size_t len, const LogSearchRequest& asked) {
    LogSearchReply head;
    if (body == nullptr || len < sizeof head) {
        VY_GUI_LOG("log page of %zu bytes refused\n", len);
        return std::nullopt;
    }
    std::memcpy(&head, body, sizeof head);
    const uint32_t most = std::min(asked.maxCount, LogSearchRequest::kMaxPage);
    // Checked one by one before any multiplication: a count from the wire is not trusted.
    if (head.count > most || head.total > LogSearchReply::kMaxTotal || head.first != asked.first ||
        head.first > head.total || head.count > head.total - head.first ||
        len != sizeof head + size_t(head.count) * sizeof(LogEntry)) {
        VY_GUI_LOG("log page refused: %zu bytes, total %u, first %u (asked %u), count %u\n", len,
                   head.total, head.first, asked.first, head.count);
        return std::nullopt;
    }
    LogPage page;
    page.total = head.total;
    page.first = head.first;
    page.entries.resize(head.count);
    for (uint32_t i = 0; i < head.count; ++i) {
        LogEntry& e = page.entries[i];
        std::memcpy(&e, body + sizeof head + size_t(i) * sizeof e, sizeof e);
        e.text[sizeof e.text - 1] = '\0';
    }
    return page;
}

std::optional<std::vector<UpgradeFileEntry>> MaintenanceReply::parseUpgradeList(const uint8_t* body,
                                                                                size_t len) {
    UpgradeFileList head;
    if (body == nullptr || len < sizeof head) {
        VY_GUI_LOG("upgrade file list of %zu bytes refused\n", len);
        return std::nullopt;
    }
    std::memcpy(&head, body, sizeof head);
    if (head.count > UpgradeFileList::kMaxFiles ||
        len != sizeof head + size_t(head.count) * sizeof(UpgradeFileEntry)) {
        VY_GUI_LOG("upgrade file list refused: %zu bytes, count %u\n", len, head.count);
        return std::nullopt;
    }
    std::vector<UpgradeFileEntry> files(head.count);
    for (uint32_t i = 0; i < head.count; ++i) {
        UpgradeFileEntry& f = files[i];
        std::memcpy(&f, body + sizeof head + size_t(i) * sizeof f, sizeof f);
        f.name[sizeof f.name - 1] = '\0';
        f.version[sizeof f.version - 1] = '\0';
        f.deviceType[sizeof f.deviceType - 1] = '\0';
    }
    return files;
}

std::optional<UpgradeProgress> MaintenanceReply::parseUpgradeProgress(const uint8_t* body,
                                                                      size_t len) {
    const std::optional<UpgradeProgress> p =
        wholeRecord<UpgradeProgress>(body, len, "upgrade progress");
    if (!p)
        return std::nullopt;
    if (p->state > UpgradeProgress::kFailed || p->percent > 100) {
        VY_GUI_LOG("upgrade progress refused: state %u, %u%%\n", p->state, p->percent);
        return std::nullopt;
    }
    return p;
}

std::optional<FactoryDefaultsAnswer> MaintenanceReply::parseDefaultsAnswer(const uint8_t* body,
                                                                           size_t len) {
    return wholeRecord<FactoryDefaultsAnswer>(body, len, "factory defaults answer");
}

std::optional<ConfigTransferAnswer> MaintenanceReply::parseConfigAnswer(const uint8_t* body,
                                                                        size_t len) {
    const std::optional<ConfigTransferAnswer> a =
        wholeRecord<ConfigTransferAnswer>(body, len, "configuration answer");
    if (!a)
        return std::nullopt;
    if (a->result > ConfigTransferAnswer::kDamaged) {
        VY_GUI_LOG("configuration answer refused: result %u\n", a->result);
        return std::nullopt;
    }
    return a;
}
