#include "ui/liveview/LiveViewProfile.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "ui/liveview/VyVideoScreenLayoutManager.h"

namespace {

int valueOr(const VyIniSettings& ini, const char* key, int fallback) {
    return ini.value(VyString(key)).isEmpty() ? fallback : ini.intValue(VyString(key));
}

} // namespace

LiveViewProfile LiveViewProfile::fromIni(const VyIniSettings& ini) {
    LiveViewProfile p;
    p.splitCount = valueOr(ini, "DisplayOutputDef/ScreenSplitMode", kDefaultSplitCount);
    p.coarseUnit = valueOr(ini, "DisplayOutputDef/VideoAlignCoarse", kDefaultCoarseUnit);
    p.fineUnit = valueOr(ini, "DisplayOutputDef/VideoAlignFine", kDefaultFineUnit);
    if (p.coarseUnit < 1)
        p.coarseUnit = 1;
    if (p.fineUnit < 1)
        p.fineUnit = 1;
    return p;
}

LiveViewProfile LiveViewProfile::load() {
    const VyString path = VyResources::path("custom-config.ini");
    const VyIniSettings ini(path);
    return fromIni(ini);
}

int LiveViewProfile::startLayoutIndex() const {
    const VyVideoScreenLayoutManager* catalogue = VyVideoScreenLayoutManager::instance();
    const int id = catalogue->findLayoutForCount(splitCount < 1 ? 1 : splitCount, false);
    const int index = catalogue->indexOf(catalogue->layoutById(id));
    return index < 0 ? 0 : index;
}
