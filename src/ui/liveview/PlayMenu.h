#pragma once
// The sequence menu: how long each step of the automatic sequence stays, or no sequence.
// The long list (5, 10, 20, 30 s, 1, 2, 5, 10 min) is the task bar's; the short one (5, 10,
// 30 s, 1, 5 min) serves small panels. Choosing sets the main-view manager's dwell.
#include "runtime/VyString.h"
#include "toolkit/widgets/VyMenu.h"

class PlayMenu : public VyMenu {
    VY_OBJECT(PlayMenu, VyMenu)
public:
    static constexpr int kNoSequence = -1;

    explicit PlayMenu(bool shortList = false, VyWidget* parent = nullptr);

    // Dwell in seconds per item (kNoSequence for the last).
    const std::vector<int>& dwellTimes() const { return m_dwell; }
    // "%1: %2 s": the sequence's name and the seconds left of the current step.
    static VyString remainingText(int seconds);

private:
    static void onTriggered(VyObject* sender, VyObject* receiver);

    std::vector<int> m_dwell;
};
