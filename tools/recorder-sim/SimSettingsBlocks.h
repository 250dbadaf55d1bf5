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

} // namespace SimSettingsBlocks
