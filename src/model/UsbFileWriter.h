#pragma once
// One whole file written onto App's USB stick from bytes the GUI made (an attendance report,
// the system log). The request is the face applications' UsbWrite, where it began; any
// screen that exports a file of its own goes through here.
#include "protocol/FaceLibraryEdit.h"
#include "runtime/VyString.h"

#include <cstdint>
#include <vector>

class UsbFileWriter {
public:
    // App's answer; `result` FaceEditAnswer::kMalformed when nothing went out (no link, an
    // empty name or one too long for its field, more than UsbWriteRequest::kMaxBytes) or
    // App's answer was broken.
    static FaceEditAnswer write(const VyString& name, const std::vector<uint8_t>& bytes);
};
