// The texture layer drawn into a real window: each frame goes through the action pool
// on a driven clock and the back buffer is read before any swap.
#include <GL/glew.h>
#include <SDL/SDL.h>
#include <gtest/gtest.h>
#include <png.h>

#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "demosys/ActionPool.h"
#include "demosys/Data.h"
#include "demosys/DataFBOPool.h"
#include "demosys/DataTexturePool.h"
#include "demosys/DisplayTexture.h"
#include "demosys/FrameBufferObject.h"
#include "demosys/ParameterGroup.h"
#include "demosys/QLNDemosys.h"
#include "demosys/ScreenMetrics.h"
#include "demosys/Texture.h"
#include "support/GLTestSupport.h"
#include "support/TestSupport.h"

using testsupport::captureStdout;
using testsupport::TempDir;

namespace {

typedef std::array<uint8_t, 4> Pixel;

::testing::AssertionResult colourNear(const Pixel& p, int r, int g, int b, int tolerance = 4) {
    if (std::abs(p[0] - r) <= tolerance && std::abs(p[1] - g) <= tolerance && std::abs(p[2] - b) <= tolerance)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "pixel (" << int(p[0]) << "," << int(p[1]) << "," << int(p[2])
                                         << ") is not near (" << r << "," << g << "," << b << ")";
}

const int kRed[3] = {255, 0, 0};
const int kGreen[3] = {0, 255, 0};
const int kBlue[3] = {0, 0, 255};
const int kWhite[3] = {255, 255, 255};
const int kBlack[3] = {0, 0, 0};

::testing::AssertionResult is(const Pixel& p, const int* rgb) { return colourNear(p, rgb[0], rgb[1], rgb[2]); }

// An RGBA PNG written with libpng; rows top first as in the file.
void writePNG(const std::string& path, int w, int h, const std::vector<uint8_t>& rgba) {
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    image.width = w;
    image.height = h;
    image.format = PNG_FORMAT_RGBA;
    ASSERT_TRUE(png_image_write_to_file(&image, path.c_str(), 0, rgba.data(), 0, nullptr)) << path;
}

// 64x64: red top left, green top right, blue bottom left, white bottom right.
std::vector<uint8_t> quadrantPixels() {
    std::vector<uint8_t> px;
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x) {
            const int* c = y < 32 ? (x < 32 ? kRed : kGreen) : (x < 32 ? kBlue : kWhite);
            px.insert(px.end(), {uint8_t(c[0]), uint8_t(c[1]), uint8_t(c[2]), 255});
        }
    return px;
}

std::vector<uint8_t> solidPixels(int n, const int* rgb) {
    std::vector<uint8_t> px;
    for (int i = 0; i < n * n; ++i) px.insert(px.end(), {uint8_t(rgb[0]), uint8_t(rgb[1]), uint8_t(rgb[2]), 255});
    return px;
}

GLint integer(GLenum name) {
    GLint value = 0;
    glGetIntegerv(name, &value);
    return value;
}

}  // namespace

class DisplayTextureTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(testsupport::ensureGLWindow());
        while (glGetError() != GL_NO_ERROR) {
        }
        width = SDL_GetVideoSurface()->w;
        height = SDL_GetVideoSurface()->h;

        data = new Data();
        textures = new DataTexturePool();
        fbos = new DataFBOPool();
        data->addData("texturePool", textures);
        data->addData("fboPool", fbos);
        QLNDemosys::data = data;
        QLNDemosys::texturePool = textures;
        QLNDemosys::fboPool = fbos;

        writePNG(dir.file("quads.png"), 64, 64, quadrantPixels());
        writePNG(dir.file("solid.png"), 8, 8, solidPixels(8, kWhite));
        for (const char* alias : {"quads", "solid"}) {
            Texture* texture = QLNDemosys::loadTexture(dir.file(std::string(alias) + ".png"), GL_TEXTURE_2D, false);
            ASSERT_NE(texture, nullptr) << alias;
            textures->addTexture(alias, texture);
        }
    }

    void TearDown() override {
        action.removeAll();
        effect.reset();
        QLNDemosys::data = nullptr;
        QLNDemosys::texturePool = nullptr;
        QLNDemosys::fboPool = nullptr;
        captureStdout([this] { delete data; });
    }

    // Made from the prototype and initialised as start-up does, then started on layer 50.
    void start(std::initializer_list<std::pair<const char*, const char*>> settings) {
        for (const auto& kv : settings) params.addParameter(kv.first, kv.second);
        DisplayTexture prototype;
        effect.reset(prototype.getInstance());
        effect->setParameters(&params);
        effect->init();
        action.addEffect("sprite", effect.get(), 50);
    }

    void startSprite(const char* texture, const char* scale, const char* blend = "0") {
        start({{"xpos", "0.0"}, {"ypos", "0.0"}, {"zpos", "0.0"}, {"xrot", "0.0"}, {"yrot", "0.0"},
               {"zrot", "0.0"}, {"texture", texture}, {"xscale", scale}, {"yscale", scale},
               {"alphablend", blend}});
    }

    // A scripted method call; arguments are p1, p2, ... in order.
    void call(const std::string& method, std::initializer_list<const char*> args) {
        ParameterGroup group;
        int i = 1;
        for (const char* a : args) group.addParameter("p" + std::to_string(i++), a);
        effect->modify(method, &group);
    }

    // One frame at demo time t, in normalised device coordinates over a black screen.
    void frame(unsigned int t) {
        glViewport(0, 0, width, height);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glClearColor(0, 0, 0, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        action.execute(t);
    }

    // Runs frames every 20 ms after `from` up to and including `to`.
    void frames(unsigned int from, unsigned int to) {
        for (unsigned int t = from + 20; t <= to; t += 20) frame(t);
    }

    Pixel at(float x, float y) {
        return testsupport::readPixel(int((x + 1) * 0.5f * width), int((y + 1) * 0.5f * height));
    }

    int width = 0, height = 0;
    TempDir dir;
    Data* data = nullptr;
    DataTexturePool* textures = nullptr;
    DataFBOPool* fbos = nullptr;
    ActionPool action;
    ParameterGroup params;
    std::unique_ptr<Effect> effect;
};

TEST_F(DisplayTextureTest, DrawsTheTextureUprightAtItsPositionAndScaleAndRestoresGLState) {
    start({{"xpos", "0.25"}, {"ypos", "0.0"}, {"zpos", "0.0"}, {"xrot", "0.0"}, {"yrot", "0.0"},
           {"zrot", "0.0"}, {"texture", "quads"}, {"xscale", "0.5"}, {"yscale", "0.5"}, {"alphablend", "0"}});
    GLint projectionDepth = integer(GL_PROJECTION_STACK_DEPTH);
    GLint modelviewDepth = integer(GL_MODELVIEW_STACK_DEPTH);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_BLEND);
    frame(1000);

    // Quad from x -0.25 to 0.75 and y -0.5 to 0.5, top of the image at the top.
    EXPECT_TRUE(is(at(0.0f, 0.25f), kRed));
    EXPECT_TRUE(is(at(0.5f, 0.25f), kGreen));
    EXPECT_TRUE(is(at(0.0f, -0.25f), kBlue));
    EXPECT_TRUE(is(at(0.5f, -0.25f), kWhite));
    EXPECT_TRUE(is(at(-0.5f, 0.0f), kBlack));
    EXPECT_TRUE(is(at(0.9f, 0.0f), kBlack));
    EXPECT_TRUE(is(at(0.25f, 0.7f), kBlack));

    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    EXPECT_FALSE(glIsEnabled(GL_ALPHA_TEST));
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    EXPECT_FALSE(glIsEnabled(GL_COLOR_MATERIAL));
    EXPECT_FALSE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_EQ(integer(GL_MATRIX_MODE), GL_MODELVIEW);
    EXPECT_EQ(integer(GL_PROJECTION_STACK_DEPTH), projectionDepth);
    EXPECT_EQ(integer(GL_MODELVIEW_STACK_DEPTH), modelviewDepth);
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), 0);
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));

    // Not scrolling: the texture edges are clamped.
    glBindTexture(GL_TEXTURE_2D, textures->getTextureIDbyAlias("quads"));
    GLint wrap = 0;
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, &wrap);
    glBindTexture(GL_TEXTURE_2D, 0);
    EXPECT_EQ(wrap, GL_CLAMP_TO_EDGE);
}

TEST_F(DisplayTextureTest, FadeUpRisesFromInvisibleToOpaqueAndHolds) {
    startSprite("solid", "0.5", "1");
    call("fadeUp", {"00:01:000", "00:02:000"});
    frame(500);  // alpha is negative before the start: nothing passes the alpha test
    EXPECT_TRUE(is(at(0, 0), kBlack));
    frame(1500);
    EXPECT_TRUE(colourNear(at(0, 0), 128, 128, 128));
    frame(2500);  // past the end: pinned at 1.0, which ends the fade
    EXPECT_TRUE(is(at(0, 0), kWhite));
    frame(4000);
    EXPECT_TRUE(is(at(0, 0), kWhite));

    // Once the fade has ended a transparency setting holds.
    call("setTransparency", {"00:04:000", "0.25"});
    frame(4100);
    EXPECT_TRUE(colourNear(at(0, 0), 64, 64, 64));
}

TEST_F(DisplayTextureTest, FadeUpWithoutBlendingDrawsTheQuadBeforeItsStart) {
    startSprite("solid", "0.5", "0");
    call("fadeUp", {"00:01:000", "00:02:000"});
    frame(500);
    EXPECT_TRUE(is(at(0, 0), kWhite));
    frame(1500);
    EXPECT_TRUE(is(at(0, 0), kWhite));
}

TEST_F(DisplayTextureTest, FadeDownSinksToNothingAndTransparencyIsOverwrittenWhileItRuns) {
    startSprite("solid", "0.5", "true");
    call("fadeDown", {"00:01:000", "00:02:000"});
    frame(1000);
    EXPECT_TRUE(is(at(0, 0), kWhite));
    call("setTransparency", {"00:01:000", "0.1"});
    frame(1500);
    EXPECT_TRUE(colourNear(at(0, 0), 128, 128, 128));
    frame(1750);
    EXPECT_TRUE(colourNear(at(0, 0), 64, 64, 64));
    frame(2000);
    EXPECT_TRUE(is(at(0, 0), kBlack));
    frame(3000);
    EXPECT_TRUE(is(at(0, 0), kBlack));
}

TEST_F(DisplayTextureTest, OnlyExactlyOneOrTrueTurnsBlendingOn) {
    const std::pair<const char*, bool> cases[] = {
        {"1", true}, {"true", true}, {"TRUE", false}, {"True", false}, {"yes", false}, {"0", false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.first);
        action.removeAll();
        params = ParameterGroup();
        startSprite("solid", "0.5", c.first);
        call("setTransparency", {"00:00:000", "0.5"});
        frame(100);
        if (c.second)
            EXPECT_TRUE(colourNear(at(0, 0), 128, 128, 128));
        else
            EXPECT_TRUE(is(at(0, 0), kWhite));
    }
}

TEST_F(DisplayTextureTest, MoveToGoesLinearlyAndSetPositionOnlyHoldsAfterItEnds) {
    startSprite("solid", "0.05");
    call("moveTo", {"00:01:000", "00:02:000", "0.5", "0.5", "0.0"});
    frame(1000);
    EXPECT_TRUE(is(at(0, 0), kWhite));
    frame(1500);
    EXPECT_TRUE(is(at(0, 0), kBlack));
    EXPECT_TRUE(is(at(0.25f, 0.25f), kWhite));

    call("setPosition", {"00:01:500", "-0.5", "-0.5", "0.0"});
    frame(1600);
    EXPECT_TRUE(is(at(-0.5f, -0.5f), kBlack));
    EXPECT_TRUE(is(at(0.3f, 0.3f), kWhite));

    frame(2000);
    EXPECT_TRUE(is(at(0.5f, 0.5f), kWhite));
    frame(2500);
    EXPECT_TRUE(is(at(0.5f, 0.5f), kWhite));

    call("setPosition", {"00:02:500", "-0.5", "-0.5", "0.0"});
    frame(2600);
    EXPECT_TRUE(is(at(-0.5f, -0.5f), kWhite));
    EXPECT_TRUE(is(at(0.5f, 0.5f), kBlack));
}

TEST_F(DisplayTextureTest, EasesFollowTheCosineCurveAndSurviveReset) {
    startSprite("solid", "0.04");
    call("setPosition", {"00:00:000", "-0.5", "0.0", "0.0"});
    call("easeIn", {"00:01:000", "00:02:000", "0.5", "0.0", "0.0"});
    frame(1500);
    // Half way in time the ease-in is past the linear midpoint: -0.5 + cos(pi/4).
    EXPECT_TRUE(is(at(0.2071f, 0), kWhite));
    EXPECT_TRUE(is(at(0, 0), kBlack));
    effect->reset();
    frame(2000);
    EXPECT_TRUE(is(at(0.5f, 0), kWhite));
    frame(3000);
    EXPECT_TRUE(is(at(0.5f, 0), kWhite));

    call("easeOut", {"00:03:000", "00:04:000", "-0.5", "0.0", "0.0"});
    frame(3500);
    // From 0.5 to -0.5 with weight 1 - cos(pi/4): short of the midpoint.
    EXPECT_TRUE(is(at(0.2071f, 0), kWhite));
    EXPECT_TRUE(is(at(0, 0), kBlack));
}

TEST_F(DisplayTextureTest, ResetStopsAFadeAndALinearMove) {
    startSprite("solid", "0.05", "1");
    call("moveTo", {"00:01:000", "00:02:000", "0.5", "0.0", "0.0"});
    call("fadeDown", {"00:01:000", "00:02:000"});
    frame(1500);
    EXPECT_TRUE(colourNear(at(0.25f, 0), 128, 128, 128));
    effect->reset();
    frame(1900);
    EXPECT_TRUE(colourNear(at(0.25f, 0), 128, 128, 128));
    EXPECT_TRUE(is(at(0.45f, 0), kBlack));
}

TEST_F(DisplayTextureTest, SpinTurnsBySpeedPerTwentyMillisecondsAndRotateShowsNothing) {
    start({{"xpos", "0.0"}, {"ypos", "0.0"}, {"zpos", "0.0"}, {"xrot", "0.0"}, {"yrot", "0.0"},
           {"zrot", "9.0"}, {"texture", "solid"}, {"xscale", "0.5"}, {"yscale", "0.05"}, {"alphablend", "0"}});
    frame(20);  // a bar lying flat
    EXPECT_TRUE(is(at(0.4f, 0), kWhite));
    EXPECT_TRUE(is(at(0, 0.4f), kBlack));
    frames(20, 200);  // nine more steps of 9 degrees; the turn is added after drawing

    // A new speed of zero keeps the angle reached: the bar stands upright.
    call("setRotation", {"00:00:200", "0.0", "0.0", "0.0"});
    frames(200, 400);
    EXPECT_TRUE(is(at(0.4f, 0), kBlack));
    EXPECT_TRUE(is(at(0, 0.4f), kWhite));

    // rotate stores rates that drawing never uses.
    call("rotate", {"00:00:400", "00:01:000", "90.0", "90.0", "90.0"});
    frames(400, 600);
    EXPECT_TRUE(is(at(0, 0.4f), kWhite));
    EXPECT_TRUE(is(at(0.4f, 0), kBlack));
}

TEST_F(DisplayTextureTest, SpinAboutXTurnsTheQuadEdgeOn) {
    start({{"xpos", "0.0"}, {"ypos", "0.0"}, {"zpos", "0.0"}, {"xrot", "9.0"}, {"yrot", "0.0"},
           {"zrot", "0.0"}, {"texture", "solid"}, {"xscale", "0.5"}, {"yscale", "0.5"}, {"alphablend", "0"}});
    frame(20);
    EXPECT_TRUE(is(at(0, 0.4f), kWhite));
    frames(20, 120);  // 45 degrees: the top edge comes down to about 0.35
    EXPECT_TRUE(is(at(0, 0.4f), kBlack));
    EXPECT_TRUE(is(at(0, 0.3f), kWhite));
    frames(120, 220);  // 90 degrees: nothing of the quad is left to see
    EXPECT_TRUE(is(at(0, 0.02f), kBlack));
    EXPECT_TRUE(is(at(0, 0.3f), kBlack));
}

TEST_F(DisplayTextureTest, ScrollMovesOneRepeatPerSecondAtSpeedOneThousandth) {
    startSprite("quads", "0.5");
    call("scrollTexture", {"00:00:000", "0.001", "0.0"});
    frame(0);
    EXPECT_TRUE(is(at(-0.25f, 0.25f), kRed));
    frames(0, 500);  // half a repeat: the right half of the image now shows on the left
    frame(500);      // (a zero-length frame draws without moving on)
    EXPECT_TRUE(is(at(-0.25f, 0.25f), kGreen));
    EXPECT_TRUE(is(at(0.25f, 0.25f), kRed));
    EXPECT_TRUE(is(at(-0.25f, -0.25f), kWhite));
    frames(500, 1000);
    frame(1000);
    EXPECT_TRUE(is(at(-0.25f, 0.25f), kRed));
    EXPECT_TRUE(is(at(0.25f, -0.25f), kWhite));

    glBindTexture(GL_TEXTURE_2D, textures->getTextureIDbyAlias("quads"));
    GLint wrap = 0;
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, &wrap);
    glBindTexture(GL_TEXTURE_2D, 0);
    EXPECT_EQ(wrap, GL_REPEAT);

    // Vertical scrolling: 200 ms at 0.0025 is half a repeat.
    call("scrollTexture", {"00:01:000", "0.0", "0.0025"});
    frames(1000, 1200);
    frame(1200);
    EXPECT_TRUE(is(at(-0.25f, 0.25f), kBlue));
    EXPECT_TRUE(is(at(0.25f, -0.25f), kGreen));

    // reset stops scrolling and puts the image back in place.
    effect->reset();
    frame(1300);
    EXPECT_TRUE(is(at(-0.25f, 0.25f), kRed));
}

TEST_F(DisplayTextureTest, RetexturesRescalesAndSurvivesUnknownNamesAndMissingArguments) {
    startSprite("quads", "0.5");
    call("setTexture", {"00:00:000", "solid"});
    frame(100);
    EXPECT_TRUE(is(at(-0.25f, 0.25f), kWhite));
    call("setScaleValue", {"00:00:100", "0.1", "0.2"});
    frame(200);
    EXPECT_TRUE(is(at(0.05f, 0.15f), kWhite));
    EXPECT_TRUE(is(at(0.15f, 0.15f), kBlack));
    EXPECT_TRUE(is(at(0.05f, 0.25f), kBlack));

    // An unknown alias leaves no texture: nothing is drawn, nothing breaks.
    call("setTexture", {"00:00:200", "nosuch"});
    frame(300);
    EXPECT_TRUE(is(at(0, 0), kBlack));
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
    EXPECT_EQ(integer(GL_MATRIX_MODE), GL_MODELVIEW);

    // Every method with no arguments at all, and with none as a null group.
    for (const char* method : {"setRenderTarget", "fadeUp", "fadeDown", "moveTo", "easeIn", "easeOut",
                               "setScaleValue", "setTexture", "setRotation", "rotate", "setPosition",
                               "setTransparency", "scrollTexture", "noSuchMethod"}) {
        call(method, {});
        effect->modify(method, nullptr);
        frame(400);
    }
    EXPECT_EQ(effect->getRenderTarget(), nullptr);
    call("setTexture", {"00:00:400", "solid"});
    call("setScaleValue", {"00:00:400", "0.5", "0.5"});
    call("setPosition", {"00:00:400", "0.0", "0.0", "0.0"});
    call("setTransparency", {"00:00:400", "1.0"});
    frame(500);
    EXPECT_TRUE(is(at(0, 0), kWhite));
}

TEST_F(DisplayTextureTest, MissingSettingsAtInitDrawNothingAndKeepRunning) {
    params.addParameter("texture", "nosuch");
    DisplayTexture prototype;
    effect.reset(prototype.getInstance());
    effect->setParameters(&params);
    effect->init();
    action.addEffect("sprite", effect.get(), 50);
    frame(100);
    EXPECT_TRUE(is(at(0, 0), kBlack));

    std::unique_ptr<Effect> bare(prototype.getInstance());
    bare->init();  // no parameter group at all
    action.addEffect("bare", bare.get(), 60);
    frame(200);
    EXPECT_TRUE(is(at(0, 0), kBlack));
    action.removeAll();
}

TEST_F(DisplayTextureTest, RenderTargetSendsTheQuadIntoAFramebufferAndUnknownNamesBackToTheScreen) {
    ScreenMetrics metrics;
    metrics.resize(width, height);  // the screen view that releasing the last target restores
    QLNDemosys::screenMetrics = &metrics;
    FrameBufferObject* fbo = new FrameBufferObject(128, 128, false, false);
    ASSERT_TRUE(fbo->isValid());
    fbos->addFBO("offscreen", fbo);
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, fbo->getId());
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);

    startSprite("solid", "0.5");
    call("setRenderTarget", {"00:00:000", "offscreen"});
    EXPECT_EQ(effect->getRenderTarget(), fbo);
    frame(100);
    EXPECT_TRUE(is(at(0, 0), kBlack));
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, fbo->getId());
    EXPECT_TRUE(is(testsupport::readPixel(64, 64), kWhite));
    EXPECT_TRUE(is(testsupport::readPixel(8, 8), kBlack));
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);

    // The name is checked before the lookup, so the pool has nothing to complain about.
    std::string out = captureStdout([this] { call("setRenderTarget", {"00:00:100", "nosuch"}); });
    EXPECT_EQ(out, "");
    EXPECT_EQ(effect->getRenderTarget(), nullptr);
    frame(200);
    EXPECT_TRUE(is(at(0, 0), kWhite));
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
    QLNDemosys::screenMetrics = nullptr;
}
