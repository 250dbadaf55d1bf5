#pragma once
// Alarm details for devices whose App reports them (system information byte 248): the
// state of each sensor input and relay output.
#include "toolkit/core/VyObject.h"

#include <cstdint>
#include <vector>

class AlarmInfoModel : public VyObject {
    VY_OBJECT(AlarmInfoModel, VyObject)
public:
    // Created only on devices that report alarm details; null until then.
    static AlarmInfoModel* instance();
    static AlarmInfoModel* existingInstance();

    int inputCount() const { return int(m_inputs.size()); }
    int outputCount() const { return int(m_outputs.size()); }
    bool inputActive(int input) const;
    void setInputActive(int input, bool active);
    bool outputActive(int output) const;
    void setOutputActive(int output, bool active);
    VySignal alarmsChanged;

private:
    AlarmInfoModel();
    std::vector<uint8_t> m_inputs;
    std::vector<uint8_t> m_outputs;
};
