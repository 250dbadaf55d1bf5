#pragma once
// The analytics applications' model: which channels App analyses and the rule block the
// face, crowd and heat-map screens read (parameter block 61).
#include "model/CachedParamBlock.h"
#include "protocol/ParamBlock.h"
#include "toolkit/core/VyObject.h"

class AIManager : public VyObject {
    VY_OBJECT(AIManager, VyObject)
public:
    AIManager();
    ~AIManager() override;

    // The live one, owned by the UiModels set; null when there is none.
    static AIManager* instance();

    // Rereads the rule block (after App reports it changed).
    void refresh();
    const CachedParamBlock& rules() const { return m_rules; }
    // Channels whose analytics results are shown; bit n = channel n.
    uint64_t analysedChannels() const { return m_analysedChannels; }
    void setAnalysedChannels(uint64_t mask);
    VySignal changed;

private:
    CachedParamBlock m_rules{ParamBlock::AiRules.number, ParamBlock::AiRules.size};
    uint64_t m_analysedChannels = 0;
};
