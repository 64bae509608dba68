// The window, the projection each frame starts from and the loading bar, read back
// from GL and from the pixels drawn.
#include <gtest/gtest.h>

#include <GL/glew.h>
#include <SDL/SDL.h>
#include <cmath>

#include "demosys/ProgressBar.h"
#include "demosys/QLNDemosys.h"
#include "demosys/ScreenMetrics.h"
#include "support/GLTestSupport.h"

namespace {

class Screen : public ::testing::Test {
protected:
    void SetUp() override {
        // The shared test window opens first, so the other GL tests get the same window
        // whichever test runs first; opening again only sets the mode again.
        ASSERT_TRUE(testsupport::ensureGLWindow(640, 480));
        previousMetrics = QLNDemosys::screenMetrics;
        metrics.setResolution(640, 480);
        metrics.setFullscreen(false);
        ASSERT_TRUE(QLNDemosys::windowOpen(&metrics, "Screen test", nullptr)) << QLNDemosys::message;
    }
    void TearDown() override {
        QLNDemosys::screenMetrics = previousMetrics;
        glViewport(0, 0, 640, 480);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
    }

    ScreenMetrics metrics;
    ScreenMetrics* previousMetrics = nullptr;
};

struct Frustum {
    float halfWidth, halfHeight, nearPlane, farPlane;
};

// Undoes glFrustum on the projection matrix in force.
Frustum readFrustum() {
    float m[16];
    glGetFloatv(GL_PROJECTION_MATRIX, m);
    float a = m[10], b = m[14];
    float nearPlane = b / (a - 1.0f);
    float farPlane = b / (a + 1.0f);
    return {nearPlane / m[0], nearPlane / m[5], nearPlane, farPlane};
}

void expectViewport(int x, int y, int w, int h) {
    GLint viewport[4];
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[0], x);
    EXPECT_EQ(viewport[1], y);
    EXPECT_EQ(viewport[2], w);
    EXPECT_EQ(viewport[3], h);
}

}  // namespace

TEST_F(Screen, WindowGetsItsSizeCaptionAndOneShortViewport) {
    ASSERT_NE(QLNDemosys::screen, nullptr);
    EXPECT_EQ(QLNDemosys::screen, SDL_GetVideoSurface());
    EXPECT_EQ(QLNDemosys::screen->w, 640);
    EXPECT_EQ(QLNDemosys::screen->h, 480);
    EXPECT_TRUE(QLNDemosys::screen->flags & SDL_OPENGL);
    EXPECT_EQ(QLNDemosys::screenMetrics, &metrics);
    char* title = nullptr;
    char* icon = nullptr;
    SDL_WM_GetCaption(&title, &icon);
    ASSERT_NE(title, nullptr);
    EXPECT_STREQ(title, "Screen test");
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_DISABLE);

    metrics.initView();
    metrics.setView();
    expectViewport(0, 0, 639, 479);
    Frustum f = readFrustum();
    EXPECT_NEAR(f.halfWidth, 0.6667f, 1e-4);
    EXPECT_NEAR(f.halfHeight, 0.5f, 1e-5);
    EXPECT_NEAR(f.nearPlane, 1.0f, 1e-3);
    EXPECT_NEAR(f.farPlane, 6000.0f, 30.0f);
    GLint mode;
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    EXPECT_EQ(mode, GL_MODELVIEW);

    // The lower-left pixel is inside the view, the top row and right column are not.
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glColor3f(1, 1, 1);
    glRectf(-1, -1, 1, 1);
    EXPECT_EQ(testsupport::readPixel(0, 0)[0], 255);
    EXPECT_EQ(testsupport::readPixel(638, 478)[0], 255);
    EXPECT_EQ(testsupport::readPixel(639, 200)[0], 0);
    EXPECT_EQ(testsupport::readPixel(200, 479)[0], 0);
}

TEST_F(Screen, ResizeChangesOnlyTheProjection) {
    metrics.setNear(2.0f);
    metrics.setFar(100.0f);
    metrics.initView();
    metrics.resize(1000, 500);
    metrics.setView();
    expectViewport(0, 0, 999, 499);
    Frustum f = readFrustum();
    EXPECT_NEAR(f.halfWidth, 1.0f, 1e-4);
    EXPECT_NEAR(f.halfHeight, 0.5f, 1e-5);
    EXPECT_NEAR(f.nearPlane, 2.0f, 1e-3);
    EXPECT_NEAR(f.farPlane, 100.0f, 0.1f);
    EXPECT_EQ(metrics.getWidth(), 1000);
    EXPECT_EQ(metrics.getHeight(), 500);
    // The video mode is not touched.
    EXPECT_EQ(SDL_GetVideoSurface()->w, 640);
    EXPECT_EQ(SDL_GetVideoSurface()->h, 480);
}

namespace {

// An off-screen target: the bar swaps the window's buffers after drawing, which
// leaves nothing to read there, while a bound framebuffer object keeps the picture.
class OffscreenTarget {
public:
    OffscreenTarget(int width, int height) {
        glGenTextures(1, &texture);
        glBindTexture(GL_TEXTURE_2D, texture);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
        glBindTexture(GL_TEXTURE_2D, 0);
        glGenFramebuffersEXT(1, &framebuffer);
        glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, framebuffer);
        glFramebufferTexture2DEXT(GL_FRAMEBUFFER_EXT, GL_COLOR_ATTACHMENT0_EXT, GL_TEXTURE_2D, texture, 0);
        glViewport(0, 0, width, height);
    }
    ~OffscreenTarget() {
        glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
        glDeleteFramebuffersEXT(1, &framebuffer);
        glDeleteTextures(1, &texture);
    }
    bool complete() { return glCheckFramebufferStatusEXT(GL_FRAMEBUFFER_EXT) == GL_FRAMEBUFFER_COMPLETE_EXT; }

private:
    GLuint texture = 0;
    GLuint framebuffer = 0;
};

bool white(int x, int y) {
    auto p = testsupport::readPixel(x, y);
    return p[0] == 255 && p[1] == 255 && p[2] == 255;
}

bool black(int x, int y) {
    auto p = testsupport::readPixel(x, y);
    return p[0] == 0 && p[1] == 0 && p[2] == 0;
}

// Width in pixels of the fill along the bar's middle row, from where it starts.
int fillWidth(int row) {
    int x = 38;
    while (x < 640 && white(x, row)) ++x;
    return x - 38;
}

}  // namespace

TEST_F(Screen, ProgressBarShowsTheStepBeforeEachTick) {
    OffscreenTarget target(640, 480);
    ASSERT_TRUE(target.complete());
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();

    // Default geometry: 1.8 wide, 0.125 high, centred at y = -0.9, so the middle row is
    // pixel 24 and the fill starts at x = -0.885 (pixel 36.8) and is 1.77 wide at most.
    ProgressBar bar(4);
    const int row = 24;
    const float fullFill = 1.77f * 320.0f;
    float expected[] = {0.0f, 0.25f, 0.5f, 0.75f};
    for (float progress : expected) {
        bar.tick();
        EXPECT_TRUE(white(33, row)) << "frame, at progress " << progress;
        EXPECT_TRUE(black(36, row)) << "gap, at progress " << progress;
        EXPECT_TRUE(black(320, 100)) << "cleared above the bar";
        EXPECT_TRUE(white(320, 10)) << "frame bottom edge";
        EXPECT_NEAR(fillWidth(row) + 1.2f, progress * fullFill, 2.0f) << "at progress " << progress;
    }
    // Full: further ticks draw nothing, so what was there stays.
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    bar.tick();
    auto p = testsupport::readPixel(33, row);
    EXPECT_EQ(p[2], 255);
    EXPECT_EQ(p[0], 0);
}

TEST_F(Screen, ProgressBarWithOwnGeometryAndLaterTickCount) {
    OffscreenTarget target(200, 200);
    ASSERT_TRUE(target.complete());
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();

    // The loader's bar: 1.2 wide, 0.09 high, centred; two ticks of three show 0 and 1/3.
    ProgressBar bar(0.09f, 1.2f, 0.0f, 1);
    bar.setTicks(3);
    bar.tick();
    EXPECT_TRUE(white(100, 96));   // frame bottom edge, y = -0.045
    EXPECT_TRUE(black(100, 100));  // empty fill
    bar.tick();
    // Fill from x = -0.585 to -0.585 + 1.17 / 3 = -0.195: pixels 41.5 to 80.5.
    EXPECT_TRUE(white(45, 100));
    EXPECT_TRUE(white(78, 100));
    EXPECT_TRUE(black(84, 100));
    EXPECT_TRUE(black(100, 120));  // above the bar
}
