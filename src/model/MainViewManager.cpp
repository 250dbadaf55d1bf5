#include "model/MainViewManager.h"

#include "model/ModelInstance.h"
#include "protocol/UiEventType.h"

#include "ipc/IpcMsgBlock.h"
#include "model/ParamAccess.h"
#include "model/UiRouteTable.h"
#include "protocol/OutputSettingsBlock.h"
#include "protocol/SubType.h"
#include "runtime/VyLog.h"
#include "toolkit/events/CEvent.h"
#include "toolkit/events/CtrlReqEvent.h"

MainViewManager* MainViewManager::instance() {
    return ModelInstance<MainViewManager>::get();
}

MainViewManager::MainViewManager() {
    ModelInstance<MainViewManager>::set(this);
}

MainViewManager::~MainViewManager() {
    ModelInstance<MainViewManager>::clear(this);
}

void MainViewManager::setShown(bool shown) {
    if (m_shown == shown)
        return;
    m_shown = shown;
    // The first record after the view appears tells App to (re)start every decoder.
    if (shown)
        m_firstPreviewPending = true;
    emitSignal(this, &viewChanged);
}

void MainViewManager::setLayout(int layout) {
    if (m_layout == layout)
        return;
    m_layout = layout;
    emitSignal(this, &viewChanged);
}

void MainViewManager::refresh() {
    m_outputResolution = ParamAccess::get<OutputSettingsBlock>().resolution;
    emitSignal(this, &viewChanged);
}

void MainViewManager::refreshSettings() {
    m_settings.load();
    emitSignal(this, &settingsChanged);
}

void MainViewManager::customEvent(VyEvent* e) {
    switch (e->type()) {
    case UiEventType::MainViewNotice:
        break;
    case UiEventType::ChannelState:
        e->accept();
        handleChannelEvent(static_cast<CEvent*>(e)->data());
        return;
    case UiEventType::CtrlReq: {
        // A layout menu's choice: the identifier travels as the request code.
        e->accept();
        m_requestedLayout = static_cast<CtrlReqEvent*>(e)->requestCode();
        emitSignal(this, &layoutRequested);
        return;
    }
    case UiEventType::DualTalk: {
        // Forwarded with the message block: the state travels in its msgValue.
        e->accept();
        const void* block = static_cast<CEvent*>(e)->data();
        if (block == nullptr)
            return;
        const DualTalkNotice n = DualTalkNotice::decode(ipcBlockHeader(block).msgValue);
        m_talkState = n.state;
        m_talkChannel = n.channel;
        emitSignal(this, &talkStateChanged);
        return;
    }
    case UiEventType::TurnPage: {
        e->accept();
        const TurnPageNotice n = TurnPageNotice::decode(uint32_t(static_cast<CEvent*>(e)->param));
        if (n.operation < TurnPageNotice::kNext || n.operation > TurnPageNotice::kGoto) {
            VY_GUI_LOG("page turn %d unknown, ignored\n", int(n.operation));
            return;
        }
        m_pageTurn = n;
        emitSignal(this, &pageTurnRequested);
        return;
    }
    default:
        return;
    }
    e->accept();
    const void* block = static_cast<CEvent*>(e)->data();
    if (block == nullptr)
        return;
    const IpcMsgHeader h = ipcBlockHeader(block);
    if (h.SubType == PreviewSubType::SnapshotDone) {
        m_changedChannel = int(h.msgValue);
        emitSignal(this, &snapshotTaken);
    }
    ++m_previewMessageCount;
    m_lastPreviewSubType = h.SubType;
    m_lastPreviewValue = h.msgValue;
    emitSignal(this, &previewMessage);
}
