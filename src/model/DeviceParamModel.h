#pragma once
// The device-parameter model: parameter blocks cached for every screen, in numbered parts.
// A part is fetched on first use; a "parameter changed" notification reloads a part that
// was already fetched and emits partChanged, so a screen that shows it can refresh.
#include "model/CachedParamBlock.h"
#include "toolkit/core/VyObject.h"

#include <memory>
#include <vector>

class DeviceParamModel : public VyObject {
    VY_OBJECT(DeviceParamModel, VyObject)
public:
    static constexpr int kPartCount = 27;

    DeviceParamModel();
    ~DeviceParamModel() override;

    // The live one, owned by the UiModels set; null when there is none.
    static DeviceParamModel* instance();

    // The part's cached block, fetched now if it never was; null for an unknown part.
    const CachedParamBlock* part(int part);
    // Refetches the part if it was fetched before; false for an unknown part.
    bool reloadPart(int part);
    // The block number a part caches, -1 for none.
    static int blockOfPart(int part);

    int lastChangedPart() const { return m_lastChangedPart; }
    VySignal partChanged;

private:
    std::vector<std::unique_ptr<CachedParamBlock>> m_parts;
    int m_lastChangedPart = -1;
};
