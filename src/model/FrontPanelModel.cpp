#include "model/FrontPanelModel.h"

#include "toolkit/input/VyKeyManager.h"

#include "model/ModelInstance.h"

FrontPanelModel* FrontPanelModel::instance() {
    return ModelInstance<FrontPanelModel>::get();
}

FrontPanelModel::FrontPanelModel() {
    ModelInstance<FrontPanelModel>::set(this);
}

FrontPanelModel::~FrontPanelModel() {
    ModelInstance<FrontPanelModel>::clear(this);
}

void FrontPanelModel::setLedState(uint8_t state) {
    // App repeats the state on every change of any lamp; the lamps are redriven each time.
    m_ledState = state;
    ++m_changeCount;
    // The state is the lamp mode the front panel shows (1, 2, 3; anything else is off).
    if (VyKeyManager* keys = VyKeyManager::liveInstance())
        keys->setLampMode(state);
    emitSignal(this, &ledStateChanged);
}
