#pragma once
// The system information record the GUI keeps for the whole run: one global copy, zero
// until start-up fetches it (ParamAccess::getSystemInfo), read by the models as they are
// made.
#include "protocol/SystemInfoRecord.h"

class SystemInfo {
public:
    static SystemInfoRecord& record();
};
