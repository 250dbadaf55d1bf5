#pragma once
// The analytics applications' model: which channels App analyses, the rule block the
// face, crowd and heat-map screens read (parameter block 61), the face library, the live
// crowd counts and App's other live analytics results (FaceInfoEvent, AIObjInfoEvent),
// checked before anyone shows them.
#include "model/CachedParamBlock.h"
#include "protocol/AIObjectNotice.h"
#include "protocol/CountLiveNotice.h"
#include "protocol/FaceRecognition.h"
#include "protocol/ParamBlock.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyObject.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

class FaceLibraryModel;

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

    FaceLibraryModel* faceLibrary() const { return m_faces.get(); }

    // The last recognition of a known person on a channel of the device, with the person's
    // name; strangers, unknown faces and channels are logged and not kept.
    const FaceRecognition& lastRecognition() const { return m_lastRecognition; }
    const VyString& lastRecognisedName() const { return m_lastName; }
    int recognitionCount() const { return m_recognitions; }
    const AIObjectNotice& lastObject() const { return m_lastObject; }
    // Checks and keeps one recognition (the body of a FaceInfoEvent); false when refused.
    bool takeRecognition(const uint8_t* body, size_t size);
    bool takeObject(const uint8_t* body, size_t size);
    VySignal recognised;
    VySignal objectDetected;

protected:
    void customEvent(VyEvent* e) override;

private:
    bool channelKnown(uint32_t channel) const;

    CachedParamBlock m_rules{ParamBlock::AiRules.number, ParamBlock::AiRules.size};
    uint64_t m_analysedChannels = 0;
    bool m_analysedSet = false;
    std::array<CountLiveNotice, kMaxChannels> m_counts{};
    uint64_t m_countKnown = 0; // bit n: m_counts[n] holds App's counts
    int m_lastCountChannel = -1;
    std::unique_ptr<FaceLibraryModel> m_faces;
    FaceRecognition m_lastRecognition;
    VyString m_lastName;
    int m_recognitions = 0;
    AIObjectNotice m_lastObject;
};
