#include "SimHandlers.h"

#include "SimAnalytics.h"
#include "SimCommands.h"
#include "SimFaces.h"
#include "SimLiveView.h"
#include "SimMaintenance.h"
#include "SimPlayback.h"
#include "SimPlaybackPlane.h"
#include "SimRecorder.h"
#include "SimServer.h"
#include "SimTags.h"
#include "SimThumbnails.h"
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
    static SimPlayback* playback = new SimPlayback(config);
    playback->attach(server);
    playback->startTicking(SimPlayback::kTickMs);
    static SimTags* tags = new SimTags(config, SimRecordDb::localToday());
    tags->attach(server);
    static SimThumbnails* thumbnails = new SimThumbnails(playback->db());
    thumbnails->attach(server);
    liveView->setPlaybackSource([](int width, int height, SimPlaybackFrame* out) {
        return playback->planeFrame(width, height, out);
    });
    if (const char* plane = std::getenv("VY_VIDEO_PLANE"); plane && *plane)
        liveView->startVideoPlane(plane);
    // Counting, heat maps and statistics from the record seed; an over-limit count raises
    // the channel's analytics alarm like the console's "alarm CH ai on".
    static SimAnalytics* analytics = new SimAnalytics(config.recordSeed, config.channels);
    analytics->attach(server);
    analytics->setAlarm([](int ch, bool on) {
        liveView->runCommand({"alarm", std::to_string(ch + 1), "ai", on ? "on" : "off"});
    });
    analytics->startTicking(SimAnalytics::kTickMs, recorder->store());
    SimCommands::addExtension(
        [](const std::vector<std::string>& w) { return analytics->runCommand(w); });
    static SimUsers* users = new SimUsers();
    users->addDefaultUsers();
    if (const char* login = std::getenv("VY_SIM_LOGIN"); login && *login == '1')
        users->setLoginRequired(true);
    users->attach(server);
    static SimMaintenance* maintenance = new SimMaintenance(playback, config.recordSeed);
    maintenance->setStore(&recorder->store(), config.channels);
    maintenance->attach(server);
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
