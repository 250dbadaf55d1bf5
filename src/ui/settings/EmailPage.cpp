#include "ui/settings/EmailPage.h"

#include "model/DeviceProfile.h"
#include "protocol/EmailBlock.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/UiLook.h"

namespace {

constexpr int kMaxPort = 65535;
constexpr int kMarginDesign = 24; // pixels at 1920x1080
constexpr int kButtonWidthDesign = 320;
constexpr int kRowHeightDesign = 44;

} // namespace

EmailPage::EmailPage(VyWidget* parent)
    : SettingsPage(TextId::Settings::Email, parent) {
    m_slot = blocks().declare<EmailBlock>();
    auto check = [&](uint32_t textId) {
        auto* b = new VyCheckBox(this);
        addRow(textId, b);
        watch(b, &b->toggled);
        return b;
    };
    auto edit = [&](uint32_t textId, size_t fieldSize, VyValidator::Kind kind) {
        auto* e = new VyLineEdit(this);
        e->setMaxLength(int(fieldSize) - 1);
        e->setValidator(kind);
        addRow(textId, e);
        watch(e, &e->textChanged);
        return e;
    };
    m_enabled = check(TextId::Settings::Enable);
    m_server = edit(TextId::Settings::SmtpServer, sizeof EmailBlock::server, VyValidator::None);
    m_port = new VySpinBox(this);
    m_port->setRange(1, kMaxPort);
    addRow(TextId::Settings::Port, m_port);
    watch(m_port, &m_port->valueChanged);
    m_ssl = check(TextId::Settings::Ssl);
    m_sender = edit(TextId::Settings::Sender, sizeof EmailBlock::sender, VyValidator::EmailAddress);
    m_receiver =
        edit(TextId::Settings::Receiver, sizeof EmailBlock::receiver, VyValidator::EmailAddress);
    m_user = edit(TextId::Settings::UserName, sizeof EmailBlock::user, VyValidator::None);
    m_password = edit(TextId::Settings::Password, sizeof EmailBlock::password, VyValidator::None);
    m_password->setEchoMode(VyLineEdit::Password);
    if (DeviceProfile::current().emailTestEnable) {
        m_test = new VyPushButton(VyTranslation::tr(TextId::Settings::Test), this);
        m_test->show();
        VyObject::connect(m_test, &m_test->clicked, this, VY_SLOT(EmailPage, sendTest));
    }
    m_result = new VyLabel(this);
    m_result->show();
}

void EmailPage::showValues() {
    const auto& b = blocks().editAs<EmailBlock>(m_slot);
    m_enabled->setChecked(b.enabled != 0);
    m_ssl->setChecked(b.ssl != 0);
    const struct {
        VyLineEdit* edit;
        const char* field;
        size_t size;
    } texts[] = {{m_server, b.server, sizeof b.server},
                 {m_sender, b.sender, sizeof b.sender},
                 {m_receiver, b.receiver, sizeof b.receiver},
                 {m_user, b.user, sizeof b.user},
                 {m_password, b.password, sizeof b.password}};
    for (const auto& t : texts) {
        const VyString text = fieldText(t.field, t.size);
        if (t.edit->text() != text)
            t.edit->setText(text);
    }
    showSpin(m_port, clampForDisplay(b.port, 1, kMaxPort, "SMTP port"));
    switch (b.testResult) {
    case EmailBlock::TestSent:
        m_result->setTextId(TextId::Settings::TestSent);
        break;
    case EmailBlock::TestFailed:
        m_result->setTextId(TextId::Settings::TestFailed);
        break;
    default:
        m_result->setText(VyString());
        break;
    }
}

void EmailPage::collectValues() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<EmailBlock>(m_slot);
    const auto& saved = blocks().savedAs<EmailBlock>(m_slot);
    b.enabled = m_enabled->isChecked() ? 1 : 0;
    b.ssl = m_ssl->isChecked() ? 1 : 0;
    b.port = uint16_t(fromControl(saved.port, 1, kMaxPort, m_port->value()));
    const struct {
        VyLineEdit* edit;
        char* field;
        const char* savedField;
        size_t size;
    } texts[] = {{m_server, b.server, saved.server, sizeof b.server},
                 {m_sender, b.sender, saved.sender, sizeof b.sender},
                 {m_receiver, b.receiver, saved.receiver, sizeof b.receiver},
                 {m_user, b.user, saved.user, sizeof b.user},
                 {m_password, b.password, saved.password, sizeof b.password}};
    for (const auto& t : texts) {
        // A text the user left alone keeps App's bytes, whatever follows its NUL.
        if (t.edit->text() == fieldText(t.savedField, t.size))
            std::memcpy(t.field, t.savedField, t.size);
        else
            storeText(t.field, t.size, t.edit->text());
    }
}

uint32_t EmailPage::invalidField() {
    for (VyLineEdit* e : {m_sender, m_receiver})
        if (!e->text().isEmpty() &&
            VyValidator::validate(VyValidator::EmailAddress, e->text().toUcs4()) !=
                VyValidator::Acceptable)
            return e == m_sender ? TextId::Settings::Sender : TextId::Settings::Receiver;
    return 0;
}

void EmailPage::sendTest() {
    if (!isOpened())
        return;
    collectValues();
    blocks().editAs<EmailBlock>(m_slot).testRequest = 1;
    if (apply() < 0)
        blocks().editAs<EmailBlock>(m_slot).testRequest = 0;
}

void EmailPage::resizeEvent(VyResizeEvent* e) {
    SettingsPage::resizeEvent(e);
    const int x = UiLook::scaledX(kMarginDesign), w = UiLook::scaledX(kButtonWidthDesign);
    const int h = UiLook::scaledY(kRowHeightDesign), y = rowsBottom();
    if (m_test != nullptr)
        m_test->setGeometry(x, y, w, h);
    m_result->setGeometry(x + w + x, y, width() - w - 3 * x, h);
}
