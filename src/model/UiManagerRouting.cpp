// UiManager: routing of App's messages and the notifications it handles itself.
#include "model/UiManager.h"
#include "protocol/ByteOrder.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "protocol/UiEventType.h"

#include "ipc/IpcMsgBlock.h"
#include "model/AIManager.h"
#include "model/DeviceParamModel.h"
#include "model/FrontPanelModel.h"
#include "model/MainViewManager.h"
#include "model/RecDataManager.h"
#include "model/RecorderLink.h"
#include "model/RemoteAccessModel.h"
#include "model/UiModels.h"
#include "model/UiRouteTable.h"
#include "model/UiShell.h"
#include "protocol/TimeZoneNotice.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/events/CEvent.h"
#include "toolkit/events/TurnPageEvent.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace {

constexpr size_t kBlockNumberSize = 4; // bytes: the changed block's number, u32

} // namespace

void UiManager::setReceiver(int uiEventType, VyObject* receiver) {
    const int slot = uiEventType - kSlotBase;
    if (slot < 0 || slot >= kSlotCount) {
        vyFrameworkLog("UiManager: no receiver slot for event type %d !!!\n", uiEventType);
        return;
    }
    m_receivers[slot].reset(receiver);
}

VyObject* UiManager::receiver(int uiEventType) const {
    const int slot = uiEventType - kSlotBase;
    return slot >= 0 && slot < kSlotCount ? m_receivers[slot].data() : nullptr;
}

void UiManager::setPlaybackReceivers(PlaybackReceiver* first, PlaybackReceiver* second) {
    m_playback[0].reset(first);
    m_playback[1].reset(second);
}

void UiManager::customEvent(VyEvent* e) {
    if (e->type() != UiEventType::IpcMessage)
        return;
    routeMessage(static_cast<CEvent*>(e));
    e->accept();
}

void UiManager::routeMessage(CEvent* e) {
    const void* block = e->data();
    if (block == nullptr)
        return;
    const IpcMsgHeader h = ipcBlockHeader(block);
    const uint8_t* body = ipcBlockBody(block);
    const UiRoute route = UiRouteTable::route(h.MainType, h.SubType);
    switch (route.kind) {
    case UiRouteKind::Forward:
        routeSubType(e, h, route.uiEventType);
        break;
    case UiRouteKind::SelfHandled:
        handleSelf(h);
        break;
    case UiRouteKind::MainView:
        forward(e, m_models->mainView(), route.uiEventType);
        break;
    case UiRouteKind::Playback: {
        PlaybackReceiver* p = m_playback[0] ? m_playback[0].data() : m_playback[1].data();
        if (p != nullptr && p->readyForRecorderMessages())
            forward(e, p, route.uiEventType);
        else
            ++m_droppedCount;
        break;
    }
    case UiRouteKind::Parameter:
        handleParameter(e, h, body);
        break;
    case UiRouteKind::Drop:
        ++m_droppedCount;
        break;
    }
}

void UiManager::routeSubType(CEvent* e, const IpcMsgHeader& h, int uiEventType) {
    VyObject* target = receiver(uiEventType);
    if (h.SubType == SystemSubType::TwoTargets && target == nullptr)
        target = m_second1032.data();
    forward(e, target, uiEventType, h.SubType == SystemSubType::Ntp ? int(h.msgValue) : 0);
}

void UiManager::forward(CEvent* e, VyObject* target, int uiEventType, int param) {
    if (target == nullptr) {
        ++m_droppedCount;
        return;
    }
    // The block now travels with the new event; the target's event frees it.
    auto next = std::make_unique<CEvent>(uiEventType, param);
    next->setData(e->takeData());
    VyApplication::postEvent(target, std::move(next));
}

void UiManager::reply(uint16_t subType) {
    if (RecorderLink* link = RecorderLink::instance())
        link->send(MainType::System, subType, nullptr, 0);
}

void UiManager::showMessage(MessageId id) {
    if (m_shell == nullptr) {
        vyFrameworkLog("UiManager: no window layer to show \"%s\" !!!\n", messageText(id).c_str());
        return;
    }
    m_shell->showMessage(messageTextId(id));
}

void UiManager::handleSelf(const IpcMsgHeader& h) {
    const uint32_t value = h.msgValue;
    m_lastValues.insert(h.SubType, value);
    switch (h.SubType) {
    case SystemSubType::Busy:
        if (value != 0) {
            reply(SystemSubType::Busy);
            showMessage(MsgBusy);
        }
        break;
    case SystemSubType::SubscriptionCheck:
    case SystemSubType::SubscriptionCheck2:
        reply(SystemSubType::Busy);
        break;
    case SystemSubType::Sync45:
        reply(SystemSubType::Sync45);
        break;
    case SystemSubType::Query199:
        reply(SystemSubType::Ack201);
        break;
    case SystemSubType::LedState:
        vySystemLine("LED state: %d ------------------\n", int(value));
        m_models->frontPanel()->setLedState(uint8_t(value & 0xFF));
        break;
    case SystemSubType::NetworkStatus:
        m_networkStatus = value;
        vySystemLine("UI:NET STATUS:%d\n", int(value));
        emitSignal(this, &networkStatusChanged);
        emitSignal(this, &connectionStateChanged);
        break;
    case SystemSubType::TurnPage:
        // Whoever shows pages (the live view) registers for the event; nobody, no turn.
        if (VyObject* target = receiver(UiEventType::TurnPage))
            VyApplication::postEvent(target, std::make_unique<TurnPageEvent>(int(value)));
        break;
    case SystemSubType::Shutdown:
        // Nothing may start any more; App powers the board off when it is done.
        m_shuttingDown = true;
        m_halted = 1;
        m_wizardSuppressed = true;
        showMessage(MsgShutdown);
        break;
    default:
        // Kept for the screens that read it; no action of its own.
        VY_DEBUG("ui", "UiManager: notification %u value %u\n", unsigned(h.SubType), value);
        break;
    }
}

void UiManager::handleParameter(CEvent* e, const IpcMsgHeader& h, const uint8_t* body) {
    switch (h.SubType) {
    case ParamSubType::Access:
        if (h.msgValue == 0) {
            if (h.dataLen < kBlockNumberSize) {
                vyFrameworkLog("parameter changed without a block number (%u bytes), dropped "
                               "!!!\n",
                               h.dataLen);
                ++m_droppedCount;
                return;
            }
            reactToParameterChange(ByteOrder::loadLe32(body));
        }
        forward(e, receiver(UiEventType::ParamChanged), UiEventType::ParamChanged);
        break;
    case ParamSubType::TimeZone:
        handleTimeZone(h, body);
        break;
    case ParamSubType::Notice1:
        forward(e, receiver(UiEventType::ParamNotice1), UiEventType::ParamNotice1);
        break;
    case ParamSubType::Notice2:
        forward(e, receiver(UiEventType::ParamNotice2), UiEventType::ParamNotice2);
        break;
    default:
        ++m_droppedCount;
        break;
    }
}

void UiManager::handleTimeZone(const IpcMsgHeader& h, const uint8_t* body) {
    // The text must end inside the body and the value must be there too; anything less is
    // a message out of step with App and is not trusted.
    if (h.dataLen < TimeZoneNotice::kSize || std::memchr(body, 0, h.dataLen) == nullptr) {
        vyFrameworkLog("time zone notice malformed (%u bytes), dropped !!!\n", h.dataLen);
        ++m_droppedCount;
        return;
    }
    m_timeZoneValue = ByteOrder::loadLe32(body + TimeZoneNotice::kValueOffset);
    setenv("TZ", reinterpret_cast<const char*>(body), 1);
    tzset();
    vySystemLine("[GUI] Set TZ to %s\n", getenv("TZ"));
}

void UiManager::reactToParameterChange(uint32_t blockNumber) {
    if (UiRouteTable::reactionForBlock(blockNumber).kind == ParamReactionKind::None)
        return;
    m_changes.run(blockNumber, [this](uint32_t number) { react(number); });
}

void UiManager::react(uint32_t blockNumber) {
    const ParamReaction r = UiRouteTable::reactionForBlock(blockNumber);
    switch (r.kind) {
    case ParamReactionKind::None:
        break;
    case ParamReactionKind::ReloadPart:
        m_models->deviceParams()->reloadPart(r.part);
        break;
    case ParamReactionKind::Block6Changed:
        emitSignal(this, &block6Changed);
        m_models->deviceParams()->reloadPart(r.part);
        break;
    case ParamReactionKind::OutputSettingsChanged:
        setupOutput();
        m_models->mainView()->refresh();
        break;
    case ParamReactionKind::RefreshRecordModel:
        m_models->recData()->refresh();
        break;
    case ParamReactionKind::ReloadGeneralSettings:
        loadGeneralSettings();
        break;
    case ParamReactionKind::RefreshPendingStart:
        m_models->remoteAccess()->refresh();
        break;
    case ParamReactionKind::RefreshMainViewSettings:
        m_models->mainView()->refreshSettings();
        break;
    case ParamReactionKind::RereadDisplaySwitches:
        loadDisplaySwitches();
        break;
    case ParamReactionKind::Block60Changed:
        emitSignal(this, &block60Changed);
        break;
    case ParamReactionKind::RefreshAiModel:
        m_models->ai()->refresh();
        break;
    }
}
