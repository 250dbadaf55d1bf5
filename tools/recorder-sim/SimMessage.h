#pragma once
// One message as the simulator received it: the decoded header and the body bytes.
#include "protocol/IpcMsgHeader.h"

#include <cstdint>
#include <vector>

struct SimMessage {
    IpcMsgHeader header;
    std::vector<uint8_t> body;
};
