#pragma once
// Who is logged in and what they may do. App keeps the users and checks their passwords;
// this model asks it (MainType::User), remembers the user it let in with that user's
// rights, and answers the screens' "may this be done?". A protected action calls ensure(),
// which asks for a login through the installed prompt (the login dialog) when nobody who
// may do it is logged in.
//
// Passwords pass through login() only: they are copied into the request that carries them
// to App and that request is wiped once sent. Nothing here logs or keeps them.
//
// Locking the screen sets the key manager's key restriction, so only the two escape keys
// reach the GUI until a user logs in again; the live view keeps running behind it.
#include "protocol/UserLoginRequest.h"
#include "protocol/UserRights.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyObject.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class UserAccess : public VyObject {
    VY_OBJECT(UserAccess, VyObject)
public:
    struct User {
        VyString name;
        uint32_t id = 0;
        bool admin = false;
        UserRights rights;
    };
    enum class Outcome { LoggedIn, WrongPassword, Locked, UnknownUser, TooLong, NoAnswer };
    struct LoginResult {
        Outcome outcome = Outcome::NoAnswer;
        int triesLeft = 0;   // with WrongPassword: tries before the user is locked
        int lockSeconds = 0; // with Locked: how long the user stays locked
    };
    // Answers to the account changes of the users page.
    enum class EditOutcome {
        Done,
        UnknownUser,
        Exists,
        Full,
        WrongPassword,
        Locked,
        Refused,
        TooLong,
        NoAnswer
    };
    struct EditResult {
        EditOutcome outcome = EditOutcome::NoAnswer;
        int lockSeconds = 0; // with Locked
    };
    // Shows the login and answers whether somebody logged in.
    using LoginPrompt = std::function<bool()>;

    UserAccess();
    ~UserAccess() override;
    static UserAccess* instance();

    // Fetches the user list from App; false (the old list kept) on a broken answer.
    bool refreshUsers();
    // The user list answer: false (nothing written) unless it is whole and consistent.
    static bool decodeUserList(const uint8_t* data, size_t size, std::vector<User>* users,
                               bool* loginRequired);
    static EditResult decodeEditAnswer(const uint8_t* data, size_t size);
    const std::vector<User>& users() const { return m_users; }
    bool loginRequired() const { return m_loginRequired; }

    // `method`: UserLoginRequest::kPassword, or kPattern with the dots' digits as `secret`.
    LoginResult login(const VyString& name, const VyString& secret,
                      uint32_t method = UserLoginRequest::kPassword);
    void logout();
    bool isLoggedIn() const { return m_loggedIn; }
    // Null when nobody is logged in.
    const User* currentUser() const { return m_loggedIn ? &m_current : nullptr; }

    // Whether the function (a UserRights bit) may be used now: by anybody while App needs no
    // login, else by the user logged in; for live view and playback with a channel (0-based)
    // also whether that channel is theirs. Nothing may while the screen is locked.
    // Inline: the screens ask it for every cell and control they draw.
    bool may(uint32_t function, int channel = -1) const {
        return !m_locked && granted(function, channel);
    }
    // For a protected action: may(), and when not, the login prompt once, then may() for
    // whoever logged in. Logged on refusal.
    bool ensure(uint32_t function, int channel = -1);
    // One prompt for the process (the GUI has one login dialog); empty removes it.
    static void setLoginPrompt(LoginPrompt prompt);

    // For a control of the function (start menu entry, tool bar button, tile, a channel's
    // live picture): false greys or withholds it. Offered to a user with the right, and
    // while nobody is logged in (a try asks for a login). The lock does not change it: the
    // live view keeps running behind the lock window.
    bool offers(uint32_t function, int channel = -1) const;
    // The login prompt, whoever is logged in (switching user); true when somebody logged in.
    bool promptLogin();

    // Account changes; the list is fetched again after each one done. Passwords go out in
    // the request only and are wiped with it. A user's own rights follow at once; deleting
    // the user logged in logs them out.
    EditResult addUser(const VyString& name, const VyString& password, const UserRights& rights);
    EditResult deleteUser(const VyString& name);
    EditResult changePassword(const VyString& name, const VyString& oldPassword,
                              const VyString& newPassword);
    EditResult setRights(const VyString& name, const UserRights& rights);
    // An empty pattern clears it.
    EditResult setPattern(const VyString& name, const VyString& password,
                          const std::string& pattern);

    // The screen lock. A successful login unlocks; unlockScreen() asks for one through the
    // prompt and answers whether the screen is unlocked.
    void lockScreen();
    bool unlockScreen();
    bool isScreenLocked() const { return m_locked; }

    // The menus' idle time-out ran out: the user is logged out.
    void menuTimedOut();

    VySignal userChanged; // login, logout
    VySignal lockChanged;

private:
    void setLocked(bool on);
    // may() without the lock.
    bool granted(uint32_t function, int channel) const {
        if (function == 0)
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
    EditResult edit(uint16_t subType, const char* what, const VyString& name,
                    const VyString& secret, const VyString& newSecret, bool admin,
                    const UserRights& rights);

    std::vector<User> m_users;
    User m_current;
    bool m_loggedIn = false;
    bool m_locked = false;
    bool m_prompting = false;
    bool m_listFetched = false;
    bool m_loginRequired = false;
};
