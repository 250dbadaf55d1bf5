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
    auto it = m_images.find(path);
    if (it != m_images.end())
        return it->second;
    const VyString file = VyResources::path(path);
    VyBitmap bitmap;
    // A device may ship without some images; the control then draws without them.
    if (::access(file.c_str(), F_OK) == 0)
        bitmap = VyBitmap::loadPng(file);
    else
        VY_DEBUG("style", "image %s not found, drawn without it", file.c_str());
    m_images.insert(path, bitmap);
    return bitmap;
}
