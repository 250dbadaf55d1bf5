#pragma once
// Alarm details for devices whose App reports them (system information byte 248): the
// state of each sensor input and relay output.
#include "toolkit/core/VyObject.h"

#include <cstdint>
#include <vector>

struct SystemInfoRecord;

class AlarmInfoModel : public VyObject {
    VY_OBJECT(AlarmInfoModel, VyObject)
public:
    explicit AlarmInfoModel(const SystemInfoRecord& info);
    ~AlarmInfoModel() override;

    // The live one, owned by the UiModels set; null when there is none, as on devices that
    // do not report alarm details.
    static AlarmInfoModel* instance();

    int inputCount() const { return int(m_inputs.size()); }
    int outputCount() const { return int(m_outputs.size()); }
    bool inputActive(int input) const;
    void setInputActive(int input, bool active);
    bool outputActive(int output) const;
    void setOutputActive(int output, bool active);
    VySignal alarmsChanged;

private:
    std::vector<uint8_t> m_inputs;
    std::vector<uint8_t> m_outputs;
};
