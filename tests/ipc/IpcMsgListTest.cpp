#include "ipc/IpcMsgList.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace {

IpcMsgBlock makeBlock(uint32_t value) {
    IpcMsgHeader h;
    h.msgValue = value;
    return ipcAllocBlock(h);
}

int countOf(const std::string& log, const std::string& needle) {
    int n = 0;
    for (size_t at = log.find(needle); at != std::string::npos; at = log.find(needle, at + 1))
        ++n;
    return n;
}

} // namespace

TEST(IpcMsgList, WarnsAboveOneHundredNodesOnBothEnds) {
    IpcMsgList list;
    testing::internal::CaptureStderr();
    for (uint32_t i = 0; i < 102; ++i)
        list.UiMsgListAddNode(makeBlock(i));
    std::string added = testing::internal::GetCapturedStderr();
    EXPECT_EQ(countOf(added, "func: [UiMsgListAddNode]"), 2);
    EXPECT_EQ(countOf(added, "-----msgnode -count = 101\n"), 1);
    EXPECT_EQ(countOf(added, "-----msgnode -count = 102\n"), 1);

    testing::internal::CaptureStderr();
    for (uint32_t i = 0; i < 102; ++i)
        ASSERT_EQ(ipcBlockHeader(list.UiMsgListConsumeNode().get()).msgValue, i);
    std::string taken = testing::internal::GetCapturedStderr();
    // The consumer warns while the count is still above 100: once, at 101.
    EXPECT_EQ(countOf(taken, "func: [UiMsgListConsumeNode]"), 1);
    EXPECT_EQ(countOf(taken, "-----msgnode count = 101\n"), 1);
    EXPECT_EQ(list.count(), 0);
}

// The consumer sleeps on the wake-up pair and the producer writes a token only when the
// list was empty; whatever the interleaving, nothing may be lost, duplicated or reordered,
// and the producer must never stall on a full pair.
TEST(IpcMsgList, ProducerAndSleepingConsumerKeepOrder) {
    IpcMsgList list;
    ASSERT_TRUE(list.hasWakeupPair());
    constexpr uint32_t kCount = 200000;
    testing::internal::CaptureStderr(); // backlog warnings are expected here
    std::thread producer([&] {
        for (uint32_t i = 0; i < kCount; ++i) {
            list.UiMsgListAddNode(makeBlock(i));
            if (i % 1000 == 0)
                std::this_thread::yield(); // let the consumer catch up and go to sleep
        }
    });
    uint32_t expected = 0;
    for (; expected < kCount; ++expected) {
        IpcMsgBlock block = list.UiMsgListConsumeNode();
        if (!block || ipcBlockHeader(block.get()).msgValue != expected)
            break;
    }
    producer.join();
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(expected, kCount);
    EXPECT_EQ(list.count(), 0);
}

TEST(IpcMsgList, StopWakesASleepingConsumer) {
    IpcMsgList list;
    std::thread consumer([&] { EXPECT_FALSE(list.UiMsgListConsumeNode()); });
    list.stop();
    consumer.join();
}

TEST(IpcMsgList, BatchesKeepTheirOrderAcrossTheHandOver) {
    IpcMsgList list;
    constexpr uint32_t kTotal = 20000;
    testing::internal::CaptureStderr(); // the backlog lines
    std::thread producer([&list] {
        std::vector<IpcMsgBlock> batch;
        uint32_t next = 0;
        while (next < kTotal) {
            // Batches of 1 to 37 blocks, mixed with single adds.
            for (uint32_t n = 0; n <= next % 37 && next < kTotal; ++n)
                batch.push_back(makeBlock(next++));
            list.UiMsgListAddNodes(batch);
            EXPECT_TRUE(batch.empty());
            if (next < kTotal)
                list.UiMsgListAddNode(makeBlock(next++));
        }
    });
    uint32_t expected = 0;
    uint32_t outOfOrder = 0;
    std::vector<IpcMsgBlock> taken;
    while (expected < kTotal && list.UiMsgListConsumeAll(&taken)) {
        for (const IpcMsgBlock& block : taken)
            outOfOrder += ipcBlockHeader(block.get()).msgValue != expected++;
    }
    producer.join();
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(expected, kTotal);
    EXPECT_EQ(outOfOrder, 0u);
    EXPECT_EQ(list.count(), 0);
}
