// The routing tables on their own: an independent transcription of App's forwarding table
// checked against the lookup, and the rules that hold for every SubType.
#include "model/UiRouteTable.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

// SubType -> UI event type, written out again from App's interface sheet.
const std::map<int, std::vector<int>> kExpectedForwarding = {
    {1018, {8, 10, 34, 38, 174, 196}},
    {1020, {9}},
    {1021, {53}},
    {1014, {11}},
    {1032, {13}},
    {1013, {16}},
    {1094, {18, 20, 21, 222, 223, 225, 227, 266}},
    {1038, {19,  48,  55,  56,  59,  60,  66,  67,  68,  80, 94,
            150, 156, 171, 182, 229, 241, 265, 302, 303, 304}},
    {1030, {22, 36, 84}},
    {1022, {26}},
    {1034, {43}},
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
    {1029, {186}},
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

const std::set<int> kExpectedSelf = {14,  44,  45,  47,  52,  54,  64,  86,  88,  90,  103,
                                     108, 109, 116, 135, 143, 147, 151, 170, 184, 193, 197,
                                     198, 199, 200, 230, 267, 272, 280, 283, 286, 294, 308};

} // namespace

TEST(UiRouteTable, EverySubTypeOfMainType1000RoutesAsTheSheetSays) {
    std::map<int, int> expected;
    for (const auto& [type, subs] : kExpectedForwarding) {
        for (int s : subs)
            expected[s] = type;
    }
    for (int sub = 0; sub <= 0xFFFF; ++sub) {
        const UiRoute r = UiRouteTable::route(1000, uint16_t(sub));
        SCOPED_TRACE(sub);
        if (expected.count(sub)) {
            EXPECT_EQ(r.kind, UiRouteKind::Forward);
            EXPECT_EQ(r.uiEventType, expected[sub]);
        } else if (kExpectedSelf.count(sub)) {
            EXPECT_EQ(r.kind, UiRouteKind::SelfHandled);
        } else {
            // Stage notifications, pointer and anything outside 8..308 included.
            EXPECT_EQ(r.kind, UiRouteKind::Drop);
        }
    }
}

TEST(UiRouteTable, OtherFamiliesGoToTheirHandlersWhateverTheSubType) {
    for (int sub : {0, 1, 15, 300, 65535}) {
        EXPECT_EQ(UiRouteTable::route(100, uint16_t(sub)).kind, UiRouteKind::MainView);
        EXPECT_EQ(UiRouteTable::route(100, uint16_t(sub)).uiEventType, 1024);
        EXPECT_EQ(UiRouteTable::route(300, uint16_t(sub)).kind, UiRouteKind::Playback);
        EXPECT_EQ(UiRouteTable::route(600, uint16_t(sub)).kind, UiRouteKind::Parameter);
    }
    for (int main : {0, 1, 99, 101, 299, 301, 599, 601, 999, 1001, 65535})
        EXPECT_EQ(UiRouteTable::route(uint16_t(main), 8).kind, UiRouteKind::Drop) << main;
}

TEST(UiRouteTable, ParameterReactionsReloadTheRightParts) {
    const std::map<uint32_t, int> parts = {{3, 2},   {5, 12},  {7, 13},  {11, 0},  {14, 3},
                                           {17, 20}, {32, 1},  {38, 14}, {45, 5},  {46, 6},
                                           {47, 7},  {49, 26}, {53, 8},  {54, 9},  {55, 10},
                                           {57, 4},  {59, 24}, {68, 22}, {69, 23}, {87, 11}};
    for (const auto& [block, part] : parts) {
        const ParamReaction r = UiRouteTable::reactionForBlock(block);
        EXPECT_EQ(r.kind, ParamReactionKind::ReloadPart) << block;
        EXPECT_EQ(r.part, part) << block;
    }
    EXPECT_EQ(UiRouteTable::reactionForBlock(6).kind, ParamReactionKind::Block6Changed);
    EXPECT_EQ(UiRouteTable::reactionForBlock(6).part, 15);
    EXPECT_EQ(UiRouteTable::reactionForBlock(12).kind, ParamReactionKind::OutputSettingsChanged);
    EXPECT_EQ(UiRouteTable::reactionForBlock(21).kind, ParamReactionKind::ReloadGeneralSettings);
    EXPECT_EQ(UiRouteTable::reactionForBlock(22).kind, ParamReactionKind::RefreshPendingStart);
    EXPECT_EQ(UiRouteTable::reactionForBlock(50).kind, ParamReactionKind::RereadDisplaySwitches);
    EXPECT_EQ(UiRouteTable::reactionForBlock(60).kind, ParamReactionKind::Block60Changed);
    for (uint32_t block : {0u, 1u, 2u, 4u, 13u, 23u, 51u, 88u, 0xFFFFFFFFu})
        EXPECT_EQ(UiRouteTable::reactionForBlock(block).kind, ParamReactionKind::None) << block;
}
