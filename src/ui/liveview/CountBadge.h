#pragma once
// The live crowd counts over a cell ("In 12  Out 10"), under its label: shown once App has
// reported counts for the cell's channel, on a red ground while more people are inside than
// the channel's limit. Follows AIManager::countsChanged.
#include "runtime/VyString.h"
#include "toolkit/core/VyWidget.h"

class CountBadge : public VyWidget {
    VY_OBJECT(CountBadge, VyWidget)
public:
    explicit CountBadge(VyWidget* parent = nullptr);

    // -1: no channel (the badge hides).
    void setChannel(int channel);
    int channel() const { return m_channel; }
    bool hasCounts() const { return !m_text.isEmpty(); }
    const VyString& text() const { return m_text; }
    bool isOverLimit() const { return m_over; }
    int preferredWidth() const;

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    void countsChanged();
    void refresh();

    int m_channel = -1;
    VyString m_text;
    bool m_over = false;
};
