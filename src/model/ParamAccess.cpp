#include "model/ParamAccess.h"
#include "protocol/ByteOrder.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"

#include "model/RecorderLink.h"
#include "model/SystemInfo.h"
#include "protocol/ParamRequest.h"
#include "runtime/VyLog.h"

#include <cstdio>
#include <cstring>
#include <vector>

namespace {

// Without a link there is no App to ask; the callers then see zeros, as for a silent App.
RecorderLink* link() {
    RecorderLink* l = RecorderLink::instance();
    if (l == nullptr)
        vyFrameworkLog("parameter access without a link to App !!!\n");
    return l;
}

void copyReply(const std::vector<uint8_t>& reply, void* out, size_t size) {
    const size_t n = reply.size() < size ? reply.size() : size;
    if (n != 0)
        std::memcpy(out, reply.data(), n);
}

} // namespace

void ParamAccess::getParam(uint32_t blockNumber, void* buffer, uint32_t size, uint8_t index) {
    if (buffer == nullptr)
        return;
    std::memset(buffer, 0, size);
    RecorderLink* l = link();
    if (l == nullptr)
        return;
    ParamRequest req;
    req.blockNumber = blockNumber;
    req.blockSize = size;
    req.index = index;
    req.getFlag = 1;
    uint8_t body[ParamRequest::kSize];
    req.encode(body);
    std::vector<uint8_t> reply;
    l->request(MainType::Param, ParamSubType::Access, body, sizeof body, reply);
    copyReply(reply, buffer, size);
}

void ParamAccess::setParam(uint32_t blockNumber, const void* record, uint32_t size) {
    if (record == nullptr) {
        // The function name and line are those the device's log readers search for.
        vySystemLine("\033[0;31m[%s %d]Parameter pointer error!\033[0;39m\n", "VySetParam", 684);
        return;
    }
    RecorderLink* l = link();
    if (l == nullptr)
        return;
    ParamRequest req;
    req.blockNumber = blockNumber;
    req.blockSize = size;
    std::vector<uint8_t> body(ParamRequest::kSize + size_t(size));
    req.encode(body.data());
    std::memcpy(body.data() + ParamRequest::kSize, record, size);
    l->send(MainType::Param, ParamSubType::Access, body.data(), static_cast<uint32_t>(body.size()));
}

void ParamAccess::getSystemInfo() {
    SystemInfoRecord& info = SystemInfo::record();
    std::memset(&info, 0, sizeof info);
    RecorderLink* l = link();
    if (l == nullptr)
        return;
    std::vector<uint8_t> reply;
    l->request(MainType::System, SystemSubType::SystemInfo, nullptr, 0, reply);
    copyReply(reply, &info, sizeof info);
}

std::pair<uint32_t, uint32_t> ParamAccess::requestPair(uint32_t argument) {
    RecorderLink* l = link();
    if (l == nullptr)
        return {0, 0};
    uint8_t body[4];
    ByteOrder::storeLe32(body, argument);
    std::vector<uint8_t> reply;
    l->request(MainType::Preview, PreviewSubType::StreamPair, body, sizeof body, reply);
    uint32_t words[2] = {0, 0};
    copyReply(reply, words, sizeof words);
    return {words[0], words[1]};
}
