#include "model/FrontPanelModel.h"

FrontPanelModel* FrontPanelModel::instance() {
    static FrontPanelModel* model = new FrontPanelModel; // lives to process end
    return model;
}

void FrontPanelModel::setLedState(uint8_t state) {
    // App repeats the state on every change of any lamp; the lamps are redriven each time.
    m_ledState = state;
    ++m_changeCount;
    emitSignal(this, &ledStateChanged);
}
