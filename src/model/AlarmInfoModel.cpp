#include "model/AlarmInfoModel.h"

#include "model/ModelInstance.h"
#include "protocol/SystemInfoRecord.h"

namespace {
bool setFlag(std::vector<uint8_t>& flags, int i, bool on) {
    if (i < 0 || i >= int(flags.size()) || (flags[size_t(i)] != 0) == on)
        return false;
    flags[size_t(i)] = on ? 1 : 0;
    return true;
}
} // namespace

AlarmInfoModel* AlarmInfoModel::instance() {
    return ModelInstance<AlarmInfoModel>::get();
}

AlarmInfoModel::AlarmInfoModel(const SystemInfoRecord& info)
    : m_inputs(info.alarmInputCount, 0)
    , m_outputs(info.alarmOutputCount, 0) {
    ModelInstance<AlarmInfoModel>::set(this);
}

AlarmInfoModel::~AlarmInfoModel() {
    ModelInstance<AlarmInfoModel>::clear(this);
}

bool AlarmInfoModel::inputActive(int input) const {
    return input >= 0 && input < inputCount() && m_inputs[size_t(input)] != 0;
}

bool AlarmInfoModel::outputActive(int output) const {
    return output >= 0 && output < outputCount() && m_outputs[size_t(output)] != 0;
}

void AlarmInfoModel::setInputActive(int input, bool active) {
    if (setFlag(m_inputs, input, active))
        emitSignal(this, &alarmsChanged);
}

void AlarmInfoModel::setOutputActive(int output, bool active) {
    if (setFlag(m_outputs, output, active))
        emitSignal(this, &alarmsChanged);
}
