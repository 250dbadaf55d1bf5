#pragma once
// Each channel's privacy masks: on or off, up to four rectangles drawn over the picture,
// and clearing them all. Holds block 94 once per channel.
#include "ui/settings/ChannelPage.h"

class PrivacyMaskArea;
class VyCheckBox;
class VyPushButton;

class PrivacyMaskPage : public ChannelPage {
    VY_OBJECT(PrivacyMaskPage, ChannelPage)
public:
    explicit PrivacyMaskPage(VyWidget* parent = nullptr);
    VyCheckBox* enabledBox() const { return m_enabled; }
    VyPushButton* clearButton() const { return m_clear; }
    PrivacyMaskArea* area() const { return m_area; }

    // Every channel's masks off and removed.
    void restoreDefaults() override;

protected:
    void showItem(int index) override;
    void collectItem(int index) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void clearAll();

    VyCheckBox* m_enabled;
    VyPushButton* m_clear;
    PrivacyMaskArea* m_area;
};
