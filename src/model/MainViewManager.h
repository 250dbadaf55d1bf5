#pragma once
// The main view's state, kept apart from its window: the layout on show, the sequence dwell,
// the live-view settings (parameter block 24) and what App last said about the preview
// (MainType 100 messages arrive here as event 1024). The window reads this and listens to
// the signals; it may come and go, the state stays.
#include "model/CachedParamBlock.h"
#include "protocol/ParamBlock.h"
#include "toolkit/core/VyObject.h"

#include <cstdint>

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
    // Seconds per sequence step; -1 = no automatic sequence.
    int sequenceDwell() const { return m_sequenceDwell; }
    void setSequenceDwell(int seconds) { m_sequenceDwell = seconds; }

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

protected:
    void customEvent(VyEvent* e) override;

private:
    CachedParamBlock m_settings{ParamBlock::MainViewSettings.number,
                                ParamBlock::MainViewSettings.size};
    int m_layout = 0;
    int m_sequenceDwell = -1;
    int m_outputResolution = 0;
    int m_previewMessageCount = 0;
    uint32_t m_lastPreviewValue = 0;
    uint16_t m_lastPreviewSubType = 0;
    bool m_shown = false;
};
