// The cube wall drawn through the running-effects set on a driven clock: a painter effect
// fills the source framebuffer first in every frame, the wall goes into a render target
// with depth, and colours and depths are read back from it.
#include <GL/glew.h>
#include <SDL/SDL.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "demo/CubeChaos.h"
#include "demosys/ActionPool.h"
#include "demosys/DataFBOPool.h"
#include "demosys/FrameBufferObject.h"
#include "demosys/GLHelpers.h"
#include "demosys/ParameterGroup.h"
#include "demosys/QLNDemosys.h"
#include "gl/FrameBytes.h"
#include "gl/GLState.h"
#include "support/GLTestSupport.h"
#include "support/TestSupport.h"

using glstate::Rgb;
using testsupport::captureStdout;

namespace {

// Paints the picture the cubes are made of: white, or red on the left and green on the
// right. Drawn with its own identity matrices into whatever target is bound.
class PictureEffect : public Effect {
public:
    bool halves = false;
    void draw(unsigned int) override {
        GLHelpers::pushIdentityMatrices();
        glDisable(GL_LIGHTING);
        glDisable(GL_DEPTH_TEST);
        glDisable(GL_TEXTURE_2D);
        glDisable(GL_CULL_FACE);
        glClearColor(1, 1, 1, 1);
        glClear(GL_COLOR_BUFFER_BIT);
        if (halves) {
            glColor3f(1, 0, 0);
            glstate::fillRect(-1, -1, 0, 1);
            glColor3f(0, 1, 0);
            glstate::fillRect(0, -1, 1, 1);
        }
        glColor3f(1, 1, 1);
        GLHelpers::popMatrices();
    }
};

// The view of the wall: x from -0.6 to 2.6 and y from -0.6 to 1.8 at 200 pixels per
// unit; z from 2 (depth 0) to -2 (depth 1).
const float kLeft = -0.6f, kRight = 2.6f, kBottom = -0.6f, kTop = 1.8f;
const int kWidth = 640, kHeight = 480;

int px(float x) { return int((x - kLeft) * 200.0f); }
int py(float y) { return int((y - kBottom) * 200.0f); }

// A cube of half-size 0.038 covers at least 7 pixels around its centre however it turns;
// its face there lies between 0.038 and 0.066 in front of the centre.
// A small margin covers the half pixel between the sampled point and the centre.
const float kNearest = 0.075f, kFarthest = 0.030f;
float depthOf(float z) { return (2.0f - z) / 4.0f; }

}  // namespace

class CubeChaosTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(testsupport::ensureGLWindow());
        glstate::reset();
        // The scene ambient and the material parts the effect leaves alone, at OpenGL's
        // defaults: the wall then gets 0.2 + 0.2 of ambient light.
        const GLfloat sceneAmbient[] = {0.2f, 0.2f, 0.2f, 1}, none[] = {0, 0, 0, 1};
        glLightModelfv(GL_LIGHT_MODEL_AMBIENT, sceneAmbient);
        glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, none);
        glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, none);
        fbos = new DataFBOPool();
        QLNDemosys::fboPool = fbos;
        source = new FrameBufferObject(64, 64, false, false);
        target = new FrameBufferObject(kWidth, kHeight, true, false);
        ASSERT_TRUE(source->isValid());
        ASSERT_TRUE(target->isValid());
        fbos->addFBO("picture", source);
        fbos->addFBO("target", target);

        painter.setRenderTarget(source);
        action.addEffect("painter", &painter, 10);
        CubeChaos prototype;
        cubes.reset(static_cast<CubeChaos*>(prototype.getInstance()));
        cubes->setParameters(&params);
        cubes->init();
        cubes->setRenderTarget(target);
        action.addEffect("cubes", cubes.get(), 50);
    }

    void TearDown() override {
        action.removeAll();
        cubes.reset();
        QLNDemosys::fboPool = nullptr;
        captureStdout([this] { delete fbos; });
        FrameBufferObject::fboStack.clear();
        // Light 0 and culling back to OpenGL's defaults for the tests that follow.
        const GLfloat ambient[] = {0, 0, 0, 1}, diffuse[] = {1, 1, 1, 1}, position[] = {0, 0, 1, 0};
        glLightfv(GL_LIGHT0, GL_AMBIENT, ambient);
        glLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse);
        glLightfv(GL_LIGHT0, GL_POSITION, position);
        glCullFace(GL_BACK);
        glstate::reset();
    }

    std::string call(const std::string& method, std::initializer_list<const char*> args) {
        ParameterGroup group;
        group.addParameter("p1", "00:00:000");
        int i = 2;
        for (const char* a : args) group.addParameter("p" + std::to_string(i++), a);
        return captureStdout([&] { cubes->modify(method, &group); });
    }

    // One frame at demo time t: the target cleared to grey, the orthographic view set.
    void frame(unsigned int t) {
        glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, target->getId());
        glViewport(0, 0, kWidth, kHeight);
        glClearColor(0.3f, 0.3f, 0.3f, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(kLeft, kRight, kBottom, kTop, -2, 2);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        action.execute(t);
    }

    Rgb colourAt(float x, float y) {
        glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, target->getId());
        Rgb c = glstate::pixel(px(x), py(y));
        glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
        return c;
    }

    float depthAt(float x, float y) {
        float depth = -1;
        glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, target->getId());
        glReadPixels(px(x), py(y), 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
        glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
        return depth;
    }

    std::vector<uint8_t> targetBytes() {
        glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, target->getId());
        std::vector<uint8_t> bytes = framebytes::read(kWidth, kHeight);
        glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
        return bytes;
    }

    static bool background(const Rgb& c) { return near(c, Rgb{77, 77, 77}); }

    DataFBOPool* fbos = nullptr;
    FrameBufferObject* source = nullptr;
    FrameBufferObject* target = nullptr;
    PictureEffect painter;
    ParameterGroup params;
    ActionPool action;
    std::unique_ptr<CubeChaos> cubes;
};

TEST_F(CubeChaosTest, DrawsNothingUntilItHasASourcePicture) {
    frame(0);
    for (float x : {0.0f, 1.0f, 2.0f})
        for (float y : {0.0f, 1.0f}) EXPECT_TRUE(background(colourAt(x, y))) << str(colourAt(x, y));
    // The painter before it left white as the clear colour; the wall sets black all the same.
    GLfloat clear[4];
    glGetFloatv(GL_COLOR_CLEAR_VALUE, clear);
    for (GLfloat c : clear) EXPECT_EQ(c, 0.0f);
    EXPECT_FALSE(glIsEnabled(GL_LIGHTING));

    // An unknown name, a missing name and a framebuffer that could not be completed all
    // leave it without a picture.
    EXPECT_EQ(call("setBuffer", {"nosuch"}), "FrameBufferObject::getFBO(nosuch) cannot find the requested VBO\n");
    frame(16);
    EXPECT_TRUE(background(colourAt(0, 0)));
    EXPECT_EQ(call("setBuffer", {}), "FrameBufferObject::getFBO() cannot find the requested VBO\n");
    frame(32);
    EXPECT_TRUE(background(colourAt(0, 0)));
    FrameBufferObject* broken = nullptr;
    captureStdout([&] { broken = new FrameBufferObject(0, 0, false, false); });
    fbos->addFBO("broken", broken);
    ASSERT_FALSE(broken->isValid());
    call("setBuffer", {"broken"});
    frame(48);
    EXPECT_TRUE(background(colourAt(0, 0)));
    QLNDemosys::fboPool = nullptr;
    call("setBuffer", {"picture"});
    frame(64);
    EXPECT_TRUE(background(colourAt(0, 0)));
    EXPECT_TRUE(FrameBufferObject::fboStack.empty());
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(CubeChaosTest, TheWallHasCountBRowsOfCountACubesUnderAYellowLight) {
    call("setBuffer", {"picture"});
    call("setPosition", {"0", "0", "0"});
    EXPECT_EQ(call("setCubeCount", {"10", "20"}), "");
    frame(0);
    // Rows run along x (20 of them), the cubes of a row along y (10).
    for (float x : {0.0f, 1.0f, 1.9f})
        for (float y : {0.0f, 0.5f, 0.9f}) {
            const Rgb c = colourAt(x, y);
            EXPECT_GT(c[0], 200) << "(" << x << ", " << y << ") " << str(c);
            EXPECT_GT(c[1], 200) << "(" << x << ", " << y << ") " << str(c);
            EXPECT_NEAR(c[2], 102, 6) << "blue gets only the ambient light: " << str(c);
        }
    for (float x : {-0.2f, 2.1f})
        EXPECT_TRUE(background(colourAt(x, 0.5f))) << x << " " << str(colourAt(x, 0.5f));
    for (float y : {-0.2f, 1.1f}) EXPECT_TRUE(background(colourAt(1.0f, y))) << y;

    // Moved by a scripted position.
    call("setPosition", {"0.5", "0.6", "0"});
    frame(16);
    EXPECT_TRUE(background(colourAt(0, 0)));
    EXPECT_FALSE(background(colourAt(0.5f, 0.6f)));
    EXPECT_FALSE(background(colourAt(2.4f, 1.5f)));
}

TEST_F(CubeChaosTest, EachCubeShowsItsCellOfThePictureAndTheSourceIsClearedAfterwards) {
    painter.halves = true;
    call("setBuffer", {"picture"});
    call("setPosition", {"0", "0", "0"});
    call("setCubeCount", {"10", "10"});
    frame(0);
    for (float y : {0.1f, 0.5f, 0.8f}) {
        const Rgb left = colourAt(0.1f, y);
        EXPECT_GT(left[0], 200) << str(left);
        EXPECT_LT(left[1], 30) << str(left);
        const Rgb right = colourAt(0.8f, y);
        EXPECT_GT(right[1], 200) << str(right);
        EXPECT_LT(right[0], 30) << str(right);
    }

    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, source->getId());
    const std::array<uint8_t, 4> cleared = testsupport::readPixel(10, 10);
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
    EXPECT_EQ(cleared, (std::array<uint8_t, 4>{0, 0, 0, 0}));
}

TEST_F(CubeChaosTest, TheWallWavesInDepthByItsIntensity) {
    call("setBuffer", {"picture"});
    call("setPosition", {"0", "0", "0"});
    call("setCubeCount", {"2", "1"});

    // At t = 0 the first cube sits at z = 0 and the second at sin(-0.1).
    frame(0);
    EXPECT_GE(depthAt(0, 0), depthOf(kNearest));
    EXPECT_LE(depthAt(0, 0), depthOf(kFarthest));
    EXPECT_GE(depthAt(0, 0.1f), depthOf(std::sin(-0.1f) + kNearest));
    EXPECT_LE(depthAt(0, 0.1f), depthOf(std::sin(-0.1f) + kFarthest));

    call("setIntensity", {"2"});
    frame(0);
    EXPECT_GE(depthAt(0, 0.1f), depthOf(2 * std::sin(-0.1f) + kNearest));
    EXPECT_LE(depthAt(0, 0.1f), depthOf(2 * std::sin(-0.1f) + kFarthest));

    call("setIntensity", {"0"});
    frame(0);
    EXPECT_GE(depthAt(0, 0.1f), depthOf(kNearest));
    EXPECT_LE(depthAt(0, 0.1f), depthOf(kFarthest));

    // 400 ms later the wave has moved the first cube to sin(1).
    call("setIntensity", {"1"});
    frame(400);
    EXPECT_GE(depthAt(0, 0), depthOf(std::sin(1.0f) + kNearest));
    EXPECT_LE(depthAt(0, 0), depthOf(std::sin(1.0f) + kFarthest));
}

TEST_F(CubeChaosTest, TheCubesSpinByFrameTimeFromTheNextFrameOn) {
    call("setBuffer", {"picture"});
    call("setPosition", {"0", "0", "0"});
    call("setCubeCount", {"3", "3"});
    cubes->setLastCalled(1000);
    frame(1000);
    const std::vector<uint8_t> still = targetBytes();
    frame(1000);
    EXPECT_TRUE(framebytes::same(still, targetBytes()));

    cubes->setLastCalled(500);
    frame(1000);  // half a second at 0.4 degrees per ms: 200 degrees more from the next frame
    EXPECT_TRUE(framebytes::same(still, targetBytes()));
    frame(1000);
    EXPECT_GT(framebytes::differing(still, targetBytes()), 1000u);

    cubes->reset();
    frame(1000);
    EXPECT_TRUE(framebytes::same(still, targetBytes()));

    cubes->setRotation(200.0f);
    frame(1000);
    const std::vector<uint8_t> turned = targetBytes();
    EXPECT_GT(framebytes::differing(still, turned), 1000u);
    cubes->reset();
    cubes->setRotationSpeed(0.0f);
    cubes->setLastCalled(500);
    frame(1000);
    frame(1000);
    EXPECT_TRUE(framebytes::same(still, targetBytes())) << "no spin at speed 0";
}

TEST_F(CubeChaosTest, LeavesTheLightOnForTheEffectsThatFollow) {
    call("setBuffer", {"picture"});
    call("setCubeCount", {"4", "4"});
    frame(0);
    EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
    EXPECT_TRUE(glIsEnabled(GL_LIGHT0));
    EXPECT_TRUE(glIsEnabled(GL_CULL_FACE));
    EXPECT_EQ(glstate::integer(GL_CULL_FACE_MODE), GL_BACK);
    EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_FALSE(glIsEnabled(GL_COLOR_MATERIAL));
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    EXPECT_EQ(glstate::integer(GL_MATRIX_MODE), GL_MODELVIEW);
    GLfloat light[4];
    glGetLightfv(GL_LIGHT0, GL_DIFFUSE, light);
    EXPECT_EQ(std::vector<GLfloat>(light, light + 4), (std::vector<GLfloat>{1, 1, 0, 1}));
    glGetLightfv(GL_LIGHT0, GL_AMBIENT, light);
    EXPECT_EQ(std::vector<GLfloat>(light, light + 4), (std::vector<GLfloat>{0.2f, 0.2f, 0.2f, 1}));
    glGetLightfv(GL_LIGHT0, GL_POSITION, light);
    EXPECT_EQ(std::vector<GLfloat>(light, light + 4), (std::vector<GLfloat>{0.5f, 0.5f, 10, 0}));
    EXPECT_TRUE(FrameBufferObject::fboStack.empty());
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(CubeChaosTest, ScriptedCallsWithMissingArgumentsDoNotFail) {
    params.addParameter("xpos", "0.5");
    params.addParameter("ypos", "0.6");
    params.addParameter("zpos", "0");
    cubes->init();
    call("setBuffer", {"picture"});
    call("setCubeCount", {"1", "1"});
    frame(0);
    EXPECT_FALSE(background(colourAt(0.5f, 0.6f))) << "the position comes from the script block";

    for (const char* method : {"setPosition", "setCubeCount", "setIntensity", "noSuchMethod"}) {
        EXPECT_EQ(call(method, {}), "") << method;
        ParameterGroup none;
        cubes->modify(method, nullptr);
        cubes->modify(method, &none);
    }
    frame(16);
    // No count means no cubes, and the picture is still cleared for the next frame.
    EXPECT_TRUE(background(colourAt(0, 0)));
    EXPECT_TRUE(background(colourAt(0.5f, 0.6f)));
    EXPECT_TRUE(FrameBufferObject::fboStack.empty());
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}
