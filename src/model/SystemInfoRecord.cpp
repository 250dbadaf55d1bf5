#include "model/SystemInfoRecord.h"

SystemInfoRecord& SystemInfoRecord::instance() {
    static SystemInfoRecord record{};
    return record;
}
