#pragma once
// The property the key navigation must have in every window: from any control it can stop
// on, the arrow keys reach every other such control of the window. Walks the window with a
// key manager of its own, one arrow press per control and direction, and answers the pairs
// that cannot be reached ("from A not to B"), empty when the window passes.
#include "platform/keys/VyScriptedKeyLibrary.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/input/VyKeyManager.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace keyreach {

inline void collectFocusable(VyWidget* w, std::vector<VyWidget*>* out) {
    if (VyKeyManager::isFocusable(w))
        out->push_back(w);
    for (VyObject* child : w->children())
        if (child->isWidgetType())
            collectFocusable(static_cast<VyWidget*>(child), out);
}

inline std::string describe(const VyWidget* w) {
    const VyPoint g = w->mapToGlobal(VyPoint(0, 0));
    return w->className().toStdString() + "@" + std::to_string(g.x) + "," + std::to_string(g.y);
}

// `window` must be shown and the only window that takes keys.
inline std::vector<std::string> unreachable(VyApplication* app, VyWidget* window) {
    auto library = std::make_shared<VyScriptedKeyLibrary>();
    VyKeyManager::Setup setup;
    setup.library = library;
    setup.startPollThread = false;
    VyKeyManager keys(setup);

    std::vector<VyWidget*> controls;
    collectFocusable(window, &controls);
    std::map<VyWidget*, std::set<VyWidget*>> edges;
    for (VyWidget* c : controls) {
        for (uint32_t arrow : {VyKeyManager::KeyUp, VyKeyManager::KeyDown, VyKeyManager::KeyLeft,
                               VyKeyManager::KeyRight}) {
            keys.setKeyFocusWidget(c);
            library->press(arrow);
            keys.pollOnce();
            app->processPostedEvents();
            if (VyWidget* to = keys.keyFocusWidget())
                edges[c].insert(to);
        }
    }
    std::vector<std::string> failures;
    for (VyWidget* start : controls) {
        std::set<VyWidget*> seen{start};
        std::vector<VyWidget*> todo{start};
        while (!todo.empty()) {
            VyWidget* w = todo.back();
            todo.pop_back();
            for (VyWidget* next : edges[w])
                if (seen.insert(next).second)
                    todo.push_back(next);
        }
        for (VyWidget* c : controls)
            if (seen.count(c) == 0)
                failures.push_back("from " + describe(start) + " not to " + describe(c));
    }
    return failures;
}

} // namespace keyreach
