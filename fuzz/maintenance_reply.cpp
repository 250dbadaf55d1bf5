// libFuzzer target: arbitrary bytes as App's maintenance answers (USB stick, system log
// pages, upgrade files and progress). Never crashes, never reads past its input, and what is
// kept holds what its head claims within the limits, each text ending inside its field.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "model/MaintenanceReply.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (auto usb = MaintenanceReply::parseUsbInfo(data, size)) {
        if (usb->freeMiB > usb->totalMiB)
            std::abort();
    }
    LogSearchRequest asked;
    asked.first = size > 0 ? data[0] % 3 * LogSearchRequest::kMaxPage : 0;
    if (auto page = MaintenanceReply::parseLogPage(data, size, asked)) {
        if (page->entries.size() > LogSearchRequest::kMaxPage || page->first != asked.first ||
            page->first + page->entries.size() > page->total)
            std::abort();
        for (const LogEntry& e : page->entries)
            if (std::memchr(e.text, 0, sizeof e.text) == nullptr)
                std::abort();
    }
    if (auto files = MaintenanceReply::parseUpgradeList(data, size)) {
        if (files->size() > UpgradeFileList::kMaxFiles)
            std::abort();
        for (const UpgradeFileEntry& f : *files)
            if (std::memchr(f.name, 0, sizeof f.name) == nullptr ||
                std::memchr(f.version, 0, sizeof f.version) == nullptr ||
                std::memchr(f.deviceType, 0, sizeof f.deviceType) == nullptr)
                std::abort();
    }
    if (auto p = MaintenanceReply::parseUpgradeProgress(data, size)) {
        if (p->percent > 100 || p->state > UpgradeProgress::kFailed)
            std::abort();
    }
    if (auto d = MaintenanceReply::parseDefaultsAnswer(data, size)) {
        if (size != FactoryDefaultsAnswer::kSize)
            std::abort();
    }
    if (auto c = MaintenanceReply::parseConfigAnswer(data, size)) {
        if (c->result > ConfigTransferAnswer::kDamaged)
            std::abort();
    }
    return 0;
}
