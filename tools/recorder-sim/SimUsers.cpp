#include "SimUsers.h"

#include "SimRecorder.h"
#include "SimServer.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"

#include <chrono>
#include <cstring>
#include <random>
#include <string.h> // explicit_bzero

namespace {

constexpr long long kMsPerSecond = 1000;

// The field's text up to its closing zero byte; false when it has none.
bool fieldText(const char* field, size_t size, std::string* out) {
    const void* end = std::memchr(field, 0, size);
    if (end == nullptr)
        return false;
    out->assign(field, size_t(static_cast<const char*>(end) - field));
    return true;
}

} // namespace

SimUsers::SimUsers(Clock clock)
    : m_clock(std::move(clock)) {}

long long SimUsers::steadyMs() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

SimDigest SimUsers::hashOf(const std::array<uint8_t, kSaltBytes>& salt, const char* secret,
                           size_t size) {
    std::vector<uint8_t> buf(salt.begin(), salt.end());
    buf.insert(buf.end(), secret, secret + size);
    SimDigest d = simSha256(buf.data(), buf.size());
    for (int i = 1; i < kHashRounds; ++i) {
        buf.assign(d.begin(), d.end());
        buf.insert(buf.end(), salt.begin(), salt.end());
        d = simSha256(buf.data(), buf.size());
    }
    std::fill(buf.begin(), buf.end(), 0);
    return d;
}

bool SimUsers::addUser(const std::string& name, const std::string& password, bool admin,
                       const UserRights& rights) {
    if (name.empty() || name.size() >= UserListEntry::kNameBytes ||
        password.size() >= UserLoginRequest::kSecretBytes)
        return false;
    Account a;
    a.name = name;
    a.admin = admin;
    a.rights = rights;
    if (admin) {
        a.rights.functions = UserRights::kAllFunctions;
        a.rights.liveChannels = a.rights.playbackChannels = ~uint64_t(0);
    }
    std::random_device random;
    for (uint8_t& b : a.salt)
        b = uint8_t(random());
    a.hash = hashOf(a.salt, password.data(), password.size());
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_accounts.size() >= UserListHeader::kMaxUsers)
        return false;
    for (const Account& other : m_accounts) {
        if (other.name == name)
            return false;
    }
    a.id = m_nextId++;
    m_accounts.push_back(a);
    return true;
}

bool SimUsers::setPattern(const std::string& name, const std::string& pattern) {
    std::lock_guard<std::mutex> lock(m_mutex);
    for (Account& a : m_accounts) {
        if (a.name == name) {
            a.patternHash = hashOf(a.salt, pattern.data(), pattern.size());
            a.hasPattern = true;
            return true;
        }
    }
    return false;
}

void SimUsers::addDefaultUsers() {
    addUser(kAdminName, kAdminPassword, true, UserRights());
    setPattern(kAdminName, kAdminPattern);
    UserRights viewer;
    viewer.functions = UserRights::kLiveView | UserRights::kPlayback;
    viewer.liveChannels = viewer.playbackChannels = ~uint64_t(0);
    addUser(kUserName, kUserPassword, false, viewer);
}

UserLoginAnswer SimUsers::login(const UserLoginRequest& request) {
    UserLoginAnswer answer;
    answer.maxWrong = kMaxWrong;
    std::string name;
    if (!fieldText(request.name, sizeof request.name, &name) ||
        std::memchr(request.secret, 0, sizeof request.secret) == nullptr) {
        answer.result = UserLoginAnswer::kMalformed;
        return answer;
    }
    std::lock_guard<std::mutex> lock(m_mutex);
    Account* a = find(name);
    if (a == nullptr) {
        answer.result = UserLoginAnswer::kUnknownUser;
        return answer;
    }
    if (!checkSecret(*a, request.secret, request.method == UserLoginRequest::kPattern,
                     &answer.wrongCount, &answer.lockSeconds)) {
        answer.result =
            answer.lockSeconds > 0 ? UserLoginAnswer::kLocked : UserLoginAnswer::kWrongSecret;
        return answer;
    }
    answer.result = UserLoginAnswer::kOk;
    answer.userId = a->id;
    answer.admin = a->admin ? 1 : 0;
    answer.rights = a->rights;
    return answer;
}

SimUsers::Account* SimUsers::find(const std::string& name) {
    for (Account& each : m_accounts) {
        if (each.name == name)
            return &each;
    }
    return nullptr;
}

bool SimUsers::checkSecret(Account& a, const char* secret, bool pattern, uint32_t* wrongCount,
                           uint32_t* lockSeconds) {
    const long long now = m_clock();
    *lockSeconds = 0;
    if (a.lockedUntilMs > now) {
        *wrongCount = a.wrongCount;
        *lockSeconds = uint32_t((a.lockedUntilMs - now + kMsPerSecond - 1) / kMsPerSecond);
        return false;
    }
    if (a.lockedUntilMs != 0) { // the lock has run out: a fresh set of tries
        a.lockedUntilMs = 0;
        a.wrongCount = 0;
    }
    // A wrong pattern counts towards the lock like a wrong password; so does a pattern for a
    // user who has none.
    const SimDigest& stored = pattern ? a.patternHash : a.hash;
    if ((pattern && !a.hasPattern) || hashOf(a.salt, secret, std::strlen(secret)) != stored) {
        *wrongCount = ++a.wrongCount;
        if (a.wrongCount >= kMaxWrong) {
            a.lockedUntilMs = now + kLockSeconds * kMsPerSecond;
            *lockSeconds = kLockSeconds;
            simRecorderLog("sim: user %s locked for %u s", a.name.c_str(), kLockSeconds);
        }
        return false;
    }
    a.wrongCount = 0;
    return true;
}

std::vector<UserListEntry> SimUsers::list() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<UserListEntry> out;
    for (const Account& a : m_accounts) {
        UserListEntry e;
        std::memcpy(e.name, a.name.data(), a.name.size());
        e.userId = a.id;
        e.admin = a.admin ? 1 : 0;
        e.rights = a.rights;
        out.push_back(e);
    }
    return out;
}

bool SimUsers::account(const std::string& name, Account* out) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const Account& a : m_accounts) {
        if (a.name == name) {
            *out = a;
            return true;
        }
    }
    return false;
}

void SimUsers::attach(SimServer& server) {
    server.addHandler(MainType::User, UserSubType::Login,
                      [this](SimServer& s, const SimMessage& m) {
                          if (m.body.size() != sizeof(UserLoginRequest))
                              return false;
                          UserLoginRequest request;
                          std::memcpy(&request, m.body.data(), sizeof request);
                          const UserLoginAnswer answer = login(request);
                          explicit_bzero(&request, sizeof request);
                          return s.reply(m, &answer, sizeof answer);
                      });
    server.addHandler(MainType::User, UserSubType::List, [this](SimServer& s, const SimMessage& m) {
        const std::vector<UserListEntry> entries = list();
        UserListHeader head;
        head.count = uint32_t(entries.size());
        head.flags = m_loginRequired ? UserListHeader::kLoginRequired : 0;
        std::vector<uint8_t> body(sizeof head + entries.size() * sizeof(UserListEntry));
        std::memcpy(body.data(), &head, sizeof head);
        if (!entries.empty())
            std::memcpy(body.data() + sizeof head, entries.data(),
                        entries.size() * sizeof(UserListEntry));
        return s.reply(m, body.data(), uint32_t(body.size()));
    });
    server.addHandler(MainType::User, UserSubType::Logout,
                      [](SimServer&, const SimMessage&) { return true; });
    attachEdits(server);
}
