#pragma once
// The one window every graphics test draws into: opened once through the engine's own
// window code, reset to a plain state before each test, read back pixel by pixel.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace gl {

using Rgb = std::array<int, 3>;

int width();
int height();
// RGB of one window pixel, or of the pixel holding the point (x, y) in device coordinates.
Rgb pixel(int x, int y);
Rgb pixelAt(float x, float y);
// The whole bound framebuffer, RGB, bottom row first.
std::vector<uint8_t> frame();
// Number of colour bytes that differ by more than the tolerance.
size_t differing(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b, int tolerance = 2);
::testing::AssertionResult near(const Rgb& got, const Rgb& want, int tolerance = 3);
GLint integer(GLenum name);
// Screen framebuffer, full viewport, identity matrices, nothing enabled, cleared to black.
void reset();
// An 8-bit RGBA PNG, rows top first.
bool writePNG(const std::string& path, int w, int h, const std::vector<uint8_t>& rgba);
std::vector<uint8_t> solid(int w, int h, Rgb colour);

}  // namespace gl

// Base of every graphics test: the shared window, reset, and clean of GL errors afterwards.
class GLTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
};
