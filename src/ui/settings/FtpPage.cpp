#include "ui/settings/FtpPage.h"

#include "protocol/FtpBlock.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VySpinBox.h"

#include <cstring>

namespace {

constexpr int kMaxPort = 65535;

} // namespace

FtpPage::FtpPage(VyWidget* parent)
    : SettingsPage(TextId::Settings::Ftp, parent) {
    m_slot = blocks().declare<FtpBlock>();
    m_enabled = new VyCheckBox(this);
    addRow(TextId::Settings::Enable, m_enabled);
    watch(m_enabled, &m_enabled->toggled);
    auto edit = [&](uint32_t textId, size_t offset, size_t size) {
        auto* e = new VyLineEdit(this);
        e->setMaxLength(int(size) - 1);
        addRow(textId, e);
        watch(e, &e->textChanged);
        m_texts.push_back({e, offset, size});
        return e;
    };
    m_server = edit(TextId::Settings::Server, offsetof(FtpBlock, server), sizeof FtpBlock::server);
    m_port = new VySpinBox(this);
    m_port->setRange(1, kMaxPort);
    addRow(TextId::Settings::Port, m_port);
    watch(m_port, &m_port->valueChanged);
    edit(TextId::Settings::UserName, offsetof(FtpBlock, user), sizeof FtpBlock::user);
    VyLineEdit* password =
        edit(TextId::Settings::Password, offsetof(FtpBlock, password), sizeof FtpBlock::password);
    password->setEchoMode(VyLineEdit::Password);
    m_folder =
        edit(TextId::Settings::RemoteFolder, offsetof(FtpBlock, folder), sizeof FtpBlock::folder);
}

void FtpPage::showValues() {
    const auto& b = blocks().editAs<FtpBlock>(m_slot);
    const auto* bytes = reinterpret_cast<const char*>(&b);
    m_enabled->setChecked(b.enabled != 0);
    showSpin(m_port, clampForDisplay(b.port, 1, kMaxPort, "FTP port"));
    for (const TextField& t : m_texts) {
        const VyString text = fieldText(bytes + t.offset, t.size);
        if (t.edit->text() != text)
            t.edit->setText(text);
    }
}

void FtpPage::collectValues() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<FtpBlock>(m_slot);
    const auto& saved = blocks().savedAs<FtpBlock>(m_slot);
    auto* bytes = reinterpret_cast<char*>(&b);
    const auto* savedBytes = reinterpret_cast<const char*>(&saved);
    b.enabled = m_enabled->isChecked() ? 1 : 0;
    b.port = uint16_t(fromControl(saved.port, 1, kMaxPort, m_port->value()));
    for (const TextField& t : m_texts) {
        if (t.edit->text() == fieldText(savedBytes + t.offset, t.size))
            std::memcpy(bytes + t.offset, savedBytes + t.offset, t.size);
        else
            storeText(bytes + t.offset, t.size, t.edit->text());
    }
}
