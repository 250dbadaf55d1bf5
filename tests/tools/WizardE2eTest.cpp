// The start-up wizard against the simulated recorder: its steps in order, each step's page
// writing its blocks as the settings window's page would (the recorder's bytes), Skip and
// Back writing nothing, and "do not show again" reaching the start-up switch of block 21.
#include "SimUiFixture.h"

#include "protocol/CameraBlock.h"
#include "protocol/GeneralSettingsBlock.h"
#include "protocol/NetworkBlock.h"
#include "protocol/RecordParamBlock.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/WizardWindow.h"
#include "ui/settings/CameraPage.h"
#include "ui/settings/GeneralPage.h"
#include "ui/settings/NetworkPage.h"
#include "ui/settings/RecordParamPage.h"

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
    EXPECT_EQ(titles, (std::vector<uint32_t>{TextId::Settings::Language, TextId::Settings::Network,
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

    // Network: an edit skipped is not sent, and Back shows App's value again.
    auto* network = pageAs<NetworkPage>(wizard.data());
    ASSERT_NE(network, nullptr);
    const int port = network->httpPortBox()->value();
    network->httpPortBox()->setValue(8080);
    wizard->skip();
    EXPECT_EQ(wizard->stepIndex(), 2);
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
