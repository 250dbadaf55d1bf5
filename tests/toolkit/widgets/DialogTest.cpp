#include "ControlTestApp.h"

#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/widgets/VyInputDialog.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyMessageBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VyTitleBar.h"
#include "toolkit/widgets/WndTimeoutManager.h"

using Dialogs = ControlTest;

namespace {

VyPoint centreOf(VyWidget* w) {
    return w->mapToGlobal(VyPoint(w->width() / 2, w->height() / 2));
}

// Queues a click for the nested loop to deliver.
void queueClick(VyPoint p) {
    VyApplication::injectPointer(p.x, p.y, 1, 0);
    VyApplication::injectPointer(p.x, p.y, 0, 0);
}

} // namespace

TEST_F(Dialogs, MessageBoxAnswersTheClickedButtonFromItsNestedLoop) {
    VyWidget below;
    below.setGeometry(0, 0, 640, 480);
    below.show();
    VyMessageBox box(VyMessageBox::Question, "Format the disk?",
                     VyMessageBox::Yes | VyMessageBox::No | VyMessageBox::Cancel);
    ASSERT_EQ(box.buttons().size(), 3u);
    EXPECT_EQ(box.buttons()[0], box.button(VyMessageBox::Yes)); // Yes, No, Cancel
    EXPECT_EQ(box.buttons()[2], box.button(VyMessageBox::Cancel));
    EXPECT_EQ(box.escapeResult(), VyMessageBox::Cancel);
    box.show(); // laid out, to find the button
    const VyPoint no = centreOf(box.button(VyMessageBox::No));
    box.hide();
    queueClick(no);
    EXPECT_EQ(box.exec(), VyMessageBox::No);
    EXPECT_FALSE(box.isVisible());
    EXPECT_EQ(app()->activeModalWidget(), nullptr);
    // Escape answers the escape button; while open the box keeps the window below blocked.
    VyApplication::postEvent(
        &box, std::make_unique<VyKeyEvent>(VyEvent::KeyPress, VyKeyEvent::KeyEscape));
    EXPECT_EQ(box.exec(), VyMessageBox::Cancel);
    VyMessageBox info(VyMessageBox::Information, "Done", VyMessageBox::Ok);
    EXPECT_EQ(info.escapeResult(), VyMessageBox::Ok);
    info.show();
    EXPECT_TRUE(info.button(VyMessageBox::Ok)->hasFocus());
    EXPECT_TRUE(below.isBlockedByModal());
}

TEST_F(Dialogs, TitleBarDragsTheDialogOnScreenAndItsCloseButtonRejects) {
    VyWidget below;
    below.setGeometry(0, 0, 640, 480);
    below.show();
    VyMessageBox box(VyMessageBox::Warning, "Video loss on channel 3", VyMessageBox::Ok);
    box.show();
    app()->processPostedEvents();
    const VyRect start = box.geometry();
    const VyPoint grab = box.titleBar()->mapToGlobal(VyPoint(20, 10));
    press(grab.x, grab.y);
    pointer(grab.x + 30, grab.y + 40, 1);
    release(grab.x + 30, grab.y + 40);
    EXPECT_EQ(box.geometry().left, start.left + 30);
    EXPECT_EQ(box.geometry().top, start.top + 40);
    // Dragged far off: the title bar stays on the screen.
    const VyPoint grab2 = box.titleBar()->mapToGlobal(VyPoint(20, 10));
    press(grab2.x, grab2.y);
    pointer(grab2.x + 2000, grab2.y + 2000, 1);
    release(grab2.x + 2000, grab2.y + 2000);
    EXPECT_EQ(box.geometry().right, 639);
    EXPECT_LE(box.geometry().top + box.titleBar()->height(), 480);
    SignalCounter rejected(&box, &box.rejected);
    const VyRect close = box.titleBar()->closeButtonRect();
    const VyPoint c = box.titleBar()->mapToGlobal(VyPoint(close.left + 3, close.top + 3));
    click(c.x, c.y);
    EXPECT_FALSE(box.isVisible());
    EXPECT_EQ(box.result(), VyMessageBox::Ok);
    EXPECT_EQ(rejected.count, 1);
}

TEST_F(Dialogs, TheWindowTimeoutManagerClosesADialogWithItsEscapeResult) {
    VyMessageBox box(VyMessageBox::Question, "Reboot now?", VyMessageBox::Yes | VyMessageBox::No);
    WndTimeoutManager timeouts;
    timeouts.setEnabled(true);
    box.show();
    timeouts.onIdleTimeout();
    EXPECT_FALSE(box.isVisible());
    EXPECT_TRUE(box.isFinished());
    EXPECT_EQ(box.result(), VyMessageBox::No);
}

TEST_F(Dialogs, InputDialogReturnsTheTypedTextOnlyWhenAccepted) {
    VyInputDialog dialog;
    dialog.setTitle("Channel name");
    dialog.setLabelText("Name");
    dialog.setTextValue("Front door");
    dialog.lineEdit()->setKeyboardEnabled(false);
    VyApplication::postEvent(dialog.lineEdit(),
                             std::make_unique<VyKeyEvent>(VyEvent::KeyPress, '7', "7"));
    VyApplication::postEvent(dialog.lineEdit(),
                             std::make_unique<VyKeyEvent>(VyEvent::KeyPress, VyKeyEvent::KeyOk));
    EXPECT_EQ(dialog.exec(), VyDialog::Accepted);
    EXPECT_EQ(dialog.textValue(), "Front door7");
    dialog.show();
    queueClick(centreOf(dialog.cancelButton()));
    EXPECT_EQ(dialog.exec(), VyDialog::Rejected);
}

TEST_F(Dialogs, ADialogDeletedInsideItsOwnLoopEndsItRejected) {
    auto* box = new VyMessageBox(VyMessageBox::Warning, "Disk full", VyMessageBox::Ok);
    box->deleteLater(); // delivered by the nested loop
    EXPECT_EQ(box->exec(), VyDialog::Rejected);
    EXPECT_EQ(app()->activeModalWidget(), nullptr);
}
