// UiManager: the delayed start that decides the first screen.
#include "model/UiManager.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"

#include "model/MainViewManager.h"
#include "model/ParamAccess.h"
#include "model/RecorderLink.h"
#include "model/RemoteAccessModel.h"
#include "model/SystemInfo.h"
#include "model/UiModels.h"
#include "model/UiShell.h"
#include "protocol/GeneralSettingsBlock.h"
#include "protocol/OutputSettingsBlock.h"
#include "runtime/VyLog.h"

void UiManager::delayedStart() {
    if (m_halted != 0)
        return;
    RecorderLink* link = RecorderLink::instance();
    // From now on a request waits in a nested loop, so the screens stay alive meanwhile.
    if (link != nullptr)
        link->setWaiterMode(true);

    if (SystemInfo::record().outputCheckDisabled == 0)
        checkOutputResolution();
    else if (link != nullptr)
        link->send(MainType::System, SystemSubType::OutputCheckSkipped, nullptr, 0);

    RemoteAccessModel* late = m_models->remoteAccess();
    if (late->pendingStart())
        late->start();

    m_models->mainView()->setShown(true);
    if (m_shell != nullptr)
        m_shell->showMainView();

    // Read fresh: the wizard may have been switched off from the web page meanwhile.
    const GeneralSettingsBlock general = ParamAccess::get<GeneralSettingsBlock>();
    const bool wizard = !m_wizardSuppressed && general.wizardEnabled != 0;
    if (wizard) {
        // Once per run: closing the wizard must not bring it back on a later start.
        m_wizardSuppressed = true;
        if (m_shell != nullptr)
            m_shell->openStartupWizard();
    }
    m_delayedStartDone = true;
    // Printed when the first screen is up, so that whoever watches the log sees a GUI that
    // is ready for input.
    vyStartupLog(wizard ? "first screen: start-up wizard over the main view\n"
                        : "first screen: main view\n");
}

void UiManager::checkOutputResolution() {
    OutputSettingsBlock b = ParamAccess::get<OutputSettingsBlock>();
    if (b.resolution == b.confirmedResolution) {
        if (b.checkState == OutputSettingsBlock::kCheckNotice) {
            if (m_shell != nullptr)
                m_shell->confirmResolution(true, b.resolution);
            b.checkState = OutputSettingsBlock::kCheckSettled; // the local copy only
        }
        return;
    }
    const int result = m_shell != nullptr ? m_shell->confirmResolution(false, b.resolution) : 0;
    const bool kept = result == 1;
    if (kept) {
        b.checkState = OutputSettingsBlock::kCheckSettled;
        b.confirmedResolution = b.resolution;
    } else {
        b.resolution = b.confirmedResolution;
        b.checkState = OutputSettingsBlock::kCheckNotice;
    }
    ParamAccess::set(b);
    if (m_shell != nullptr)
        m_shell->applyOutputMode(b, !kept);
}
