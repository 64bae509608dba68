#include "support/GLHarness.h"

#include <SDL/SDL.h>
#include <png.h>

#include <cmath>
#include <cstdlib>
#include <cstring>

#include "demosys/QLNDemosys.h"
#include "demosys/ScreenMetrics.h"

namespace gl {

static bool open() {
    static ScreenMetrics metrics;
    static bool ok = [] {
        metrics.setResolution(640, 480);
        if (!QLNDemosys::windowOpen(&metrics, "tests", nullptr) || glewInit() != GLEW_OK) return false;
        metrics.initView();
        glReadBuffer(GL_BACK);
        return true;
    }();
    QLNDemosys::screenMetrics = &metrics;
    return ok;
}

int width() { return SDL_GetVideoSurface()->w; }
int height() { return SDL_GetVideoSurface()->h; }

Rgb pixel(int x, int y) {
    uint8_t rgba[4] = {};
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
    return Rgb{rgba[0], rgba[1], rgba[2]};
}

Rgb pixelAt(float x, float y) {
    return pixel(int(std::floor((x + 1.0f) * 0.5f * width())), int(std::floor((y + 1.0f) * 0.5f * height())));
}

std::vector<uint8_t> frame() {
    std::vector<uint8_t> bytes(size_t(width()) * height() * 3);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width(), height(), GL_RGB, GL_UNSIGNED_BYTE, bytes.data());
    return bytes;
}

size_t differing(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b, int tolerance) {
    if (a.size() != b.size()) return std::max(a.size(), b.size());
    size_t count = 0;
    for (size_t i = 0; i < a.size(); ++i) count += std::abs(int(a[i]) - int(b[i])) > tolerance;
    return count;
}

::testing::AssertionResult near(const Rgb& got, const Rgb& want, int tolerance) {
    for (int i = 0; i < 3; ++i)
        if (std::abs(got[i] - want[i]) > tolerance)
            return ::testing::AssertionFailure() << "pixel (" << got[0] << "," << got[1] << "," << got[2]
                                                 << ") is not near (" << want[0] << "," << want[1] << ","
                                                 << want[2] << ")";
    return ::testing::AssertionSuccess();
}

GLint integer(GLenum name) {
    GLint value = 0;
    glGetIntegerv(name, &value);
    return value;
}

void reset() {
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
    glUseProgram(0);
    for (GLenum unit : {GL_TEXTURE1, GL_TEXTURE0}) {
        glActiveTexture(unit);
        glBindTexture(GL_TEXTURE_2D, 0);
        glDisable(GL_TEXTURE_2D);
    }
    for (GLenum cap : {GL_BLEND, GL_ALPHA_TEST, GL_DEPTH_TEST, GL_LIGHTING, GL_LIGHT0, GL_CULL_FACE,
                       GL_COLOR_MATERIAL, GL_FOG})
        glDisable(cap);
    glViewport(0, 0, width(), height());
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

bool writePNG(const std::string& path, int w, int h, const std::vector<uint8_t>& rgba) {
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    image.width = w;
    image.height = h;
    image.format = PNG_FORMAT_RGBA;
    return png_image_write_to_file(&image, path.c_str(), 0, rgba.data(), 0, nullptr) != 0;
}

std::vector<uint8_t> solid(int w, int h, Rgb c) {
    std::vector<uint8_t> px;
    for (int i = 0; i < w * h; ++i) px.insert(px.end(), {uint8_t(c[0]), uint8_t(c[1]), uint8_t(c[2]), 255});
    return px;
}

}  // namespace gl

void GLTest::SetUp() {
    ASSERT_TRUE(gl::open()) << "no OpenGL window";
    gl::reset();
}

void GLTest::TearDown() { EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR)); }
