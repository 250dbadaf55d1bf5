#include "toolkit/style/VyStyle.h"

#include <unistd.h>

#include "runtime/VyIniSettings.h"
#include "runtime/VyLog.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyScreen.h"

VyStyle::VyStyle(VyObject* parent)
    : VyObject(parent) {}

VyStyle::~VyStyle() = default;

VyStyle* VyStyle::instance() {
    // Never deleted: controls may still draw while the process ends.
    static VyStyle* style = new VyStyle;
    return style;
}

bool VyStyle::reload(float horizontalScale, float verticalScale) {
    return loadCommonStyle(VyResources::path(kCommonStyleFile), horizontalScale, verticalScale);
}

bool VyStyle::loadCommonStyle(const VyString& path, float horizontalScale, float verticalScale) {
    const VyIniSettings settings(path);
    apply(settings, horizontalScale, verticalScale);
    return settings.isOpened();
}

void VyStyle::followScreen(VyScreen* screen) {
    if (m_screen == screen)
        return;
    if (m_screen) {
        VyObject::disconnect(m_screen, &m_screen->geometryChanged, this,
                             VY_SLOT(VyStyle, onScreenGeometryChanged));
        VyObject::disconnect(m_screen, &m_screen->destroyed, this,
                             VY_SLOT(VyStyle, onScreenDestroyed));
    }
    m_screen = screen;
    if (!m_screen)
        return;
    VyObject::connect(m_screen, &m_screen->geometryChanged, this,
                      VY_SLOT(VyStyle, onScreenGeometryChanged));
    VyObject::connect(m_screen, &m_screen->destroyed, this, VY_SLOT(VyStyle, onScreenDestroyed));
    onScreenGeometryChanged();
}

void VyStyle::onScreenGeometryChanged() {
    if (m_screen)
        reload(m_screen->horizontalScale(), m_screen->verticalScale());
}

void VyStyle::onScreenDestroyed() {
    m_screen = nullptr;
}

VyBitmap VyStyle::image(const VyString& path) {
    // Keyed by the resolved file, so that a new resources root is not served old images.
    const VyString file = VyResources::path(path);
    auto it = m_images.find(file);
    if (it != m_images.end())
        return it->second;
    VyBitmap bitmap;
    if (::access(file.c_str(), F_OK) == 0)
        bitmap = VyBitmap::loadPng(file);
    // A device may ship without some images; the control then draws a shape in their place.
    // The miss is cached, so this is said once per path.
    if (bitmap.isNull())
        vyFrameworkLog("load image %s failed, a drawn shape stands in !!!\n", file.c_str());
    m_images.insert(file, bitmap);
    return bitmap;
}

VyBitmap VyStyle::imageForScale(const VyString& path, float horizontalScale) {
    if (horizontalScale > 1.0f && path.endsWith(".png")) {
        const VyString large = path.left(path.length() - 4) + "-max.png";
        // Only a shipped "-max" image is loaded; its absence is no error.
        if (m_images.find(VyResources::path(large)) != m_images.end() ||
            ::access(VyResources::path(large).c_str(), F_OK) == 0) {
            VyBitmap bitmap = image(large);
            if (!bitmap.isNull())
                return bitmap;
        }
    }
    return image(path);
}

int VyStyle::scaled(int designPixels) const {
    const int v = static_cast<int>(static_cast<float>(designPixels) * m_horizontalScale);
    return designPixels > 0 && v < 1 ? 1 : v;
}

int VyStyle::scaledHeight(int designPixels) const {
    const int v = static_cast<int>(static_cast<float>(designPixels) * m_verticalScale);
    return designPixels > 0 && v < 1 ? 1 : v;
}
