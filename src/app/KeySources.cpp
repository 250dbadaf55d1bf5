#include "app/KeySources.h"

#include "model/KeyManagerLink.h"
#include "platform/keys/VyInputKeyLibrary.h"
#include "platform/keys/VyJoystickReader.h"
#include "platform/keys/VyWindowKeyLibrary.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/input/VyKeyManager.h"

#include <memory>
#include <string>

void KeySources::install(VyApplication* app, KeyManagerLink* link) {
    std::shared_ptr<VyQueuedKeyLibrary> library;
    VyScreen* screen = app->screen();
    if (screen != nullptr && screen->device().startsWith("window:")) {
        auto window = std::make_shared<VyWindowKeyLibrary>();
        screen->setKeyHandler([window](const char* name) { window->keyPressed(name); });
        screen->setStatusSource(
            [window](std::string* text) { return window->takeStatusText(text); });
        library = window;
    } else {
        auto devices = std::make_shared<VyInputKeyLibrary>();
        devices->scan();
        library = devices;
    }

    VyKeyMap joystickMap;
    if (joystickMap.load(VyJoystickReader::kKeyMapFile)) {
        // Runs to the end of the process, like the key poll thread.
        static auto* joystick = new VyJoystickReader(
            joystickMap, [library](uint32_t key) { library->keys().push(key); });
        joystick->start();
    }

    VyKeyManager::Setup setup;
    setup.library = library;
    setup.link = link;
    VyKeyManager::setDefaultSetup(setup);
}
