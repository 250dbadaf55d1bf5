#pragma once
// The SDL functions the window backend calls, looked up when a window display is first
// opened rather than linked: a recorder run headless or on a framebuffer then never maps SDL
// and the dozens of desktop libraries it pulls in (some 4 MB resident on a PC).
#include <SDL.h>

struct VySdlLibrary {
    // The library, loaded on the first call; null (and one log line) when it can not be.
    static const VySdlLibrary* get();

    decltype(&SDL_InitSubSystem) InitSubSystem;
    decltype(&SDL_QuitSubSystem) QuitSubSystem;
    decltype(&SDL_GetError) GetError;
    decltype(&SDL_GetDisplayUsableBounds) GetDisplayUsableBounds;
    decltype(&SDL_CreateWindow) CreateWindow;
    decltype(&SDL_DestroyWindow) DestroyWindow;
    decltype(&SDL_GetWindowSize) GetWindowSize;
    decltype(&SDL_CreateRenderer) CreateRenderer;
    decltype(&SDL_DestroyRenderer) DestroyRenderer;
    decltype(&SDL_CreateTexture) CreateTexture;
    decltype(&SDL_DestroyTexture) DestroyTexture;
    decltype(&SDL_UpdateTexture) UpdateTexture;
    decltype(&SDL_SetRenderDrawColor) SetRenderDrawColor;
    decltype(&SDL_RenderClear) RenderClear;
    decltype(&SDL_RenderCopy) RenderCopy;
    decltype(&SDL_RenderPresent) RenderPresent;
    decltype(&SDL_ShowCursor) ShowCursor;
    decltype(&SDL_PollEvent) PollEvent;
    decltype(&SDL_GetMouseState) GetMouseState;
    decltype(&SDL_GetKeyName) GetKeyName;
    decltype(&SDL_SetWindowTitle) SetWindowTitle;
    decltype(&SDL_GetTicks) GetTicks;
};
