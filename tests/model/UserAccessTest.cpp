#include "UserLinkDouble.h"

#include "model/UserAccess.h"
#include "protocol/UserEditRequest.h"
#include "toolkit/input/VyKeyManager.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

class UserAccessTest : public ::testing::Test {
protected:
    void SetUp() override {
        RecorderLink::setInstance(&link);
        link.addEntry("admin", true, UserRights());
    }
    void TearDown() override {
        UserAccess::setLoginPrompt(nullptr);
        RecorderLink::setInstance(nullptr);
    }
    UserLinkDouble link;
};

UserRights operatorRights() {
    UserRights r;
    r.functions = UserRights::kLiveView | UserRights::kPlayback | UserRights::kSettingsRecord;
    r.liveChannels = 0b0101; // channels 1 and 3
    r.playbackChannels = 0b0001;
    return r;
}

} // namespace

TEST_F(UserAccessTest, LoginRequestCarriesNameAndPasswordInTheirFieldsAndRefusesTooLong) {
    UserAccess access;
    link.answerOk(false, operatorRights());
    EXPECT_EQ(access.login("oper", "12345").outcome, UserAccess::Outcome::LoggedIn);
    ASSERT_EQ(link.requests.size(), 1u);
    const std::vector<uint8_t>& b = link.requests[0].body;
    ASSERT_EQ(b.size(), UserLoginRequest::kSize);
    std::vector<uint8_t> want(UserLoginRequest::kSize, 0);
    std::memcpy(want.data(), "oper", 4);
    std::memcpy(want.data() + 32, "12345", 5); // method 0 at 64: password
    EXPECT_EQ(b, want);

    // 31 bytes fit the field with its zero byte; 32 do not and must not be cut to fit.
    link.password = std::string(31, 'x');
    EXPECT_EQ(access.login("oper", VyString(std::string(31, 'x'))).outcome,
              UserAccess::Outcome::LoggedIn);
    EXPECT_EQ(access.login("oper", VyString(std::string(32, 'x'))).outcome,
              UserAccess::Outcome::TooLong);
    EXPECT_EQ(link.requests.size(), 2u);
}

TEST_F(UserAccessTest, AnswersBecomeLockSecondsOrAFailure) {
    UserAccess access;
    link.answer.result = UserLoginAnswer::kLocked;
    link.answer.lockSeconds = 287;
    const UserAccess::LoginResult r = access.login("oper", "12345");
    EXPECT_EQ(r.outcome, UserAccess::Outcome::Locked);
    EXPECT_EQ(r.lockSeconds, 287);

    link.answerOk(false, operatorRights());
    link.replySize = UserLoginAnswer::kSize - 1; // a cut answer lets nobody in
    EXPECT_EQ(access.login("oper", "12345").outcome, UserAccess::Outcome::NoAnswer);
    EXPECT_FALSE(access.isLoggedIn());
}

// Every function an ordinary user lacks is refused and asks for a login; every one they
// have passes without asking; channels count for live view and playback.
TEST_F(UserAccessTest, OrdinaryUserIsRefusedEveryFunctionAndChannelNotGranted) {
    UserAccess access;
    link.answerOk(false, operatorRights());
    ASSERT_TRUE(access.refreshUsers());
    ASSERT_EQ(access.login("oper", "12345").outcome, UserAccess::Outcome::LoggedIn);
    int prompts = 0;
    UserAccess::setLoginPrompt([&] {
        ++prompts;
        return false;
    });
    const uint32_t granted = operatorRights().functions;
    for (int bit = 0; bit < 11; ++bit) {
        const uint32_t f = 1u << bit;
        const int before = prompts;
        EXPECT_EQ(access.ensure(f), (granted & f) != 0) << "function bit " << bit;
        EXPECT_EQ(prompts - before, (granted & f) ? 0 : 1) << "function bit " << bit;
    }
    for (int ch = 0; ch < UserRights::kMaxChannels + 2; ++ch) {
        EXPECT_EQ(access.may(UserRights::kLiveView, ch), ch == 0 || ch == 2) << ch;
        EXPECT_EQ(access.may(UserRights::kPlayback, ch), ch == 0) << ch;
    }
}

TEST_F(UserAccessTest, NobodyLoggedInAsksOnceAndTheAdministratorThenMayAll) {
    UserAccess access;
    int prompts = 0;
    UserAccess::setLoginPrompt([&] {
        ++prompts;
        link.answerOk(true, UserRights());
        return access.login("admin", "12345").outcome == UserAccess::Outcome::LoggedIn;
    });
    EXPECT_TRUE(access.ensure(UserRights::kShutdown)); // fetches the list: a login is needed
    EXPECT_EQ(link.requests.front().subType, UserSubType::List);
    EXPECT_TRUE(access.ensure(UserRights::kPlayback, 40));
    EXPECT_EQ(prompts, 1);

    access.menuTimedOut();
    EXPECT_FALSE(access.isLoggedIn());
    ASSERT_EQ(link.sends.size(), 1u);
    EXPECT_EQ(link.sends[0].subType, UserSubType::Logout);
}

TEST_F(UserAccessTest, WithoutLoginRequiredEverythingIsOpenWithoutAsking) {
    link.loginRequired = false;
    UserAccess access;
    UserAccess::setLoginPrompt([] {
        ADD_FAILURE() << "asked for a login";
        return false;
    });
    EXPECT_TRUE(access.ensure(UserRights::kSettingsSystem));
    EXPECT_TRUE(access.ensure(UserRights::kLiveView, 5));
}

TEST_F(UserAccessTest, LockedScreenRestrictsKeysUntilALoginAndNothingMayMeanwhile) {
    {
        UserAccess access;
        link.loginRequired = false;
        access.refreshUsers();
        access.lockScreen();
        EXPECT_TRUE(VyKeyManager::keyRestriction());
        EXPECT_FALSE(access.may(UserRights::kLiveView));

        link.answerOk(false, operatorRights());
        UserAccess::setLoginPrompt(
            [&] { return access.login("oper", "wrong").outcome == UserAccess::Outcome::LoggedIn; });
        EXPECT_FALSE(access.unlockScreen());
        EXPECT_TRUE(VyKeyManager::keyRestriction());
        EXPECT_EQ(access.login("oper", "12345").outcome, UserAccess::Outcome::LoggedIn);
        EXPECT_FALSE(VyKeyManager::keyRestriction());
        EXPECT_FALSE(access.isScreenLocked());
        access.lockScreen();
    }
    // A model that goes while locked leaves no restriction behind.
    EXPECT_FALSE(VyKeyManager::keyRestriction());
}

TEST_F(UserAccessTest, AccountChangesCarryTheirFieldsAndEveryAnswerBecomesAnOutcome) {
    UserAccess access;
    link.editAnswer.result = UserEditAnswer::kOk;
    ASSERT_EQ(access.changePassword("oper", "old-1", "new-2").outcome,
              UserAccess::EditOutcome::Done);
    ASSERT_EQ(link.requests.size(), 2u); // the change, then the list again
    EXPECT_EQ(link.requests[0].subType, UserSubType::ChangePassword);
    UserEditRequest sent;
    ASSERT_EQ(link.requests[0].body.size(), sizeof sent);
    std::memcpy(&sent, link.requests[0].body.data(), sizeof sent);
    EXPECT_STREQ(sent.name, "oper");
    EXPECT_STREQ(sent.secret, "old-1");
    EXPECT_STREQ(sent.newSecret, "new-2");
    EXPECT_EQ(link.requests[1].subType, UserSubType::List);

    // A field that does not fit goes nowhere.
    link.requests.clear();
    EXPECT_EQ(access.addUser("guest", VyString(std::string(32, 'x')), UserRights()).outcome,
              UserAccess::EditOutcome::TooLong);
    EXPECT_EQ(access.deleteUser(VyString(std::string(40, 'n'))).outcome,
              UserAccess::EditOutcome::TooLong);
    EXPECT_TRUE(link.requests.empty());

    using O = UserAccess::EditOutcome;
    const struct {
        uint32_t result;
        uint32_t lockSeconds;
        size_t replySize;
        O outcome;
        int shownSeconds;
    } cases[] = {
        {UserEditAnswer::kExists, 0, 8, O::Exists, 0},
        {UserEditAnswer::kFull, 0, 8, O::Full, 0},
        {UserEditAnswer::kWrongPassword, 0, 8, O::WrongPassword, 0},
        {UserEditAnswer::kLocked, 120, 8, O::Locked, 120},
        {UserEditAnswer::kLocked, 4000000000u, 8, O::Locked, 24 * 60 * 60},
        {UserEditAnswer::kRefused, 0, 8, O::Refused, 0},
        {UserEditAnswer::kUnknownUser, 0, 8, O::UnknownUser, 0},
        {UserEditAnswer::kMalformed, 0, 8, O::NoAnswer, 0},
        {99, 0, 8, O::NoAnswer, 0},
        {UserEditAnswer::kOk, 0, 4, O::NoAnswer, 0},  // short
        {UserEditAnswer::kOk, 0, 12, O::NoAnswer, 0}, // long
    };
    for (const auto& c : cases) {
        link.editAnswer.result = c.result;
        link.editAnswer.lockSeconds = c.lockSeconds;
        link.editReplySize = c.replySize;
        const UserAccess::EditResult r = access.setPattern("oper", "pw", "1235");
        EXPECT_EQ(r.outcome, c.outcome) << c.result << " in " << c.replySize;
        EXPECT_EQ(r.lockSeconds, c.shownSeconds) << c.result;
    }
}

TEST_F(UserAccessTest, OwnRightsFollowAtOnceAndDeletingTheUserLoggedInLogsThemOut) {
    UserAccess access;
    link.addEntry("oper", false, operatorRights());
    link.answerOk(false, operatorRights());
    ASSERT_EQ(access.login("oper", "12345").outcome, UserAccess::Outcome::LoggedIn);
    link.editAnswer.result = UserEditAnswer::kOk;
    UserRights fewer;
    fewer.functions = UserRights::kLiveView;
    fewer.liveChannels = 1;
    ASSERT_EQ(access.setRights("oper", fewer).outcome, UserAccess::EditOutcome::Done);
    EXPECT_FALSE(access.may(UserRights::kPlayback, 0));
    EXPECT_FALSE(access.offers(UserRights::kSettingsRecord));
    EXPECT_TRUE(access.may(UserRights::kLiveView, 0));
    EXPECT_FALSE(access.may(UserRights::kLiveView, 2));

    // Another user's rights leave ours alone; deleting another leaves us in.
    ASSERT_EQ(access.setRights("admin", UserRights()).outcome, UserAccess::EditOutcome::Done);
    EXPECT_TRUE(access.may(UserRights::kLiveView, 0));
    ASSERT_EQ(access.deleteUser("someone").outcome, UserAccess::EditOutcome::Done);
    EXPECT_TRUE(access.isLoggedIn());
    ASSERT_EQ(access.deleteUser("oper").outcome, UserAccess::EditOutcome::Done);
    EXPECT_FALSE(access.isLoggedIn());
    EXPECT_EQ(link.sends.back().subType, UserSubType::Logout);
}
