#include "support/GLTestSupport.h"

#include <SDL/SDL.h>
#include <cstdio>


namespace testsupport {

bool ensureGLWindow(int width, int height) {
    static bool opened = false;
    static bool ok = false;
    if (opened) return ok;
    opened = true;
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        std::fprintf(stderr, "SDL_Init: %s\n", SDL_GetError());
        return false;
    }
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    if (!SDL_SetVideoMode(width, height, 32, SDL_OPENGL)) {
        std::fprintf(stderr, "SDL_SetVideoMode: %s\n", SDL_GetError());
        return false;
    }
    if (glewInit() != GLEW_OK) return false;
    glReadBuffer(GL_BACK);
    ok = true;
    return ok;
}

std::array<uint8_t, 4> readPixel(int x, int y) {
    std::array<uint8_t, 4> rgba{};
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    return rgba;
}

}  // namespace testsupport
