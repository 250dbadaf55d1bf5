#include "platform/display/VyDisplayBackend.h"

#include "platform/display/VyDisplayDeviceName.h"
#include "platform/display/VyFbdevBackend.h"
#include "platform/display/VyMemoryBackend.h"
#include "runtime/VyLog.h"
#ifdef VY_HAVE_SDL
#include "platform/display/sdl/VySdlBackend.h"
#endif

std::unique_ptr<VyDisplayBackend> VyDisplayBackend::create(const VyString& device) {
    const VyDisplayDeviceName name = VyDisplayDeviceName::parse(device);
    switch (name.kind) {
    case VyDisplayDeviceName::Framebuffer: {
        auto fbdev = std::make_unique<VyFbdevBackend>(name.path);
        fbdev->setConsole(std::make_unique<VyConsole>());
        return fbdev;
    }
    case VyDisplayDeviceName::Memory:
        return std::make_unique<VyMemoryBackend>(name.width, name.height, name.path);
    case VyDisplayDeviceName::Window:
#ifdef VY_HAVE_SDL
        return std::make_unique<VySdlBackend>(name.width, name.height);
#else
        vyFrameworkLog("display (%s): this build has no window backend !!!\n", device.c_str());
        return nullptr;
#endif
    case VyDisplayDeviceName::Invalid:
        break;
    }
    vyFrameworkLog("display (%s): unknown device name !!!\n", device.c_str());
    return nullptr;
}
