#include "ui/liveview/MoreLayoutMenu.h"

MoreLayoutMenu::MoreLayoutMenu(int channelCount, VyWidget* parent)
    : ScreanLayoutMenu(channelCount, parent) {
    fill(channelCount, true);
}
