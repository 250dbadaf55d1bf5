#pragma once
// Doubles for the model tests: a link to App that records what the GUI sends and answers
// requests from a block store, a window layer that records what it was asked to show, and
// a timer source advanced by hand.
//
// Each case builds its own models (UiModels) and fills the system information record in
// SetUp, so the cases also pass one after another in one process.
#include "ipc/IpcMsgBlock.h"
#include "model/RecorderLink.h"
#include "model/SystemInfo.h"
#include "model/UiShell.h"
#include "model/UiTimerSource.h"
#include "protocol/MainType.h"
#include "protocol/OutputSettingsBlock.h"
#include "protocol/ParamRequest.h"
#include "protocol/SubType.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/events/CEvent.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

struct SentMessage {
    uint16_t mainType;
    uint16_t subType;
    std::vector<uint8_t> body;
};

class FakeRecorderLink : public RecorderLink {
public:
    uint32_t send(uint16_t mainType, uint16_t subType, const void* body, uint32_t len) override {
        const auto* p = static_cast<const uint8_t*>(body);
        sent.push_back({mainType, subType, std::vector<uint8_t>(p, p + (p ? len : 0))});
        return uint32_t(sent.size());
    }
    void request(uint16_t mainType, uint16_t subType, const void* body, uint32_t len,
                 std::vector<uint8_t>& reply) override {
        const auto* p = static_cast<const uint8_t*>(body);
        requests.push_back({mainType, subType, std::vector<uint8_t>(p, p + (p ? len : 0))});
        reply.clear();
        if (whileWaiting)
            whileWaiting(); // what the nested loop handles while App has not answered yet
        if (mainType == MainType::Param && subType == ParamSubType::Access) {
            auto req = ParamRequest::decode(p, len);
            if (req && blocks.count(req->blockNumber))
                reply = blocks[req->blockNumber];
            return;
        }
        if (mainType == MainType::System && subType == SystemSubType::SystemInfo)
            reply = systemInfo;
    }
    void setWaiterMode(bool on) override { waiterMode = on; }
    void setEventReceiver(VyObject* r) override { receiver = r; }

    template <typename Block>
    void store(const Block& b) {
        const auto* p = reinterpret_cast<const uint8_t*>(&b);
        blocks[Block::kBlockNumber] = std::vector<uint8_t>(p, p + sizeof b);
    }
    int paramGets(uint32_t blockNumber) const {
        int n = 0;
        for (const SentMessage& m : requests) {
            auto req = ParamRequest::decode(m.body.data(), m.body.size());
            n += m.mainType == 600 && req && req->getFlag == 1 && req->blockNumber == blockNumber;
        }
        return n;
    }
    std::vector<const SentMessage*> sentOf(uint16_t mainType, uint16_t subType) const {
        std::vector<const SentMessage*> out;
        for (const SentMessage& m : sent) {
            if (m.mainType == mainType && m.subType == subType)
                out.push_back(&m);
        }
        return out;
    }

    std::vector<SentMessage> sent;
    std::function<void()> whileWaiting;
    std::vector<SentMessage> requests;
    std::map<uint32_t, std::vector<uint8_t>> blocks;
    std::vector<uint8_t> systemInfo;
    VyObject* receiver = nullptr;
    bool waiterMode = false;
};

class RecordingShell : public UiShell {
public:
    void showMessage(uint32_t textId) override {
        calls.push_back("message:" + std::to_string(textId));
    }
    void showMainView() override { calls.push_back("mainview"); }
    int confirmResolution(bool noticeOnly, int resolution) override {
        calls.push_back(std::string(noticeOnly ? "notice:" : "confirm:") +
                        std::to_string(resolution));
        return noticeOnly ? 0 : confirmAnswer;
    }
    void applyOutputMode(const OutputSettingsBlock& b, bool restorePrevious) override {
        calls.push_back("apply:" + std::to_string(b.resolution) +
                        (restorePrevious ? ":restore" : ""));
    }
    void openStartupWizard() override { calls.push_back("wizard"); }

    std::vector<std::string> calls;
    int confirmAnswer = 1;
};

// Fires what is due when advanced; nothing runs by itself.
class ManualTimerSource : public UiTimerSource {
public:
    void singleShot(int ms, VyObject* receiver, VySlot slot) override {
        pending.push_back({now + ms, receiver, slot});
        armedIntervals.push_back(ms);
    }
    void advance(int ms) {
        now += ms;
        for (size_t i = 0; i < pending.size();) {
            if (pending[i].due <= now) {
                Pending p = pending[i];
                pending.erase(pending.begin() + long(i));
                p.slot(nullptr, p.receiver);
            } else {
                ++i;
            }
        }
    }
    struct Pending {
        long due;
        VyObject* receiver;
        VySlot slot;
    };
    long now = 0;
    std::vector<Pending> pending;
    std::vector<int> armedIntervals;
};

// An IPC message block as the IPC client would post it.
inline std::unique_ptr<CEvent> makeIpcEvent(uint16_t mainType, uint16_t subType, uint32_t value,
                                            const void* body = nullptr, uint32_t len = 0) {
    IpcMsgHeader h;
    h.MainType = mainType;
    h.SubType = subType;
    h.msgValue = value;
    h.dataLen = len;
    IpcMsgBlock block = ipcAllocBlock(h);
    if (len != 0)
        std::memcpy(ipcBlockBody(block.get()), body, len);
    auto e = std::make_unique<CEvent>(UiEventType::IpcMessage);
    e->setData(VyEventData(block.release()));
    return e;
}

// Records the forwarded events that reach it: type, parameter and the message it carried.
class ForwardRecorder : public VyObject {
    VY_OBJECT(ForwardRecorder, VyObject)
public:
    void customEvent(VyEvent* e) override {
        auto* c = static_cast<CEvent*>(e);
        Received r{c->type(), c->param, 0, 0};
        if (c->data() != nullptr) {
            const IpcMsgHeader h = ipcBlockHeader(c->data());
            r.mainType = h.MainType;
            r.subType = h.SubType;
        }
        received.push_back(r);
    }
    struct Received {
        int type;
        int param;
        uint16_t mainType;
        uint16_t subType;
    };
    std::vector<Received> received;
};

// The application on the memory display, the fake link installed, a system information
// record the test fills before constructing the UiManager.
class ModelTest : public ::testing::Test {
protected:
    void SetUp() override {
        VyApplication::setDisplayDevice("mem:64x64");
        m_app = std::make_unique<VyApplication>();
        RecorderLink::setInstance(&link);
        std::memset(&SystemInfo::record(), 0, sizeof(SystemInfoRecord));
    }
    void TearDown() override {
        RecorderLink::setInstance(nullptr);
        m_app.reset();
    }
    VyApplication* app() const { return m_app.get(); }

    FakeRecorderLink link;

private:
    std::unique_ptr<VyApplication> m_app;
};
