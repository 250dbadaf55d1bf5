#include "model/UiRouteTable.h"

#include <gtest/gtest.h>

#include <map>

TEST(UiRouteTable, SubTypesOfMainType1000ForwardHandleOrDrop) {
    const std::pair<int, int> forwards[] = {{8, 1018},   {9, 1020},   {11, 1014},
                                            {13, 1032},  {111, 1081}, {112, 1081},
                                            {304, 1038}, {305, 1072}, {301, 1119}};
    for (const auto& [sub, type] : forwards) {
        const UiRoute r = UiRouteTable::route(1000, uint16_t(sub));
        EXPECT_EQ(r.kind, UiRouteKind::Forward) << sub;
        EXPECT_EQ(r.uiEventType, type) << sub;
    }
    for (int sub : {14, 44, 199, 308})
        EXPECT_EQ(UiRouteTable::route(1000, uint16_t(sub)).kind, UiRouteKind::SelfHandled) << sub;
    // Stage notifications, unlisted SubTypes and anything outside 8..308.
    for (int sub : {0, 7, 12, 307, 309, 0xFFFF})
        EXPECT_EQ(UiRouteTable::route(1000, uint16_t(sub)).kind, UiRouteKind::Drop) << sub;
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
    const std::map<uint32_t, int> parts = {{3, 2}, {11, 0}, {49, 26}, {87, 11}};
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
