#include "SimKeyCommand.h"

#include "SimRecorder.h"
#include "protocol/ByteOrder.h"
#include "protocol/MainType.h"
#include "protocol/ServiceKeyNotice.h"
#include "protocol/SubType.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>

namespace {

struct NamedKey {
    const char* name;
    unsigned long code;
};

// Service key codes of the remote's navigation keys and digits.
const NamedKey kNamedKeys[] = {
    {"up", 149}, {"down", 154}, {"left", 155}, {"right", 153}, {"ok", 158},
    {"0", 146},  {"1", 135},    {"2", 134},    {"3", 133},     {"4", 139},
    {"5", 138},  {"6", 137},    {"7", 143},    {"8", 142},     {"9", 141},
};

} // namespace

bool SimKeyCommand::codeOf(const std::string& word, unsigned long* code) {
    for (const NamedKey& k : kNamedKeys) {
        if (word == k.name) {
            *code = k.code;
            return true;
        }
    }
    if (word.empty() || word[0] == '-')
        return false;
    char* end = nullptr;
    errno = 0;
    const unsigned long v = std::strtoul(word.c_str(), &end, 0);
    if (errno != 0 || *end != '\0' || v > 0xFFFFFFFFul)
        return false;
    *code = v;
    return true;
}

bool SimKeyCommand::run(SimRecorder& recorder, const std::vector<std::string>& words) {
    if (words.size() < 2 || words.size() > 3 || words[0] != "key")
        return false;
    unsigned long code = 0;
    if (!codeOf(words[1], &code))
        return false;
    std::vector<uint8_t> body;
    if (words.size() == 3) {
        if (words[2] != "0" && words[2] != "1")
            return false;
        body.resize(ServiceKeyNotice::kSize);
        ByteOrder::storeLe32(body.data(), words[2] == "1" ? 1u : 0u);
    }
    return recorder.notify(MainType::System, SystemSubType::ServiceKey, uint32_t(code), body);
}
