#pragma once
// The settings pages' parameter blocks as the simulated recorder keeps them: which are held
// per channel, their factory values, and the range check a set must pass before it is
// stored (a refused set is logged and changes nothing).
#include "SimRecorderConfig.h"

#include <cstdint>
#include <string>
#include <vector>

namespace SimSettingsBlocks {

// Blocks that a get addresses by channel (the request's index) and a set by the record's
// first byte.
bool isPerChannel(uint32_t block);
// The key the store keeps one channel's copy under.
uint32_t storeKey(uint32_t block, uint8_t channel);
// Factory values, or empty when the block has none of ours (the store then answers zeros).
std::vector<uint8_t> defaults(uint32_t block, uint8_t channel, const SimRecorderConfig& config);
// Empty when the record may be stored; otherwise what is wrong with it.
std::string check(uint32_t block, const uint8_t* record, uint32_t size,
                  const SimRecorderConfig& config);

// What is stored for an accepted set: the record itself, except for blocks whose fields App
// reports rather than takes (the disks: only the overwrite policy and a format request are
// taken from the GUI; a request starts formatting and is cleared).
std::vector<uint8_t> accept(uint32_t block, const uint8_t* record, uint32_t size,
                            const std::vector<uint8_t>& stored);
// Moves work in progress on after the GUI has read the block (formatting advances a
// quarter per look, so the progress runs without a clock of its own); true when `bytes`
// changed and the GUI should hear "parameter changed".
bool advance(uint32_t block, std::vector<uint8_t>& bytes);

} // namespace SimSettingsBlocks
