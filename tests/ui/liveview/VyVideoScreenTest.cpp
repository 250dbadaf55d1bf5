// The live screen: dealing, paging in both modes, single view, selection and the tool bar
// by pointer, drag and drop, the preview record and the sequence on the test's clock.
#include "LiveViewTestApp.h"

#include "ipc/IpcMsgBlock.h"
#include "protocol/ChannelStateNotice.h"
#include "protocol/DeviceState.h"
#include "protocol/MainType.h"
#include "protocol/PreviewRecord.h"
#include "protocol/SubType.h"
#include "toolkit/events/CEvent.h"
#include "ui/liveview/ImageButton.h"
#include "ui/liveview/MainViewTaskBar.h"
#include "ui/liveview/MainViewVideo.h"
#include "ui/liveview/VideoLayout.h"
#include "ui/liveview/VideoToolBar.h"
#include "ui/liveview/VyVideoScreen.h"

namespace {

constexpr int kLayout1 = 0;
constexpr int kLayout4 = 1;
constexpr int kLayout9 = 4;
constexpr int kLayout16 = 11;

class VyVideoScreenTest : public LiveViewTest {
protected:
    VyVideoScreen* screen() const { return window->videoScreen(); }
    std::vector<int> shownChannels() const {
        std::vector<int> out;
        for (const VideoLayout::Item& it : screen()->videoLayout()->items())
            out.push_back(it.cell->channel());
        return out;
    }
    VyPoint centreOf(const Video* cell) const {
        const VyRect g = cell->geometry();
        return VyPoint(g.left + g.width() / 2, g.top + g.height() / 2);
    }
    MainViewVideo* cellAtPosition(int position) const {
        return screen()->cells()[size_t(position)];
    }
};

} // namespace

TEST_F(VyVideoScreenTest, PagesThroughTheChannelsInMultiCellMode) {
    open(14);
    screen()->setLayout(kLayout4);
    EXPECT_EQ(screen()->pageCount(), 4);
    const int starts[] = {4, 8, 12, 0};
    for (int start : starts) {
        screen()->nextPage();
        EXPECT_EQ(screen()->pageStart(), start);
        EXPECT_EQ(screen()->selectedCell(), screen()->videoLayout()->items().front().cell);
    }
    screen()->previousPage();
    EXPECT_EQ(screen()->pageStart(), 12);
    // The last page deals the channels left and cells without one.
    EXPECT_EQ(shownChannels(), (std::vector<int>{12, 13, -1, -1}));
    screen()->gotoPage(2);
    EXPECT_EQ(screen()->pageStart(), 8);
    screen()->gotoPage(99);
    EXPECT_EQ(screen()->pageStart(), 12);
}

TEST_F(VyVideoScreenTest, WithoutMultiCellPagingSingleViewStepsThroughTheChosenLayout) {
    open(16);
    screen()->setFlags(screen()->flags() & ~VyVideoScreen::kMultiCellPaging);
    screen()->setLayout(kLayout4);
    screen()->nextPage();
    EXPECT_EQ(screen()->pageStart(), 0); // ignored while four cells show
    screen()->selectCell(cellAtPosition(2));
    screen()->toggleSingleView();
    EXPECT_TRUE(screen()->isSingleView());
    EXPECT_EQ(screen()->pageStart(), 2);
    EXPECT_TRUE(cellAtPosition(2)->isEnlarged());
    screen()->nextPage();
    EXPECT_EQ(screen()->pageStart(), 3);
    screen()->nextPage();
    EXPECT_EQ(screen()->pageStart(), 0); // wraps at the chosen layout's cell count
    screen()->previousPage();
    EXPECT_EQ(screen()->pageStart(), 3); // from 0: the chosen layout's last cell
}

TEST_F(VyVideoScreenTest, SingleViewReturnsToThePageOfTheSelectedCell) {
    open(16);
    screen()->setLayout(kLayout4);
    screen()->gotoPage(2);
    screen()->selectCell(cellAtPosition(10));
    screen()->toggleSingleView();
    EXPECT_EQ(shownChannels(), (std::vector<int>{10}));
    EXPECT_EQ(screen()->chosenLayoutIndex(), kLayout4);
    screen()->toggleSingleView();
    EXPECT_EQ(screen()->shownLayoutIndex(), kLayout4);
    EXPECT_EQ(screen()->pageStart(), 8);
    EXPECT_EQ(screen()->selectedCell(), cellAtPosition(10));
    EXPECT_FALSE(cellAtPosition(10)->isEnlarged());
}

TEST_F(VyVideoScreenTest, AnExclusiveCellHoldsPagesAndLayouts) {
    open(16);
    screen()->setLayout(kLayout4);
    screen()->selectedCell()->setExclusive(true);
    screen()->nextPage();
    screen()->setLayout(kLayout9);
    screen()->toggleSingleView();
    EXPECT_EQ(screen()->pageStart(), 0);
    EXPECT_EQ(screen()->shownLayoutIndex(), kLayout4);
    screen()->selectedCell()->setExclusive(false);
    screen()->setLayout(kLayout9);
    EXPECT_EQ(screen()->shownLayoutIndex(), kLayout9);
}

TEST_F(VyVideoScreenTest, ReleaseSelectsAndDoubleClickTogglesSingleView) {
    open(16);
    screen()->setLayout(kLayout16);
    MainViewVideo* cell = cellAtPosition(5);
    click(centreOf(cell));
    EXPECT_EQ(screen()->selectedCell(), cell);
    EXPECT_TRUE(screen()->toolBar()->isVisible());
    EXPECT_EQ(screen()->toolBar()->cell(), cell);
    // A second click on the selected cell keeps the bar only for a known camera channel.
    click(centreOf(cell));
    EXPECT_FALSE(screen()->toolBar()->isVisible());

    const VyPoint at = centreOf(cell);
    pointer(at.x, at.y, 1);
    pointer(at.x, at.y, 0);
    pointer(at.x, at.y, 1); // within the interval: a double click
    pointer(at.x, at.y, 0);
    EXPECT_TRUE(screen()->isSingleView());
    EXPECT_EQ(shownChannels(), (std::vector<int>{5}));
    advance(600);

    // A right click only reports the cell, and picks its channel in pick mode.
    manager->setPickMode(true);
    click(VyPoint(100, 100), 2);
    EXPECT_EQ(screen()->rightClickedCell(), cell);
    EXPECT_EQ(manager->pickedChannel(), 5);
}

TEST_F(VyVideoScreenTest, DraggingACellOntoAnotherSwapsTheChannelsAndSavesTheOrder) {
    open(16);
    screen()->setLayout(kLayout4);
    const VyPoint from = centreOf(cellAtPosition(0));
    const VyPoint to = centreOf(cellAtPosition(3));
    auto dragCell = [&](VyPoint a, VyPoint b) {
        pointer(a.x, a.y, 1);
        for (int step = 1; step <= 10; ++step)
            pointer(a.x + (b.x - a.x) * step / 10, a.y + (b.y - a.y) * step / 10, 1);
        pointer(b.x, b.y, 0);
        settle();
    };
    const size_t objects = screen()->children().size();
    // Back and forth: each drag is a fresh object, and none may outlive the next one.
    for (int i = 0; i < 4; ++i)
        dragCell(i % 2 == 0 ? from : to, i % 2 == 0 ? to : from);
    EXPECT_EQ(screen()->children().size(), objects);
    dragCell(from, to);
    EXPECT_EQ(shownChannels(), (std::vector<int>{3, 1, 2, 0}));
    EXPECT_EQ(manager->channelOrder()[0], 3);
    EXPECT_EQ(manager->channelOrder()[3], 0);
    // App heard of the new order.
    const RecordedMessage* last = link.last(MainType::Preview);
    ASSERT_NE(last, nullptr);
    const auto record = PreviewRecord::decode(last->body.data(), uint32_t(last->body.size()));
    ASSERT_TRUE(record.has_value());
    EXPECT_EQ(record->cells[0].channel, 3);
    EXPECT_EQ(record->cells[3].channel, 0);
}

TEST_F(VyVideoScreenTest, PreviewRecordBytesForTheFourWaySplit) {
    open(4, 0x5); // cameras on channels 0 and 2
    screen()->videoLayout()->setAlignment(1, 1);
    screen()->setLayout(kLayout16);
    screen()->setLayout(kLayout4);
    EXPECT_EQ(link.count(MainType::Preview, PreviewSubType::ShowFirst), 1);
    const RecordedMessage* m = link.last(MainType::Preview);
    ASSERT_NE(m, nullptr);
    ASSERT_EQ(m->subType, PreviewSubType::Show);
    ASSERT_EQ(m->body.size(), 820u);
    const uint8_t* b = m->body.data();
    EXPECT_EQ(b[0], kLayout4);
    EXPECT_EQ(b[1], 4);
    EXPECT_EQ(b[2], 0);
    EXPECT_EQ(b[4] | b[5] << 8, 1920);
    EXPECT_EQ(b[6] | b[7] << 8, 1080);
    EXPECT_EQ(b[10] | b[11] << 8, 0); // the first cell is selected
    const uint8_t cell3[12] = {3, 1, 0, 0, 0xC0, 0x03, 0x1C, 0x02, 0x7F, 0x07, 0x37, 0x04};
    EXPECT_EQ(std::vector<uint8_t>(b + 12 + 36, b + 12 + 48),
              std::vector<uint8_t>(cell3, cell3 + 12));
    EXPECT_EQ(b[12 + 2], PreviewCell::kFlagSelected | PreviewCell::kFlagCamera);
    EXPECT_EQ(b[12 + 12 + 2], 0);                   // channel 1 has no camera
    EXPECT_EQ(b[12 + 48], PreviewCell::kNoChannel); // cell 4 unused
    // Alone, the cell takes the main stream.
    screen()->toggleSingleView();
    m = link.last(MainType::Preview);
    EXPECT_EQ(m->body[1], 1);
    EXPECT_EQ(m->body[2], 1);
    EXPECT_EQ(m->body[12 + 1], PreviewCell::kMainStream);
}

TEST_F(VyVideoScreenTest, SequencePagesThenStepsTheLayoutsOnTheClock) {
    open(8);
    screen()->setLayout(kLayout4);
    manager->setSequenceDwell(5);
    advance(4000);
    EXPECT_EQ(screen()->pageStart(), 0);
    advance(1000);
    EXPECT_EQ(screen()->pageStart(), 4);
    // The last page is shown: the next layout of the sequence list (1, 4) follows, wrapping.
    ASSERT_EQ(manager->sequenceLayouts(), (std::vector<int>{kLayout1, kLayout4}));
    advance(5000);
    EXPECT_EQ(screen()->shownLayoutIndex(), kLayout1);
    EXPECT_EQ(screen()->pageStart(), 0);
    advance(5000);
    EXPECT_EQ(screen()->pageStart(), 1);
    manager->setSequenceDwell(-1);
    advance(20000);
    EXPECT_EQ(screen()->pageStart(), 1);
}

TEST_F(VyVideoScreenTest, ChannelStateReachesTheCellAndOutOfRangeIsIgnored) {
    open(4);
    ChannelStateNotice n;
    n.channel = 2;
    n.flags = ChannelStateNotice::kCamera | ChannelStateNotice::kMotion;
    n.setName("Gate");
    uint8_t body[ChannelStateNotice::kSize];
    n.encode(body);
    EXPECT_TRUE(manager->applyChannelState(body, sizeof body));
    MainViewVideo* cell = screen()->cellOfChannel(2);
    EXPECT_EQ(cell->labelText(), "Gate[03]");
    EXPECT_EQ(cell->channelState().flags, n.flags);
    n.channel = 4;
    n.encode(body);
    EXPECT_FALSE(manager->applyChannelState(body, sizeof body));
    EXPECT_FALSE(manager->applyChannelState(body, 10));
    EXPECT_EQ(screen()->cellOfChannel(0)->labelText(), "Channel 1[01]");
}

TEST_F(VyVideoScreenTest, DeviceStateShowsTheUsbStickOnTheTaskBar) {
    open(4);
    IpcMsgHeader h{};
    h.MainType = MainType::System;
    h.SubType = SystemSubType::DeviceState;
    h.msgValue = DeviceState::kUsbStick;
    auto event = std::make_unique<CEvent>(UiEventType::ChannelState);
    event->setData(VyEventData(ipcAllocBlock(h).release()));
    VyApplication::postEvent(manager.get(), std::move(event));
    settle();
    ImageButton* stick = window->taskBar()->button(MainViewTaskBar::UsbStick);
    EXPECT_TRUE(stick->isVisible());
    EXPECT_TRUE(window->taskBar()->rect().contains(stick->geometry()));
    EXPECT_FALSE(window->taskBar()->button(MainViewTaskBar::Alarm)->isVisible());
}

TEST_F(VyVideoScreenTest, AFloodOfAlarmNoticesIsOneRepaint) {
    open(16);
    screen()->setLayout(kLayout16);
    settle();
    const int flushes = app()->screen()->flushCount();
    for (int i = 0; i < 200; ++i) {
        ChannelStateNotice n;
        n.channel = uint8_t(i % 16);
        n.flags = ChannelStateNotice::kCamera | (i % 2 ? ChannelStateNotice::kMotion : 0u);
        uint8_t body[ChannelStateNotice::kSize];
        n.encode(body);
        manager->applyChannelState(body, sizeof body);
    }
    settle();
    EXPECT_EQ(app()->screen()->flushCount(), flushes + 1);
    EXPECT_EQ(screen()->cellOfChannel(15)->channelState().flags,
              ChannelStateNotice::kCamera | ChannelStateNotice::kMotion);
}
