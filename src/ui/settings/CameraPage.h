#pragma once
// Each channel's camera name and the on-screen display of name and time with their
// positions. Holds block 3 once per channel.
#include "ui/settings/ChannelPage.h"

class VyCheckBox;
class VyLineEdit;
class VySpinBox;

class CameraPage : public ChannelPage {
    VY_OBJECT(CameraPage, ChannelPage)
public:
    explicit CameraPage(VyWidget* parent = nullptr);

    VyLineEdit* nameEdit() const { return m_name; }
    VyCheckBox* showNameBox() const { return m_showName; }
    VyCheckBox* showTimeBox() const { return m_showTime; }
    VySpinBox* nameXBox() const { return m_nameX; }
    VySpinBox* nameYBox() const { return m_nameY; }
    VySpinBox* timeXBox() const { return m_timeX; }
    VySpinBox* timeYBox() const { return m_timeY; }

protected:
    void showItem(int index) override;
    void collectItem(int index) override;

private:
    VyLineEdit* m_name;
    VyCheckBox* m_showName;
    VySpinBox* m_nameX;
    VySpinBox* m_nameY;
    VyCheckBox* m_showTime;
    VySpinBox* m_timeX;
    VySpinBox* m_timeY;
};
