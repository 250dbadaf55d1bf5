#pragma once
// Crowd counting: per analysed channel, the counting line or area over the picture, the
// limit above which App raises the channel's analytics alarm, and the channel's live in and
// out counts. The rules are parameter block 120 (CountRuleBlock), fetched when the page
// opens and written back by Save.
#include "protocol/CountRuleBlock.h"
#include "toolkit/widgets/CWidget.h"

#include <memory>

class CountingRegionEditor;
class VyComboBox;
class VyLabel;
class VyPushButton;
class VySpinBox;

class CrowdCountingPage : public CWidget {
    VY_OBJECT(CrowdCountingPage, CWidget)
public:
    // `channels`: the analysed channels (bit n = channel n); the first one is shown.
    CrowdCountingPage(VyWidget* parent, uint64_t channels);
    ~CrowdCountingPage() override;

    // Fetches block 120 from App (a request) and shows the chosen channel's rule.
    void load();
    // Writes the edited rules to App.
    void save();

    int channel() const;
    bool showChannel(int channel);
    const CountRuleBlock& block() const { return *m_block; }
    CountingRegionEditor* editor() const { return m_editor; }
    VySpinBox* limitBox() const { return m_limit; }
    VyComboBox* shapeBox() const { return m_shape; }
    VyString countsText() const;
    bool isOverLimit() const;

protected:
    void resizeEvent(VyResizeEvent* e) override;

private:
    void channelChosen();
    void shapeChosen();
    void ruleEdited();
    void limitChanged();
    void clearClicked();
    void countsChanged();
    void keepEdits();

    std::unique_ptr<CountRuleBlock> m_block; // 3 KiB: not on the widget's stack frame
    int m_channel = -1;
    bool m_showing = false; // the controls are being set from a channel's rule
    VyComboBox* m_channels;
    VyComboBox* m_shape;
    VySpinBox* m_limit;
    VyLabel* m_limitLabel;
    VyPushButton* m_clear;
    VyPushButton* m_save;
    VyLabel* m_counts;
    VyLabel* m_alarm; // shown while the channel is over its limit
    CountingRegionEditor* m_editor;
};
