#include "model/SystemInfo.h"

SystemInfoRecord& SystemInfo::record() {
    static SystemInfoRecord record{};
    return record;
}
