#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "toolkit/input/VyMousePacketDecoder.h"

namespace {

struct Move {
    int buttons, dx, dy, wheel;
};

std::vector<uint8_t> encode(const Move& m) {
    return {static_cast<uint8_t>(0x08 | m.buttons | (m.dx < 0 ? 0x10 : 0) | (m.dy < 0 ? 0x20 : 0)),
            static_cast<uint8_t>(m.dx), static_cast<uint8_t>(m.dy), static_cast<uint8_t>(m.wheel)};
}

} // namespace

TEST(MousePacketDecoder, ResynchronisesWithinAFewPacketsAfterALostByte) {
    std::mt19937 rng(77);
    std::uniform_int_distribution<int> delta(-40, 40);
    for (int trial = 0; trial < 500; ++trial) {
        std::vector<Move> moves;
        std::vector<uint8_t> bytes;
        for (int i = 0; i < 30; ++i) {
            moves.push_back({static_cast<int>(rng() % 8), delta(rng), delta(rng),
                             static_cast<int>(rng() % 3) - 1});
            const std::vector<uint8_t> p = encode(moves.back());
            bytes.insert(bytes.end(), p.begin(), p.end());
        }
        // One byte of the first ten packets lost.
        bytes.erase(bytes.begin() + 4 + static_cast<int>(rng() % 36));
        VyMousePacketDecoder decoder;
        std::vector<VyMousePacket> got;
        // Fed in uneven pieces, as reads return them.
        for (size_t at = 0; at < bytes.size();) {
            const size_t n = std::min(bytes.size() - at, size_t(1 + rng() % 7));
            decoder.feed(bytes.data() + at, n, [&](const VyMousePacket& p) { got.push_back(p); });
            at += n;
        }
        // The last 15 packets come out exactly, in order.
        ASSERT_GE(got.size(), 15u) << "trial " << trial;
        for (int i = 0; i < 15; ++i) {
            const VyMousePacket& p = got[got.size() - 15 + i];
            const Move& m = moves[moves.size() - 15 + i];
            ASSERT_EQ(p.buttons, m.buttons) << "trial " << trial;
            ASSERT_EQ(p.dx, m.dx);
            ASSERT_EQ(p.dy, m.dy);
            ASSERT_EQ(p.wheel, m.wheel * 120);
        }
    }
}
