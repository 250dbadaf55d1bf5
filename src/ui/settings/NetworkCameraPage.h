#pragma once
// The network camera of each channel: on or off, its address, port and account; and adding
// cameras that a search of the local network found, each to the shown channel when that
// has none, else to the first channel without one. Holds block 95 per channel; a search
// reads block 96, which App answers with what it finds.
#include "ui/settings/ChannelPage.h"

#include "protocol/CameraSearchBlock.h"

class VyCheckBox;
class VyLabel;
class VyLineEdit;
class VyListWidget;
class VyPushButton;
class VySpinBox;

class NetworkCameraPage : public ChannelPage {
    VY_OBJECT(NetworkCameraPage, ChannelPage)
public:
    explicit NetworkCameraPage(VyWidget* parent = nullptr);

    VyCheckBox* enabledBox() const { return m_enabled; }
    VyLineEdit* addressEdit() const { return m_address; }
    VySpinBox* portBox() const { return m_port; }
    VyLabel* modelLabel() const { return m_model; }
    VyPushButton* searchButton() const { return m_search; }
    VyListWidget* foundList() const { return m_found; }
    VyPushButton* addButton() const { return m_add; }
    VyLabel* messageLabel() const { return m_message; }

    uint32_t invalidField() override;
    // Runs the search; the list shows what App found.
    void search();
    // Adds the chosen camera of the list; the channel it went to (0-based), or -1.
    int addChosen();
    // Empties the search form (the list found and its message). Cameras already added stay:
    // taking one off a channel is the user's explicit choice, never a side effect.
    void restoreDefaults() override;

protected:
    void showItem(int index) override;
    void collectItem(int index) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void addClicked();

    CameraSearchBlock m_results{};
    VyCheckBox* m_enabled;
    VyLineEdit* m_address;
    VySpinBox* m_port;
    VyLabel* m_model;
    VyPushButton* m_search;
    VyListWidget* m_found;
    VyPushButton* m_add;
    VyLabel* m_message;
};
