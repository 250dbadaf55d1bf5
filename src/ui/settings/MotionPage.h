#pragma once
// Each channel's motion detection: on or off, the sensitivity, and the area watched, drawn
// over the picture as a grid. Holds block 45 once per channel.
#include "ui/settings/ChannelPage.h"

class MotionAreaGrid;
class VyCheckBox;
class VySpinBox;

class MotionPage : public ChannelPage {
    VY_OBJECT(MotionPage, ChannelPage)
public:
    explicit MotionPage(VyWidget* parent = nullptr);
    VyCheckBox* enabledBox() const { return m_enabled; }
    VySpinBox* sensitivityBox() const { return m_sensitivity; }
    MotionAreaGrid* grid() const { return m_grid; }

protected:
    void showItem(int index) override;
    void collectItem(int index) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    VyCheckBox* m_enabled;
    VySpinBox* m_sensitivity;
    MotionAreaGrid* m_grid;
};
