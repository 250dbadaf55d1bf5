// dvrgui against recorder-sim, both real processes: the start-up handshake, the delayed
// start and the first-screen decisions (their variants are covered by the model tests).
#include "E2eProcess.h"

#include <algorithm>
#include <regex>

namespace {

// The sim's "sim <- (M,S) seq=N len=L" lines as "(M,S) len=L", in arrival order.
std::vector<std::string> received(const E2eProcess& sim) {
    std::vector<std::string> out;
    const std::regex in(R"(^sim <- (\(\d+,\d+\)) seq=\d+ len=(\d+)$)");
    for (const std::string& l : sim.lines()) {
        std::smatch m;
        if (std::regex_match(l, m, in))
            out.push_back(m[1].str() + " len=" + m[2].str());
    }
    return out;
}

std::vector<std::string> startupLines(const E2eProcess& gui) {
    std::vector<std::string> out;
    for (const std::string& l : gui.lines()) {
        if (l.rfind("GUI: ", 0) == 0)
            out.push_back(l);
    }
    return out;
}

int indexOf(const std::vector<std::string>& lines, const std::string& text) {
    auto it = std::find_if(lines.begin(), lines.end(),
                           [&](const std::string& l) { return l.find(text) != std::string::npos; });
    return it == lines.end() ? -1 : int(it - lines.begin());
}

} // namespace

TEST(StartupE2e, HandshakeRunsInOrderWithItsBodiesAndPrintedLines) {
    E2eSession s;
    ASSERT_TRUE(s.startSim("ip_channels = 0\n"));
    ASSERT_TRUE(s.startGui());
    ASSERT_TRUE(s.gui.waitFor("GUI: first screen: main view")) << s.gui.output();

    const std::vector<std::string> in = received(s.sim);
    const std::vector<std::string> handshake = {
        "(1000,0) len=8",
        "(600,4) len=692696",
        "(600,3) len=0",
        "(600,14) len=0",
        "(600,10) len=690216",
        "(1000,104) len=0",
        "(600,11) len=2480",
        "(1000,105) len=0",
        "(1000,33) len=0",
        // The UiManager: the serial keyboard (the sample customisation has one) and device
        // blocks the key manager reads as the models are made, general settings, display
        // switches, output settings, then its pid.
        "(600,0) len=12",
        "(600,0) len=12",
        "(600,0) len=12",
        "(600,0) len=12",
        "(600,0) len=12",
        "(1000,4) len=4",
    };
    ASSERT_GE(in.size(), handshake.size()) << s.sim.output();
    EXPECT_EQ(std::vector<std::string>(in.begin(), in.begin() + long(handshake.size())), handshake);
    EXPECT_TRUE(s.sim.waitFor("sim: hello revision 32 record size 692696"));
    EXPECT_TRUE(s.sim.waitFor("sim: GUI pid " + std::to_string(s.gui.pid()) + "\n"));
    EXPECT_EQ(s.sim.occurrences("refused"), 0) << s.sim.output();

    // Stages go out only after what they answer.
    const std::vector<std::string> simLines = s.sim.lines();
    EXPECT_LT(indexOf(simLines, "<- (1000,0)"), indexOf(simLines, "-> (1000,1)"));
    EXPECT_LT(indexOf(simLines, "<- (1000,105)"), indexOf(simLines, "-> (1000,3)"));

    const std::vector<std::string> printed = startupLines(s.gui);
    const std::vector<std::string> expected = {
        "GUI: UI is running, tell App ...",
        "GUI: App is running, configurate default parameter for app ...",
        "GUI: Waiting App finish init work ...",
        "GUI: App init OK, now do everything we want to do !!",
        "GUI: delayed start in 4000 ms",
        "GUI: first screen: main view",
    };
    EXPECT_EQ(printed, expected) << s.gui.output();
    EXPECT_EQ(s.gui.stop(), 0) << s.gui.output();
}

TEST(StartupE2e, HandshakeCompletesWhenStageOneComesBeforeTheHello) {
    E2eSession s;
    ASSERT_TRUE(s.startSim("early_stage1 = 1\n"));
    ASSERT_TRUE(s.startGui());
    ASSERT_TRUE(s.gui.waitFor("GUI: first screen")) << s.gui.output() << s.sim.output();
    EXPECT_EQ(s.sim.occurrences("-> (1000,1)"), 1);
}

TEST(StartupE2e, OutputCheckWritesBlock12BackWhenTheResolutionChanged) {
    // R different from P: the dialog, then block 12 written back and the output applied.
    E2eSession s;
    ASSERT_TRUE(s.startSim("block.12.329 = 4\nblock.12.332 = 0\n"));
    ASSERT_TRUE(s.startGui());
    ASSERT_TRUE(s.gui.waitFor("GUI: first screen")) << s.gui.output();
    EXPECT_TRUE(s.sim.waitFor("sim: block 12 set, 352 bytes")) << s.sim.output();
    EXPECT_EQ(s.gui.occurrences("resolution 600p needs confirming"), 1) << s.gui.output();
    EXPECT_EQ(s.gui.occurrences("output mode"), 1) << s.gui.output();
}

TEST(StartupE2e, SettingsSurviveASimulatorRestart) {
    E2eSession s;
    ASSERT_TRUE(s.startSim("store = " + s.dir.file("params.bin") + "\n"));
    s.sim.send("setbyte 21 10 1");
    // A command's echo comes before it runs; the console runs one command after the
    // other, so the next command's echo means the byte is in the store file.
    s.sim.send("sleep 0");
    ASSERT_TRUE(s.sim.waitFor("sim: > sleep 0"));
    EXPECT_EQ(s.sim.stop(), 0);
    // A new simulator on the same store: the wizard switch is still on.
    E2eProcess again;
    s.dir.write("sim2.conf", "store = " + s.dir.file("params.bin") + "\n");
    ASSERT_TRUE(
        again.start(E2eSession::simBinary(), s.dir.path(),
                    {{"VY_IPC_SOCKET", s.socket()}, {"VY_SIM_CONFIG", s.dir.file("sim2.conf")}},
                    s.dir.file("sim2.log")));
    ASSERT_TRUE(again.waitFor("sim: listening on"));
    ASSERT_TRUE(s.startGui());
    EXPECT_TRUE(s.gui.waitFor("GUI: first screen: start-up wizard over the main view"))
        << s.gui.output();
}
