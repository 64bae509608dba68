// The full-screen fade drawn into a real window on a driven clock, read back before any swap.
#include <GL/glew.h>
#include <SDL/SDL.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "demosys/ActionPool.h"
#include "demosys/Data.h"
#include "demosys/DataTexturePool.h"
#include "demosys/DisplayTexture.h"
#include "demosys/FadeEffect.h"
#include "demosys/ParameterGroup.h"
#include "demosys/QLNDemosys.h"
#include "demosys/Texture.h"
#include "support/GLTestSupport.h"
#include "support/TestSupport.h"

namespace {

typedef std::array<uint8_t, 4> Pixel;

::testing::AssertionResult grey(const Pixel& p, int level, int tolerance = 3) {
    for (int i = 0; i < 3; ++i)
        if (std::abs(p[i] - level) > tolerance)
            return ::testing::AssertionFailure() << "pixel (" << int(p[0]) << "," << int(p[1]) << ","
                                                 << int(p[2]) << ") is not grey " << level;
    return ::testing::AssertionSuccess();
}

::testing::AssertionResult colour(const Pixel& p, int r, int g, int b, int tolerance = 3) {
    if (std::abs(p[0] - r) <= tolerance && std::abs(p[1] - g) <= tolerance && std::abs(p[2] - b) <= tolerance)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "pixel (" << int(p[0]) << "," << int(p[1]) << "," << int(p[2])
                                         << ") is not near (" << r << "," << g << "," << b << ")";
}

GLint integer(GLenum name) {
    GLint value = 0;
    glGetIntegerv(name, &value);
    return value;
}

}  // namespace

class FadeEffectTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(testsupport::ensureGLWindow());
        while (glGetError() != GL_NO_ERROR) {
        }
        width = SDL_GetVideoSurface()->w;
        height = SDL_GetVideoSurface()->h;
        FadeEffect prototype;
        fade.reset(prototype.getInstance());
        fade->setParameters(&params);
        fade->init();
        action.addEffect("fader", fade.get(), 90);
    }

    void TearDown() override { action.removeAll(); }

    void call(const std::string& method, std::initializer_list<const char*> args) {
        ParameterGroup group;
        int i = 1;
        for (const char* a : args) group.addParameter("p" + std::to_string(i++), a);
        fade->modify(method, &group);
    }

    // One frame at demo time t over a screen cleared to the given grey, under a perspective
    // projection that the fade must not depend on.
    void frame(unsigned int t, float background) {
        glViewport(0, 0, width, height);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glFrustum(-1, 1, -0.75, 0.75, 1, 100);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glTranslatef(0.3f, 0.2f, -5.0f);
        glClearColor(background, background, background, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        action.execute(t);
    }

    Pixel centre() { return testsupport::readPixel(width / 2, height / 2); }
    Pixel corner() { return testsupport::readPixel(width - 1, height - 1); }
    Pixel origin() { return testsupport::readPixel(0, 0); }

    int width = 0, height = 0;
    ParameterGroup params;
    ActionPool action;
    std::unique_ptr<Effect> fade;
};

TEST_F(FadeEffectTest, AFreshFadeLeavesTheScreenAsItWas) {
    frame(100, 0.6f);
    EXPECT_TRUE(grey(centre(), 153));
    EXPECT_TRUE(grey(corner(), 153));
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(FadeEffectTest, FadeToBlackDarkensByHalfAtHalfTimeAndTheBlackStays) {
    call("fade", {"00:01:000", "00:02:000", "0.0", "0.0", "0.0", "0.0", "0.0", "0.0", "0.0", "1.0"});
    frame(1000, 1.0f);
    EXPECT_TRUE(grey(centre(), 255));
    frame(1500, 1.0f);
    EXPECT_TRUE(grey(centre(), 128));
    EXPECT_TRUE(grey(corner(), 128));
    EXPECT_TRUE(grey(origin(), 128));
    frame(2000, 1.0f);
    EXPECT_TRUE(grey(centre(), 0));
    frame(9000, 1.0f);
    EXPECT_TRUE(grey(centre(), 0));
    EXPECT_TRUE(grey(corner(), 0));

    // reset ends nothing visible: the last colour stays on screen.
    fade->reset();
    frame(9100, 1.0f);
    EXPECT_TRUE(grey(centre(), 0));
}

TEST_F(FadeEffectTest, ColoursMoveChannelByChannel) {
    call("fade", {"00:00:000", "00:01:000", "1.0", "0.0", "0.0", "1.0", "0.0", "0.0", "1.0", "1.0"});
    frame(250, 0.0f);
    EXPECT_TRUE(colour(centre(), 191, 0, 64));
    frame(1000, 0.0f);
    EXPECT_TRUE(colour(centre(), 0, 0, 255));
}

TEST_F(FadeEffectTest, BeforeItsStartTheColourLiesBeyondTheFromColour) {
    call("fade", {"00:01:000", "00:02:000", "0.5", "0.5", "0.5", "0.5", "1.0", "1.0", "1.0", "1.0"});
    frame(500, 0.0f);  // t = -0.5: grey 0.25 at alpha 0.25 over black
    EXPECT_TRUE(grey(centre(), 16));
    frame(1000, 0.0f);
    EXPECT_TRUE(grey(centre(), 64));
}

TEST_F(FadeEffectTest, AMusicEventFlashesGreyAndFadesOutInHalfASecond) {
    call("fade", {"00:00:000", "00:00:500", "0.0", "0.0", "0.0", "1.0", "0.0", "0.0", "0.0", "1.0"});
    frame(400, 0.0f);
    EXPECT_TRUE(grey(centre(), 0));
    frame(1000, 0.0f);

    fade->musicEvent();  // replaces the running fade, from the last frame's time
    frame(1000, 0.0f);
    EXPECT_TRUE(grey(centre(), 143));  // 0.75 grey at 0.75 opacity over black
    EXPECT_TRUE(grey(corner(), 143));
    frame(1250, 0.0f);
    EXPECT_TRUE(grey(centre(), 36));
    frame(1500, 0.0f);
    EXPECT_TRUE(grey(centre(), 0));
    frame(1600, 0.6f);
    EXPECT_TRUE(grey(centre(), 153));
}

TEST_F(FadeEffectTest, UnknownMethodsAndMissingArgumentsChangeNothingVisibleOrBreakNothing) {
    call("fade", {"00:00:000", "00:01:000", "0.0", "0.0", "0.0", "0.0", "0.0", "0.0", "0.0", "0.5"});
    frame(1000, 1.0f);
    EXPECT_TRUE(grey(centre(), 128));
    call("flash", {"00:01:000", "00:02:000", "1.0", "1.0", "1.0", "1.0", "1.0", "1.0", "1.0", "1.0"});
    frame(1500, 1.0f);
    EXPECT_TRUE(grey(centre(), 128));

    // With nothing given the fade ends at once on a transparent colour.
    call("fade", {});
    frame(1600, 1.0f);
    EXPECT_TRUE(grey(centre(), 255));
    fade->modify("fade", nullptr);
    frame(1700, 0.5f);
    EXPECT_TRUE(grey(centre(), 128));
}

TEST_F(FadeEffectTest, LeavesTexturingBlendingAndMatricesAsItFoundThem) {
    GLint projectionDepth = integer(GL_PROJECTION_STACK_DEPTH);
    GLint modelviewDepth = integer(GL_MODELVIEW_STACK_DEPTH);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_ALPHA_TEST);
    frame(100, 0.0f);
    GLfloat modelview[16];
    glGetFloatv(GL_MODELVIEW_MATRIX, modelview);
    EXPECT_FLOAT_EQ(modelview[12], 0.3f);
    EXPECT_FLOAT_EQ(modelview[14], -5.0f);
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    EXPECT_FALSE(glIsEnabled(GL_ALPHA_TEST));
    EXPECT_FALSE(glIsEnabled(GL_COLOR_MATERIAL));
    EXPECT_EQ(integer(GL_MATRIX_MODE), GL_MODELVIEW);
    EXPECT_EQ(integer(GL_PROJECTION_STACK_DEPTH), projectionDepth);
    EXPECT_EQ(integer(GL_MODELVIEW_STACK_DEPTH), modelviewDepth);
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

// Both engine effects in one pool: the layer decides whether the fade covers the sprite.
TEST_F(FadeEffectTest, FadesWhatLowerLayersDrewAndIsCoveredByHigherOnes) {
    Data* data = new Data();
    DataTexturePool* textures = new DataTexturePool();
    data->addData("texturePool", textures);
    QLNDemosys::data = data;
    QLNDemosys::texturePool = textures;
    std::vector<unsigned char> red;
    for (int i = 0; i < 16; ++i) red.insert(red.end(), {255, 0, 0, 255});
    textures->addTexture("red", new Texture(4, 4, GL_RGBA, red.data()));

    ParameterGroup spriteParams;
    for (const auto& kv : std::initializer_list<std::pair<const char*, const char*>>{
             {"xpos", "0.0"}, {"ypos", "0.0"}, {"zpos", "0.0"}, {"xrot", "0.0"}, {"yrot", "0.0"},
             {"zrot", "0.0"}, {"texture", "red"}, {"xscale", "0.5"}, {"yscale", "0.5"}, {"alphablend", "0"}})
        spriteParams.addParameter(kv.first, kv.second);
    DisplayTexture prototype;
    std::unique_ptr<Effect> sprite(prototype.getInstance());
    sprite->setParameters(&spriteParams);
    sprite->init();

    call("fade", {"00:00:000", "00:01:000", "0.0", "0.0", "0.0", "0.0", "0.0", "0.0", "0.0", "1.0"});
    action.addEffect("sprite", sprite.get(), 10);
    glViewport(0, 0, width, height);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    action.execute(500);
    EXPECT_TRUE(colour(centre(), 128, 0, 0));

    action.removeAll();
    action.addEffect("fader", fade.get(), 5);
    action.addEffect("sprite", sprite.get(), 10);
    glClear(GL_COLOR_BUFFER_BIT);
    action.execute(500);
    EXPECT_TRUE(colour(centre(), 255, 0, 0));

    action.removeAll();
    sprite.reset();
    QLNDemosys::data = nullptr;
    QLNDemosys::texturePool = nullptr;
    testsupport::captureStdout([data] { delete data; });
}
