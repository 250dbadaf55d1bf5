#include "model/UiRouteTable.h"
#include "protocol/AnalyticsCountSubType.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "protocol/UiEventType.h"

#include "runtime/VyGlobal.h"

#include <array>
#include <cstddef>

namespace {

// UI event type per SubType of MainType 1000 (index = SubType, 8..308); 0 = not forwarded.
// Built once from the rows below so the rows read like the routing table they encode.
struct ForwardRow {
    int eventType;
    std::initializer_list<uint16_t> subTypes;
};

const ForwardRow kForwardRows[] = {
    {1018, {8, 10, 34, 38, 174, 196}},
    {1020, {9}},
    {1021, {53}},
    {UiEventType::NtpUpdate, {11}},
    {1032, {13}},
    {1013, {16}},
    {1094, {18, 20, 21, 222, 223, 225, 227, 266}},
    {1038, {19,  48,  55,  56,  59,  60,  66,  67,  68,  80, 94,
            150, 156, 171, 182, 229, 241, 265, 302, 303, 304}},
    {1030, {22, 36, 84}},
    {1022, {26}},
    {UiEventType::DualTalk, {43}},
    {1045, {46}},
    {1035, {49}},
    {1036, {50}},
    {1037, {51}},
    {1040, {58}},
    {1039, {65}},
    {1053, {77}},
    {1054, {79}},
    {1081, {111, 112}},
    {1058, {113}},
    {1060, {117}},
    {1061, {118}},
    {1063, {136}},
    {1064, {138, 139, 140, 256}},
    {1065, {144}},
    {1066, {145}},
    {1067, {148}},
    {1070, {152}},
    {1071, {155}},
    {1073, {163, 168, 238}},
    {1075, {165}},
    {1076, {167}},
    {1079, {172}},
    {1108, {183}},
    {UiEventType::DvrKey, {186}},
    {1072, {192, 239, 240, 287, 300, 305, 306}},
    {1087, {194}},
    {1088, {195}},
    {1055, {220}},
    {1056, {221}},
    {1095, {224, 226}},
    {1097, {251, 253, 264, 269}},
    {1101, {252}},
    {1103, {260}},
    {1104, {261}},
    {1105, {262}},
    {1106, {263}},
    {1109, {278}},
    {1110, {279}},
    {1111, {281}},
    {1112, {284}},
    {1119, {301}},
};

const uint16_t kSelfHandled[] = {14,  44,  45,  47,  52,  54,  64,  86,  88,  90,  103,
                                 108, 109, 116, 135, 143, 147, 151, 170, 184, 193, 197,
                                 198, 199, 200, 230, 267, 272, 280, 283, 286, 294, 308};

constexpr int kSelfMarker = -1;

struct SubTypeTable {
    std::array<int, SystemSubType::LastRouted + 1> entry{};
    std::array<int, 64> forwardedTypes{};
    int forwardedCount = 0;

    SubTypeTable() {
        for (const ForwardRow& row : kForwardRows) {
            for (uint16_t sub : row.subTypes) {
                VY_ASSERT(entry[sub] == 0); // a SubType listed twice would be routed by chance
                entry[sub] = row.eventType;
            }
            bool seen = false;
            for (int i = 0; i < forwardedCount; ++i)
                seen = seen || forwardedTypes[static_cast<size_t>(i)] == row.eventType;
            if (!seen)
                forwardedTypes[static_cast<size_t>(forwardedCount++)] = row.eventType;
        }
        for (uint16_t sub : kSelfHandled) {
            VY_ASSERT(entry[sub] == 0);
            entry[sub] = kSelfMarker;
        }
    }
};

const SubTypeTable& subTypeTable() {
    static const SubTypeTable table;
    return table;
}

// Parts of the device-parameter cache reloaded by a block change; -1 = no part.
struct ReactionRow {
    uint32_t block;
    ParamReactionKind kind;
    int part;
};

const ReactionRow kReactionRows[] = {
    {3, ParamReactionKind::ReloadPart, 2},
    {5, ParamReactionKind::ReloadPart, 12},
    {6, ParamReactionKind::Block6Changed, 15},
    {7, ParamReactionKind::ReloadPart, 13},
    {11, ParamReactionKind::ReloadPart, 0},
    {12, ParamReactionKind::OutputSettingsChanged, -1},
    {14, ParamReactionKind::ReloadPart, 3},
    {16, ParamReactionKind::RefreshRecordModel, -1},
    {17, ParamReactionKind::ReloadPart, 20},
    {21, ParamReactionKind::ReloadGeneralSettings, -1},
    {22, ParamReactionKind::RefreshPendingStart, -1},
    {24, ParamReactionKind::RefreshMainViewSettings, -1},
    {32, ParamReactionKind::ReloadPart, 1},
    {38, ParamReactionKind::ReloadPart, 14},
    {45, ParamReactionKind::ReloadPart, 5},
    {46, ParamReactionKind::ReloadPart, 6},
    {47, ParamReactionKind::ReloadPart, 7},
    {49, ParamReactionKind::ReloadPart, 26},
    {50, ParamReactionKind::RereadDisplaySwitches, -1},
    {53, ParamReactionKind::ReloadPart, 8},
    {54, ParamReactionKind::ReloadPart, 9},
    {55, ParamReactionKind::ReloadPart, 10},
    {57, ParamReactionKind::ReloadPart, 4},
    {59, ParamReactionKind::ReloadPart, 24},
    {60, ParamReactionKind::Block60Changed, -1},
    {61, ParamReactionKind::RefreshAiModel, -1},
    {68, ParamReactionKind::ReloadPart, 22},
    {69, ParamReactionKind::ReloadPart, 23},
    {87, ParamReactionKind::ReloadPart, 11},
};

// App's face results and live counts go to the analytics model; the rest of the family
// answers requests.
UiRoute analyticsRoute(uint16_t subType) {
    // Live counts go to the analytics model, whichever screen is open.
    if (subType >= AnalyticsCountSubType::First && subType <= AnalyticsCountSubType::Last)
        return {UiRouteKind::Forward, UiEventType::AIObjInfo};
    if (subType == FaceSubType::RecognitionNote)
        return {UiRouteKind::Forward, UiEventType::FaceInfo};
    if (subType == FaceSubType::ObjectNote)
        return {UiRouteKind::Forward, UiEventType::AIObjInfo};
    return {};
}

} // namespace

UiRoute UiRouteTable::route(uint16_t mainType, uint16_t subType) {
    switch (mainType) {
    case MainType::System: {
        if (subType < SystemSubType::FirstRouted || subType > SystemSubType::LastRouted)
            return {};
        const int e = subTypeTable().entry[subType];
        if (e == kSelfMarker)
            return {UiRouteKind::SelfHandled, 0};
        if (e > 0)
            return {UiRouteKind::Forward, e};
        return {};
    }
    case MainType::Preview:
        return {UiRouteKind::MainView, UiEventType::MainViewNotice};
    case MainType::Playback:
        return {UiRouteKind::Playback, UiEventType::IpcMessage};
    case MainType::Param:
        return {UiRouteKind::Parameter, 0};
    case MainType::Analytics:
        return analyticsRoute(subType);
    default:
        return {};
    }
}

ParamReaction UiRouteTable::reactionForBlock(uint32_t blockNumber) {
    for (const ReactionRow& row : kReactionRows) {
        if (row.block == blockNumber)
            return {row.kind, row.part};
    }
    return {};
}

const int* UiRouteTable::forwardedEventTypes(int* count) {
    const SubTypeTable& t = subTypeTable();
    *count = t.forwardedCount;
    return t.forwardedTypes.data();
}
