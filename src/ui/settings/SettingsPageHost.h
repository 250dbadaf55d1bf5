#pragma once
// The one settings page a window shows at a time (the settings window's page, the wizard's
// step) and leaving it safely. A page's open() waits for App in a nested loop, during which
// the user may leave the page or close the window: a page left while it opens is only hidden
// and told to stop after the block it waits for, and deleted once its open() has returned.
// Held by value in the window that owns the page.
#include "toolkit/core/VyPointer.h"

class SettingsPage;
class VyObject;

class SettingsPageHost {
public:
    enum OpenResult {
        Opened,   // the page is shown with its blocks
        Left,     // left while it was opening; it is gone
        OwnerGone // the window holding this host was deleted meanwhile, and the host with it
    };

    SettingsPage* page() const;
    // Inside the page's open(): nothing may delete it, and its values are not there yet.
    bool isOpening() const { return m_openings > 0; }

    // Makes `page` (already shown, a child of `owner`) the host's and fetches its blocks.
    // On OwnerGone neither the host nor `owner` may be touched.
    OpenResult open(SettingsPage* page, VyObject* owner);
    // Hides the page and lets it go: deleted later, or, while it is opening, when its
    // open() returns.
    void drop();

private:
    VyPointer<SettingsPage> m_page;
    int m_openings = 0; // open() calls on the stack: a page left while opening opens another
};
