#include "app/AppStartup.h"
#include "app/KeySources.h"
#include "protocol/DeviceDefaultRecord.h"
#include "protocol/MainType.h"
#include "protocol/StartupHello.h"
#include "protocol/SubType.h"

#include "app/ControlChannel.h"
#include "app/CustomConfigSender.h"
#include "app/ResourcesOverride.h"
#include "app/ScaledTimerSource.h"
#include "ipc/IpcClient.h"
#include "model/DeviceProfile.h"
#include "model/IpcRecorderLink.h"
#include "model/KeyManagerLink.h"
#include "model/ParamAccess.h"
#include "model/SystemInfo.h"
#include "model/UiManager.h"
#include "model/UiModels.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyLog.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/events/CEvent.h"
#include "toolkit/input/VyMouseWatcher.h"
#include "toolkit/style/VyStyle.h"
#include "ui/WindowShell.h"
#include "ui/users/UserLoginDialog.h"

#include <csignal>
#include <cstdio>
#include <malloc.h>
#include <pthread.h>

namespace {

constexpr int kOwnMappingBytes = 128 * 1024; // the allocator's own starting threshold

constexpr const char* kCustomConfigFile = "custom-config.ini";
constexpr int kQuitEventType = 1200; // the GUI's own: asks the loop to end

// Ends the event loop on SIGINT or SIGTERM. The signals are blocked in every thread and
// taken by one thread of its own, which only posts an event; the loop then returns and the
// application is destroyed on the GUI thread, as at any other end.
class SignalQuitter : public VyObject {
    VY_OBJECT(SignalQuitter, VyObject)
public:
    static void blockSignals(sigset_t* set) {
        sigemptyset(set);
        sigaddset(set, SIGINT);
        sigaddset(set, SIGTERM);
        pthread_sigmask(SIG_BLOCK, set, nullptr);
    }
    void start(const sigset_t& set) {
        m_set = set;
        pthread_t thread;
        if (pthread_create(&thread, nullptr, &SignalQuitter::wait, this) == 0)
            pthread_detach(thread);
    }

protected:
    void customEvent(VyEvent* e) override {
        if (e->type() != kQuitEventType)
            return;
        e->accept();
        vyStartupLog("stopping\n");
        VyApplication::instance()->quit();
    }

private:
    static void* wait(void* self) {
        auto* q = static_cast<SignalQuitter*>(self);
        int sig = 0;
        sigwait(&q->m_set, &sig);
        VyApplication::postEvent(q, std::make_unique<CEvent>(kQuitEventType, sig));
        return nullptr;
    }
    sigset_t m_set{};
};

} // namespace

int AppStartup::run(int argc, char** argv) {
    // 1. Where the resources are, when not in the working directory.
    ResourcesOverride::apply();
#ifdef VY_INSTALLED_DATA_DIR
    ResourcesOverride::applyInstalledFallback(VY_INSTALLED_DATA_DIR);
#endif

    // 2. Progress lines reach a log collector as they happen.
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    // Window surfaces and pictures are hundreds of kB to megabytes and come and go with the
    // screens. A fixed threshold keeps every such buffer in its own mapping, given back to
    // the system when freed; the allocator's default would raise the threshold after the
    // first one and then carve the next ones out of the heap, where the holes they leave stay
    // resident after the screen has closed.
    mallopt(M_MMAP_THRESHOLD, kOwnMappingBytes);

    // The quit signals go to one thread of their own; every thread made from here on
    // inherits the block.
    sigset_t quitSignals;
    SignalQuitter::blockSignals(&quitSignals);

    // 3. The link to App, with nobody to receive its events yet.
    IpcClient& ipc = IpcClient::instance();
    ipc.UI_IPC_ClientInit(nullptr);
    static IpcRecorderLink link(ipc);
    RecorderLink::setInstance(&link);

    // 4-6. Hello, then App's first stage.
    vyStartupLog("UI is running, tell App ...\n");
    StartupHello hello;
    hello.recordSize = DeviceDefaultRecord::kSize;
    uint8_t helloBody[StartupHello::kSize];
    hello.encode(helloBody);
    ipc.send(MainType::System, SystemSubType::Hello, helloBody, sizeof helloBody);
    ipc.waitForStage(1);

    // 7-11. Device defaults and the colour profile.
    vyStartupLog("App is running, configurate default parameter for app ...\n");
    {
        // Scoped: the packed device record is not kept for the whole run.
        CustomConfigSender config(CustomConfigSender::ipcLink(ipc));
        const VyString configPath = VyResources::path(kCustomConfigFile);
        config.configureAppDefaults(configPath);
        // What the settings pages offer on this model.
        DeviceProfile& profile = DeviceProfile::current();
        profile.readDeviceRecord(config.deviceRecord().data(), config.deviceRecord().size());
        profile.readRecordSwitches(VyIniSettings(configPath));
    }
    // The exchange allocated and freed about 2 MB of records; give it back to the system
    // rather than keep it in the allocator for a run that never needs it again.
    malloc_trim(0);

    // 12-14. App finishes its own start.
    vyStartupLog("Waiting App finish init work ...\n");
    ipc.waitForStage(3);
    vyStartupLog("App init OK, now do everything we want to do !!\n");

    // 15-16. The device description; its display device, if any, is the screen to open.
    ParamAccess::getSystemInfo();
    DeviceProfile::current().channelCount = SystemInfo::record().channelCount;
    VyApplication::setDisplayDevice(VyString(SystemInfo::record().displayDeviceName()));

    // 17. The application opens the display (it exits the process when it cannot) and
    // starts the mouse reader made by the factory installed here.
    VyMouseWatcher::install();
    auto* app = new VyApplication(argc, argv);

    // The key sources, handed to the key manager that the models make next. The serial
    // keyboard is a feature of the device's customisation.
    static KeyManagerLink keyLink;
    {
        VyKeyRecorderLink::Features features;
        const VyIniSettings config(VyResources::path(kCustomConfigFile));
        features.serialKeyboard = config.intValue("CustomFuncs/KeyBoardEnble") != 0;
        keyLink.setFeatures(features);
    }
    KeySources::install(app, &keyLink);

    // 18. The UiManager and the models it creates live to the end of the process.
    static ScaledTimerSource timers;
    static WindowShell shell;
    shell.setTimeScale(timers.scale());
    static UiModels* models = new UiModels;
    static UiManager* manager = new UiManager(models, &timers);
    manager->setShell(&shell);
    // Protected actions ask for a login through the login dialog.
    UserLoginDialog::install();

    // 19. The common style, at the screen's scale and again whenever the screen changes.
    VyStyle::instance()->followScreen(app->screen());

    // Kept past the loop: its thread may still see a late signal.
    static SignalQuitter* quitter = new SignalQuitter;
    quitter->start(quitSignals);
    // Drivers that run the GUI from outside (the soak) talk to it here; unset on a device.
    // Kept past the loop for the same reason as the quitter.
    static ControlChannel* control = new ControlChannel;
    control->startFromEnvironment();

    // 20. The loop; its result is the exit code.
    const int code = app->exec();
    shell.closeAll();
    delete app;
    return code;
}
