#pragma once
// The main view's state, kept apart from its window: the layout on show, the sequence dwell
// and list, the live-view settings (parameter block 24), what App last said about the
// preview (MainType 100 messages arrive here as event 1024) and the state of every channel
// (event 1018). The window reads this and listens to the signals; it may come and go, the
// state stays. Requests to App for the live view (the preview record, tool-bar commands, the
// camera roster) leave from here.
#include "model/CachedParamBlock.h"
#include "model/ChannelState.h"
#include "protocol/DualTalkNotice.h"
#include "protocol/ParamBlock.h"
#include "protocol/TurnPageNotice.h"
#include "toolkit/core/VyObject.h"

#include <cstdint>
#include <vector>

struct PreviewControl;
struct PreviewZoom;
struct PreviewRecord;

class MainViewManager : public VyObject {
    VY_OBJECT(MainViewManager, VyObject)
public:
    MainViewManager();
    ~MainViewManager() override;

    // The live one, owned by the UiModels set; null when there is none.
    static MainViewManager* instance();

    bool isShown() const { return m_shown; }
    void setShown(bool shown);
    int layout() const { return m_layout; }
    void setLayout(int layout);
    // Seconds per sequence step; -1 (or 0) = no automatic sequence. Each expiry emits
    // sequenceStep; secondsLeft() counts down to it.
    int sequenceDwell() const { return m_sequenceDwell; }
    void setSequenceDwell(int seconds);
    int secondsLeft() const { return m_secondsLeft; }
    // The layout indices a sequence steps through (by default every layout of the count list
    // from 4 cells up to the channel count).
    void setSequenceLayouts(const std::vector<int>& layouts);
    const std::vector<int>& sequenceLayouts() const { return m_sequenceLayouts; }
    // Advances the cursor (wrapping after the last entry) and answers its layout index.
    int nextSequenceLayout();

    // A layout chosen in a menu (event 1031 carries its identifier): stored and announced
    // by layoutRequested for the window to apply.
    int requestedLayout() const { return m_requestedLayout; }

    // ---- Channels ----
    // Sized by the channel count; state for a channel beyond it is ignored with a line.
    void setChannelCount(int count);
    int channelCount() const { return int(m_channels.size()); }
    // A default state for a channel outside the table.
    const ChannelState& channelState(int channel) const;
    // The channel of the last channelStateChanged.
    int changedChannel() const { return m_changedChannel; }
    uint32_t deviceState() const { return m_deviceState; }
    // Applies one channel-state notice body; false (and a log line) when it is refused.
    bool applyChannelState(const uint8_t* body, uint32_t len);
    void setCameraPresent(int channel, bool present);

    // The order of the channels in the cells (cell position -> channel), as last saved.
    const std::vector<int>& channelOrder() const { return m_channelOrder; }
    void setChannelOrder(const std::vector<int>& order);

    // ---- Requests to App ----
    // (100, 0) with the record; (100, 1) for the first one after the view was shown.
    void sendPreview(const PreviewRecord& record);
    int previewSentCount() const { return m_previewSent; }
    void sendControl(const PreviewControl& control);
    void sendZoom(const PreviewZoom& zoom);
    // The blocking (1000, 298) request: the channels that have a camera, applied here.
    void requestCameraRoster();
    // (300, 35): the live view is in front again.
    void announceLiveView();

    // While set, a right click on a cell picks that cell's channel for whoever asked
    // (pickChannel) and a left release does nothing.
    bool isPickMode() const { return m_pickMode; }
    void setPickMode(bool on) { m_pickMode = on; }
    void pickChannel(int channel);
    int pickedChannel() const { return m_pickedChannel; }

    // Rereads the output block and tells the window to lay itself out again.
    void refresh();
    // Rereads block 24.
    void refreshSettings();
    const CachedParamBlock& settings() const { return m_settings; }
    int outputResolution() const { return m_outputResolution; }

    // The last MainType 100 message from App.
    int previewMessageCount() const { return m_previewMessageCount; }
    uint16_t lastPreviewSubType() const { return m_lastPreviewSubType; }
    uint32_t lastPreviewValue() const { return m_lastPreviewValue; }

    VySignal viewChanged;
    VySignal settingsChanged;
    VySignal previewMessage;
    VySignal layoutRequested;
    VySignal channelStateChanged;
    VySignal deviceStateChanged;
    VySignal sequenceStep;
    VySignal sequenceTick; // once a second while a sequence runs
    VySignal channelPicked;
    VySignal snapshotTaken;     // changedChannel() holds its channel
    VySignal talkStateChanged;  // talkState(), talkChannel()
    VySignal pageTurnRequested; // pageTurn()

    // App's last talk-back state (a DualTalkNotice state) and its channel.
    bool isTalking() const { return m_talkState == DualTalkNotice::kTalking; }
    uint8_t talkState() const { return m_talkState; }
    int talkChannel() const { return m_talkChannel; }
    // App's last page-turn request.
    const TurnPageNotice& pageTurn() const { return m_pageTurn; }

protected:
    void customEvent(VyEvent* e) override;
    void timerEvent(VyTimerEvent* e) override;

private:
    CachedParamBlock m_settings{ParamBlock::MainViewSettings.number,
                                ParamBlock::MainViewSettings.size};
    void handleChannelEvent(const void* block);

    int m_layout = 0;
    int m_requestedLayout = 0;
    int m_sequenceDwell = -1;
    int m_secondsLeft = 0;
    int m_sequenceTimer = 0;
    int m_countdownTimer = 0;
    size_t m_sequenceCursor = 0;
    std::vector<int> m_sequenceLayouts;
    std::vector<ChannelState> m_channels;
    std::vector<int> m_channelOrder;
    int m_changedChannel = -1;
    uint32_t m_deviceState = 0;
    int m_previewSent = 0;
    int m_pickedChannel = -1;
    bool m_pickMode = false;
    uint8_t m_talkState = DualTalkNotice::kIdle;
    int m_talkChannel = -1;
    TurnPageNotice m_pageTurn;
    bool m_firstPreviewPending = true;
    int m_outputResolution = 0;
    int m_previewMessageCount = 0;
    uint32_t m_lastPreviewValue = 0;
    uint16_t m_lastPreviewSubType = 0;
    bool m_shown = false;
};
