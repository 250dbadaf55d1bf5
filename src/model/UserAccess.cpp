#include "model/UserAccess.h"

#include "model/ModelInstance.h"
#include "model/RecorderLink.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "protocol/UserListEntry.h"
#include "protocol/UserLoginAnswer.h"
#include "protocol/UserLoginRequest.h"
#include "runtime/VyLog.h"
#include "toolkit/input/VyKeyManager.h"

#include <cstring>
#include <string.h> // explicit_bzero

namespace {

// Text from a zero-padded field that must hold its own closing zero byte.
VyString fieldText(const char* field, size_t size) {
    const void* end = std::memchr(field, 0, size);
    return end ? VyString::fromUtf8(field, int(static_cast<const char*>(end) - field)) : VyString();
}

UserAccess::LoginPrompt& loginPrompt() {
    static UserAccess::LoginPrompt prompt;
    return prompt;
}

} // namespace

void UserAccess::setLoginPrompt(LoginPrompt prompt) {
    loginPrompt() = std::move(prompt);
}

UserAccess* UserAccess::instance() {
    return ModelInstance<UserAccess>::get();
}

UserAccess::UserAccess() {
    ModelInstance<UserAccess>::set(this);
}

UserAccess::~UserAccess() {
    if (m_locked)
        VyKeyManager::setKeyRestriction(false);
    ModelInstance<UserAccess>::clear(this);
}

bool UserAccess::refreshUsers() {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return false;
    std::vector<uint8_t> reply;
    link->request(MainType::User, UserSubType::List, nullptr, 0, reply);
    UserListHeader head;
    if (reply.size() < sizeof head) {
        VY_GUI_LOG("user list: answer of %zu bytes, too short\n", reply.size());
        return false;
    }
    std::memcpy(&head, reply.data(), sizeof head);
    if (head.count > UserListHeader::kMaxUsers ||
        reply.size() != sizeof head + size_t(head.count) * sizeof(UserListEntry)) {
        VY_GUI_LOG("user list: %u users in %zu bytes, refused\n", head.count, reply.size());
        return false;
    }
    std::vector<User> users;
    for (uint32_t i = 0; i < head.count; ++i) {
        UserListEntry e;
        std::memcpy(&e, reply.data() + sizeof head + i * sizeof e, sizeof e);
        User u;
        u.name = fieldText(e.name, sizeof e.name);
        if (u.name.isEmpty()) {
            VY_GUI_LOG("user list: entry %u has no name, skipped\n", i);
            continue;
        }
        u.id = e.userId;
        u.admin = e.admin == 1;
        u.rights = e.rights;
        users.push_back(u);
    }
    m_users = std::move(users);
    m_listFetched = true;
    m_loginRequired = (head.flags & UserListHeader::kLoginRequired) != 0;
    return true;
}

UserAccess::LoginResult UserAccess::login(const VyString& name, const VyString& secret,
                                          uint32_t method) {
    LoginResult result;
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return result;
    UserLoginRequest request;
    if (!request.fill(name.c_str(), size_t(name.size()), secret.c_str(), size_t(secret.size()),
                      method)) {
        VY_GUI_LOG("login of \"%s\" refused: name or password longer than its field\n",
                   name.c_str());
        result.outcome = Outcome::TooLong;
        return result;
    }
    std::vector<uint8_t> reply;
    link->request(MainType::User, UserSubType::Login, &request, sizeof request, reply);
    explicit_bzero(&request, sizeof request);

    UserLoginAnswer answer;
    if (reply.size() != sizeof answer) {
        VY_GUI_LOG("login of \"%s\": answer of %zu bytes, refused\n", name.c_str(), reply.size());
        return result;
    }
    std::memcpy(&answer, reply.data(), sizeof answer);
    switch (answer.result) {
    case UserLoginAnswer::kOk:
        m_current.name = name;
        m_current.id = answer.userId;
        m_current.admin = answer.admin == 1;
        m_current.rights = answer.rights;
        if (m_current.admin)
            m_current.rights.functions = UserRights::kAllFunctions;
        m_loggedIn = true;
        result.outcome = Outcome::LoggedIn;
        VY_GUI_LOG("user \"%s\" logged in\n", name.c_str());
        setLocked(false);
        emitSignal(this, &userChanged);
        break;
    case UserLoginAnswer::kWrongSecret:
        result.outcome = Outcome::WrongPassword;
        result.triesLeft =
            answer.maxWrong > answer.wrongCount ? int(answer.maxWrong - answer.wrongCount) : 0;
        VY_GUI_LOG("login of \"%s\": wrong password (%u of %u)\n", name.c_str(), answer.wrongCount,
                   answer.maxWrong);
        break;
    case UserLoginAnswer::kLocked:
        result.outcome = Outcome::Locked;
        result.lockSeconds = int(answer.lockSeconds);
        VY_GUI_LOG("login of \"%s\": locked for %u s\n", name.c_str(), answer.lockSeconds);
        break;
    case UserLoginAnswer::kUnknownUser:
        result.outcome = Outcome::UnknownUser;
        VY_GUI_LOG("login of \"%s\": no such user\n", name.c_str());
        break;
    default:
        VY_GUI_LOG("login of \"%s\": answer %u not understood\n", name.c_str(), answer.result);
        break;
    }
    return result;
}

void UserAccess::logout() {
    if (!m_loggedIn)
        return;
    VY_GUI_LOG("user \"%s\" logged out\n", m_current.name.c_str());
    m_loggedIn = false;
    m_current = User();
    if (RecorderLink* link = RecorderLink::instance())
        link->send(MainType::User, UserSubType::Logout, nullptr, 0);
    emitSignal(this, &userChanged);
}

bool UserAccess::may(uint32_t function, int channel) const {
    if (m_locked || function == 0)
        return false;
    if (!m_loginRequired)
        return true;
    if (!m_loggedIn)
        return false;
    const UserRights& r = m_current.rights;
    if ((r.functions & function) != function)
        return false;
    if (channel < 0 || m_current.admin)
        return true;
    if (channel >= UserRights::kMaxChannels)
        return false;
    const uint64_t bit = uint64_t(1) << channel;
    if (function == UserRights::kLiveView)
        return (r.liveChannels & bit) != 0;
    if (function == UserRights::kPlayback)
        return (r.playbackChannels & bit) != 0;
    return true;
}

bool UserAccess::ensure(uint32_t function, int channel) {
    if (!m_listFetched)
        refreshUsers();
    if (may(function, channel))
        return true;
    // A prompt already open (a second protected action behind the dialog) is not stacked.
    if (loginPrompt() && !m_prompting) {
        m_prompting = true;
        const bool loggedIn = loginPrompt()();
        m_prompting = false;
        if (loggedIn && may(function, channel))
            return true;
    }
    VY_GUI_LOG("function 0x%x (channel %d) refused to %s\n", function, channel,
               m_loggedIn ? m_current.name.c_str() : "nobody");
    return false;
}

void UserAccess::lockScreen() {
    setLocked(true);
}

bool UserAccess::unlockScreen() {
    if (m_locked && loginPrompt() && !m_prompting) {
        m_prompting = true;
        loginPrompt()();
        m_prompting = false;
    }
    return !m_locked;
}

void UserAccess::setLocked(bool on) {
    if (m_locked == on)
        return;
    m_locked = on;
    VyKeyManager::setKeyRestriction(on);
    VY_GUI_LOG("screen %s\n", on ? "locked" : "unlocked");
    emitSignal(this, &lockChanged);
}

void UserAccess::menuTimedOut() {
    logout();
}
