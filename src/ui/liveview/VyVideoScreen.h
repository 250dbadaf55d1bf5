#pragma once
// The live screen: the cells of every channel, dealt page by page into the split layout on
// show. It keeps the channel list (cell positions in dealing order; a swap exchanges two
// entries), the shown and the chosen multi-cell layout, the page start, the selected cell and
// the video tool bar over it.
//
//     VyVideoScreen screen(window);
//     screen.setChannelCount(16);
//     screen.setLayout(11);          // "16": deals channels 0..15
//     screen.toggleSingleView();     // the selected channel alone
#include "runtime/VyPoint.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/input/VyKeyTarget.h"
#include "ui/liveview/VideoScreenBase.h"

#include <cstdint>
#include <memory>
#include <vector>

#include "ui/liveview/MainViewVideo.h"
class VideoToolBar;
class VyDrag;
class VyVideoScreenLayout;
struct PreviewRecord;

class VyVideoScreen : public VideoScreenBase, public VyKeyTarget {
    VY_OBJECT(VyVideoScreen, VideoScreenBase)
public:
    // The video screen's device keys.
    enum Key : uint32_t {
        KeyPreviousPage = 61,
        KeyNextPage = 62,
        KeyPreviousCell = 63, // the selection moves through the page, wrapping
        KeyNextCell = 64,
        KeyEnlarge = 65,
        KeyToolBar = 66,
    };
    bool keyAction(uint32_t deviceKey) override;

    // Bits of flags().
    static constexpr uint32_t kPressAndHold = 0x1; // the hold timer runs while a cell is held
    static constexpr uint32_t kMultiCellPaging = 0x4;
    static constexpr int kHoldTickMs = 50;
    // Held this long, a cell is shown alone until it is let go.
    static constexpr int kHoldEnlargeTicks = 16; // 0.8 s
    // A press that moves this far (design pixels) starts dragging the cell.
    static constexpr int kDragDistancePx = 12;
    static constexpr const char* kDragType = "preview-video-drag";
    static constexpr const char* kDragImage = "images/channel-drag.png";

    explicit VyVideoScreen(VyWidget* parent = nullptr);
    ~VyVideoScreen() override;

    // Channels of the device; cells dealt beyond it show no channel.
    void setChannelCount(int count);
    int channelCount() const { return m_channelCount; }
    // Applies a saved order (cell position -> channel); ignored unless it is a permutation of
    // the channels.
    bool setChannelOrder(const std::vector<int>& order);
    std::vector<int> channelOrder() const;
    const std::vector<MainViewVideo*>& cells() const { return m_cells; }
    MainViewVideo* cellOfChannel(int channel) const;

    uint32_t flags() const { return m_flags; }
    void setFlags(uint32_t flags) { m_flags = flags; }

    // ---- Layouts and pages ----
    void setLayout(int index);
    VyVideoScreenLayout* shownLayout() const { return m_shown; }
    VyVideoScreenLayout* chosenLayout() const { return m_chosen; }
    int shownLayoutIndex() const;
    int chosenLayoutIndex() const;
    bool isSingleView() const;
    int pageStart() const { return m_pageStart; }
    // Pages of the shown layout over the channel count (at least 1).
    int pageCount() const;
    bool isLastPage() const;
    void redeal(int first);
    void nextPage();
    void previousPage();
    void gotoPage(int page);
    void toggleSingleView();
    // Exchanges the cells at two positions of the channel list, redeals the page and
    // reports the new order (orderChanged).
    void swapChannels(int positionA, int positionB);
    int positionOf(const Video* cell) const;

    // ---- Selection and tool bar ----
    MainViewVideo* selectedCell() const { return m_selected.data(); }
    void selectCell(MainViewVideo* cell);
    VideoToolBar* toolBar() const { return m_toolBar; }
    void showToolBar(MainViewVideo* cell);
    void hideToolBar();
    // Whether the main view is the window in front (the tool bar comes back after a toggle
    // only then); set by the window.
    void setInFront(bool inFront) { m_inFront = inFront; }

    // The record App needs to show this page (layout, cells, rectangles, streams).
    PreviewRecord previewRecord() const;

    // The last cell that was right-clicked.
    MainViewVideo* rightClickedCell() const { return m_rightClicked.data(); }

    VySignal layoutChanged; // the shown layout or the page changed
    VySignal selectedChanged;
    VySignal rightClicked;
    VySignal orderChanged;   // two channels swapped: save channelOrder()
    VySignal previewChanged; // any change App must hear of (layout, page, order)

protected:
    void cellPressed(int button, Video* cell, VyPoint pos) override;
    void cellMoved(int buttons, Video* cell, VyPoint pos) override;
    void cellReleased(int button, Video* cell, VyPoint pos) override;
    void cellDoubleClicked(int button, Video* cell, VyPoint pos) override;
    Video* createCell() override;

    void paintEvent(VyPaintEvent* e) override;
    void timerEvent(VyTimerEvent* e) override;
    void dragEnterEvent(VyDragEnterEvent* e) override;
    void dragMoveEvent(VyDragMoveEvent* e) override;
    void dropEvent(VyDropEvent* e) override;

private:
    MainViewVideo* cellAtPosition(int position);
    bool selectedIsExclusive() const;
    void selectFirstOfPage();
    void stopHold();
    void startDrag(MainViewVideo* cell);
    void afterChange();

    std::vector<MainViewVideo*> m_cells; // children, in dealing order
    VyVideoScreenLayout* m_shown;
    VyVideoScreenLayout* m_chosen;
    VyVideoScreenLayout* m_single;
    int m_pageStart = 0;
    int m_channelCount = 0;
    uint32_t m_flags = kPressAndHold | kMultiCellPaging;
    VyPointer<MainViewVideo> m_selected;
    VyPointer<MainViewVideo> m_rightClicked;
    VideoToolBar* m_toolBar = nullptr; // a child of the parent widget (or of this screen)
    // Press and hold.
    int m_holdTimer = 0;
    int m_holdTicks = 0;
    VyPointer<MainViewVideo> m_held;
    VyPointer<MainViewVideo> m_holdEnlarged;
    // Drag.
    VyPoint m_pressPos;
    bool m_dragging = false;
    std::unique_ptr<VyDrag> m_drag; // the last drag of a cell, finished or not
    bool m_inFront = true;
    bool m_dealt = false;
};
