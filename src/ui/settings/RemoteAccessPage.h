#pragma once
// Remote access: the switch that registers the recorder with the remote-access server, the
// link state App reports, and the device ID as text and as a QR code to scan. Holds
// block 22.
#include "ui/settings/SettingsPage.h"

class QrCodeView;
class VyCheckBox;
class VyLabel;

class RemoteAccessPage : public SettingsPage {
    VY_OBJECT(RemoteAccessPage, SettingsPage)
public:
    explicit RemoteAccessPage(VyWidget* parent = nullptr);

    VyCheckBox* enabledBox() const { return m_enabled; }
    VyLabel* deviceIdLabel() const { return m_deviceId; }
    VyLabel* statusLabel() const { return m_status; }
    QrCodeView* qrCode() const { return m_qr; }

protected:
    void showValues() override;
    void collectValues() override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void showStatus();

    int m_slot;
    VyCheckBox* m_enabled;
    VyLabel* m_deviceId;
    VyLabel* m_status;
    QrCodeView* m_qr;
};
