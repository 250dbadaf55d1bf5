#include "ui/settings/QrCodeView.h"

#include "runtime/VyLog.h"
#include "toolkit/graphics/VyCanvas.h"

#include <qrencode.h>

namespace {

constexpr vyargb kDark = 0xFF000000;
constexpr vyargb kLight = 0xFFFFFFFF;

} // namespace

QrCodeView::QrCodeView(VyWidget* parent)
    : VyWidget(parent) {}

void QrCodeView::setText(const VyString& text) {
    if (text == m_text && (m_width > 0 || text.isEmpty()))
        return;
    m_text = text;
    m_width = 0;
    m_modules.clear();
    if (!text.isEmpty()) {
        // Version 0: the smallest symbol that holds the text; medium error correction.
        QRcode* code =
            QRcode_encodeString(text.toStdString().c_str(), 0, QR_ECLEVEL_M, QR_MODE_8, 1);
        if (code == nullptr) {
            VY_GUI_LOG("QR code of \"%s\" could not be made\n", text.toStdString().c_str());
        } else {
            m_width = code->width;
            m_modules.resize(size_t(m_width) * size_t(m_width));
            for (size_t i = 0; i < m_modules.size(); ++i)
                m_modules[i] = code->data[i] & 1; // bit 0: dark module
            QRcode_free(code);
        }
    }
    update();
}

bool QrCodeView::isDark(int x, int y) const {
    if (x < 0 || y < 0 || x >= m_width || y >= m_width)
        return false;
    return m_modules[size_t(y) * size_t(m_width) + size_t(x)] != 0;
}

void QrCodeView::paintEvent(VyPaintEvent*) {
    if (m_width == 0)
        return;
    VyCanvas* c = canvas();
    const int modules = m_width + 2 * kQuietModules;
    const int side = std::min(width(), height());
    const int scale = side / modules;
    if (scale < 1)
        return;
    const int x0 = (width() - modules * scale) / 2, y0 = (height() - modules * scale) / 2;
    c->fillRect(VyRect(x0, y0, modules * scale, modules * scale), kLight);
    for (int y = 0; y < m_width; ++y)
        for (int x = 0; x < m_width; ++x)
            if (isDark(x, y))
                c->fillRect(VyRect(x0 + (x + kQuietModules) * scale,
                                   y0 + (y + kQuietModules) * scale, scale, scale),
                            kDark);
}
