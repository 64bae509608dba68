#pragma once
// Shared-window hygiene for the graphics tests: every test starts from the same plain state.
#include <GL/glew.h>
#include <SDL/SDL.h>

#include <array>
#include <cstdint>
#include <string>

#include "support/GLTestSupport.h"

namespace glstate {

// Colour without alpha: the window's back buffer may have no alpha channel.
using Rgb = std::array<int, 3>;

inline Rgb pixel(int x, int y) {
    std::array<uint8_t, 4> rgba = testsupport::readPixel(x, y);
    return Rgb{rgba[0], rgba[1], rgba[2]};
}

inline int windowWidth() { return SDL_GetVideoSurface() ? SDL_GetVideoSurface()->w : 0; }
inline int windowHeight() { return SDL_GetVideoSurface() ? SDL_GetVideoSurface()->h : 0; }

// Screen framebuffer, full viewport, identity matrices, nothing enabled, black and cleared.
inline void reset() {
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
    glUseProgram(0);
    for (GLenum unit : {GL_TEXTURE1, GL_TEXTURE0}) {
        glActiveTexture(unit);
        glBindTexture(GL_TEXTURE_1D, 0);
        glBindTexture(GL_TEXTURE_2D, 0);
        glDisable(GL_TEXTURE_1D);
        glDisable(GL_TEXTURE_2D);
    }
    for (GLenum cap : {GL_BLEND, GL_ALPHA_TEST, GL_DEPTH_TEST, GL_LIGHTING, GL_LIGHT0, GL_CULL_FACE})
        glDisable(cap);
    glViewport(0, 0, windowWidth(), windowHeight());
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glColor4f(1, 1, 1, 1);
    glClearColor(0, 0, 0, 0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    while (glGetError() != GL_NO_ERROR) {
    }
}

inline GLint integer(GLenum name) {
    GLint value = 0;
    glGetIntegerv(name, &value);
    return value;
}

inline std::array<GLint, 4> viewport() {
    std::array<GLint, 4> v{};
    glGetIntegerv(GL_VIEWPORT, v.data());
    return v;
}

// A solid axis-aligned rectangle in normalised device coordinates (identity matrices).
inline void fillRect(float x0, float y0, float x1, float y1) {
    glBegin(GL_QUADS);
    glVertex2f(x0, y0);
    glVertex2f(x1, y0);
    glVertex2f(x1, y1);
    glVertex2f(x0, y1);
    glEnd();
}

}  // namespace glstate

inline std::string str(const glstate::Rgb& c) {
    return "rgb(" + std::to_string(c[0]) + ", " + std::to_string(c[1]) + ", " + std::to_string(c[2]) + ")";
}

// A tolerance covers blending and filtering rounding.
inline bool near(const glstate::Rgb& a, const glstate::Rgb& b, int tolerance = 2) {
    for (int i = 0; i < 3; ++i)
        if (a[i] - b[i] > tolerance || b[i] - a[i] > tolerance) return false;
    return true;
}
