// The two tubes drawn into a real window through the running-effects set on a driven
// clock, looked at from inside the way the demo's perspective shows them.
#include <GL/glew.h>
#include <SDL/SDL.h>
#include <gtest/gtest.h>
#include <png.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "demo/TunnelEffect.h"
#include "demosys/ActionPool.h"
#include "demosys/DataTexturePool.h"
#include "demosys/ParameterGroup.h"
#include "demosys/QLNDemosys.h"
#include "demosys/Texture.h"
#include "gl/FrameBytes.h"
#include "gl/GLState.h"
#include "support/GLTestSupport.h"
#include "support/TestSupport.h"

using glstate::Rgb;

namespace {

void writePNG(const std::string& path, int size, const std::vector<uint8_t>& rgba) {
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    image.width = size;
    image.height = size;
    image.format = PNG_FORMAT_RGBA;
    ASSERT_TRUE(png_image_write_to_file(&image, path.c_str(), 0, rgba.data(), 0, nullptr)) << path;
}

std::vector<uint8_t> solid(int size, uint8_t r, uint8_t g, uint8_t b, uint8_t a) {
    std::vector<uint8_t> px;
    for (int i = 0; i < size * size; ++i) px.insert(px.end(), {r, g, b, a});
    return px;
}

// Black and white squares, four by four.
std::vector<uint8_t> checker(int size) {
    std::vector<uint8_t> px;
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            const uint8_t c = ((x * 4 / size + y * 4 / size) % 2) ? 255 : 0;
            px.insert(px.end(), {c, c, c, 255});
        }
    return px;
}

std::vector<uint8_t> frameBytes() { return framebytes::read(glstate::windowWidth(), glstate::windowHeight()); }

}  // namespace

class TunnelEffectTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(testsupport::ensureGLWindow());
        glstate::reset();
        textures = new DataTexturePool();
        QLNDemosys::texturePool = textures;
        writePNG(dir.file("green.png"), 8, solid(8, 0, 255, 0, 255));
        writePNG(dir.file("clear.png"), 8, solid(8, 0, 255, 0, 0));
        writePNG(dir.file("red.png"), 8, solid(8, 255, 0, 0, 255));
        writePNG(dir.file("white.png"), 8, solid(8, 255, 255, 255, 255));
        writePNG(dir.file("checker.png"), 16, checker(16));
        for (const char* alias : {"green", "clear", "red", "white", "checker"}) {
            Texture* texture = QLNDemosys::loadTexture(dir.file(std::string(alias) + ".png"), GL_TEXTURE_2D, false);
            ASSERT_NE(texture, nullptr) << alias;
            textures->addTexture(alias, texture);
        }
    }

    void TearDown() override {
        action.removeAll();
        tunnel.reset();
        QLNDemosys::texturePool = nullptr;
        delete textures;
        glDisable(GL_COLOR_MATERIAL);
        glCullFace(GL_BACK);
        glstate::reset();
    }

    void start(const char* inner, const char* outer) {
        params.addParameter("tunnelTex", inner);
        params.addParameter("tunnelTex2", outer);
        start();
    }

    void start() {
        TunnelEffect prototype;
        tunnel.reset(prototype.getInstance());
        tunnel->setParameters(&params);
        tunnel->init();
        action.addEffect("tunnel", tunnel.get(), 50);
    }

    // One frame at demo time t, from the perspective the demo starts every frame with,
    // over a dark grey screen.
    void frame(unsigned int t) {
        glViewport(0, 0, glstate::windowWidth(), glstate::windowHeight());
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glFrustum(-0.6667, 0.6667, -0.5, 0.5, 1.0, 100.0);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glClearColor(0.2f, 0.2f, 0.2f, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        action.execute(t);
    }

    // Near the left and right edges of the view the rays meet the tubes close to their
    // mouths, where both are brightest.
    Rgb nearWall() { return glstate::pixel(4, glstate::windowHeight() / 2); }
    Rgb farWall() { return glstate::pixel(glstate::windowWidth() - 5, glstate::windowHeight() / 2); }

    testsupport::TempDir dir;
    DataTexturePool* textures = nullptr;
    ParameterGroup params;
    ActionPool action;
    std::unique_ptr<Effect> tunnel;
};

TEST_F(TunnelEffectTest, TheInnerTubeIsBlendedOverTheOuterOne) {
    start("green", "red");
    frame(0);
    for (const Rgb& c : {nearWall(), farWall()}) {
        EXPECT_GT(c[1], 180) << str(c);
        EXPECT_LT(c[0], 60) << str(c) << ": the outer tube shows only through the darkening";
        EXPECT_LT(c[2], 10) << str(c);
    }
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));

    // Where the inner texture is transparent the outer tube shows whole.
    action.removeAll();
    start("clear", "red");
    frame(0);
    for (const Rgb& c : {nearWall(), farWall()}) {
        EXPECT_GT(c[0], 180) << str(c);
        EXPECT_LT(c[1], 10) << str(c);
    }
}

TEST_F(TunnelEffectTest, WallsDarkenTowardsTheFarEnd) {
    start("white", "white");
    frame(0);
    // Straight ahead the view reaches deep into the bent tube; at the edges the walls are
    // close.
    const Rgb centre = glstate::pixel(glstate::windowWidth() / 2, glstate::windowHeight() / 2);
    const Rgb edge = nearWall();
    EXPECT_GT(edge[0], 220) << str(edge);
    EXPECT_LT(centre[0], edge[0] - 10) << str(centre) << " vs " << str(edge);
    EXPECT_EQ(centre[0], centre[1]);
    EXPECT_EQ(centre[1], centre[2]);
}

TEST_F(TunnelEffectTest, ThePictureMovesOnlyAsFrameTimePasses) {
    start("checker", "checker");
    frame(0);
    const std::vector<uint8_t> first = frameBytes();
    frame(0);
    EXPECT_TRUE(framebytes::same(first, frameBytes())) << "no frame time, no movement";
    frame(120);
    const std::vector<uint8_t> moved = frameBytes();
    EXPECT_GT(framebytes::differing(first, moved), first.size() / 10);
    // The scroll of a frame's step shows from the next frame on.
    frame(120);
    const std::vector<uint8_t> settled = frameBytes();
    EXPECT_GT(framebytes::differing(settled, moved), moved.size() / 10);
    frame(120);
    EXPECT_TRUE(framebytes::same(settled, frameBytes()));
}

TEST_F(TunnelEffectTest, LeavesCullingOnBlendingAndDepthTestOffAndTheMatricesAsTheyWere) {
    start("green", "red");
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_LIGHTING);
    glClearColor(0.5f, 0.5f, 0.5f, 0.5f);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glTranslatef(1, 2, 3);
    action.execute(0);

    EXPECT_TRUE(glIsEnabled(GL_CULL_FACE));
    EXPECT_EQ(glstate::integer(GL_CULL_FACE_MODE), GL_FRONT);
    EXPECT_FALSE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    EXPECT_FALSE(glIsEnabled(GL_LIGHTING));
    EXPECT_FALSE(glIsEnabled(GL_COLOR_MATERIAL));
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    EXPECT_EQ(glstate::integer(GL_MATRIX_MODE), GL_MODELVIEW);
    EXPECT_EQ(glstate::integer(GL_MODELVIEW_STACK_DEPTH), 1);
    EXPECT_EQ(glstate::integer(GL_TEXTURE_STACK_DEPTH), 1);
    GLfloat m[16];
    glGetFloatv(GL_MODELVIEW_MATRIX, m);
    EXPECT_EQ(m[12], 1.0f);
    EXPECT_EQ(m[13], 2.0f);
    EXPECT_EQ(m[14], 3.0f);
    GLfloat clear[4];
    glGetFloatv(GL_COLOR_CLEAR_VALUE, clear);
    for (GLfloat c : clear) EXPECT_EQ(c, 0.0f);
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(TunnelEffectTest, ATubeWithoutItsTextureIsLeftOut) {
    start("nosuchtexture", "red");
    frame(0);
    EXPECT_GT(nearWall()[0], 180) << str(nearWall());
    EXPECT_LT(nearWall()[1], 10) << str(nearWall());

    action.removeAll();
    params = ParameterGroup();
    start();  // neither key given
    frame(0);
    EXPECT_TRUE(near(nearWall(), Rgb{51, 51, 51})) << str(nearWall());
    EXPECT_TRUE(near(glstate::pixel(320, 240), Rgb{51, 51, 51}));

    // Without a texture pool at all.
    action.removeAll();
    QLNDemosys::texturePool = nullptr;
    start("green", "red");
    frame(0);
    EXPECT_TRUE(near(nearWall(), Rgb{51, 51, 51})) << str(nearWall());
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(TunnelEffectTest, ADrawBeforeInitAndAResetDoNotFail) {
    TunnelEffect bare;
    bare.reset();
    bare.draw(100);
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
    start("checker", "checker");
    frame(0);
    const std::vector<uint8_t> first = frameBytes();
    frame(300);
    tunnel->reset();
    // The wobble starts over; the scroll stays, so the picture is not the first one.
    frame(300);
    EXPECT_GT(framebytes::differing(first, frameBytes()), first.size() / 10);
}

TEST_F(TunnelEffectTest, TheBundledTexturesLineBothTubes) {
    const std::string gfx = testsupport::sourceDir() + "/resources/gfx/";
    for (const char* name : {"tunnel_inner", "tunnel_outer"}) {
        Texture* texture = QLNDemosys::loadTexture(gfx + name + ".png", GL_TEXTURE_2D, false);
        ASSERT_NE(texture, nullptr) << name;
        textures->addTexture(name, texture);
    }
    start("tunnel_inner", "tunnel_outer");
    for (unsigned int t = 0; t <= 2000; t += 400) {
        frame(t);
        const std::vector<uint8_t> bytes = frameBytes();
        // The walls fill the view: hardly any of the grey background is left, and the
        // lattice over the outer wall gives many shades.
        size_t background = 0;
        std::vector<bool> seen(256, false);
        int shades = 0;
        for (size_t i = 0; i < bytes.size(); i += 3) {
            background += bytes[i] == 51 && bytes[i + 1] == 51 && bytes[i + 2] == 51;
            if (!seen[bytes[i + 1]]) shades++;
            seen[bytes[i + 1]] = true;
        }
        EXPECT_LT(background, bytes.size() / 3 / 100) << "at " << t;
        EXPECT_GT(shades, 40) << "at " << t;
    }
}
