#pragma once
// A tag found on a channel's recording (or one the user adds): where it is and its name.
#include "runtime/VyDateTime.h"

#include <cstdint>
#include <string>

struct RecordTag {
    int channel = 0; // 0-based channel index of the device
    VyDateTime time;
    uint32_t id = 0; // App's number; 0 for a tag not yet stored
    std::string name;
};
