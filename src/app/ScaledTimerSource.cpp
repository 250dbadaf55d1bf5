#include "app/ScaledTimerSource.h"

#include <cstdlib>

ScaledTimerSource::ScaledTimerSource() {
    if (const char* env = std::getenv("VY_DELAYED_START_SCALE")) {
        const double s = std::atof(env);
        if (s > 0)
            m_scale = s;
    }
}

int ScaledTimerSource::scaled(int ms) const {
    const int s = int(ms * m_scale);
    return s < 1 ? 1 : s;
}

void ScaledTimerSource::singleShot(int ms, VyObject* receiver, VySlot slot) {
    UiTimerSource::toolkit()->singleShot(scaled(ms), receiver, slot);
}
