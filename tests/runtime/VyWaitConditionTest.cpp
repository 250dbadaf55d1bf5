#include "runtime/VyWaitCondition.h"
#include "runtime/VyMutexLocker.h"

#include <gtest/gtest.h>

#include <thread>

TEST(VyWaitCondition, TimedWaitReportsTimeoutWhenNobodySignals) {
    VyWaitCondition cond;
    VyMutexLocker locker(cond);
    EXPECT_FALSE(cond.wait(20));
    EXPECT_FALSE(cond.wait(0));
}

TEST(VyWaitCondition, WakeOneReleasesAWaiter) {
    VyWaitCondition cond;
    bool ready = false;
    bool woken = true;
    std::thread waiter([&] {
        VyMutexLocker locker(cond);
        while (!ready)
            woken = cond.wait(60000) && woken; // generous limit: only a hang would time out
    });
    {
        VyMutexLocker locker(cond);
        ready = true;
        cond.wakeOne();
    }
    waiter.join();
    EXPECT_TRUE(woken);
}

TEST(VyWaitCondition, WakeAllReleasesEveryWaiter) {
    VyWaitCondition cond;
    int waiting = 0;
    int released = 0;
    bool go = false;
    std::thread threads[3];
    for (std::thread& t : threads) {
        t = std::thread([&] {
            VyMutexLocker locker(cond);
            ++waiting;
            cond.wakeAll(); // tells the main thread one more is waiting
            while (!go)
                cond.wait();
            ++released;
        });
    }
    {
        VyMutexLocker locker(cond);
        while (waiting < 3)
            cond.wait();
        go = true;
        cond.wakeAll();
    }
    for (std::thread& t : threads)
        t.join();
    EXPECT_EQ(released, 3);
}

TEST(VyMutexLocker, EarlyUnlockReleasesOnce) {
    VyWaitCondition cond;
    {
        VyMutexLocker locker(cond);
        EXPECT_FALSE(cond.tryLock());
        locker.unlock();
        EXPECT_TRUE(cond.tryLock());
        cond.unlock();
    }
    EXPECT_TRUE(cond.tryLock());
    cond.unlock();
}
