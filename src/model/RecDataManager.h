#pragma once
// The record data model: the record settings the playback and search screens depend on
// (parameter block 16) and the channel masks that record-search messages carry.
#include "model/CachedParamBlock.h"
#include "protocol/ParamBlock.h"
#include "toolkit/core/VyObject.h"

#include <vector>

struct SystemInfoRecord;

class RecDataManager : public VyObject {
    VY_OBJECT(RecDataManager, VyObject)
public:
    explicit RecDataManager(const SystemInfoRecord& info);
    ~RecDataManager() override;

    // The live one, owned by the UiModels set; null when there is none.
    static RecDataManager* instance();

    // Rereads block 16 (App reported a change).
    void refresh();
    const CachedParamBlock& recordSettings() const { return m_recordSettings; }
    // One bit per channel, LSB first, channelCount bits rounded up to whole bytes; empty
    // (and a log line) for a channel outside the device.
    std::vector<uint8_t> channelToBitArray(int channel) const;
    VySignal recordSettingsChanged;

private:
    int m_channelCount;
    CachedParamBlock m_recordSettings{ParamBlock::RecordSchedule.number,
                                      ParamBlock::RecordSchedule.size};
};
