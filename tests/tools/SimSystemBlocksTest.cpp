// The simulated recorder's checks of the encoding, clock, output and mask blocks: a record
// out of range is refused, the factory record passes.
#include "SimSystemBlocks.h"

#include "protocol/CameraSearchBlock.h"
#include "protocol/DateTimeBlock.h"
#include "protocol/OutputSettingsBlock.h"
#include "protocol/PrivacyMaskBlock.h"
#include "protocol/StreamBlock.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

namespace {

template <typename Record>
std::string checkEdited(const SimRecorderConfig& config, const std::function<void(Record&)>& edit) {
    const std::vector<uint8_t> bytes = SimSystemBlocks::defaults(Record::kBlockNumber, 1, config);
    Record r;
    EXPECT_EQ(bytes.size(), sizeof r);
    std::memcpy(&r, bytes.data(), sizeof r);
    edit(r);
    return SimSystemBlocks::check(Record::kBlockNumber, reinterpret_cast<const uint8_t*>(&r),
                                  sizeof r, config);
}

TEST(SimSystemBlocks, RecordsOutOfRangeAreRefusedAndTheFactoryOnesPass) {
    SimRecorderConfig config;
    config.channels = 4;
    using S = StreamBlock;
    const std::function<void(S&)> streams[] = {
        [](S&) {},
        [](S& b) { b.streams[0].resolution = 0; },         // larger than the encoder
        [](S& b) { b.streams[1].frameRate = 31; },         // faster than it
        [](S& b) { b.streams[0].bitrateKbps = 8193; },     // above its rate
        [](S& b) { b.streams[1].maxBitrateKbps = 60000; }, // the limits are App's
        [](S& b) { b.streams[0].iFrameInterval = 0; },
        [](S& b) { b.channel = 4; },
    };
    for (size_t i = 0; i < std::size(streams); ++i)
        EXPECT_EQ(checkEdited<S>(config, streams[i]).empty(), i == 0) << "stream case " << i;

    using D = DateTimeBlock;
    const std::function<void(D&)> clocks[] = {
        [](D&) {},
        [](D& b) { b.timeZone = TimeZoneTable::kCount; },
        [](D& b) {
            b.dstEnabled = 1;
            b.dstOffsetMin = 45;
        }, // not a step of 30
        [](D& b) {
            b.dstEnabled = 1;
            b.dstStart.week = 6;
        },
        [](D& b) {
            b.dstEnabled = 1;
            b.dstMode = D::ByDate;
            b.dstEnd.day = 0;
        },
        [](D& b) {
            b.setClock = 1;
            b.clock = {2038, 1, 1, 0, 0, 0, 0};
        },
    };
    for (size_t i = 0; i < std::size(clocks); ++i)
        EXPECT_EQ(checkEdited<D>(config, clocks[i]).empty(), i == 0) << "clock case " << i;

    using O = OutputSettingsBlock;
    const std::function<void(O&)> outputs[] = {
        [](O&) {},
        [](O& b) { b.sequenceDwellSec = 2; },
        [](O& b) { b.spotChannels = 0x10; }, // a fifth channel on a four-channel recorder
        [](O& b) { b.resolution = 5; },
    };
    for (size_t i = 0; i < std::size(outputs); ++i)
        EXPECT_EQ(checkEdited<O>(config, outputs[i]).empty(), i == 0) << "output case " << i;

    using M = PrivacyMaskBlock;
    const std::function<void(M&)> masks[] = {
        [](M& b) {
            b.masks[3] = {900, 0, 100, 1000};
        },
        [](M& b) {
            b.masks[0] = {901, 0, 100, 10};
        }, // past the right edge
        [](M& b) {
            b.masks[0] = {0, 0, 9, 500};
        }, // thinner than the least side
    };
    for (size_t i = 0; i < std::size(masks); ++i)
        EXPECT_EQ(checkEdited<M>(config, masks[i]).empty(), i == 0) << "mask case " << i;

    const CameraSearchBlock found{};
    EXPECT_FALSE(SimSystemBlocks::check(CameraSearchBlock::kBlockNumber,
                                        reinterpret_cast<const uint8_t*>(&found), sizeof found,
                                        config)
                     .empty());
}

} // namespace
