#include "SimUsers.h"
#include "SimSha256.h"
#include "protocol/SubType.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

UserLoginRequest request(const char* name, const char* password) {
    UserLoginRequest r;
    r.fill(name, std::strlen(name), password, std::strlen(password), UserLoginRequest::kPassword);
    return r;
}

} // namespace

TEST(SimUsers, Sha256MatchesTheStandardVectors) {
    auto hex = [](const SimDigest& d) {
        std::string s;
        char b[3];
        for (uint8_t v : d) {
            std::snprintf(b, sizeof b, "%02x", v);
            s += b;
        }
        return s;
    };
    EXPECT_EQ(hex(simSha256("abc", 3)),
              "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    // 56 bytes: the length no longer fits the first block's tail.
    const char* two = "abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq";
    EXPECT_EQ(hex(simSha256(two, std::strlen(two))),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(hex(simSha256("", 0)),
              "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

TEST(SimUsers, StoresSaltedHashesNeverThePassword) {
    SimUsers users;
    UserRights none;
    ASSERT_TRUE(users.addUser("a", "samepass", false, none));
    ASSERT_TRUE(users.addUser("b", "samepass", false, none));
    EXPECT_FALSE(users.addUser("a", "other", false, none));
    SimUsers::Account a, b;
    ASSERT_TRUE(users.account("a", &a));
    ASSERT_TRUE(users.account("b", &b));
    EXPECT_NE(a.salt, b.salt);
    EXPECT_NE(a.hash, b.hash);
    EXPECT_NE(a.hash, simSha256("samepass", 8));
    EXPECT_EQ(users.login(request("a", "samepass")).result, UserLoginAnswer::kOk);
    EXPECT_EQ(users.login(request("a", "samepas")).result, UserLoginAnswer::kWrongSecret);
    EXPECT_EQ(users.login(request("nobody", "x")).result, UserLoginAnswer::kUnknownUser);
}

TEST(SimUsers, WrongPasswordsLockTheUserForAWhileOnTheClockGiven) {
    long long now = 1000000;
    SimUsers users([&] { return now; });
    users.addDefaultUsers();
    const UserLoginRequest wrong = request(SimUsers::kUserName, "00000");
    const UserLoginRequest right = request(SimUsers::kUserName, SimUsers::kUserPassword);

    // A right password in between starts the count again.
    EXPECT_EQ(users.login(wrong).wrongCount, 1u);
    EXPECT_EQ(users.login(right).result, UserLoginAnswer::kOk);
    for (uint32_t n = 1; n < SimUsers::kMaxWrong; ++n) {
        const UserLoginAnswer a = users.login(wrong);
        EXPECT_EQ(a.result, UserLoginAnswer::kWrongSecret);
        EXPECT_EQ(a.wrongCount, n);
        EXPECT_EQ(a.maxWrong, SimUsers::kMaxWrong);
    }
    UserLoginAnswer a = users.login(wrong);
    EXPECT_EQ(a.result, UserLoginAnswer::kLocked);
    EXPECT_EQ(a.lockSeconds, SimUsers::kLockSeconds);

    // Locked, the right password does not get in either; the seconds left round up.
    now += SimUsers::kLockSeconds * 1000LL - 1500;
    a = users.login(right);
    EXPECT_EQ(a.result, UserLoginAnswer::kLocked);
    EXPECT_EQ(a.lockSeconds, 2u);
    // Another user is not affected.
    EXPECT_EQ(users.login(request(SimUsers::kAdminName, SimUsers::kAdminPassword)).result,
              UserLoginAnswer::kOk);

    now += 1500;
    EXPECT_EQ(users.login(wrong).wrongCount, 1u); // a fresh set of tries
    a = users.login(right);
    EXPECT_EQ(a.result, UserLoginAnswer::kOk);
    EXPECT_EQ(a.rights.functions, UserRights::kLiveView | UserRights::kPlayback);
}

TEST(SimUsers, PatternIsCheckedAgainstItsOwnHashAndCountsTowardsTheLock) {
    SimUsers users;
    users.addDefaultUsers();
    auto pattern = [](const char* name, const char* dots) {
        UserLoginRequest r;
        r.fill(name, std::strlen(name), dots, std::strlen(dots), UserLoginRequest::kPattern);
        return r;
    };
    EXPECT_EQ(users.login(pattern(SimUsers::kAdminName, SimUsers::kAdminPattern)).result,
              UserLoginAnswer::kOk);
    // The password is not a pattern, and a user without a pattern has none that fits.
    EXPECT_EQ(users.login(pattern(SimUsers::kAdminName, SimUsers::kAdminPassword)).wrongCount, 1u);
    EXPECT_EQ(users.login(pattern(SimUsers::kUserName, "")).result, UserLoginAnswer::kWrongSecret);
}

TEST(SimUsers, AccountChangesKeepHashesCheckTheOldPasswordAndRefuseWhatTheyMust) {
    long long now = 5000000;
    SimUsers users([&] { return now; });
    users.addDefaultUsers();
    auto edit = [](const char* name, const char* secret, const char* newSecret) {
        UserEditRequest r;
        std::strcpy(r.name, name);
        std::strcpy(r.secret, secret);
        std::strcpy(r.newSecret, newSecret);
        return r;
    };
    UserEditRequest add = edit("guest", "first", "");
    add.rights.functions = UserRights::kPlayback;
    EXPECT_EQ(users.edit(UserSubType::Add, add).result, UserEditAnswer::kOk);
    EXPECT_EQ(users.edit(UserSubType::Add, add).result, UserEditAnswer::kExists);
    SimUsers::Account guest;
    ASSERT_TRUE(users.account("guest", &guest));
    EXPECT_NE(guest.hash, simSha256("first", 5));
    EXPECT_EQ(guest.rights.functions, UserRights::kPlayback);

    EXPECT_EQ(users.edit(UserSubType::ChangePassword, edit("guest", "wrong", "second")).result,
              UserEditAnswer::kWrongPassword);
    EXPECT_EQ(users.edit(UserSubType::ChangePassword, edit("guest", "first", "second")).result,
              UserEditAnswer::kOk);
    EXPECT_EQ(users.login(request("guest", "first")).result, UserLoginAnswer::kWrongSecret);
    EXPECT_EQ(users.login(request("guest", "second")).result, UserLoginAnswer::kOk);

    // A pattern needs the password; an empty one clears it.
    auto byPattern = [&](const char* dots) {
        UserLoginRequest r;
        r.fill("guest", 5, dots, std::strlen(dots), UserLoginRequest::kPattern);
        return users.login(r).result;
    };
    EXPECT_EQ(users.edit(UserSubType::SetPattern, edit("guest", "first", "1478")).result,
              UserEditAnswer::kWrongPassword);
    EXPECT_EQ(users.edit(UserSubType::SetPattern, edit("guest", "second", "1478")).result,
              UserEditAnswer::kOk);
    EXPECT_EQ(byPattern("1478"), UserLoginAnswer::kOk);
    EXPECT_EQ(users.edit(UserSubType::SetPattern, edit("guest", "second", "")).result,
              UserEditAnswer::kOk);
    EXPECT_EQ(byPattern("1478"), UserLoginAnswer::kWrongSecret);

    // The administrator stays, with every right; fields without their zero are refused.
    EXPECT_EQ(users.edit(UserSubType::Delete, edit(SimUsers::kAdminName, "", "")).result,
              UserEditAnswer::kRefused);
    EXPECT_EQ(users.edit(UserSubType::SetRights, edit(SimUsers::kAdminName, "", "")).result,
              UserEditAnswer::kOk);
    EXPECT_EQ(users.login(request(SimUsers::kAdminName, SimUsers::kAdminPassword)).rights.functions,
              UserRights::kAllFunctions);
    UserEditRequest broken = edit("guest", "", "");
    std::memset(broken.newSecret, 'x', sizeof broken.newSecret);
    EXPECT_EQ(users.edit(UserSubType::ChangePassword, broken).result, UserEditAnswer::kMalformed);
    EXPECT_EQ(users.edit(UserSubType::Delete, edit("", "", "")).result, UserEditAnswer::kMalformed);
    EXPECT_EQ(users.edit(UserSubType::Delete, edit("guest", "", "")).result, UserEditAnswer::kOk);
    EXPECT_EQ(users.edit(UserSubType::Delete, edit("guest", "", "")).result,
              UserEditAnswer::kUnknownUser);

    // The list holds at most kMaxUsers.
    for (uint32_t n = 2; n < UserListHeader::kMaxUsers; ++n)
        ASSERT_EQ(
            users.edit(UserSubType::Add, edit(("u" + std::to_string(n)).c_str(), "p", "")).result,
            UserEditAnswer::kOk);
    EXPECT_EQ(users.edit(UserSubType::Add, edit("one-more", "p", "")).result,
              UserEditAnswer::kFull);
}
