// A network remote's keys typed on recorder-sim's console reach the running dvrgui's key
// manager (notification 186); codes outside the table are dropped.
#include "E2eProcess.h"

TEST(KeysE2e, RemoteKeysFromTheRecorderReachTheKeyManager) {
    E2eSession s;
    ASSERT_TRUE(s.startSim());
    ASSERT_TRUE(s.startGui({{"VY_DEBUG", "keys"}}));
    ASSERT_TRUE(s.gui.waitFor("GUI: first screen")) << s.gui.output();

    s.sim.send("key up");
    s.sim.send("key 131");  // inside the range, mapped to nothing
    s.sim.send("key 300");  // outside the range
    s.sim.send("key ok 1"); // from an addressed remote; device ID 0 takes every address
    EXPECT_TRUE(s.gui.waitFor("service key 158: device key 28 origin 1 handled")) << s.gui.output();
    EXPECT_EQ(s.gui.occurrences("service key 149: device key 24 origin 0 handled"), 1);
    EXPECT_EQ(s.gui.occurrences("service key 131 ignored"), 1);
    EXPECT_EQ(s.gui.occurrences("service key 300 ignored"), 1);
    EXPECT_EQ(s.gui.stop(), 0) << s.gui.output();
}
