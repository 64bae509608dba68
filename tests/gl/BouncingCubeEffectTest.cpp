// The test cube drawn into a real window in the demo's perspective.
#include <GL/glew.h>
#include <SDL/SDL.h>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

#include "demo/BouncingCubeEffect.h"
#include "demosys/ActionPool.h"
#include "gl/FrameBytes.h"
#include "gl/GLState.h"
#include "support/GLTestSupport.h"
#include "support/TestSupport.h"

using glstate::Rgb;
using testsupport::captureStdout;

class BouncingCubeEffectTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(testsupport::ensureGLWindow());
        glstate::reset();
        const std::string said = captureStdout([this] {
            BouncingCubeEffect prototype;
            cube.reset(prototype.getInstance());
        });
        EXPECT_EQ(said, "BouncingCubeEffect\nBouncingCubeEffect\n");
        cube->init();
        action.addEffect("cube", cube.get(), 50);
    }

    void TearDown() override {
        action.removeAll();
        captureStdout([this] { cube.reset(); });
        glCullFace(GL_BACK);
        glstate::reset();
    }

    void frame(unsigned int t) {
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glFrustum(-0.6667, 0.6667, -0.5, 0.5, 1.0, 100.0);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        action.execute(t);
    }

    std::unique_ptr<Effect> cube;
    ActionPool action;
};

TEST_F(BouncingCubeEffectTest, AWhiteCubeInFrontOfTheViewWhateverTheCulling) {
    glEnable(GL_CULL_FACE);
    glCullFace(GL_FRONT_AND_BACK);  // would hide every face if it were left on
    frame(0);
    const int w = glstate::windowWidth(), h = glstate::windowHeight();
    EXPECT_TRUE(near(glstate::pixel(w / 2, h / 2), Rgb{255, 255, 255})) << str(glstate::pixel(w / 2, h / 2));
    for (int x : {0, w - 1})
        for (int y : {0, h - 1}) EXPECT_TRUE(near(glstate::pixel(x, y), Rgb{0, 0, 0})) << x << "," << y;
    EXPECT_TRUE(glIsEnabled(GL_CULL_FACE));
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));

    // Time plays no part.
    const std::vector<uint8_t> first = framebytes::read(w, h);
    frame(12345);
    EXPECT_TRUE(framebytes::same(first, framebytes::read(w, h)));
}

TEST_F(BouncingCubeEffectTest, LeavesItsPlacementOnTheModelViewMatrix) {
    frame(0);
    GLfloat m[16];
    glGetFloatv(GL_MODELVIEW_MATRIX, m);
    const float c = std::cos(3.1415927f / 4);
    EXPECT_NEAR(m[0], c, 1e-6f);
    EXPECT_NEAR(m[8], c, 1e-6f);
    EXPECT_NEAR(m[12], 0.0f, 1e-6f);
    EXPECT_NEAR(m[14], -4.0f, 1e-6f);
    EXPECT_EQ(glstate::integer(GL_MODELVIEW_STACK_DEPTH), 1);

    // A second draw in the same frame builds on the first.
    cube->draw(0);
    glGetFloatv(GL_MODELVIEW_MATRIX, m);
    EXPECT_NEAR(m[12], -4.0f * c, 1e-5f);
    EXPECT_NEAR(m[14], -4.0f - 4.0f * c, 1e-5f);
    EXPECT_NEAR(m[0], 0.0f, 1e-6f);
}
