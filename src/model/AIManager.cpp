#include "model/AIManager.h"

#include "ipc/IpcMsgBlock.h"
#include "model/DeviceProfile.h"
#include "model/FaceLibraryModel.h"
#include "model/FaceReply.h"
#include "model/ModelInstance.h"
#include "runtime/VyLog.h"
#include "toolkit/events/CEvent.h"

AIManager* AIManager::instance() {
    return ModelInstance<AIManager>::get();
}

AIManager::AIManager()
    : m_faces(std::make_unique<FaceLibraryModel>()) {
    ModelInstance<AIManager>::set(this);
}

AIManager::~AIManager() {
    ModelInstance<AIManager>::clear(this);
}

void AIManager::refresh() {
    m_rules.load();
    emitSignal(this, &changed);
}

void AIManager::setAnalysedChannels(uint64_t mask) {
    if (mask == m_analysedChannels)
        return;
    m_analysedChannels = mask;
    emitSignal(this, &changed);
}

bool AIManager::channelKnown(uint32_t channel) const {
    return channel < uint32_t(DeviceProfile::current().channelCount);
}

void AIManager::customEvent(VyEvent* e) {
    if (e->type() != UiEventType::FaceInfo && e->type() != UiEventType::AIObjInfo)
        return;
    const void* block = static_cast<CEvent*>(e)->data();
    if (block == nullptr)
        return;
    const IpcMsgHeader h = ipcBlockHeader(block);
    if (e->type() == UiEventType::FaceInfo)
        takeRecognition(ipcBlockBody(block), h.dataLen);
    else
        takeObject(ipcBlockBody(block), h.dataLen);
    e->accept();
}

bool AIManager::takeRecognition(const uint8_t* body, size_t size) {
    auto r = FaceReply::parseRecognition(body, size);
    if (!r)
        return false;
    if (!channelKnown(r->channel)) {
        VY_GUI_LOG("face recognition on CH%u, the device has %d channels, dropped\n",
                   r->channel + 1, DeviceProfile::current().channelCount);
        return false;
    }
    if (r->faceId == FaceRecognition::kStranger)
        return false;
    const FaceLibraryModel::Face* face = m_faces->face(r->faceId);
    if (face == nullptr) {
        VY_GUI_LOG("face recognition of face %u on CH%u: not in the library, dropped\n", r->faceId,
                   r->channel + 1);
        return false;
    }
    m_lastRecognition = *r;
    m_lastName = face->name;
    ++m_recognitions;
    emitSignal(this, &recognised);
    return true;
}

bool AIManager::takeObject(const uint8_t* body, size_t size) {
    auto o = FaceReply::parseObject(body, size);
    if (!o)
        return false;
    if (!channelKnown(o->channel)) {
        VY_GUI_LOG("analytics object on CH%u, the device has %d channels, dropped\n",
                   o->channel + 1, DeviceProfile::current().channelCount);
        return false;
    }
    m_lastObject = *o;
    emitSignal(this, &objectDetected);
    return true;
}
