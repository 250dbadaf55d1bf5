#pragma once
// Where each message from App goes: a pure lookup from (MainType, SubType) to a route, and
// from a changed parameter block to the reaction it needs. The UiManager acts on the answers;
// keeping the tables free of objects lets them be checked without a socket.
#include <cstdint>

enum class UiRouteKind : uint8_t {
    Drop,        // accepted and dropped
    Forward,     // posted to the receiver registered for `uiEventType`
    SelfHandled, // handled by the UiManager itself
    MainView,    // MainType::Preview: to the main-view manager
    Playback,    // MainType::Playback: to the first present of the two playback receivers
    Parameter,   // MainType::Param: the parameter switch
};

struct UiRoute {
    UiRouteKind kind = UiRouteKind::Drop;
    int uiEventType = 0; // for Forward and MainView
};

// What a "parameter changed" notification refreshes.
enum class ParamReactionKind : uint8_t {
    None,
    ReloadPart,            // reload one part of the device-parameter cache
    Block6Changed,         // emit block6Changed, then reload part 15
    OutputSettingsChanged, // rerun the output set-up step, then refresh the main view
    RefreshRecordModel,    // block 16: the record-data manager rereads its schedule
    ReloadGeneralSettings, // block 21
    RefreshPendingStart,   // block 22: the model that starts late rereads its block
    RefreshMainViewSettings,
    RereadDisplaySwitches, // block 50
    Block60Changed,        // emit block60Changed
    RefreshAiModel,        // block 61: the AI manager rereads its switches
};

struct ParamReaction {
    ParamReactionKind kind = ParamReactionKind::None;
    int part = -1; // for ReloadPart and Block6Changed
};

class UiRouteTable {
public:
    // A MainType::Playback message reaches a playback receiver as UiEventType::IpcMessage:
    // the receivers read the message block as it came.
    static UiRoute route(uint16_t mainType, uint16_t subType);
    static ParamReaction reactionForBlock(uint32_t blockNumber);
    // Every UI event type that the forwarding table can produce, for receivers that register
    // for all of them (tests, the event monitor).
    static const int* forwardedEventTypes(int* count);
};
