#include "ui/settings/DdnsPage.h"

#include "protocol/DdnsBlock.h"
#include "protocol/FactorySettings.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyLineEdit.h"

#include <cstddef>

namespace {

constexpr uint32_t kStatusTexts[] = {TextId::Settings::DdnsOff, TextId::Settings::DdnsUpdating,
                                     TextId::Settings::DdnsRegistered,
                                     TextId::Settings::DdnsFailed};

} // namespace

DdnsPage::DdnsPage(VyWidget* parent)
    : SettingsPage(TextId::Settings::Ddns, parent) {
    m_slot = blocks().declare<DdnsBlock>();
    m_enabled = new VyCheckBox(this);
    addRow(TextId::Settings::Enable, m_enabled);
    watch(m_enabled, &m_enabled->toggled);
    m_provider = new VyComboBox(this);
    m_provider->addItem(VyTranslation::tr(TextId::Settings::ProviderBuiltIn), DdnsBlock::BuiltIn);
    m_provider->addItem(VyTranslation::tr(TextId::Settings::ProviderCustom), DdnsBlock::Custom);
    addRow(TextId::Settings::Provider, m_provider);
    watch(m_provider, &m_provider->currentIndexChanged);
    m_server =
        addTextRow(TextId::Settings::Server, offsetof(DdnsBlock, server), sizeof DdnsBlock::server);
    m_host =
        addTextRow(TextId::Settings::HostName, offsetof(DdnsBlock, host), sizeof DdnsBlock::host);
    m_user =
        addTextRow(TextId::Settings::UserName, offsetof(DdnsBlock, user), sizeof DdnsBlock::user);
    m_password = addTextRow(TextId::Settings::Password, offsetof(DdnsBlock, password),
                            sizeof DdnsBlock::password, true);
    m_status = new VyLabel(this);
    addRow(TextId::Settings::Status, m_status);
}

void DdnsPage::showValues() {
    const auto& b = blocks().editAs<DdnsBlock>(m_slot);
    m_enabled->setChecked(b.enabled != 0);
    m_provider->setCurrentIndex(
        clampForDisplay(b.provider, 0, DdnsBlock::ProviderCount - 1, "DDNS provider"));
    showTexts(&b);
    m_status->setTextId(kStatusTexts[clampForDisplay(b.status, DdnsBlock::StatusOff,
                                                     DdnsBlock::StatusFailed, "DDNS status")]);
}

void DdnsPage::collectValues() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<DdnsBlock>(m_slot);
    const auto& saved = blocks().savedAs<DdnsBlock>(m_slot);
    b.enabled = m_enabled->isChecked() ? 1 : 0;
    b.provider = uint8_t(
        fromControl(saved.provider, 0, DdnsBlock::ProviderCount - 1, m_provider->currentIndex()));
    collectTexts(&b, &saved);
}

void DdnsPage::restoreDefaults() {
    if (!isOpened())
        return;
    FactorySettings::setDdns(&blocks().editAs<DdnsBlock>(m_slot));
    showValues();
    markEdited();
}
