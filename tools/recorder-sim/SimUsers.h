#pragma once
// App's user accounts: names, rights, and a salted, iterated SHA-256 of each password (the
// password itself is never stored). Consecutive wrong passwords lock a user for a while,
// measured on the clock given (a test's own), and every answer says how far along that is.
//
//     SimUsers users;                  // "admin" and "user", see addDefaultUsers()
//     users.attach(server);            // registers the MainType::User handlers
#include "SimSha256.h"
#include "protocol/UserEditAnswer.h"
#include "protocol/UserEditRequest.h"
#include "protocol/UserListEntry.h"
#include "protocol/UserLoginAnswer.h"
#include "protocol/UserLoginRequest.h"
#include "protocol/UserRights.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

class SimServer;

class SimUsers {
public:
    static constexpr uint32_t kMaxWrong = 5;      // consecutive wrong passwords that lock
    static constexpr uint32_t kLockSeconds = 300; // how long a user stays locked
    static constexpr int kHashRounds = 1000;      // SHA-256 rounds over salt and password
    static constexpr size_t kSaltBytes = 16;
    // The accounts of a fresh store.
    static constexpr const char* kAdminName = "admin";
    static constexpr const char* kAdminPassword = "12345";
    static constexpr const char* kUserName = "user";
    static constexpr const char* kUserPassword = "11111";
    static constexpr const char* kAdminPattern = "12369"; // dots in the order drawn

    // Milliseconds on a monotonic clock.
    using Clock = std::function<long long()>;
    explicit SimUsers(Clock clock = steadyMs);

    static long long steadyMs();

    // False for a name that is empty, too long, already there, or a full list.
    bool addUser(const std::string& name, const std::string& password, bool admin,
                 const UserRights& rights);
    // The unlock pattern of a user (digits 1-9); false when there is no such user.
    bool setPattern(const std::string& name, const std::string& pattern);
    // The administrator (with kAdminPattern) with every right and an ordinary user with live view
    // and playback of every channel.
    void addDefaultUsers();

    // Whether the GUI must ask for a login (told with the user list); off unless set.
    void setLoginRequired(bool on) { m_loginRequired = on; }

    UserLoginAnswer login(const UserLoginRequest& request);
    // An account change (UserSubType::Add .. SetPattern). A password it checks counts
    // towards the lock like a login's.
    UserEditAnswer edit(uint16_t subType, const UserEditRequest& request);
    std::vector<UserListEntry> list() const;
    // Registers the MainType::User handlers, the account changes' included.
    void attach(SimServer& server);

    struct Account {
        std::string name;
        uint32_t id = 0;
        bool admin = false;
        UserRights rights;
        std::array<uint8_t, kSaltBytes> salt{};
        SimDigest hash{};
        bool hasPattern = false;
        SimDigest patternHash{}; // salted like the password
        uint32_t wrongCount = 0;
        long long lockedUntilMs = 0;
    };
    // A copy of the stored account, for the console and tests; false when there is none.
    bool account(const std::string& name, Account* out) const;

private:
    // Under m_mutex: the account, or null.
    Account* find(const std::string& name);
    void attachEdits(SimServer& server);
    // Under m_mutex: checks a password against the account's lock and wrong-try count, as a
    // login does; fills `lockSeconds` when the account is (or now becomes) locked.
    bool checkSecret(Account& a, const char* secret, bool pattern, uint32_t* wrongCount,
                     uint32_t* lockSeconds);
    static SimDigest hashOf(const std::array<uint8_t, kSaltBytes>& salt, const char* secret,
                            size_t size);

    Clock m_clock;
    mutable std::mutex m_mutex; // guards m_accounts and m_nextId
    std::vector<Account> m_accounts;
    uint32_t m_nextId = 1;
    std::atomic<bool> m_loginRequired{false};
};
