#pragma once
// One live cell of the main view: a Video with its border (by state, from the shared table
// of "style/mainview.ini"), the channel label "%1[%2]" (name, then the two-digit number),
// the record and alarm flags, and, for a channel without a camera, the start-preview icon
// with the edit, add and pairing icons offered over it.
#include "model/ChannelState.h"
#include "ui/liveview/Video.h"

class CountBadge;
class RecordFlagBox;
class VideoLabel;

class MainViewVideo : public Video {
    VY_OBJECT(MainViewVideo, Video)
public:
    // Icons offered over a cell without a camera.
    enum Offer { OfferNone = -1, OfferEdit = 0, OfferAdd = 1, OfferPairing = 2 };

    explicit MainViewVideo(VyWidget* parent = nullptr);

    void setChannel(int channel) override;
    // The channel's state as the main-view manager keeps it; hides the flags of a channel
    // without camera.
    void setChannelState(const ChannelState& state);
    const ChannelState& channelState() const { return m_state; }
    bool hasCamera() const { return m_state.camera; }
    // Whether the recorder has told anything about the channel (its channel information).
    bool hasChannelInfo() const { return channel() != kNoChannel && m_state.known; }

    bool isSelected() const { return m_selected; }
    void setSelected(bool selected);
    // Shown alone (single view).
    bool isEnlarged() const { return m_enlarged; }
    void setEnlarged(bool enlarged);
    // A zoom or control mode of the cell: paging and layout changes wait while it is set.
    bool isExclusive() const { return m_exclusive; }
    void setExclusive(bool exclusive) { m_exclusive = exclusive; }
    bool isSelectable() const { return m_selectable; }
    void setSelectable(bool selectable) { m_selectable = selectable; }
    // The user asked for the main stream in this cell even while it shares the screen.
    bool prefersMainStream() const { return m_preferMain; }
    void setPrefersMainStream(bool on) { m_preferMain = on; }
    bool noToolBar() const { return m_noToolBar; }
    void setNoToolBar(bool on) { m_noToolBar = on; }

    // The border colour the cell's state asks for.
    vyargb borderColour() const;
    // The label's text: "%1[%2]" with the name and the number; empty without a channel.
    VyString labelText() const;
    RecordFlagBox* flagBox() const { return m_flags; }
    VideoLabel* label() const { return m_label; }
    CountBadge* countBadge() const { return m_counts; }
    // The offer icon under a point (cell coordinates), for a cell without a camera.
    Offer offerAt(VyPoint pos) const;
    VyRect offerRect(Offer offer) const;

    // One of the offer icons was clicked; lastOffer() tells which.
    VySignal offerClicked;
    Offer lastOffer() const { return m_lastOffer; }

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;

private:
    void placeDecorations();
    void refreshLabel();

    ChannelState m_state;
    VideoLabel* m_label;    // child
    RecordFlagBox* m_flags; // child
    CountBadge* m_counts;   // child: live crowd counts, hidden until App sends some
    Offer m_lastOffer = OfferNone;
    bool m_selected = false;
    bool m_enlarged = false;
    bool m_exclusive = false;
    bool m_selectable = true;
    bool m_noToolBar = false;
    bool m_preferMain = false;
};
