#include "SimHandlers.h"

#include "SimCommands.h"
#include "SimFaces.h"
#include "SimLiveView.h"
#include "SimPlayback.h"
#include "SimRecorder.h"
#include "SimServer.h"
#include "SimUsers.h"

#include <cstdlib>
#include <string>

void registerDefaultHandlers(SimServer& server) {
    // App's side of the conversation (SimRecorder.h). Configured from the environment:
    //   VY_SIM_CONFIG  "key = value" file (SimRecorderConfig.h)
    //   VY_SIM_STORE   parameter store file (overrides the config's "store")
    //   VY_SIM_SCRIPT  script of timed steps (SimCommands.h), run from start
    //   VY_SIM_LOGIN   1: the GUI must ask for a login (users of SimUsers.h)
    // Commands are also read from standard input. Both objects live to process end: the
    // console and script threads may still run when main returns.
    SimRecorderConfig config;
    if (const char* path = std::getenv("VY_SIM_CONFIG"); path && *path) {
        std::string error;
        if (!config.load(path, &error))
            simRecorderLog("sim: cannot read config %s", path);
        if (!error.empty())
            simRecorderLog("sim: %s", error.c_str());
    }
    if (const char* store = std::getenv("VY_SIM_STORE"); store && *store)
        config.storePath = store;
    static SimRecorder* recorder = new SimRecorder(config);
    recorder->attach(server);
    // The live view: its messages, console commands and the video plane ($VY_VIDEO_PLANE).
    static SimLiveView* liveView = new SimLiveView(*recorder, config);
    liveView->attach(server);
    SimCommands::addExtension(
        [](const std::vector<std::string>& w) { return liveView->runCommand(w); });
    if (const char* plane = std::getenv("VY_VIDEO_PLANE"); plane && *plane)
        liveView->startVideoPlane(plane);
    static SimPlayback* playback = new SimPlayback(config);
    playback->attach(server);
    playback->startTicking(SimPlayback::kTickMs);
    static SimUsers* users = new SimUsers();
    users->addDefaultUsers();
    if (const char* login = std::getenv("VY_SIM_LOGIN"); login && *login == '1')
        users->setLoginRequired(true);
    users->attach(server);
    static SimFaces* faces = new SimFaces(config.recordSeed, config.channels);
    faces->attach(server);
    SimCommands::addExtension(
        [](const std::vector<std::string>& w) { return faces->runCommand(w); });
    static SimCommands* console = new SimCommands(*recorder);
    console->startConsole();
    if (const char* script = std::getenv("VY_SIM_SCRIPT"); script && *script) {
        static SimCommands* scripted = new SimCommands(*recorder);
        scripted->startScript(script);
    }
}
