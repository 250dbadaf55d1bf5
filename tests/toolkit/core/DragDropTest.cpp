// A drag from one widget to another through the real raw mouse path.
#include "toolkit/widgets/WidgetProbe.h"

#include "runtime/VyResources.h"
#include "toolkit/core/VyDrag.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyDragEnterEvent.h"
#include "toolkit/events/VyDragLeaveEvent.h"
#include "toolkit/events/VyDragMoveEvent.h"
#include "toolkit/events/VyDropEvent.h"
#include "toolkit/events/VyKeyEvent.h"

namespace {

constexpr const char* kPreviewDrag = "preview-video-drag";

// Starts its drag on a press.
class DragSource : public Probe {
public:
    DragSource(std::vector<std::string>* log, VyDrag* drag)
        : Probe("source", log, VyRect(0, 0, 100, 100))
        , m_drag(drag) {}
    void mousePressEvent(VyMouseEvent* e) override {
        Probe::mousePressEvent(e);
        m_drag->start(VyDropEvent::CopyAction | VyDropEvent::MoveAction);
    }

private:
    VyDrag* m_drag;
};

// Takes drags of one type, and only in its left half.
class DropTarget : public Probe {
public:
    DropTarget(const char* name, std::vector<std::string>* log, VyWidget* parent, const char* type)
        : Probe(name, log, parent)
        , m_type(type)
        , m_log(log) {
        setAttribute(AcceptDrops);
    }
    void dragEnterEvent(VyDragEnterEvent* e) override {
        note("dragEnter");
        if (e->mimeData()->hasType(m_type))
            e->accept();
    }
    void dragMoveEvent(VyDragMoveEvent* e) override {
        note("dragMove@" + std::to_string(e->pos().x));
        if (e->pos().x >= width() / 2)
            e->ignore();
    }
    void dragLeaveEvent(VyDragLeaveEvent*) override { note("dragLeave"); }
    void dropEvent(VyDropEvent* e) override {
        note("drop@" + std::to_string(e->pos().x) + "," + std::to_string(e->pos().y));
        dropped = e->mimeData()->data();
        e->setDropAction(VyDropEvent::MoveAction);
        e->accept();
    }
    VyByteArray dropped;

private:
    void note(const std::string& what) {
        m_log->push_back(std::string(objectName().c_str()) + ":" + what);
    }
    const char* m_type;
    std::vector<std::string>* m_log;
};

class DragDrop : public CoreAppTest {
protected:
    void SetUp() override {
        VyResources::setRoot(VY_RESOURCES_DIR);
        CoreAppTest::SetUp();
        app()->setInputClocks([this] { return nowMs; }, nullptr);
        drag = std::make_unique<VyDrag>();
        drag->setMimeData(VyMimeData(kPreviewDrag, VyByteArray("channel 3")));
        VyBitmap image(40, 30);
        image.fill(0xFF336699);
        drag->setImage(image, VyPoint(20, 15));
        source = std::make_unique<DragSource>(&log, drag.get());
        targets = std::make_unique<Probe>("targets", &log, VyRect(150, 0, 160, 100));
        cells = new DropTarget("cells", &log, targets.get(), kPreviewDrag);
        cells->setGeometry(0, 0, 80, 100);
        other = new DropTarget("other", &log, targets.get(), "something-else");
        other->setGeometry(80, 0, 80, 100);
        for (Probe* w : {static_cast<Probe*>(source.get()), targets.get(),
                         static_cast<Probe*>(cells), static_cast<Probe*>(other)})
            w->show();
        pointer(app(), 50, 50);
        pointer(app(), 50, 50, VyMouseEvent::LeftButton);
    }
    void TearDown() override {
        targets.reset();
        source.reset();
        drag.reset();
        CoreAppTest::TearDown();
        VyResources::setRoot(VyString());
    }
    VyScreenCursor* cursor() const { return app()->screen()->cursor(); }

    int64_t nowMs = 1000;
    std::vector<std::string> log;
    std::unique_ptr<VyDrag> drag;
    std::unique_ptr<DragSource> source;
    std::unique_ptr<Probe> targets;
    DropTarget* cells = nullptr;
    DropTarget* other = nullptr;
};

} // namespace

TEST_F(DragDrop, DropsOnTheWidgetThatAcceptsTheTypeWhereItAcceptsIt) {
    ASSERT_TRUE(drag->isActive());
    EXPECT_EQ(app()->activeDrag(), drag.get());
    const VyRect refusedArea = cursor()->area();
    log.clear();
    pointer(app(), 160, 40, VyMouseEvent::LeftButton);
    EXPECT_EQ(drag->target(), cells);
    EXPECT_TRUE(drag->targetAccepts());
    // The picture under the cursor changed with the verdict, the drag image still in it.
    EXPECT_NE(cursor()->area(), refusedArea);
    EXPECT_GE(cursor()->area().width(), 40);
    pointer(app(), 210, 40, VyMouseEvent::LeftButton); // right half of cells: refused there
    EXPECT_FALSE(drag->targetAccepts());
    pointer(app(), 250, 40, VyMouseEvent::LeftButton); // other does not take this type
    EXPECT_EQ(drag->target(), other);
    EXPECT_FALSE(drag->targetAccepts());
    pointer(app(), 170, 60, VyMouseEvent::LeftButton);
    pointer(app(), 170, 60, 0);
    EXPECT_FALSE(drag->isActive());
    EXPECT_EQ(drag->result(), VyDropEvent::MoveAction);
    EXPECT_EQ(cells->dropped, VyByteArray("channel 3"));
    EXPECT_EQ(log, (std::vector<std::string>{
                       "cells:dragEnter", "cells:dragMove@10", "cells:dragMove@60",
                       "cells:dragLeave", "other:dragEnter", "other:dragLeave", "cells:dragEnter",
                       "cells:dragMove@20", "cells:drop@20,60"}));
    // The source never saw the moves or the release of its drag; the cursor is a shape again.
    EXPECT_EQ(app()->activeDrag(), nullptr);
    EXPECT_EQ(cursor()->shape(), VyScreenCursor::Arrow);
    pointer(app(), 60, 60);
    EXPECT_EQ(log.back(), "cells:drop@20,60");
}

TEST_F(DragDrop, EscapeOrAReleaseOverNothingCancels) {
    pointer(app(), 160, 40, VyMouseEvent::LeftButton);
    log.clear();
    VyKeyEvent escape(VyEvent::KeyPress, 0x1000000);
    VyApplication::sendEvent(source.get(), &escape);
    EXPECT_FALSE(drag->isActive());
    EXPECT_EQ(drag->result(), VyDropEvent::IgnoreAction);
    EXPECT_EQ(log, (std::vector<std::string>{"cells:dragLeave"}));
    pointer(app(), 160, 40, 0);
    EXPECT_TRUE(cells->dropped.isEmpty());

    nowMs += 1000; // a new press, not the second half of a double click
    pointer(app(), 50, 50, VyMouseEvent::LeftButton);
    ASSERT_TRUE(drag->isActive());
    pointer(app(), 400, 200, VyMouseEvent::LeftButton);
    EXPECT_EQ(drag->target(), nullptr);
    pointer(app(), 400, 200, 0);
    EXPECT_FALSE(drag->isActive());
    EXPECT_EQ(drag->result(), VyDropEvent::IgnoreAction);
    EXPECT_TRUE(cells->dropped.isEmpty());
}
