#pragma once
// The analytics applications' model: which channels App analyses, the rule block the
// face, crowd and heat-map screens read (parameter block 61), the face library, and App's
// live analytics results (FaceInfoEvent, AIObjInfoEvent) checked before anyone shows them.
#include "model/CachedParamBlock.h"
#include "protocol/AIObjectNotice.h"
#include "protocol/FaceRecognition.h"
#include "protocol/ParamBlock.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyObject.h"

#include <memory>

class FaceLibraryModel;

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
    std::unique_ptr<FaceLibraryModel> m_faces;
    FaceRecognition m_lastRecognition;
    VyString m_lastName;
    int m_recognitions = 0;
    AIObjectNotice m_lastObject;
};
