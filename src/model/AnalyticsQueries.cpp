#include "model/AnalyticsQueries.h"

#include "model/RecorderLink.h"
#include "protocol/AnalyticsCountSubType.h"
#include "protocol/ByteOrder.h"
#include "protocol/MainType.h"
#include "runtime/VyLog.h"

#include <vector>

namespace {

bool ask(uint16_t subType, const void* body, uint32_t len, std::vector<uint8_t>& reply) {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr) {
        VY_GUI_LOG("analytics request %u without a link to App\n", subType);
        return false;
    }
    link->request(MainType::Analytics, subType, body, len, reply);
    return true;
}

} // namespace

std::optional<HeatMapReply> AnalyticsQueries::heatMap(const HeatMapRequest& request) {
    std::vector<uint8_t> reply;
    if (!ask(AnalyticsCountSubType::HeatMap, &request, sizeof request, reply))
        return std::nullopt;
    auto r = HeatMapReply::decode(reply.data(), reply.size());
    if (!r) {
        VY_GUI_LOG("heat map reply of %zu bytes is malformed\n", reply.size());
        return std::nullopt;
    }
    if (r->head.channel != request.channel) {
        VY_GUI_LOG("heat map reply for channel %u, asked for %u, dropped\n", r->head.channel,
                   request.channel);
        return std::nullopt;
    }
    return r;
}

std::optional<PeopleStatsReply> AnalyticsQueries::peopleStats(const PeopleStatsRequest& request) {
    std::vector<uint8_t> reply;
    if (!ask(AnalyticsCountSubType::PeopleStats, &request, sizeof request, reply))
        return std::nullopt;
    auto r = PeopleStatsReply::decode(reply.data(), reply.size());
    if (!r) {
        VY_GUI_LOG("people statistics reply of %zu bytes is malformed\n", reply.size());
        return std::nullopt;
    }
    std::vector<PeopleStatsReply::Channel> asked;
    for (PeopleStatsReply::Channel& c : r->channels) {
        if (c.channel < PeopleStatsReply::kMaxChannels && (request.channels >> c.channel & 1) != 0)
            asked.push_back(std::move(c));
        else
            VY_GUI_LOG("people statistics for channel %u, not asked for, dropped\n", c.channel);
    }
    r->channels = std::move(asked);
    r->head.channelCount = uint32_t(r->channels.size());
    return r;
}

VyBitmap AnalyticsQueries::snapshot(uint32_t channel) {
    uint8_t body[4];
    ByteOrder::storeLe32(body, channel);
    std::vector<uint8_t> reply;
    if (!ask(AnalyticsCountSubType::Snapshot, body, sizeof body, reply) || reply.empty())
        return VyBitmap();
    if (reply.size() > HeatMapReply::kMaxPictureBytes) {
        VY_GUI_LOG("snapshot of channel %u refused: %zu bytes\n", channel, reply.size());
        return VyBitmap();
    }
    VyBitmap picture = VyBitmap::loadJpegFromMemory(reply.data(), reply.size());
    if (picture.isNull())
        VY_GUI_LOG("snapshot of channel %u does not decode\n", channel);
    return picture;
}
