// The schedule boards: drag semantics, keys, cell geometry, painting, the frames' label
// presses and the copy handler.
#include "runtime/VyIniSettings.h"
#include "ui/settings/EmailScheduleBoard.h"
#include "ui/settings/FTPScheduleBoard.h"
#include "ui/settings/RecScheduleBoard.h"
#include "ui/settings/RecScheduleFrame.h"
#include "ui/settings/ScheduleCopyHandler.h"

#include "ui/settings/SettingsUiTestApp.h"

#include <cstring>

namespace {

constexpr int kCell = 10; // a 481 x 71 board has 10 x 10 pixel cells
constexpr int kPress = VyEvent::MouseButtonPress, kMove = VyEvent::MouseMove,
              kRelease = VyEvent::MouseButtonRelease;

class ScheduleBoardTest : public SettingsUiTest {
protected:
    void SetUp() override {
        SettingsUiTest::SetUp();
        window = std::make_unique<VyWidget>();
        window->setGeometry(0, 0, 640, 360);
        board = new RecScheduleBoard(window.get());
        board->setGeometry(20, 20, 48 * kCell + 1, 7 * kCell + 1);
        window->show();
        board->show();
        std::memset(week, 0, sizeof week);
        board->setSchedule(week);
        settle();
    }
    void TearDown() override {
        window.reset();
        SettingsUiTest::TearDown();
    }
    void drag(int x0, int y0, int x1, int y1) {
        mouse(board, kPress, x0, y0);
        mouse(board, kMove, x1, y1);
        mouse(board, kRelease, x1, y1);
    }
    uint8_t& at(int column, int row) { return week[row * 48 + column]; }
    int countWhere(uint8_t value) const {
        int n = 0;
        for (uint8_t b : week)
            n += b == value;
        return n;
    }

    std::unique_ptr<VyWidget> window;
    RecScheduleBoard* board = nullptr;
    uint8_t week[ScheduleGrid::kBytes];
};

struct DragCase {
    const char* name;
    uint32_t mode;
    uint8_t type;
    uint8_t pressCellValue; // the press cell holds this before the drag
    uint8_t otherCells;     // every other cell holds this
    int x0, y0, x1, y1;     // board pixels
    int firstColumn, lastColumn, firstRow, lastRow;
    uint8_t setBits, clearBits; // covered cells become (before & ~clearBits) | setBits
};

const DragCase kDrags[] = {
    // The press cell decides: a motion cell under the motion type clears motion in every
    // covered cell, even those that did not hold it, and leaves the other types alone.
    {"MotionCellClearsMotion", 0, 1, 2 | 1, 4, 15, 15, 45, 35, 1, 4, 1, 3, 0, 2},
    {"EmptyCellSetsAndKeepsOthers", 0, 2, 0, 1, 5, 5, 25, 5, 0, 2, 0, 0, 4, 0},
    // Past the right and bottom edges the rectangle stops at column 47 and row 6.
    {"PastTheEdgesStopsAtTheLastCell", 0, 0, 0, 0, 465, 55, 900, 400, 46, 47, 5, 6, 1, 0},
    // Negative coordinates start at column and row 0.
    {"NegativeCoordinatesStartAtZero", 0, 3, 0, 0, 25, 25, -40, -40, 0, 2, 0, 2, 8, 0},
    // Plain mode: from an "on" cell everything covered goes off, from an "off" cell on.
    {"PlainFromOnTurnsOff", 3, 0, 1, 1, 105, 5, 5, 65, 0, 10, 0, 6, 0, 0xFF},
    {"PlainFromOffTurnsOn", 3, 0, 0, 1, 5, 5, 35, 5, 0, 3, 0, 0, 1, 0xFF},
    // Bit indices of 8 and above touch no cell.
    {"TypeBeyondTheByteChangesNothing", 0, 9, 0, 0, 5, 5, 300, 60, 0, 29, 0, 6, 0, 0},
};

class ScheduleBoardDrag : public ScheduleBoardTest,
                          public ::testing::WithParamInterface<DragCase> {};

TEST_P(ScheduleBoardDrag, AppliesToTheClampedCellsOnly) {
    const DragCase& c = GetParam();
    board->setMode(c.mode);
    board->setCurrentType(c.type);
    std::memset(week, c.otherCells, sizeof week);
    const int pc = std::min(c.x0 / kCell, 47), pr = std::min(c.y0 / kCell, 6);
    at(pc, pr) = c.pressCellValue;
    uint8_t before[ScheduleGrid::kBytes];
    std::memcpy(before, week, sizeof week);
    drag(c.x0, c.y0, c.x1, c.y1);
    for (int row = 0; row < 7; ++row)
        for (int column = 0; column < 48; ++column) {
            const bool inside = column >= c.firstColumn && column <= c.lastColumn &&
                                row >= c.firstRow && row <= c.lastRow;
            const uint8_t was = before[row * 48 + column];
            const uint8_t expected = inside ? uint8_t((was & ~c.clearBits) | c.setBits) : was;
            ASSERT_EQ(at(column, row), expected) << "column " << column << " row " << row;
        }
}

INSTANTIATE_TEST_SUITE_P(Cases, ScheduleBoardDrag, ::testing::ValuesIn(kDrags),
                         [](const auto& c) { return std::string(c.param.name); });

TEST_F(ScheduleBoardTest, WithoutAScheduleOrWithAnotherButtonPressesAreNotTaken) {
    EXPECT_FALSE(mouse(board, kPress, 5, 5, 2)); // right button
    board->setSchedule(nullptr);
    EXPECT_FALSE(mouse(board, kPress, 5, 5));
    EXPECT_FALSE(mouse(board, kRelease, 5, 5));
    EXPECT_FALSE(key(board, VyKeyEvent::KeyOk));
    EXPECT_EQ(countWhere(0), ScheduleGrid::kBytes);
}

TEST_F(ScheduleBoardTest, CellSizesFollowEveryResize) {
    EXPECT_FLOAT_EQ(board->cellWidth(), 10.0f);
    EXPECT_FLOAT_EQ(board->cellHeight(), 10.0f);
    board->resize(97, 15);
    EXPECT_FLOAT_EQ(board->cellWidth(), 2.0f);
    EXPECT_FLOAT_EQ(board->cellHeight(), 2.0f);
}

TEST_F(ScheduleBoardTest, FocusMovesAnswerFalseAtTheEdges) {
    EXPECT_FALSE(board->keyLeftRight(VyKeyEvent::KeyLeft));
    EXPECT_FALSE(board->keyUpDown(VyKeyEvent::KeyUp));
    for (int i = 0; i < 6; ++i)
        EXPECT_TRUE(board->keyUpDown(VyKeyEvent::KeyDown));
    EXPECT_FALSE(board->keyUpDown(VyKeyEvent::KeyDown));
    for (int i = 0; i < 47; ++i)
        EXPECT_TRUE(board->keyLeftRight(VyKeyEvent::KeyRight));
    EXPECT_FALSE(board->keyLeftRight(VyKeyEvent::KeyRight));
    EXPECT_EQ(board->focusColumn(), 47);
    EXPECT_EQ(board->focusRow(), 6);
}

TEST_F(ScheduleBoardTest, KeysAlonePaintARectangleAndEscapeDropsIt) {
    board->setCurrentType(1);
    EXPECT_TRUE(key(board, VyKeyEvent::KeyOk));
    key(board, VyKeyEvent::KeyRight);
    key(board, VyKeyEvent::KeyRight);
    key(board, VyKeyEvent::KeyDown);
    EXPECT_EQ(countWhere(0), ScheduleGrid::kBytes); // nothing until OK
    key(board, VyKeyEvent::KeyOk);
    EXPECT_EQ(countWhere(2), 6);
    EXPECT_EQ(at(2, 1), 2);
    // From a cell holding the type the rectangle clears; Escape abandons it.
    key(board, VyKeyEvent::KeyOk);
    key(board, VyKeyEvent::KeyLeft);
    EXPECT_TRUE(key(board, VyKeyEvent::KeyEscape));
    EXPECT_FALSE(board->isKeyPainting());
    EXPECT_EQ(countWhere(2), 6);
    key(board, VyKeyEvent::KeyOk);
    key(board, VyKeyEvent::KeyLeft);
    key(board, VyKeyEvent::KeyOk);
    EXPECT_EQ(countWhere(2), 4);
}

TEST_F(ScheduleBoardTest, StripesAreDrawnInTypeOrderAndHideNormalDropsTheFirst) {
    const VyIniSettings ini(VyResources::path(ScheduleBoard::kStyleFile));
    const vyargb normal = ini.color("Record/NormalBlock").argb();
    const vyargb alarm = ini.color("Record/AlarmBlock").argb();
    const vyargb pir = ini.color("Record/PirBlock").argb();
    const vyargb background = ini.color("Common/Background").argb();
    board->resize(48 * 12 + 1, 7 * 12 + 1); // 11 inner rows per cell
    at(0, 0) = 1 | 4;
    board->update();
    settle();
    const int x = 20 + 5, y = 20 + 1; // inside cell (0, 0)
    // 4 stripes over 11 rows: 0-1, 2-4, 5-7, 8-10.
    EXPECT_EQ(pixel(x, y + 0), opaque1555(normal));
    EXPECT_EQ(pixel(x, y + 3), opaque1555(background));
    EXPECT_EQ(pixel(x, y + 6), opaque1555(alarm));
    EXPECT_EQ(pixel(x, y + 9), opaque1555(background));
    board->setHideNormal(true);
    at(0, 0) = 1 | 8;
    board->update();
    settle();
    // 3 stripes: motion, alarm, PIR; the normal bit shows nowhere.
    EXPECT_EQ(pixel(x, y + 0), opaque1555(background));
    EXPECT_EQ(pixel(x, y + 9), opaque1555(pir));
}

TEST_F(ScheduleBoardTest, EachBoardReadsItsOwnKeysAndTheEmailBoardTheRecordPir) {
    const VyIniSettings ini(VyResources::path(ScheduleBoard::kStyleFile));
    EmailScheduleBoard email;
    FTPScheduleBoard ftp;
    ASSERT_EQ(email.blockColours().size(), 5u);
    EXPECT_EQ(email.blockColours()[2], ini.color("Email/ExceptionBlock").argb());
    EXPECT_EQ(email.blockColours()[4], ini.color("Record/PirBlock").argb());
    ASSERT_EQ(ftp.blockColours().size(), 5u);
    EXPECT_EQ(ftp.blockColours()[4], ini.color("FTP/IntelligentBlock").argb());
    ASSERT_EQ(board->blockColours().size(), 4u);
    EXPECT_EQ(board->blockColours()[1], ini.color("Record/MotionBlock").argb());
}

TEST_F(ScheduleBoardTest, ADragRepaintsOnlyTheUnionOfTheOldAndNewRectangles) {
    mouse(board, kPress, 15, 15); // cell (1, 1)
    mouse(board, kMove, 35, 15);  // band: cells 1..3 of row 1
    settle();
    const uint64_t before = app()->screen()->flushedPixelCount();
    mouse(board, kMove, 35, 35); // band: cells 1..3 of rows 1..3
    settle();
    // Cells are 10 pixels apart with their lines: old 31 x 11, new 31 x 31; the union is the
    // new one.
    EXPECT_EQ(app()->screen()->flushedPixelCount() - before, uint64_t(31 * 31));
    mouse(board, kRelease, 35, 35);
}

TEST_F(ScheduleBoardTest, FrameLabelsToggleAWholeDayOrColumn) {
    RecScheduleFrame frame(window.get());
    frame.setGeometry(0, 100, 600, 200);
    frame.show();
    ScheduleBoard* b = frame.board();
    b->setSchedule(week);
    b->setCurrentType(2); // alarm
    const float ch = b->cellHeight(), cw = b->cellWidth();
    const int dayY = frame.hourLabelHeight() + int(ch * 2.5f); // Tuesday
    mouse(&frame, kPress, 2, dayY);
    EXPECT_EQ(countWhere(4), 48);
    EXPECT_EQ(at(30, 2), 4);
    mouse(&frame, kPress, 2, dayY); // the whole day holds it: cleared
    EXPECT_EQ(countWhere(0), ScheduleGrid::kBytes);
    mouse(&frame, kPress, frame.dayLabelWidth() + int(cw * 10.5f), 2); // 05:00-05:30
    EXPECT_EQ(countWhere(4), 7);
    EXPECT_EQ(at(10, 6), 4);
}

TEST(ScheduleCopyHandler, CopiesDaysAndChannelsAndRefusesBadIndices) {
    uint8_t a[ScheduleGrid::kBytes] = {}, b[ScheduleGrid::kBytes] = {},
            c[ScheduleGrid::kBytes] = {};
    a[1 * 48 + 5] = 2;
    ScheduleCopyHandler copy;
    copy.setSchedules({a, b, nullptr, c});
    EXPECT_TRUE(copy.copyDay(0, 1, 0x7F)); // Monday onto the week
    for (int day = 0; day < 7; ++day)
        EXPECT_EQ(a[day * 48 + 5], 2);
    EXPECT_TRUE(copy.copyChannel(0, 0xFF));
    EXPECT_EQ(std::memcmp(a, b, sizeof a), 0);
    EXPECT_EQ(std::memcmp(a, c, sizeof a), 0);
    EXPECT_EQ(copy.changedChannels(), 0b1011u);
    EXPECT_FALSE(copy.copyDay(0, 7, 1));
    EXPECT_FALSE(copy.copyDay(2, 0, 1));
    EXPECT_FALSE(copy.copyChannel(4, 1));
}

} // namespace
