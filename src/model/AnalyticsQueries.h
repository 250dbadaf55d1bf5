#pragma once
// The analytics requests the heat-map and statistics pages make of App. Each waits for App's
// reply (in waiter mode the event loop runs meanwhile, see ParamAccess.h) and hands back
// the decoded reply, or nothing, with a log line, when there is no link or the reply is
// malformed.
#include "protocol/HeatMapReply.h"
#include "protocol/HeatMapRequest.h"
#include "protocol/PeopleStatsReply.h"
#include "protocol/PeopleStatsRequest.h"
#include "runtime/VyBitmap.h"

#include <optional>

class AnalyticsQueries {
public:
    static std::optional<HeatMapReply> heatMap(const HeatMapRequest& request);
    // Replies for channels not asked for are dropped (logged); the rest are kept.
    static std::optional<PeopleStatsReply> peopleStats(const PeopleStatsRequest& request);
    // A snapshot of the channel's scene, decoded; null when App has none or it does not
    // decode.
    static VyBitmap snapshot(uint32_t channel);
};
