#pragma once
// When events of each type send e-mail, on the e-mail schedule board: motion, alarm,
// exception, intelligent analysis and PIR. Offered where the model has EmailScheduleEnable.
// Holds block 91.
#include "ui/settings/SettingsPage.h"

class EmailScheduleFrame;
class VyPushButton;

class EmailSchedulePage : public SettingsPage {
    VY_OBJECT(EmailSchedulePage, SettingsPage)
public:
    static constexpr int kTypes = 5;

    explicit EmailSchedulePage(VyWidget* parent = nullptr);
    EmailScheduleFrame* frame() const { return m_frame; }
    VyPushButton* typeButton(int bit) const { return m_types[bit]; }

protected:
    void showValues() override;
    void collectValues() override {} // the board edits the block in place
    void resizeEvent(VyResizeEvent* e) override;

private:
    void typeChosen(VyObject* sender);
    void selectType(int bit);

    int m_slot;
    EmailScheduleFrame* m_frame;
    VyPushButton* m_types[kTypes];
};
