// The GUI's side in this process (IPC client, UiManager, receivers) against a recorder-sim
// child on a real socket: every forwarding-table entry arrives at its receiver with its UI
// event type, parameter gets and sets cross the wire as laid out.
#include "E2eProcess.h"

#include "ipc/IpcClient.h"
#include "model/IpcRecorderLink.h"
#include "model/ParamAccess.h"
#include "model/SystemInfo.h"
#include "model/UiManager.h"
#include "model/UiModels.h"
#include "model/UiRouteTable.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/events/CEvent.h"

#include <cstring>
#include <memory>

namespace {

class Receiver : public VyObject {
    VY_OBJECT(Receiver, VyObject)
public:
    void customEvent(VyEvent* e) override {
        auto* c = static_cast<CEvent*>(e);
        const IpcMsgHeader h = c->data() ? ipcBlockHeader(c->data()) : IpcMsgHeader{};
        uint32_t word = 0;
        if (c->data() && h.dataLen >= 4)
            std::memcpy(&word, ipcBlockBody(c->data()), 4);
        received.push_back({e->type(), h.MainType, h.SubType, word});
    }
    struct Got {
        int type;
        uint16_t mainType;
        uint16_t subType;
        uint32_t firstWord;
    };
    std::vector<Got> received;
};

// The GUI process's pieces, without its start-up handshake.
class InProcessGui : public ::testing::Test {
protected:
    void SetUp() override {
        VyApplication::setDisplayDevice("mem:64x64");
        app = std::make_unique<VyApplication>();
        std::memset(&SystemInfo::record(), 0, sizeof(SystemInfoRecord));
    }
    bool startSim(const std::string& simConfig, const std::string& script) {
        session.dir.write("script.txt", script);
        session.dir.write("sim.conf", simConfig);
        if (!session.sim.start(E2eSession::simBinary(), session.dir.path(),
                               {{"VY_IPC_SOCKET", session.socket()},
                                {"VY_SIM_CONFIG", session.dir.file("sim.conf")},
                                {"VY_SIM_SCRIPT", session.dir.file("script.txt")}},
                               session.dir.file("sim.log")))
            return false;
        if (!session.sim.waitFor("sim: listening on"))
            return false;
        IpcClientConfig config;
        config.socketPath = session.socket();
        config.joinableThreads = true;
        return client.UI_IPC_ClientInit(nullptr, config);
    }
    void connect(const std::string& simConfig, const std::string& script) {
        ASSERT_TRUE(startSim(simConfig, script));
        RecorderLink::setInstance(&link);
        manager = std::make_unique<UiManager>(models.get(), nullptr);
    }
    void TearDown() override {
        client.stop();
        manager.reset();
        models.reset();
        RecorderLink::setInstance(nullptr);
        app.reset();
    }
    // Runs the loop until `done` holds; false at the deadline.
    template <typename Done>
    bool runUntil(Done done) {
        for (int i = 0; i < 3000 && !done(); ++i) {
            if (app->processPostedEvents() == 0)
                usleep(2000);
        }
        return done();
    }

    E2eSession session;
    std::unique_ptr<VyApplication> app;
    IpcClient client;
    IpcRecorderLink link{client};
    std::unique_ptr<UiModels> models = std::make_unique<UiModels>();
    std::unique_ptr<UiManager> manager;
};

} // namespace

TEST_F(InProcessGui, EveryForwardedSubTypeReachesItsReceiverAndUnregisteredOnesDrop) {
    // All forwarded SubTypes, each once, after the UiManager announced itself; SubType 9
    // (event 1020) has no receiver.
    std::string script = "await 1000 4\n";
    std::vector<std::pair<int, int>> expected;
    for (int sub = 8; sub <= 308; ++sub) {
        const UiRoute r = UiRouteTable::route(1000, uint16_t(sub));
        if (r.kind != UiRouteKind::Forward)
            continue;
        script += "notify 1000 " + std::to_string(sub) + " 0 " + "2a000000\n";
        if (sub != 9)
            expected.emplace_back(sub, r.uiEventType);
    }
    ASSERT_NO_FATAL_FAILURE(connect("", script));
    Receiver receiver;
    int count = 0;
    const int* types = UiRouteTable::forwardedEventTypes(&count);
    for (int i = 0; i < count; ++i) {
        if (types[i] != 1020)
            manager->setReceiver(types[i], &receiver);
    }
    ASSERT_TRUE(runUntil([&] { return receiver.received.size() >= expected.size(); }))
        << receiver.received.size() << " of " << expected.size() << "\n"
        << session.sim.output();
    ASSERT_EQ(receiver.received.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(receiver.received[i].type, expected[i].second) << "SubType " << expected[i].first;
        EXPECT_EQ(receiver.received[i].subType, expected[i].first);
        EXPECT_EQ(receiver.received[i].firstWord, 42u);
    }
    EXPECT_EQ(manager->droppedCount(), 1);
}

TEST_F(InProcessGui, ParameterGetZeroFillsAShortReplyAndASetComesBackAsChanged) {
    ASSERT_NO_FATAL_FAILURE(
        connect("block.40.size = 3\nblock.40.0 = 1\nblock.40.1 = 2\nblock.40.2 = 3\n", ""));
    uint8_t buffer[16];
    std::memset(buffer, 0xAB, sizeof buffer);
    ParamAccess::getParam(40, buffer, sizeof buffer);
    const uint8_t expected[16] = {1, 2, 3};
    EXPECT_EQ(0, std::memcmp(buffer, expected, sizeof buffer));

    Receiver settings;
    manager->setReceiver(UiEventType::ParamChanged, &settings);
    const uint8_t record[6] = {6, 5, 4, 3, 2, 1};
    ParamAccess::setParam(41, record, sizeof record);
    ASSERT_TRUE(runUntil([&] { return !settings.received.empty(); })) << session.sim.output();
    EXPECT_EQ(settings.received[0].type, UiEventType::ParamChanged);
    EXPECT_EQ(settings.received[0].firstWord, 41u);

    uint8_t readBack[6] = {};
    ParamAccess::getParam(41, readBack, sizeof readBack);
    EXPECT_EQ(0, std::memcmp(readBack, record, sizeof record));
}

TEST_F(InProcessGui, StageNotificationThatArrivesBeforeTheWaitIsKeptForIt) {
    ASSERT_TRUE(startSim("early_stage1 = 1\n", ""));
    // Stage 1 is noted while nobody waits for it yet...
    for (int i = 0; i < 3000 && client.notedStageCount() == 0; ++i)
        usleep(2000);
    ASSERT_EQ(client.notedStageCount(), 1) << session.sim.output();
    // ...and the wait that starts afterwards consumes it.
    EXPECT_TRUE(client.waitForStage(1));
    EXPECT_EQ(client.notedStageCount(), 0);
}

TEST_F(InProcessGui, SimulatorRefusesMalformedRequestsAndKeepsServing) {
    ASSERT_NO_FATAL_FAILURE(connect("", ""));
    const uint8_t shortGet[4] = {21, 0, 0, 0};
    client.send(600, 0, shortGet, sizeof shortGet);
    const uint32_t wrongHello[2] = {31, 692696};
    client.send(1000, 0, wrongHello, sizeof wrongHello);
    // A set whose record is shorter than its header says.
    const uint8_t badSet[14] = {41, 0, 0, 0, 100, 0, 0, 0, 0, 0, 0, 0, 1, 2};
    client.send(600, 0, badSet, sizeof badSet);
    uint8_t block[8];
    ParamAccess::getParam(22, block, sizeof block);
    EXPECT_TRUE(session.sim.waitFor("sim: refused malformed request (600,0)", 2))
        << session.sim.output();
    EXPECT_TRUE(session.sim.waitFor("sim: refused malformed request (1000,0)"));
    EXPECT_EQ(session.sim.occurrences("sim -> (1000,1)"), 0); // no stage for a bad hello
    // Still serving: the manager's four gets (block 21 twice: display settings, then the
    // language) and the one after the bad messages answered.
    EXPECT_EQ(session.sim.occurrences("sim -> (600,0)"), 5) << session.sim.output();
}
