#include "model/UiModels.h"

#include "model/AIManager.h"
#include "model/AlarmInfoModel.h"
#include "model/CameraModel.h"
#include "model/DeviceParamModel.h"
#include "model/DiskManager.h"
#include "model/FrontPanelModel.h"
#include "model/MainViewManager.h"
#include "model/RecDataManager.h"
#include "model/RemoteAccessModel.h"
#include "model/UserAccess.h"
#include "protocol/SystemInfoRecord.h"
#include "toolkit/input/VyKeyManager.h"

UiModels::UiModels() = default;

UiModels::~UiModels() {
    // Later models may point at earlier ones; they go first.
    m_keyManager.reset();
    m_users.reset();
    m_mainView.reset();
    m_alarmInfo.reset();
    m_remoteAccess.reset();
    m_frontPanel.reset();
    m_deviceParams.reset();
    m_recData.reset();
    m_disks.reset();
    m_camera.reset();
    m_ai.reset();
}

void UiModels::create(const SystemInfoRecord& info) {
    VY_ASSERT(!m_created);
    m_created = true;
    m_ai = std::make_unique<AIManager>();
    m_camera = std::make_unique<CameraModel>(info);
    m_disks = std::make_unique<DiskManager>(info);
    m_recData = std::make_unique<RecDataManager>(info);
    m_deviceParams = std::make_unique<DeviceParamModel>();
    m_frontPanel = std::make_unique<FrontPanelModel>();
    m_remoteAccess = std::make_unique<RemoteAccessModel>();
    if (info.alarmInfoPresent != 0)
        m_alarmInfo = std::make_unique<AlarmInfoModel>(info);
    m_mainView = std::make_unique<MainViewManager>();
    m_users = std::make_unique<UserAccess>();
    m_keyManager = std::make_unique<VyKeyManager>();
    // The remote-access model tells the key manager which address the remote must use.
    m_remoteAccess->setKeyManager(m_keyManager.get());
}
