#pragma once
// A real OpenGL window for the GL tests, opened once per test binary and shared.
#include <GL/glew.h>
#include <array>
#include <cstdint>

namespace testsupport {

// Opens (once) an SDL OpenGL window of at least the given size and initialises GLEW.
// Returns false when no display or GL context can be had.
bool ensureGLWindow(int width = 640, int height = 480);

// RGBA of one pixel of the back buffer (or of the bound framebuffer object).
std::array<uint8_t, 4> readPixel(int x, int y);

}  // namespace testsupport
