#pragma once
// One application of the analytics window: the tab it gets and how its page is made. The
// page is made when its tab is chosen and deleted when another is, so an application that
// is never opened costs nothing and a page always starts from App's current data.
#include <cstdint>
#include <functional>

class VyWidget;

struct AnalyticsApplication {
    uint32_t capBit = 0;  // the AnalyticsCap bit that offers it; 0: always offered
    uint32_t titleId = 0; // the tab's text
    // Makes the page as a child of `parent`; `channels` are the analysed channels the page
    // may offer (bit n = channel n).
    std::function<VyWidget*(VyWidget* parent, uint64_t channels)> make;
};
