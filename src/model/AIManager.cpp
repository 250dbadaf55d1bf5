#include "model/AIManager.h"

#include "ipc/IpcMsgBlock.h"
#include "model/DeviceProfile.h"
#include "model/FaceLibraryModel.h"
#include "model/FaceReply.h"
#include "model/ModelInstance.h"
#include "protocol/AnalyticsCap.h"
#include "protocol/AnalyticsCountSubType.h"
#include "protocol/UiEventType.h"
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

uint64_t AIManager::analysedChannels() const {
    if (m_analysedSet)
        return m_analysedChannels;
    const DeviceProfile& p = DeviceProfile::current();
    return AnalyticsCap::channelMask(p.aiAnalyzeChannels, p.channelCount);
}

void AIManager::setAnalysedChannels(uint64_t mask) {
    if (m_analysedSet && mask == m_analysedChannels)
        return;
    m_analysedSet = true;
    m_analysedChannels = mask;
    emitSignal(this, &changed);
}

bool AIManager::takeCountNotice(const uint8_t* body, size_t len) {
    const auto n = CountLiveNotice::decode(body, len);
    if (!n) {
        VY_GUI_LOG("crowd count of %zu bytes dropped\n", len);
        return false;
    }
    if (n->channel >= uint32_t(kMaxChannels) || (analysedChannels() >> n->channel & 1) == 0) {
        VY_GUI_LOG("crowd count for channel %u, which is not analysed, dropped\n", n->channel);
        return false;
    }
    m_counts[n->channel] = *n;
    m_countKnown |= uint64_t(1) << n->channel;
    m_lastCountChannel = int(n->channel);
    emitSignal(this, &countsChanged);
    return true;
}

const CountLiveNotice* AIManager::liveCount(int channel) const {
    if (channel < 0 || channel >= kMaxChannels || (m_countKnown >> channel & 1) == 0)
        return nullptr;
    return &m_counts[size_t(channel)];
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
    else if (h.SubType == AnalyticsCountSubType::CountLive)
        takeCountNotice(ipcBlockBody(block), h.dataLen);
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
