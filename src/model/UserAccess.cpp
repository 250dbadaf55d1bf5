#include "model/UserAccess.h"

#include "model/ModelInstance.h"
#include "model/RecorderLink.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "protocol/UserEditAnswer.h"
#include "protocol/UserEditRequest.h"
#include "protocol/UserListEntry.h"
#include "protocol/UserLoginAnswer.h"
#include "protocol/UserLoginRequest.h"
#include "runtime/VyLog.h"
#include "toolkit/input/VyKeyManager.h"

#include <algorithm>
#include <cstring>
#include <string.h> // explicit_bzero

namespace {

// Longer than any lock App sets; a bigger value is a damaged answer, not a week-long lock.
constexpr uint32_t kMaxLockSeconds = 24 * 60 * 60;

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

bool UserAccess::decodeUserList(const uint8_t* data, size_t size, std::vector<User>* users,
                                bool* loginRequired) {
    UserListHeader head;
    if (data == nullptr || size < sizeof head) {
        VY_GUI_LOG("user list: answer of %zu bytes, too short\n", size);
        return false;
    }
    std::memcpy(&head, data, sizeof head);
    if (head.count > UserListHeader::kMaxUsers ||
        size != sizeof head + size_t(head.count) * sizeof(UserListEntry)) {
        VY_GUI_LOG("user list: %u users in %zu bytes, refused\n", head.count, size);
        return false;
    }
    std::vector<User> out;
    for (uint32_t i = 0; i < head.count; ++i) {
        UserListEntry e;
        std::memcpy(&e, data + sizeof head + i * sizeof e, sizeof e);
        User u;
        u.name = fieldText(e.name, sizeof e.name);
        if (u.name.isEmpty()) {
            VY_GUI_LOG("user list: entry %u has no name, skipped\n", i);
            continue;
        }
        u.id = e.userId;
        u.admin = e.admin == 1;
        u.rights = e.rights;
        out.push_back(u);
    }
    *users = std::move(out);
    *loginRequired = (head.flags & UserListHeader::kLoginRequired) != 0;
    return true;
}

bool UserAccess::refreshUsers() {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return false;
    std::vector<uint8_t> reply;
    link->request(MainType::User, UserSubType::List, nullptr, 0, reply);
    bool loginRequired = false;
    if (!decodeUserList(reply.data(), reply.size(), &m_users, &loginRequired))
        return false;
    m_listFetched = true;
    m_loginRequired = loginRequired;
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

bool UserAccess::offers(uint32_t function, int channel) const {
    return granted(function, channel) || (!m_loggedIn && function != 0);
}

bool UserAccess::promptLogin() {
    if (!loginPrompt() || m_prompting)
        return false;
    if (!m_listFetched)
        refreshUsers();
    m_prompting = true;
    const bool loggedIn = loginPrompt()();
    m_prompting = false;
    return loggedIn;
}

UserAccess::EditResult UserAccess::decodeEditAnswer(const uint8_t* data, size_t size) {
    EditResult result;
    UserEditAnswer answer;
    if (data == nullptr || size != sizeof answer) {
        VY_GUI_LOG("user change: answer of %zu bytes, refused\n", size);
        return result;
    }
    std::memcpy(&answer, data, sizeof answer);
    switch (answer.result) {
    case UserEditAnswer::kOk:
        result.outcome = EditOutcome::Done;
        break;
    case UserEditAnswer::kUnknownUser:
        result.outcome = EditOutcome::UnknownUser;
        break;
    case UserEditAnswer::kExists:
        result.outcome = EditOutcome::Exists;
        break;
    case UserEditAnswer::kFull:
        result.outcome = EditOutcome::Full;
        break;
    case UserEditAnswer::kWrongPassword:
        result.outcome = EditOutcome::WrongPassword;
        break;
    case UserEditAnswer::kLocked:
        result.outcome = EditOutcome::Locked;
        result.lockSeconds = int(std::min<uint32_t>(answer.lockSeconds, kMaxLockSeconds));
        break;
    case UserEditAnswer::kRefused:
        result.outcome = EditOutcome::Refused;
        break;
    default:
        VY_GUI_LOG("user change: answer %u not understood\n", answer.result);
        break;
    }
    return result;
}

UserAccess::EditResult UserAccess::edit(uint16_t subType, const char* what, const VyString& name,
                                        const VyString& secret, const VyString& newSecret,
                                        bool admin, const UserRights& rights) {
    EditResult result;
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return result;
    UserEditRequest request;
    if (name.isEmpty() ||
        !UserEditRequest::store(request.name, sizeof request.name, name.c_str(),
                                size_t(name.size())) ||
        !UserEditRequest::store(request.secret, sizeof request.secret, secret.c_str(),
                                size_t(secret.size())) ||
        !UserEditRequest::store(request.newSecret, sizeof request.newSecret, newSecret.c_str(),
                                size_t(newSecret.size()))) {
        explicit_bzero(&request, sizeof request);
        VY_GUI_LOG("%s \"%s\" refused: name or password longer than its field\n", what,
                   name.c_str());
        result.outcome = EditOutcome::TooLong;
        return result;
    }
    request.admin = admin ? 1 : 0;
    request.rights = rights;
    std::vector<uint8_t> reply;
    link->request(MainType::User, subType, &request, sizeof request, reply);
    explicit_bzero(&request, sizeof request);
    result = decodeEditAnswer(reply.data(), reply.size());
    VY_GUI_LOG("%s \"%s\": %s\n", what, name.c_str(),
               result.outcome == EditOutcome::Done ? "done" : "refused");
    if (result.outcome == EditOutcome::Done)
        refreshUsers();
    return result;
}

UserAccess::EditResult UserAccess::addUser(const VyString& name, const VyString& password,
                                           const UserRights& rights) {
    return edit(UserSubType::Add, "add user", name, password, VyString(), false, rights);
}

UserAccess::EditResult UserAccess::deleteUser(const VyString& name) {
    const EditResult r =
        edit(UserSubType::Delete, "delete user", name, VyString(), VyString(), false, {});
    if (r.outcome == EditOutcome::Done && m_loggedIn && m_current.name == name)
        logout();
    return r;
}

UserAccess::EditResult UserAccess::changePassword(const VyString& name, const VyString& oldPassword,
                                                  const VyString& newPassword) {
    return edit(UserSubType::ChangePassword, "change password of", name, oldPassword, newPassword,
                false, {});
}

UserAccess::EditResult UserAccess::setRights(const VyString& name, const UserRights& rights) {
    const EditResult r = edit(UserSubType::SetRights, "change rights of", name, VyString(),
                              VyString(), false, rights);
    if (r.outcome == EditOutcome::Done && m_loggedIn && m_current.name == name &&
        !m_current.admin) {
        m_current.rights = rights;
        emitSignal(this, &userChanged);
    }
    return r;
}

UserAccess::EditResult UserAccess::setPattern(const VyString& name, const VyString& password,
                                              const std::string& pattern) {
    return edit(UserSubType::SetPattern, pattern.empty() ? "clear pattern of" : "set pattern of",
                name, password, VyString(pattern), false, {});
}
