#pragma once
// Each channel's picture: brightness, contrast, saturation and hue. Holds block 3 once per
// channel (the camera page holds it too; each page sends only what changed).
#include "ui/settings/ChannelPage.h"

class VySlider;

class ImagePage : public ChannelPage {
    VY_OBJECT(ImagePage, ChannelPage)
public:
    explicit ImagePage(VyWidget* parent = nullptr);
    // 0 brightness, 1 contrast, 2 saturation, 3 hue.
    VySlider* slider(int i) const { return m_sliders[i]; }
    void restoreDefaults() override;

protected:
    void showItem(int index) override;
    void collectItem(int index) override;

private:
    VySlider* m_sliders[4];
};
