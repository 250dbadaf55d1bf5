#pragma once
// The task bar's layout menu: the plain splits (one picture, four, nine, ...) up to the
// channel count, each by its display text. Choosing one posts event 1031 with the layout's
// identifier to the main-view manager, which has the live screen apply it.
#include "toolkit/widgets/VyMenu.h"

class ScreanLayoutMenu : public VyMenu {
    VY_OBJECT(ScreanLayoutMenu, VyMenu)
public:
    explicit ScreanLayoutMenu(int channelCount, VyWidget* parent = nullptr);

    // The identifiers listed, in order.
    const std::vector<int>& layoutIds() const { return m_ids; }
    // Posts the layout choice (event 1031, the identifier as the request code) to the
    // main-view manager; false without one.
    static bool postLayoutChoice(int layoutId);

protected:
    // Lists the count list's layouts (the merged ones too when asked) up to the first that
    // holds every channel.
    void fill(int channelCount, bool mergedToo);
    static void onTriggered(VyObject* sender, VyObject* receiver);

private:
    std::vector<int> m_ids;
};
