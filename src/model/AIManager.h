#pragma once
// The analytics applications' model: which channels App analyses, the rule block the face,
// crowd and heat-map screens read (parameter block 61), and the live crowd counts App
// reports (forwarded by the UI manager as UiEventType::AIObjInfo) for the live cells.
#include "model/CachedParamBlock.h"
#include "protocol/CountLiveNotice.h"
#include "protocol/ParamBlock.h"
#include "toolkit/core/VyObject.h"

#include <array>
#include <cstddef>
#include <cstdint>

class AIManager : public VyObject {
    VY_OBJECT(AIManager, VyObject)
public:
    static constexpr int kMaxChannels = 64;

    AIManager();
    ~AIManager() override;

    // The live one, owned by the UiModels set; null when there is none.
    static AIManager* instance();

    // Rereads the rule block (after App reports it changed).
    void refresh();
    const CachedParamBlock& rules() const { return m_rules; }
    // Channels whose analytics results are shown; bit n = channel n. Until set, those the
    // device profile analyses (DevInfo/AIAnalyzeChannels).
    uint64_t analysedChannels() const;
    void setAnalysedChannels(uint64_t mask);
    VySignal changed;

    // A CountLive body from App. A short body, or a channel that is not analysed, is
    // dropped with a log line; false then.
    bool takeCountNotice(const uint8_t* body, size_t len);
    // The last counts of a channel; null before App sent any (or for a channel out of range).
    const CountLiveNotice* liveCount(int channel) const;
    // Emitted after each accepted notice; lastCountChannel() says which channel changed.
    VySignal countsChanged;
    int lastCountChannel() const { return m_lastCountChannel; }

protected:
    void customEvent(VyEvent* e) override;

private:
    CachedParamBlock m_rules{ParamBlock::AiRules.number, ParamBlock::AiRules.size};
    uint64_t m_analysedChannels = 0;
    bool m_analysedSet = false;
    std::array<CountLiveNotice, kMaxChannels> m_counts{};
    uint64_t m_countKnown = 0; // bit n: m_counts[n] holds App's counts
    int m_lastCountChannel = -1;
};
