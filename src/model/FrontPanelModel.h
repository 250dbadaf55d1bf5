#pragma once
// The front panel's lamps as App drives them: the LED state byte of notification 47.
#include "toolkit/core/VyObject.h"

#include <cstdint>

class FrontPanelModel : public VyObject {
    VY_OBJECT(FrontPanelModel, VyObject)
public:
    FrontPanelModel();
    ~FrontPanelModel() override;

    // The live one, owned by the UiModels set; null when there is none.
    static FrontPanelModel* instance();

    uint8_t ledState() const { return m_ledState; }
    void setLedState(uint8_t state);
    int changeCount() const { return m_changeCount; }
    VySignal ledStateChanged;

private:
    uint8_t m_ledState = 0;
    int m_changeCount = 0;
};
