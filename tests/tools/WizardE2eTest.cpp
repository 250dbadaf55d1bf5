// The start-up wizard against the simulated recorder: its steps in order, each step's page
// writing its blocks as the settings window's page would (the recorder's bytes), Skip and
// Back writing nothing, "do not show again" reaching the start-up switch of block 21, and the
// administrator password and clock steps reaching the recorder's account and clock.
#include "SimUiFixture.h"

#include "model/UserAccess.h"
#include "protocol/CameraBlock.h"
#include "protocol/DateTimeBlock.h"
#include "protocol/GeneralSettingsBlock.h"
#include "protocol/NetworkBlock.h"
#include "protocol/RecordParamBlock.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/WizardWindow.h"
#include "ui/settings/CameraPage.h"
#include "ui/settings/DateTimePage.h"
#include "ui/settings/GeneralPage.h"
#include "ui/settings/NetworkPage.h"
#include "ui/settings/RecordParamPage.h"
#include "ui/users/AdminPasswordPage.h"

namespace {

class WizardE2e : public SimUiFixture {
protected:
    template <typename Page>
    Page* pageAs(WizardWindow* w) {
        return dynamic_cast<Page*>(w->page());
    }
};

TEST_F(WizardE2e, WalksItsStepsAndEachStepWritesOnlyWhatItsPageChanged) {
    recorder->store().setByte(GeneralSettingsBlock::kBlockNumber, 10, 1);
    VyPointer<WizardWindow> wizard(WizardWindow::open());
    ASSERT_TRUE(wizard);
    std::vector<uint32_t> titles;
    titles.reserve(size_t(wizard->stepCount()));
    for (int i = 0; i < wizard->stepCount(); ++i)
        titles.push_back(wizard->step(i).titleId);
    EXPECT_EQ(titles,
              (std::vector<uint32_t>{TextId::Settings::Language, TextId::User::AdminPassword,
                                     TextId::Settings::DateTime, TextId::Settings::Network,
                                     TextId::Settings::Storage, TextId::Settings::Camera,
                                     TextId::Settings::Record}));
    EXPECT_FALSE(wizard->doNotShowBox()->isChecked());
    EXPECT_FALSE(wizard->backButton()->isEnabled());

    // Language step: the general page; Next sends its block with the one field changed.
    auto* general = pageAs<GeneralPage>(wizard.data());
    ASSERT_NE(general, nullptr);
    ASSERT_TRUE(general->isOpened());
    shot("wizard-language.png");
    GeneralSettingsBlock expected;
    std::memcpy(&expected, general->blocks().block(0).saved.data(), sizeof expected);
    const int timeout = general->menuTimeoutBox()->value() == 5 ? 10 : 5;
    general->menuTimeoutBox()->setValue(timeout);
    expected.menuTimeout = uint8_t(timeout);
    ASSERT_TRUE(wizard->next());
    ASSERT_TRUE(runUntil([&] {
        const auto got = stored<GeneralSettingsBlock>();
        return std::memcmp(&got, &expected, sizeof got) == 0;
    }));
    wizard->skip(); // administrator password
    wizard->skip(); // clock

    // Network: an edit skipped is not sent, and Back shows App's value again.
    auto* network = pageAs<NetworkPage>(wizard.data());
    ASSERT_NE(network, nullptr);
    const int port = network->httpPortBox()->value();
    network->httpPortBox()->setValue(8080);
    wizard->skip();
    EXPECT_EQ(wizard->stepIndex(), 4);
    wizard->back();
    network = pageAs<NetworkPage>(wizard.data());
    ASSERT_NE(network, nullptr);
    EXPECT_EQ(network->httpPortBox()->value(), port);
    EXPECT_EQ(stored<NetworkBlock>().httpPort, port);
    network->httpPortBox()->setValue(8081);
    ASSERT_TRUE(wizard->next());
    ASSERT_TRUE(runUntil([&] { return stored<NetworkBlock>().httpPort == 8081; }));

    wizard->skip(); // disks
    auto* camera = pageAs<CameraPage>(wizard.data());
    ASSERT_NE(camera, nullptr);
    camera->nameEdit()->setText("Gate");
    ASSERT_TRUE(wizard->next());
    ASSERT_TRUE(runUntil([&] { return std::string(stored<CameraBlock>(0).name) == "Gate"; }));

    // The last step finishes; "do not show again" switches the start-up wizard off without
    // undoing what the language step wrote into the same block.
    auto* record = pageAs<RecordParamPage>(wizard.data());
    ASSERT_NE(record, nullptr);
    shot("wizard-record.png");
    EXPECT_TRUE(wizard->finishButton()->isVisible());
    EXPECT_FALSE(wizard->nextButton()->isVisible());
    record->postRecordBox()->setValue(record->postRecordBox()->value() + 10);
    const int post = record->postRecordBox()->value();
    wizard->doNotShowBox()->setChecked(true);
    ASSERT_TRUE(wizard->finish());
    EXPECT_TRUE(runUntil([&] { return stored<RecordParamBlock>(0).postRecordSec == post; }));
    expected.wizardEnabled = 0;
    EXPECT_TRUE(runUntil([&] {
        const auto got = stored<GeneralSettingsBlock>();
        return std::memcmp(&got, &expected, sizeof got) == 0;
    }));
    EXPECT_TRUE(runUntil([&] { return wizard.isNull(); })); // deleted once closed
}

TEST_F(WizardE2e, PasswordAndClockStepsChangeTheAdministratorsPasswordAndTheZone) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    recorder->store().setByte(GeneralSettingsBlock::kBlockNumber, 10, 1);
    VyPointer<WizardWindow> wizard(WizardWindow::open());
    ASSERT_TRUE(wizard);
    wizard->skip(); // language
    auto* page = pageAs<AdminPasswordPage>(wizard.data());
    ASSERT_NE(page, nullptr);
    SimUsers::Account before, after;
    ASSERT_TRUE(users.account(SimUsers::kAdminName, &before));
    auto type = [&](const char* old, const char* fresh, const char* again) {
        page->oldPasswordEdit()->setText(old);
        page->newPasswordEdit()->setText(fresh);
        page->confirmEdit()->setText(again);
    };

    // Refused twice, the wizard staying on the step each time and the page saying why:
    // the new password typed differently (nothing sent), then the wrong password in use.
    type(SimUsers::kAdminPassword, "Wizard-pw-1", "Wizard-pw-2");
    EXPECT_FALSE(wizard->next());
    EXPECT_EQ(page->message().toStdString(), "The new passwords do not match.");
    type("not-it", "Wizard-pw-1", "Wizard-pw-1");
    EXPECT_FALSE(wizard->next());
    EXPECT_EQ(page->message().toStdString(), "The password is wrong.");
    EXPECT_TRUE(page->oldPasswordEdit()->text().isEmpty()); // emptied once sent
    ASSERT_TRUE(users.account(SimUsers::kAdminName, &after));
    EXPECT_EQ(after.hash, before.hash);

    type(SimUsers::kAdminPassword, "Wizard-pw-1", "Wizard-pw-1");
    shot("wizard-password.png");
    ASSERT_TRUE(wizard->next());
    ASSERT_TRUE(users.account(SimUsers::kAdminName, &after));
    EXPECT_NE(after.hash, before.hash);
    UserAccess* access = models->users();
    EXPECT_EQ(access->login(SimUsers::kAdminName, "Wizard-pw-1").outcome,
              UserAccess::Outcome::LoggedIn);
    EXPECT_EQ(access->login(SimUsers::kAdminName, SimUsers::kAdminPassword).outcome,
              UserAccess::Outcome::WrongPassword);

    // The clock step is the settings' own page: its zone reaches block 93.
    auto* clock = pageAs<DateTimePage>(wizard.data());
    ASSERT_NE(clock, nullptr);
    ASSERT_TRUE(clock->isOpened());
    const int zone = clock->timeZoneBox()->currentIndex() == 26 ? 27 : 26;
    clock->timeZoneBox()->setCurrentIndex(zone);
    shot("wizard-clock.png");
    ASSERT_TRUE(wizard->next());
    EXPECT_TRUE(runUntil([&] { return stored<DateTimeBlock>().timeZone == zone; }));
    EXPECT_NE(pageAs<NetworkPage>(wizard.data()), nullptr);
    wizard->reject();
    EXPECT_TRUE(runUntil([&] { return wizard.isNull(); })); // deleted once closed
    const std::string log =
        testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr();
    for (const char* secret : {"Wizard-pw-1", "Wizard-pw-2", "not-it"})
        EXPECT_EQ(log.find(secret), std::string::npos) << secret;
}

TEST_F(WizardE2e, ClosingWithTheBoxUntickedSwitchesTheWizardBackOn) {
    // Opened from the task bar on a recorder where it is off: the box shows it off.
    VyPointer<WizardWindow> wizard(WizardWindow::open());
    ASSERT_TRUE(wizard);
    EXPECT_TRUE(wizard->doNotShowBox()->isChecked());
    wizard->doNotShowBox()->setChecked(false);
    wizard->reject();
    EXPECT_TRUE(runUntil([&] { return stored<GeneralSettingsBlock>().wizardEnabled == 1; }));
    EXPECT_TRUE(runUntil([&] { return wizard.isNull(); })); // deleted once closed
}

} // namespace
