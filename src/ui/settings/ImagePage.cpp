#include "ui/settings/ImagePage.h"

#include "model/DeviceProfile.h"
#include "protocol/CameraBlock.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VySlider.h"

namespace {

constexpr uint32_t kTexts[4] = {TextId::Settings::Brightness, TextId::Settings::Contrast,
                                TextId::Settings::Saturation, TextId::Settings::Hue};

struct ImageFields {
    uint8_t* v[4];
    uint8_t& operator[](int i) { return *v[i]; }
};

ImageFields imageValues(CameraBlock& b) {
    return {{&b.brightness, &b.contrast, &b.saturation, &b.hue}};
}

} // namespace

ImagePage::ImagePage(VyWidget* parent)
    : ChannelPage(TextId::Settings::Image, TextId::Settings::Channel, CameraBlock::kBlockNumber,
                  CameraBlock::kSize, DeviceProfile::current().channelCount, parent) {
    for (int i = 0; i < 4; ++i) {
        m_sliders[i] = new VySlider(this);
        m_sliders[i]->setRange(0, 255);
        addRow(kTexts[i], m_sliders[i]);
        watch(m_sliders[i], &m_sliders[i]->valueChanged);
    }
}

void ImagePage::showItem(int index) {
    ImageFields v = imageValues(item<CameraBlock>(index));
    for (int i = 0; i < 4; ++i)
        if (m_sliders[i]->value() != v[i])
            m_sliders[i]->setValue(v[i]);
}

void ImagePage::collectItem(int index) {
    ImageFields v = imageValues(item<CameraBlock>(index));
    for (int i = 0; i < 4; ++i)
        v[i] = uint8_t(m_sliders[i]->value());
}

void ImagePage::restoreDefaults() {
    if (!isOpened())
        return;
    for (int i = 0; i < itemCount(); ++i) {
        ImageFields v = imageValues(item<CameraBlock>(i));
        for (int k = 0; k < 4; ++k)
            v[k] = CameraBlock::kDefaultImageValue;
    }
    showValues();
    markEdited();
}
