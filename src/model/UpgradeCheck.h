#pragma once
// Whether a firmware file on the USB stick may be offered for this recorder: its name must
// begin with the model's upgrade prefix and its header must name the model's device type
// (both from the customisation file), and App must have found it whole. A file refused here
// is listed but cannot be started.
#include "protocol/UpgradeFile.h"

class UpgradeCheck {
public:
    enum class Verdict { Ok, OtherModel, Damaged };
    // An empty prefix or device type is not checked (a model that does not set it).
    static Verdict check(const UpgradeFileEntry& file, const char* prefix, const char* deviceType);
};
