#pragma once
// The row of status icons in a cell: recording, motion, sensor input, PIR and the two
// analytics alarms, each shown while App reports that state for the channel. The box keeps
// one size whatever is shown, so a changed flag repaints the box and nothing else; it draws
// only its icons over what the cell beneath it painted.
#include "toolkit/core/VyWidget.h"

#include <cstdint>

class RecordFlagBox : public VyWidget {
    VY_OBJECT(RecordFlagBox, VyWidget)
public:
    static constexpr int kIconCount = 6;

    explicit RecordFlagBox(VyWidget* parent = nullptr);

    // ChannelStateNotice bits; only those with an icon count.
    void setFlags(uint32_t flags);
    uint32_t flags() const { return m_flags; }
    // Icons shown now.
    int shownCount() const;
    // The box's size at the screen's scale: room for every icon.
    static int iconSize();
    static int boxWidth();

    // The image path of icon i (0..kIconCount-1) and the flag bit it shows.
    static const char* iconPath(int i);
    static uint32_t iconFlag(int i);

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    uint32_t m_flags = 0;
};
