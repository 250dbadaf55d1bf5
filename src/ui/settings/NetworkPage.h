#pragma once
// The wired network: DHCP or static addresses (each field checked as an IPv4 address while
// it is typed), DNS servers and the HTTP and server ports. Holds block 32.
#include "ui/settings/SettingsPage.h"

#include <cstdint>

class VyCheckBox;
class VyLineEdit;
class VySpinBox;

class NetworkPage : public SettingsPage {
    VY_OBJECT(NetworkPage, SettingsPage)
public:
    explicit NetworkPage(VyWidget* parent = nullptr);

    VyCheckBox* dhcpBox() const { return m_dhcp; }
    VyLineEdit* addressEdit() const { return m_address; }
    VyLineEdit* netmaskEdit() const { return m_netmask; }
    VyLineEdit* gatewayEdit() const { return m_gateway; }
    VyLineEdit* dns1Edit() const { return m_dns1; }
    VyLineEdit* dns2Edit() const { return m_dns2; }
    VySpinBox* httpPortBox() const { return m_http; }
    VySpinBox* serverPortBox() const { return m_server; }

    // "a.b.c.d" into four bytes; false (and nothing written) unless it is a whole address.
    static bool parseAddress(const VyString& text, uint8_t out[4]);
    static VyString addressText(const uint8_t address[4]);

    uint32_t invalidField() override;
    void restoreDefaults() override;

protected:
    void showValues() override;
    void collectValues() override;

private:
    void dhcpToggled();
    VyLineEdit* addressRow(uint32_t textId);

    int m_slot;
    VyCheckBox* m_dhcp;
    VyLineEdit* m_address;
    VyLineEdit* m_netmask;
    VyLineEdit* m_gateway;
    VyLineEdit* m_dns1;
    VyLineEdit* m_dns2;
    VySpinBox* m_http;
    VySpinBox* m_server;
};
