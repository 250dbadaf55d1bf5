#pragma once
// A link to App that plays App's user side for the user-access tests: one account whose
// answers the test sets, and a record of every request and send.
#include "model/RecorderLink.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "protocol/UserEditAnswer.h"
#include "protocol/UserListEntry.h"
#include "protocol/UserLoginAnswer.h"
#include "protocol/UserLoginRequest.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

class UserLinkDouble : public RecorderLink {
public:
    struct Message {
        uint16_t subType;
        std::vector<uint8_t> body;
    };

    uint32_t send(uint16_t mainType, uint16_t subType, const void*, uint32_t) override {
        if (mainType == MainType::User)
            sends.push_back({subType, {}});
        else if (mainType == MainType::System && subType == SystemSubType::SerialPtzCommand)
            ++ptzCommands;
        return 1;
    }
    void request(uint16_t mainType, uint16_t subType, const void* body, uint32_t len,
                 std::vector<uint8_t>& reply) override {
        reply.clear();
        if (mainType != MainType::User)
            return;
        const auto* p = static_cast<const uint8_t*>(body);
        requests.push_back({subType, std::vector<uint8_t>(p, p + (p ? len : 0))});
        if (subType == UserSubType::List) {
            UserListHeader head;
            head.count = uint32_t(entries.size());
            head.flags = loginRequired ? UserListHeader::kLoginRequired : 0;
            reply.resize(sizeof head + entries.size() * sizeof(UserListEntry));
            std::memcpy(reply.data(), &head, sizeof head);
            if (!entries.empty())
                std::memcpy(reply.data() + sizeof head, entries.data(),
                            entries.size() * sizeof(UserListEntry));
        } else if (subType == UserSubType::Login && len == sizeof(UserLoginRequest)) {
            UserLoginRequest req;
            std::memcpy(&req, body, sizeof req);
            UserLoginAnswer a = answer;
            if (a.result == UserLoginAnswer::kOk && password != req.secret)
                a.result = UserLoginAnswer::kWrongSecret;
            reply.resize(replySize);
            std::memcpy(reply.data(), &a, std::min(replySize, sizeof a));
        } else if (subType >= UserSubType::Add && subType <= UserSubType::SetPattern) {
            reply.resize(editReplySize);
            std::memcpy(reply.data(), &editAnswer, std::min(editReplySize, sizeof editAnswer));
        }
    }
    void setWaiterMode(bool) override {}
    void setEventReceiver(VyObject*) override {}

    void addEntry(const char* name, bool admin, const UserRights& rights) {
        UserListEntry e;
        std::strncpy(e.name, name, sizeof e.name - 1);
        e.userId = uint32_t(entries.size() + 1);
        e.admin = admin;
        e.rights = rights;
        entries.push_back(e);
    }
    // The next logins answer this; with kOk only `password` gets in.
    void answerOk(bool admin, const UserRights& rights) {
        answer = UserLoginAnswer();
        answer.result = UserLoginAnswer::kOk;
        answer.admin = admin;
        answer.rights = rights;
        answer.userId = 1;
        answer.maxWrong = 5;
        answer.wrongCount = 2; // sent with a wrong password
    }

    std::vector<Message> requests;
    std::vector<Message> sends;
    int ptzCommands = 0; // serial PTZ key board commands passed on
    std::vector<UserListEntry> entries;
    bool loginRequired = true;
    UserLoginAnswer answer;
    std::string password = "12345";
    size_t replySize = sizeof(UserLoginAnswer);
    UserEditAnswer editAnswer; // the answer to every account change
    size_t editReplySize = sizeof(UserEditAnswer);
};
