#pragma once
// Parameter blocks whose layout the GUI does not read field by field: the models cache them
// whole for the pages that edit them, and the GUI and App need only agree on number and
// size. Blocks with named fields have a record header of their own (OutputSettingsBlock,
// GeneralSettingsBlock, DeviceParamBlock, DisplaySwitchBlock, SerialKeyboardBlock).
#include <cstdint>

struct ParamBlockId {
    uint32_t number;
    uint32_t size; // bytes on the wire
};

namespace ParamBlock {

constexpr ParamBlockId Camera{3, 2048};
constexpr ParamBlockId Encode{5, 1024};
constexpr ParamBlockId Colour{6, 512};
constexpr ParamBlockId Schedule{7, 1024};
constexpr ParamBlockId AlarmInput{11, 1024};
constexpr ParamBlockId Record{14, 1024};
constexpr ParamBlockId RecordSchedule{16, 1024};
constexpr ParamBlockId Exception{17, 512};
constexpr ParamBlockId MainViewSettings{24, 512};
constexpr ParamBlockId Network{32, 512};
constexpr ParamBlockId User{38, 512};
constexpr ParamBlockId Motion{45, 512};
constexpr ParamBlockId VideoLoss{46, 512};
constexpr ParamBlockId AlarmOutput{47, 512};
constexpr ParamBlockId DiskGroup{49, 512};
constexpr ParamBlockId Email{53, 256};
constexpr ParamBlockId Ddns{54, 256};
constexpr ParamBlockId Ntp{55, 256};
constexpr ParamBlockId Ptz{57, 256};
constexpr ParamBlockId P2p{59, 256};
constexpr ParamBlockId AiRules{61, 512};
constexpr ParamBlockId AnalyticsRules{68, 512};
constexpr ParamBlockId AnalyticsSchedule{69, 512};
constexpr ParamBlockId Cloud{87, 256};

} // namespace ParamBlock
