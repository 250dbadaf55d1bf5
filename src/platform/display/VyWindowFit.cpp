#include "platform/display/VyWindowFit.h"

#include <algorithm>
#include <cstdint>

VySize VyWindowFit::windowSize(VySize fb, VySize desktop) {
    if (fb.width <= 0 || fb.height <= 0 || desktop.width <= 0 || desktop.height <= 0)
        return fb;
    const int whole = std::min(desktop.width / fb.width, desktop.height / fb.height);
    if (whole >= 1)
        return VySize(fb.width * whole, fb.height * whole);
    const double scale =
        std::min(double(desktop.width) / fb.width, double(desktop.height) / fb.height);
    return VySize(std::max(1, int(fb.width * scale)), std::max(1, int(fb.height * scale)));
}

VyRect VyWindowFit::picture(VySize fb, VySize window) {
    if (fb.width <= 0 || fb.height <= 0 || window.width <= 0 || window.height <= 0)
        return VyRect(0, 0, fb.width, fb.height);
    int w;
    int h;
    const int whole = std::min(window.width / fb.width, window.height / fb.height);
    if (whole >= 1) {
        w = fb.width * whole;
        h = fb.height * whole;
    } else if (int64_t(window.width) * fb.height <= int64_t(window.height) * fb.width) {
        w = window.width;
        h = std::max(1, int(int64_t(fb.height) * window.width / fb.width));
    } else {
        h = window.height;
        w = std::max(1, int(int64_t(fb.width) * window.height / fb.height));
    }
    return VyRect((window.width - w) / 2, (window.height - h) / 2, w, h);
}

VyPoint VyWindowFit::toFramebuffer(VyPoint pos, VySize fb, VySize window) {
    const VyRect r = picture(fb, window);
    const int x = int(int64_t(pos.x - r.left) * fb.width / r.width());
    const int y = int(int64_t(pos.y - r.top) * fb.height / r.height());
    return VyPoint(std::clamp(x, 0, fb.width - 1), std::clamp(y, 0, fb.height - 1));
}
