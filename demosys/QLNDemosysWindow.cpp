// Opening the OpenGL output through SDL, full screen or in a window.
#include <SDL/SDL.h>
#include <cstdlib>
#include <iostream>

#include "demosys/QLNDemosys.h"
#include "demosys/ScreenMetrics.h"

static bool openVideo(ScreenMetrics* metrics, bool windowed, const char* title, char* icon) {
    QLNDemosys::screenMetrics = metrics;
    // Where SDL 1.2 is provided on top of SDL2, its default scales the GL output
    // through an extra framebuffer; the viewport and read-backs assume the real one.
    // A value the user chose is left alone.
    setenv("SDL12COMPAT_OPENGL_SCALING", "0", 0);
    if (SDL_Init(SDL_INIT_VIDEO) == -1) {
        QLNDemosys::message = std::string("Failed to initialize SDL!\n") + SDL_GetError();
        return false;
    }
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_MULTISAMPLEBUFFERS, 1);
    SDL_GL_SetAttribute(SDL_GL_MULTISAMPLESAMPLES, 4);
    SDL_GL_SetAttribute(SDL_GL_SWAP_CONTROL, 1);
    Uint32 flags = windowed ? SDL_OPENGL : SDL_FULLSCREEN | SDL_OPENGL;
    QLNDemosys::screen = SDL_SetVideoMode(metrics->getWidth(), metrics->getHeight(), 32, flags);
    if (windowed) SDL_WM_SetCaption(title, icon);
    SDL_ShowCursor(SDL_DISABLE);
    if (QLNDemosys::screen == nullptr) {
        QLNDemosys::message = std::string("Failed to set screenmode!\n") + SDL_GetError();
        std::cout << QLNDemosys::message << std::endl;
        return false;
    }
    return true;
}

bool QLNDemosys::screenOpen(ScreenMetrics* metrics) {
    return openVideo(metrics, false, nullptr, nullptr);
}

bool QLNDemosys::windowOpen(ScreenMetrics* metrics, const char* title, char* icon) {
    return openVideo(metrics, true, title, icon);
}
