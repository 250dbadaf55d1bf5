#include "ui/settings/NetworkCameraPage.h"

#include "model/DeviceProfile.h"
#include "model/ParamAccess.h"
#include "protocol/NetworkCameraBlock.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyListWidget.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/UiLook.h"
#include "ui/settings/NetworkPage.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>

namespace {

constexpr int kMaxPort = 65535;
constexpr int kMarginDesign = 24; // pixels at 1920x1080
constexpr int kButtonWidthDesign = 200;
constexpr int kRowHeightDesign = 44;
constexpr int kListWidthDesign = 560;

} // namespace

NetworkCameraPage::NetworkCameraPage(VyWidget* parent)
    : ChannelPage(TextId::Settings::NetworkCameras, TextId::Settings::Channel,
                  NetworkCameraBlock::kBlockNumber, NetworkCameraBlock::kSize,
                  DeviceProfile::current().channelCount, parent) {
    m_enabled = new VyCheckBox(this);
    addRow(TextId::Settings::Enable, m_enabled);
    watch(m_enabled, &m_enabled->toggled);
    m_address = new VyLineEdit(this);
    addRow(TextId::Settings::IpAddress, m_address);
    watch(m_address, &m_address->textChanged);
    m_port = new VySpinBox(this);
    m_port->setRange(1, kMaxPort);
    addRow(TextId::Settings::Port, m_port);
    watch(m_port, &m_port->valueChanged);
    addTextRow(TextId::Settings::UserName, offsetof(NetworkCameraBlock, user),
               sizeof NetworkCameraBlock::user);
    addTextRow(TextId::Settings::Password, offsetof(NetworkCameraBlock, password),
               sizeof NetworkCameraBlock::password, true);
    m_model = new VyLabel(this);
    addRow(TextId::Settings::Model, m_model);
    m_search = new VyPushButton(VyTranslation::tr(TextId::Settings::SearchCameras), this);
    m_search->show();
    VyObject::connect(m_search, &m_search->clicked, this, VY_SLOT(NetworkCameraPage, search));
    m_add = new VyPushButton(VyTranslation::tr(TextId::Settings::AddCamera), this);
    m_add->show();
    VyObject::connect(m_add, &m_add->clicked, this, VY_SLOT(NetworkCameraPage, addClicked));
    m_found = new VyListWidget(this);
    m_found->show();
    m_message = new VyLabel(this);
    m_message->show();
}

void NetworkCameraPage::showItem(int index) {
    const auto& b = item<NetworkCameraBlock>(index);
    m_enabled->setChecked(b.enabled != 0);
    const VyString address =
        b.enabled || b.address[0] != 0 ? NetworkPage::addressText(b.address) : VyString();
    if (m_address->text() != address)
        m_address->setText(address);
    showSpin(m_port, clampForDisplay(b.port, 1, kMaxPort, "camera port"));
    showTexts(&b);
    m_model->setText(fieldText(b.model, sizeof b.model));
}

void NetworkCameraPage::collectItem(int index) {
    auto& b = item<NetworkCameraBlock>(index);
    const auto& saved = savedItem<NetworkCameraBlock>(index);
    b.enabled = m_enabled->isChecked() ? 1 : 0;
    uint8_t address[4];
    if (NetworkPage::parseAddress(m_address->text(), address))
        std::memcpy(b.address, address, 4);
    else if (m_address->text().isEmpty())
        std::memset(b.address, 0, 4);
    b.port = uint16_t(fromControl(saved.port, 1, kMaxPort, m_port->value()));
    collectTexts(&b, &saved);
}

uint32_t NetworkCameraPage::invalidField() {
    uint8_t address[4];
    const bool parsed = NetworkPage::parseAddress(m_address->text(), address);
    if (!parsed && !m_address->text().isEmpty())
        return TextId::Settings::IpAddress;
    if (m_enabled->isChecked() && (!parsed || address[0] == 0 || address[0] >= 224))
        return TextId::Settings::IpAddress;
    return 0;
}

void NetworkCameraPage::search() {
    if (!isOpened())
        return;
    VyPointer<NetworkCameraPage> self(this);
    CameraSearchBlock found = ParamAccess::get<CameraSearchBlock>();
    if (!self)
        return; // the page was closed while App searched
    m_results = found;
    const int count =
        clampForDisplay(m_results.count, 0, CameraSearchBlock::kMaxCameras, "cameras found");
    m_found->clear();
    for (int i = 0; i < count; ++i) {
        const CameraSearchBlock::Found& f = m_results.cameras[i];
        const std::string line = NetworkPage::addressText(f.address).toStdString() + ":" +
                                 std::to_string(f.port) + "  " +
                                 fieldText(f.model, sizeof f.model).toStdString();
        m_found->addItem(VyString(line));
        m_found->setItemData(i, i);
    }
    if (count > 0)
        m_found->setCurrentRow(0);
    m_message->setText(count == 0 ? VyTranslation::tr(TextId::Settings::NoCamerasFound)
                                  : VyString());
    VY_GUI_LOG("camera search found %d\n", count);
}

int NetworkCameraPage::addChosen() {
    const int row = m_found->currentRow();
    if (!isOpened() || row < 0 || row >= m_found->count())
        return -1;
    const CameraSearchBlock::Found& f = m_results.cameras[size_t(m_found->itemData(row))];
    collectItem(shownItem());
    int target = -1;
    if (!item<NetworkCameraBlock>(shownItem()).enabled)
        target = shownItem();
    for (int i = 0; i < itemCount() && target < 0; ++i)
        if (!item<NetworkCameraBlock>(i).enabled)
            target = i;
    if (target < 0) {
        m_message->setText(VyTranslation::tr(TextId::Settings::NoFreeChannel));
        return -1;
    }
    auto& b = item<NetworkCameraBlock>(target);
    b.enabled = 1;
    std::memcpy(b.address, f.address, 4);
    b.port = f.port;
    storeText(b.model, sizeof b.model, fieldText(f.model, sizeof f.model));
    VY_GUI_LOG("camera %s added to channel %d\n",
               NetworkPage::addressText(f.address).toStdString().c_str(), target + 1);
    if (target == shownItem())
        showValues();
    else
        selector()->setValue(target + 1); // shows it
    m_message->setText(VyTranslation::tr(TextId::Settings::CameraAdded).arg(target + 1));
    markEdited();
    return target;
}

void NetworkCameraPage::restoreDefaults() {
    m_results = CameraSearchBlock{};
    m_found->clear();
    m_message->setText(VyString());
}

void NetworkCameraPage::addClicked() {
    addChosen();
}

void NetworkCameraPage::resizeEvent(VyResizeEvent* e) {
    ChannelPage::resizeEvent(e);
    const int x = UiLook::scaledX(kMarginDesign), bw = UiLook::scaledX(kButtonWidthDesign);
    const int h = UiLook::scaledY(kRowHeightDesign);
    int y = rowsBottom();
    m_search->setGeometry(x, y, bw, h);
    m_add->setGeometry(x + bw + x, y, bw, h);
    m_message->setGeometry(x + 2 * (bw + x), y, std::max(0, width() - 2 * bw - 4 * x), h);
    y += h + UiLook::scaledY(kMarginDesign);
    m_found->setGeometry(x, y, UiLook::scaledX(kListWidthDesign),
                         std::max(0, height() - y - UiLook::scaledY(kMarginDesign)));
}
