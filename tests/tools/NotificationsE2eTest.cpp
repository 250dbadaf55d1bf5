// Notifications typed on recorder-sim's console reach the running dvrgui: their printed
// lines, and malformed bodies logged and survived.
#include "E2eProcess.h"

TEST(NotificationsE2e, TimeZoneNetworkLedAndShutdown) {
    E2eSession s;
    ASSERT_TRUE(s.startSim());
    ASSERT_TRUE(s.startGui());
    ASSERT_TRUE(s.gui.waitFor("GUI: first screen")) << s.gui.output();

    s.sim.send("tz CST-8");
    s.sim.send("net 1");
    s.sim.send("led 3");
    s.sim.send("shutdown");
    EXPECT_TRUE(s.gui.waitFor("[GUI] Set TZ to CST-8\n")) << s.gui.output();
    EXPECT_TRUE(s.gui.waitFor("UI:NET STATUS:1\n")) << s.gui.output();
    EXPECT_TRUE(s.gui.waitFor("LED state: 3 ------------------\n")) << s.gui.output();
    EXPECT_TRUE(s.gui.waitFor("NVR is shutting Down......")) << s.gui.output();
    // The GUI does not end itself on the notice; App (here the test) ends it.
    EXPECT_EQ(s.gui.stop(), 0);
}

TEST(NotificationsE2e, ShortAndEmptyBodiesAreLoggedAndSurvived) {
    E2eSession s;
    ASSERT_TRUE(s.startSim());
    ASSERT_TRUE(s.startGui());
    ASSERT_TRUE(s.gui.waitFor("GUI: first screen")) << s.gui.output();

    // A time zone text with no end inside its 24 bytes, an empty one, a parameter change
    // with half a block number and one with none.
    s.sim.send("notify 600 7 0 " + std::string(48, '4'));
    s.sim.send("notify 600 7 0");
    s.sim.send("notify 600 0 0 1500");
    s.sim.send("notify 600 0 0");
    s.sim.send("tz UTC0");
    EXPECT_TRUE(s.gui.waitFor("[GUI] Set TZ to UTC0\n")) << s.gui.output();
    EXPECT_EQ(s.gui.occurrences("time zone notice malformed"), 2) << s.gui.output();
    EXPECT_EQ(s.gui.occurrences("parameter changed without a block number"), 2) << s.gui.output();
    EXPECT_EQ(s.gui.occurrences("Set TZ to"), 1);
    EXPECT_EQ(s.gui.stop(), 0) << s.gui.output();
}
