#include "ui/settings/SettingsPageHost.h"

#include "ui/settings/SettingsPage.h"

SettingsPage* SettingsPageHost::page() const {
    return m_page.data();
}

SettingsPageHost::OpenResult SettingsPageHost::open(SettingsPage* page, VyObject* owner) {
    VyPointer<VyObject> alive(owner);
    VyPointer<SettingsPage> opening(page);
    m_page.reset(page);
    ++m_openings;
    page->open(); // runs the event loop until App answers
    if (!alive)
        return OwnerGone;
    --m_openings;
    if (m_page.data() == page)
        return Opened;
    // Dropped while it waited: deleted now that nothing up the stack is inside it.
    if (opening)
        opening->deleteLater();
    return Left;
}

void SettingsPageHost::drop() {
    SettingsPage* p = m_page.data();
    m_page.reset();
    if (p == nullptr)
        return;
    p->hide();
    if (isOpening() && !p->isOpened()) {
        // Still inside open() further up the stack: it stops after the block it waits
        // for, and is deleted there.
        p->abandon();
        return;
    }
    p->deleteLater();
}
