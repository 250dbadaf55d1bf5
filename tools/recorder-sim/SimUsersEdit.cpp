// The account changes of SimUsers: add, delete, password, rights and pattern.
#include "SimRecorder.h"
#include "SimServer.h"
#include "SimUsers.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"

#include <cstring>
#include <random>
#include <string.h> // explicit_bzero

namespace {

bool terminated(const char* field, size_t size) {
    return std::memchr(field, 0, size) != nullptr;
}

UserEditAnswer answerOf(uint32_t result, uint32_t lockSeconds = 0) {
    UserEditAnswer a;
    a.result = result;
    a.lockSeconds = lockSeconds;
    return a;
}

} // namespace

UserEditAnswer SimUsers::edit(uint16_t subType, const UserEditRequest& request) {
    if (!terminated(request.name, sizeof request.name) ||
        !terminated(request.secret, sizeof request.secret) ||
        !terminated(request.newSecret, sizeof request.newSecret) || request.name[0] == 0)
        return answerOf(UserEditAnswer::kMalformed);
    const std::string name(request.name);
    std::lock_guard<std::mutex> lock(m_mutex);
    Account* a = find(name);
    if (subType == UserSubType::Add) {
        if (a != nullptr)
            return answerOf(UserEditAnswer::kExists);
        if (m_accounts.size() >= UserListHeader::kMaxUsers)
            return answerOf(UserEditAnswer::kFull);
        Account fresh;
        fresh.name = name;
        fresh.id = m_nextId++;
        fresh.rights = request.rights;
        std::random_device random;
        for (uint8_t& b : fresh.salt)
            b = uint8_t(random());
        fresh.hash = hashOf(fresh.salt, request.secret, std::strlen(request.secret));
        m_accounts.push_back(fresh);
        simRecorderLog("sim: user %s added", name.c_str());
        return answerOf(UserEditAnswer::kOk);
    }
    if (a == nullptr)
        return answerOf(UserEditAnswer::kUnknownUser);
    uint32_t wrong = 0;
    uint32_t lockSeconds = 0;
    switch (subType) {
    case UserSubType::Delete:
        if (a->admin)
            return answerOf(UserEditAnswer::kRefused);
        m_accounts.erase(m_accounts.begin() + (a - m_accounts.data()));
        simRecorderLog("sim: user %s deleted", name.c_str());
        return answerOf(UserEditAnswer::kOk);
    case UserSubType::SetRights:
        // The administrator keeps every right whatever is sent.
        if (!a->admin)
            a->rights = request.rights;
        simRecorderLog("sim: rights of %s changed", name.c_str());
        return answerOf(UserEditAnswer::kOk);
    case UserSubType::ChangePassword:
    case UserSubType::SetPattern:
        if (!checkSecret(*a, request.secret, false, &wrong, &lockSeconds))
            return answerOf(lockSeconds > 0 ? UserEditAnswer::kLocked
                                            : UserEditAnswer::kWrongPassword,
                            lockSeconds);
        if (subType == UserSubType::ChangePassword) {
            a->hash = hashOf(a->salt, request.newSecret, std::strlen(request.newSecret));
            simRecorderLog("sim: password of %s changed", name.c_str());
        } else {
            a->hasPattern = request.newSecret[0] != 0;
            a->patternHash =
                a->hasPattern ? hashOf(a->salt, request.newSecret, std::strlen(request.newSecret))
                              : SimDigest{};
            simRecorderLog("sim: pattern of %s %s", name.c_str(),
                           a->hasPattern ? "set" : "cleared");
        }
        return answerOf(UserEditAnswer::kOk);
    default:
        return answerOf(UserEditAnswer::kMalformed);
    }
}

void SimUsers::attachEdits(SimServer& server) {
    for (uint16_t sub : {UserSubType::Add, UserSubType::Delete, UserSubType::ChangePassword,
                         UserSubType::SetRights, UserSubType::SetPattern}) {
        server.addHandler(MainType::User, sub, [this, sub](SimServer& s, const SimMessage& m) {
            if (m.body.size() != sizeof(UserEditRequest))
                return false;
            UserEditRequest request;
            std::memcpy(&request, m.body.data(), sizeof request);
            const UserEditAnswer answer = edit(sub, request);
            explicit_bzero(&request, sizeof request);
            return s.reply(m, &answer, sizeof answer);
        });
    }
}
