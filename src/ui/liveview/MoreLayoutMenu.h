#pragma once
// The task bar's "more layouts" menu: every layout of the count list up to the channel
// count, the splits with big cells included. Its choice travels as the layout menu's does.
#include "ui/liveview/ScreanLayoutMenu.h"

class MoreLayoutMenu : public ScreanLayoutMenu {
    VY_OBJECT(MoreLayoutMenu, ScreanLayoutMenu)
public:
    explicit MoreLayoutMenu(int channelCount, VyWidget* parent = nullptr);
};
