#pragma once
// The strip of small pictures along the time of the selected channel: one slot per step of
// the time bar's visible span, each with its picture and time. A press on a slot with a
// picture chooses its time, which the playback window seeks to.
#include "model/RecordThumbnail.h"
#include "toolkit/core/VyWidget.h"

#include <vector>

class ThumbnailBar : public VyWidget {
    VY_OBJECT(ThumbnailBar, VyWidget)
public:
    static constexpr const char* kStyleFile = "style/thumbnailbar.ini";
    static constexpr int kHeightDesign = 110; // pixels at 1920x1080, time line included
    static constexpr int kMaxSlots = 16;

    explicit ThumbnailBar(VyWidget* parent = nullptr);

    // As many 16:9 slots as the width holds, 1..kMaxSlots.
    int slotCount() const;
    VyRect slotRect(int slot) const;
    void setThumbnails(const std::vector<RecordThumbnail>& thumbnails);
    const std::vector<RecordThumbnail>& thumbnails() const { return m_thumbnails; }
    // The slot last chosen, -1 when none.
    int chosenSlot() const { return m_chosen; }
    VyDateTime chosenTime() const;

    VySignal thumbnailChosen;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;

private:
    int slotWidth() const;
    int pictureHeight() const;

    std::vector<RecordThumbnail> m_thumbnails;
    int m_chosen = -1;
    vyargb m_background = 0xFF181A1E;
    vyargb m_border = 0xFF3C3F45;
    vyargb m_itemBorder = 0xFF3C3F45;
    vyargb m_itemSelected = 0xFF0096DC;
    vyargb m_text = 0xFFC8CCD2;
};
