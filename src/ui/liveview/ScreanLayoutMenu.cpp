#include "ui/liveview/ScreanLayoutMenu.h"

#include "model/MainViewManager.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/events/CtrlReqEvent.h"
#include "ui/liveview/VyVideoScreenLayout.h"
#include "ui/liveview/VyVideoScreenLayoutManager.h"

#include <memory>

ScreanLayoutMenu::ScreanLayoutMenu(int channelCount, VyWidget* parent)
    : VyMenu(parent) {
    fill(channelCount, false);
    connect(this, &triggered, this, &ScreanLayoutMenu::onTriggered);
}

void ScreanLayoutMenu::fill(int channelCount, bool mergedToo) {
    clear();
    m_ids.clear();
    const VyVideoScreenLayoutManager* catalogue = VyVideoScreenLayoutManager::instance();
    int previousCount = 0;
    for (int i = 0; i < catalogue->countListSize(); ++i) {
        const int count = catalogue->countAt(i);
        // A split larger than the channels shows empty cells only; the first one that
        // holds them all is still offered.
        if (previousCount >= channelCount && channelCount > 0)
            break;
        const int id = catalogue->idAt(i);
        if (!mergedToo && catalogue->layoutById(id)->isMerged())
            continue;
        previousCount = count;
        addAction(catalogue->displayText(id), id);
        m_ids.push_back(id);
    }
}

bool ScreanLayoutMenu::postLayoutChoice(int layoutId) {
    MainViewManager* manager = MainViewManager::instance();
    if (manager == nullptr)
        return false;
    VyApplication::postEvent(manager, std::make_unique<CtrlReqEvent>(layoutId));
    return true;
}

void ScreanLayoutMenu::onTriggered(VyObject*, VyObject* receiver) {
    postLayoutChoice(static_cast<VyMenu*>(receiver)->triggeredId());
}
