// The start-up windows drawn through the memory framebuffer: the message box, the resolution
// dialog and the main-view window.
#include "runtime/VyFontMetrics.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/MainViewWindow.h"
#include "ui/MessageBox.h"
#include "ui/ResolutionConfirmDialog.h"
#include "ui/UiLook.h"
#include "ui/WindowShell.h"
#include "ui/WizardWindow.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr int kKeyOk = 0x1000002;
constexpr const char* kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

uint16_t opaque1555(vyargb c) {
    return uint16_t(0x8000 | ((c >> 19) & 0x1F) << 10 | ((c >> 11) & 0x1F) << 5 |
                    ((c >> 3) & 0x1F));
}

class StartupWindowsTest : public ::testing::Test {
protected:
    void SetUp() override {
        VyResources::setRoot(VY_RESOURCES_DIR);
        VyFontMetrics::setFontFile(kFont, 5242880);
        translation = new VyTranslation(VyString(VY_RESOURCES_DIR "/language"), nullptr);
        VyTranslation::resetInstance(translation);
        translation->changeLanguage(VyTranslation::kEnglish);
        VyApplication::setDisplayDevice("mem:640x360");
        app = std::make_unique<VyApplication>();
        // As start-up does: the controls follow the screen's scale.
        VyStyle::instance()->followScreen(app->screen());
        // The software cursor would cover a few pixels of what is checked.
        app->screen()->cursor()->hide();
    }
    void TearDown() override {
        app.reset();
        VyTranslation::resetInstance();
    }

    // Paints and flushes everything pending.
    void settle() {
        for (int i = 0; i < 5; ++i)
            app->processPostedEvents();
    }
    uint16_t pixel(int x, int y) const {
        VyScreen* s = app->screen();
        return reinterpret_cast<const uint16_t*>(s->mapping() + y * s->lineLength())[x];
    }
    int countPixels(const VyRect& r, uint16_t value) const {
        int n = 0;
        for (int y = r.top; y <= r.bottom; ++y)
            for (int x = r.left; x <= r.right; ++x)
                n += pixel(x, y) == value;
        return n;
    }

    std::unique_ptr<VyApplication> app;
    VyTranslation* translation = nullptr; // owned by the process slot
};

} // namespace

TEST_F(StartupWindowsTest, MessageBoxIsAModalFramedBoxWithTextUntilOk) {
    const UiLook& look = UiLook::instance();
    MessageBox* box = MessageBox::information(TextId::SystemNotice::ShuttingDown);
    settle();
    EXPECT_EQ(app->activeModalWidget(), box);

    const VyRect g = box->geometry();
    ASSERT_TRUE(VyRect(0, 0, 640, 360).contains(g))
        << g.left << "," << g.top << " " << g.width() << "x" << g.height();
    // Centred on the screen.
    EXPECT_EQ(g.left + g.width() / 2, 320 - (640 - g.width()) % 2);
    EXPECT_EQ(pixel(g.left, g.top + g.height() / 2), opaque1555(look.dialogBorder));
    EXPECT_EQ(pixel(g.right, g.bottom), opaque1555(look.dialogBorder));
    // The text row holds ink of the text colour over the dialog's background.
    const VyRect textRow(g.left + 10, g.top + 30, g.width() - 20, g.height() / 3);
    EXPECT_GT(countPixels(textRow, opaque1555(look.dialogBackground)), 0);
    EXPECT_GT(countPixels(textRow, opaque1555(look.textForeground)), 0);
    ASSERT_EQ(box->buttons().size(), 1u);
    VyPushButton* ok = box->buttons()[0];
    EXPECT_EQ(ok->text(), "OK");
    EXPECT_TRUE(ok->hasFocus());

    VyKeyEvent key(VyEvent::KeyPress, kKeyOk);
    VyApplication::sendEvent(ok, &key);
    // The button shows its press for a moment before the click lands; the box then deletes
    // itself.
    while (app->activeModalWidget() != nullptr)
        app->processOneEvent();
    settle();
    EXPECT_NE(pixel(g.left, g.top + g.height() / 2), opaque1555(look.dialogBorder));
}

TEST_F(StartupWindowsTest, ResolutionDialogKeepsOnOkAndRevertsWhenTheCountdownEnds) {
    {
        ResolutionConfirmDialog dialog("720p", false);
        ASSERT_EQ(dialog.buttons().size(), 2u);
        // The key is waiting in the queue when the nested loop starts.
        VyApplication::postEvent(dialog.buttons()[0],
                                 std::make_unique<VyKeyEvent>(VyEvent::KeyPress, kKeyOk));
        EXPECT_EQ(dialog.run(), ResolutionConfirmDialog::kKeep);
        EXPECT_GT(dialog.secondsLeft(), 0);
    }
    {
        ResolutionConfirmDialog dialog("1080p", false);
        VyApplication::postEvent(&dialog,
                                 std::make_unique<VyKeyEvent>(VyEvent::KeyPress, 0x1000000));
        EXPECT_EQ(dialog.run(), ResolutionConfirmDialog::kRevert); // Escape keeps nothing
    }
    {
        ResolutionConfirmDialog dialog("600p", false);
        dialog.setSecondMs(1);
        EXPECT_EQ(dialog.run(), ResolutionConfirmDialog::kRevert);
        EXPECT_EQ(dialog.secondsLeft(), 0);
        EXPECT_FALSE(dialog.isVisible());
    }
    EXPECT_EQ(app->activeModalWidget(), nullptr);
}

TEST_F(StartupWindowsTest, MainViewCoversTheScreenWithItsBackgroundUnderADialog) {
    WindowShell shell;
    shell.setTimeScale(0.001);
    shell.showMainView();
    settle();
    ASSERT_NE(shell.mainView(), nullptr);
    EXPECT_EQ(shell.mainView()->geometry(), VyRect(0, 0, 640, 360));
    // Without channels no cell shows video: every pixel keeps the overlay bit.
    int opaque = 0;
    for (int y = 0; y < 360; ++y)
        for (int x = 0; x < 640; ++x)
            opaque += (pixel(x, y) & 0x8000) != 0;
    EXPECT_EQ(opaque, 640 * 360);
    const uint16_t corner = pixel(0, 0);
    const uint16_t centre = pixel(320, 180);

    // Nobody answers: the new resolution is not kept.
    EXPECT_EQ(shell.confirmResolution(false, 1), 0);
    shell.showMessage(TextId::SystemNotice::ShuttingDown);
    settle();
    EXPECT_NE(pixel(320, 180), centre);
    EXPECT_EQ(pixel(0, 0), corner);
}

TEST_F(StartupWindowsTest, OpenDialogFetchesItsTextsAgainWhenTheLanguageChanges) {
    constexpr int kRussian = 15;
    ResolutionConfirmDialog dialog("720p", false);
    dialog.show();
    settle();
    EXPECT_EQ(dialog.title(), "Output Resolution");
    EXPECT_EQ(dialog.text(), "Keep the output resolution 720p? It is reverted in 15 s.");
    const VyRect g = dialog.geometry();
    const VyRect titleBar(g.left + 4, g.top + 4, g.width() / 2, 12);
    const uint16_t ink = opaque1555(UiLook::instance().titleForeground);
    const int englishInk = countPixels(titleBar, ink);

    ASSERT_TRUE(translation->changeLanguage(kRussian));
    EXPECT_EQ(dialog.title(), "Разрешение выхода");
    EXPECT_EQ(dialog.text(), "Сохранить разрешение выхода 720p? Оно будет возвращено через 15 с.");
    ASSERT_EQ(dialog.buttons().size(), 2u);
    EXPECT_EQ(dialog.buttons()[0]->text(), "Сохранить");
    EXPECT_EQ(dialog.buttons()[1]->text(), "Вернуть");
    settle();
    // Repainted without being reopened: the title bar now holds the Russian title.
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_NE(countPixels(titleBar, ink), englishInk);
    dialog.done(ResolutionConfirmDialog::kRevert);
}

TEST_F(StartupWindowsTest,
       ARepeatedNoticeKeepsOneBoxAndADialogDeletedBehindTheShellsBackIsNotDeletedAgain) {
    WindowShell shell;
    shell.showMessage(TextId::SystemNotice::ShuttingDown);
    shell.showMessage(TextId::SystemNotice::DeviceBusy);
    shell.showMessage(TextId::SystemNotice::DeviceBusy);
    settle();
    ASSERT_EQ(shell.openDialogCount(), 2);
    VyWidget* newest = app->activeModalWidget();
    ASSERT_NE(newest, nullptr);
    // Gone without a destroyed signal; closing the rest must skip it.
    newest->blockSignals(true);
    delete newest;
    EXPECT_EQ(shell.openDialogCount(), 1);
    shell.closeAll();
    EXPECT_EQ(shell.openDialogCount(), 0);
    EXPECT_EQ(app->activeModalWidget(), nullptr);
}

TEST_F(StartupWindowsTest, EachStartupDialogKeepsItsOwnDesignSize) {
    // Design sizes at 1920x1080 on this 640x360 screen (a third of each).
    ResolutionConfirmDialog resolution("720p", true);
    EXPECT_EQ(resolution.width(), 620 / 3);
    EXPECT_EQ(resolution.height(), 260 / 3);
    std::unique_ptr<WizardWindow> wizard(WizardWindow::open());
    EXPECT_EQ(wizard->width(), 1100 / 3);
    EXPECT_EQ(wizard->height(), 800 / 3);
    wizard->done(0);
}
