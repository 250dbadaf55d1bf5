#pragma once
// The simulated recorder's side of the encoding, clock, output, DDNS, privacy-mask and
// network-camera blocks: factory values, the range check of a set and what is stored of
// it. SimSettingsBlocks hands these blocks on to here.
#include "SimRecorderConfig.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace SimSystemBlocks {

bool handles(uint32_t block);
bool isPerChannel(uint32_t block);
std::vector<uint8_t> defaults(uint32_t block, uint8_t channel, const SimRecorderConfig& config);
std::string check(uint32_t block, const uint8_t* record, uint32_t size,
                  const SimRecorderConfig& config);
std::vector<uint8_t> accept(uint32_t block, const uint8_t* record, uint32_t size);
// The zone App announces after a stored set changed it: the POSIX TZ text and its index;
// an empty text when the set left the zone alone.
std::pair<std::string, uint32_t> announcedZone(uint32_t block, const std::vector<uint8_t>& before,
                                               const std::vector<uint8_t>& after);

} // namespace SimSystemBlocks
