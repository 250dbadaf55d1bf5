#include "model/UiTimerSource.h"

#include "toolkit/core/VySingleShotTimer.h"

namespace {

class ToolkitTimerSource : public UiTimerSource {
public:
    void singleShot(int ms, VyObject* receiver, VySlot slot) override {
        VySingleShotTimer::singleShot(ms, receiver, slot);
    }
};

} // namespace

UiTimerSource* UiTimerSource::toolkit() {
    static ToolkitTimerSource source;
    return &source;
}
