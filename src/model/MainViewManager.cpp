#include "model/MainViewManager.h"

#include "model/ModelInstance.h"
#include "protocol/UiEventType.h"

#include "ipc/IpcMsgBlock.h"
#include "model/ParamAccess.h"
#include "model/UiRouteTable.h"
#include "protocol/OutputSettingsBlock.h"
#include "toolkit/events/CEvent.h"

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
    if (e->type() != UiEventType::MainViewNotice)
        return;
    e->accept();
    const void* block = static_cast<CEvent*>(e)->data();
    if (block == nullptr)
        return;
    const IpcMsgHeader h = ipcBlockHeader(block);
    ++m_previewMessageCount;
    m_lastPreviewSubType = h.SubType;
    m_lastPreviewValue = h.msgValue;
    emitSignal(this, &previewMessage);
}
