#include "platform/display/sdl/VySdlLibrary.h"

#include <dlfcn.h>

#include <initializer_list>

#include "runtime/VyLog.h"

namespace {

template <typename F>
bool resolve(void* library, const char* name, F* out) {
    *out = reinterpret_cast<F>(::dlsym(library, name));
    if (!*out)
        vyFrameworkLog("window display: %s missing from the SDL library !!!\n", name);
    return *out != nullptr;
}

bool load(VySdlLibrary* sdl) {
    void* library = nullptr;
    for (const char* name : {"libSDL2-2.0.so.0", "libSDL2.so"}) {
        library = ::dlopen(name, RTLD_NOW | RTLD_LOCAL);
        if (library)
            break;
    }
    if (!library) {
        vyFrameworkLog("window display: SDL can not be loaded (%s) !!!\n", ::dlerror());
        return false;
    }
    // Kept loaded for the life of the process: SDL's own threads may outlive the backend.
    bool ok = true;
#define VY_SDL_RESOLVE(f) ok = resolve(library, "SDL_" #f, &sdl->f) && ok
    VY_SDL_RESOLVE(InitSubSystem);
    VY_SDL_RESOLVE(QuitSubSystem);
    VY_SDL_RESOLVE(GetError);
    VY_SDL_RESOLVE(GetDisplayUsableBounds);
    VY_SDL_RESOLVE(CreateWindow);
    VY_SDL_RESOLVE(DestroyWindow);
    VY_SDL_RESOLVE(GetWindowSize);
    VY_SDL_RESOLVE(CreateRenderer);
    VY_SDL_RESOLVE(DestroyRenderer);
    VY_SDL_RESOLVE(CreateTexture);
    VY_SDL_RESOLVE(DestroyTexture);
    VY_SDL_RESOLVE(UpdateTexture);
    VY_SDL_RESOLVE(SetRenderDrawColor);
    VY_SDL_RESOLVE(RenderClear);
    VY_SDL_RESOLVE(RenderCopy);
    VY_SDL_RESOLVE(RenderPresent);
    VY_SDL_RESOLVE(ShowCursor);
    VY_SDL_RESOLVE(PollEvent);
    VY_SDL_RESOLVE(GetMouseState);
    VY_SDL_RESOLVE(GetKeyName);
    VY_SDL_RESOLVE(SetWindowTitle);
    VY_SDL_RESOLVE(GetTicks);
#undef VY_SDL_RESOLVE
    return ok;
}

} // namespace

const VySdlLibrary* VySdlLibrary::get() {
    static VySdlLibrary sdl{};
    static const bool loaded = load(&sdl);
    return loaded ? &sdl : nullptr;
}
