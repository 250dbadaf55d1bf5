// libFuzzer target: arbitrary bytes as App's answers about users (the list, an account
// change). Never crashes, never reads past its input; a list is kept only whole, with at
// most the list's capacity and every user named; a lock is never longer than a day.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "model/UserAccess.h"
#include "protocol/UserListEntry.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::vector<UserAccess::User> users;
    bool loginRequired = false;
    if (UserAccess::decodeUserList(data, size, &users, &loginRequired)) {
        if (users.size() > UserListHeader::kMaxUsers)
            std::abort();
        for (const UserAccess::User& u : users) {
            if (u.name.isEmpty() || u.name.size() >= int(UserListEntry::kNameBytes))
                std::abort();
        }
    }
    const UserAccess::EditResult r = UserAccess::decodeEditAnswer(data, size);
    if (r.lockSeconds < 0 || r.lockSeconds > 24 * 60 * 60)
        std::abort();
    return 0;
}
