#include "model/ParamAccess.h"

#include "model/ParamRequest.h"
#include "model/RecorderLink.h"
#include "model/SystemInfoRecord.h"
#include "runtime/VyLog.h"

#include <cstdio>
#include <cstring>
#include <vector>

namespace {

constexpr uint16_t kPairMainType = 100;
constexpr uint16_t kPairSubType = 15;

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
    l->request(ParamRequest::kMainType, ParamRequest::kSubType, body, sizeof body, reply);
    copyReply(reply, buffer, size);
}

void ParamAccess::setParam(uint32_t blockNumber, const void* record, uint32_t size) {
    if (record == nullptr) {
        // The function name and line are those the device's log readers search for.
        std::printf("\033[0;31m[%s %d]Parameter pointer error!\033[0;39m\n", "VySetParam", 684);
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
    l->send(ParamRequest::kMainType, ParamRequest::kSubType, body.data(),
            static_cast<uint32_t>(body.size()));
}

void ParamAccess::getSystemInfo() {
    SystemInfoRecord& info = SystemInfoRecord::instance();
    std::memset(&info, 0, sizeof info);
    RecorderLink* l = link();
    if (l == nullptr)
        return;
    std::vector<uint8_t> reply;
    l->request(SystemInfoRecord::kMainType, SystemInfoRecord::kSubType, nullptr, 0, reply);
    copyReply(reply, &info, sizeof info);
}

std::pair<uint32_t, uint32_t> ParamAccess::requestPair(uint32_t argument) {
    RecorderLink* l = link();
    if (l == nullptr)
        return {0, 0};
    uint8_t body[4];
    for (int i = 0; i < 4; ++i)
        body[i] = uint8_t(argument >> (8 * i));
    std::vector<uint8_t> reply;
    l->request(kPairMainType, kPairSubType, body, sizeof body, reply);
    uint32_t words[2] = {0, 0};
    copyReply(reply, words, sizeof words);
    return {words[0], words[1]};
}
