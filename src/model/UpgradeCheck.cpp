#include "model/UpgradeCheck.h"

#include <cstring>

UpgradeCheck::Verdict UpgradeCheck::check(const UpgradeFileEntry& file, const char* prefix,
                                          const char* deviceType) {
    const size_t p = prefix != nullptr ? std::strlen(prefix) : 0;
    if (p > 0 && std::strncmp(file.name, prefix, p) != 0)
        return Verdict::OtherModel;
    if (deviceType != nullptr && *deviceType != '\0' &&
        std::strncmp(file.deviceType, deviceType, sizeof file.deviceType) != 0)
        return Verdict::OtherModel;
    if (file.state != UpgradeFileEntry::kIntact || file.sizeKiB == 0)
        return Verdict::Damaged;
    return Verdict::Ok;
}
