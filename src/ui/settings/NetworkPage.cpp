#include "ui/settings/NetworkPage.h"

#include "protocol/NetworkBlock.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VySpinBox.h"

#include <cstring>

namespace {

constexpr int kMaxPort = 65535;
constexpr uint16_t kDefaultServerPort = 6036;

} // namespace

NetworkPage::NetworkPage(VyWidget* parent)
    : SettingsPage(TextId::Settings::Network, parent) {
    m_slot = blocks().declare<NetworkBlock>();
    m_dhcp = new VyCheckBox(this);
    addRow(TextId::Settings::Dhcp, m_dhcp);
    watch(m_dhcp, &m_dhcp->toggled);
    VyObject::connect(m_dhcp, &m_dhcp->toggled, this, VY_SLOT(NetworkPage, dhcpToggled));
    m_address = addressRow(TextId::Settings::IpAddress);
    m_netmask = addressRow(TextId::Settings::SubnetMask);
    m_gateway = addressRow(TextId::Settings::Gateway);
    m_dns1 = addressRow(TextId::Settings::Dns1);
    m_dns2 = addressRow(TextId::Settings::Dns2);
    auto port = [&](uint32_t textId) {
        auto* box = new VySpinBox(this);
        box->setRange(NetworkBlock::kMinPort, kMaxPort);
        addRow(textId, box);
        watch(box, &box->valueChanged);
        return box;
    };
    m_http = port(TextId::Settings::HttpPort);
    m_server = port(TextId::Settings::ServerPort);
}

VyLineEdit* NetworkPage::addressRow(uint32_t textId) {
    auto* edit = new VyLineEdit(this);
    edit->setValidator(VyValidator::IPv4Address);
    edit->setMaxLength(15);
    addRow(textId, edit);
    watch(edit, &edit->textChanged);
    return edit;
}

bool NetworkPage::parseAddress(const VyString& text, uint8_t out[4]) {
    const std::string& s = text.toStdString();
    uint8_t bytes[4];
    size_t pos = 0;
    for (int i = 0; i < 4; ++i) {
        size_t end = pos;
        int value = 0;
        while (end < s.size() && s[end] >= '0' && s[end] <= '9' && end - pos < 3)
            value = value * 10 + (s[end++] - '0');
        if (end == pos || value > 255)
            return false;
        bytes[i] = uint8_t(value);
        if (i < 3) {
            if (end >= s.size() || s[end] != '.')
                return false;
            ++end;
        } else if (end != s.size()) {
            return false;
        }
        pos = end;
    }
    std::memcpy(out, bytes, 4);
    return true;
}

VyString NetworkPage::addressText(const uint8_t a[4]) {
    return VyString::number(a[0]) + "." + VyString::number(a[1]) + "." + VyString::number(a[2]) +
           "." + VyString::number(a[3]);
}

void NetworkPage::dhcpToggled() {
    const bool fixed = !m_dhcp->isChecked();
    for (VyLineEdit* e : {m_address, m_netmask, m_gateway})
        e->setReadOnly(!fixed);
}

void NetworkPage::showValues() {
    const auto& b = blocks().editAs<NetworkBlock>(m_slot);
    m_dhcp->setChecked(b.dhcp != 0);
    dhcpToggled();
    const struct {
        VyLineEdit* edit;
        const uint8_t* bytes;
    } fields[] = {{m_address, b.address},
                  {m_netmask, b.netmask},
                  {m_gateway, b.gateway},
                  {m_dns1, b.dns1},
                  {m_dns2, b.dns2}};
    for (const auto& f : fields) {
        const VyString text = addressText(f.bytes);
        if (f.edit->text() != text)
            f.edit->setText(text);
    }
    showSpin(m_http, clampForDisplay(b.httpPort, NetworkBlock::kMinPort, kMaxPort, "HTTP port"));
    showSpin(m_server,
             clampForDisplay(b.serverPort, NetworkBlock::kMinPort, kMaxPort, "server port"));
}

void NetworkPage::collectValues() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<NetworkBlock>(m_slot);
    const auto& saved = blocks().savedAs<NetworkBlock>(m_slot);
    b.dhcp = m_dhcp->isChecked() ? 1 : 0;
    // A field that is not a whole address yet leaves the block as it was; invalidField()
    // keeps Apply from sending it.
    parseAddress(m_address->text(), b.address);
    parseAddress(m_netmask->text(), b.netmask);
    parseAddress(m_gateway->text(), b.gateway);
    parseAddress(m_dns1->text(), b.dns1);
    parseAddress(m_dns2->text(), b.dns2);
    b.httpPort =
        uint16_t(fromControl(saved.httpPort, NetworkBlock::kMinPort, kMaxPort, m_http->value()));
    b.serverPort = uint16_t(
        fromControl(saved.serverPort, NetworkBlock::kMinPort, kMaxPort, m_server->value()));
}

uint32_t NetworkPage::invalidField() {
    uint8_t scratch[4];
    const struct {
        VyLineEdit* edit;
        uint32_t textId;
    } fields[] = {{m_address, TextId::Settings::IpAddress},
                  {m_netmask, TextId::Settings::SubnetMask},
                  {m_gateway, TextId::Settings::Gateway},
                  {m_dns1, TextId::Settings::Dns1},
                  {m_dns2, TextId::Settings::Dns2}};
    for (const auto& f : fields)
        if (!parseAddress(f.edit->text(), scratch))
            return f.textId;
    if (!m_dhcp->isChecked()) {
        parseAddress(m_address->text(), scratch);
        if (scratch[0] == 0 || scratch[0] >= 224)
            return TextId::Settings::IpAddress;
        uint8_t m[4];
        parseAddress(m_netmask->text(), m);
        const uint32_t mask =
            uint32_t(m[0]) << 24 | uint32_t(m[1]) << 16 | uint32_t(m[2]) << 8 | m[3];
        if (mask == 0 || (~mask & (~mask + 1)) != 0)
            return TextId::Settings::SubnetMask;
    }
    for (VySpinBox* port : {m_http, m_server})
        if (port->value() < NetworkBlock::kFirstUserPort &&
            port->value() != NetworkBlock::kHttpDefaultPort)
            return port == m_http ? TextId::Settings::HttpPort : TextId::Settings::ServerPort;
    if (m_http->value() == m_server->value())
        return TextId::Settings::ServerPort;
    return 0;
}

void NetworkPage::restoreDefaults() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<NetworkBlock>(m_slot);
    b.dhcp = 1;
    b.httpPort = NetworkBlock::kHttpDefaultPort;
    b.serverPort = kDefaultServerPort;
    showValues();
    markEdited();
}
