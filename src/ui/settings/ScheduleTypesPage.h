#pragma once
// A page that is one schedule board: a row of buttons choosing the type painted, and the
// board in its frame below them. The e-mail and FTP schedule pages are this with their own
// board, types and block.
#include "ui/settings/SettingsPage.h"

#include <cstdint>
#include <vector>

class ScheduleFrame;
class VyPushButton;

class ScheduleTypesPage : public SettingsPage {
    VY_OBJECT(ScheduleTypesPage, SettingsPage)
public:
    ScheduleFrame* frame() const { return m_frame; }
    VyPushButton* typeButton(int bit) const { return m_types[size_t(bit)]; }

protected:
    ScheduleTypesPage(uint32_t titleId, VyWidget* parent);
    // Takes the frame (a child of this page) and makes one button per type text, in bit
    // order.
    void setUp(ScheduleFrame* frame, const std::vector<uint32_t>& typeTexts);
    // The week in the page's edit copy.
    virtual uint8_t* schedule() = 0;

    void showValues() override;
    void collectValues() override {} // the board edits the block in place
    void resizeEvent(VyResizeEvent* e) override;

private:
    void typeChosen(VyObject* sender);
    void selectType(int bit);

    ScheduleFrame* m_frame = nullptr;
    std::vector<VyPushButton*> m_types; // children
};
