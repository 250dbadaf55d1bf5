#pragma once
// The models and managers of the recorder's state, made in one fixed order and owned here.
// Start-up keeps one set for the whole run and hands it to the UiManager, which fills it
// while it is built; a test makes a set of its own, so no state carries from one case to the
// next. While a set holds a model, that model's instance() answers it (null otherwise).
//
//     UiModels models;                        // empty
//     UiManager manager(&models, &timers);    // creates the models in their order
//     models.camera()->ipChannelCount();
#include "runtime/VyGlobal.h"

#include <memory>

class AIManager;
class AlarmInfoModel;
class CameraModel;
class DeviceParamModel;
class DiskManager;
class FrontPanelModel;
class MainViewManager;
class RecDataManager;
class RemoteAccessModel;
class UserAccess;
class VyKeyManager;
struct SystemInfoRecord;

class UiModels {
public:
    UiModels();
    // Deletes the models in the reverse order of their creation.
    ~UiModels();
    VY_DISABLE_COPY_MOVE(UiModels)

    // Creates every model, in the order the device has always made them: AI manager, camera
    // model, disk manager, record-data manager, device parameters, front panel, remote
    // access, the alarm-information model only when `info` says the device reports alarm
    // details, main-view manager, user access, key manager. Once per set.
    void create(const SystemInfoRecord& info);
    bool isCreated() const { return m_created; }

    AIManager* ai() const { return m_ai.get(); }
    CameraModel* camera() const { return m_camera.get(); }
    DiskManager* disks() const { return m_disks.get(); }
    RecDataManager* recData() const { return m_recData.get(); }
    DeviceParamModel* deviceParams() const { return m_deviceParams.get(); }
    FrontPanelModel* frontPanel() const { return m_frontPanel.get(); }
    RemoteAccessModel* remoteAccess() const { return m_remoteAccess.get(); }
    // Null unless the device reports alarm details.
    AlarmInfoModel* alarmInfo() const { return m_alarmInfo.get(); }
    MainViewManager* mainView() const { return m_mainView.get(); }
    UserAccess* users() const { return m_users.get(); }
    VyKeyManager* keyManager() const { return m_keyManager.get(); }

private:
    bool m_created = false;
    std::unique_ptr<AIManager> m_ai;
    std::unique_ptr<CameraModel> m_camera;
    std::unique_ptr<DiskManager> m_disks;
    std::unique_ptr<RecDataManager> m_recData;
    std::unique_ptr<DeviceParamModel> m_deviceParams;
    std::unique_ptr<FrontPanelModel> m_frontPanel;
    std::unique_ptr<RemoteAccessModel> m_remoteAccess;
    std::unique_ptr<AlarmInfoModel> m_alarmInfo;
    std::unique_ptr<MainViewManager> m_mainView;
    std::unique_ptr<UserAccess> m_users;
    std::unique_ptr<VyKeyManager> m_keyManager;
};
