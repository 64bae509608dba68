#include <gtest/gtest.h>

#include "demosys/Texture.h"
#include "gl/GLState.h"
#include "qlnutils/Image.h"
#include "support/TestSupport.h"
#include "unit/PngFiles.h"

using glstate::pixel;
using glstate::Rgb;

namespace {

const Rgb red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, white{255, 255, 255}, black{0, 0, 0};

class TextureTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(testsupport::ensureGLWindow());
        glstate::reset();
        w = glstate::windowWidth();
        h = glstate::windowHeight();
    }
    void TearDown() override { glstate::reset(); }

    // A 2 x 2 picture, top row red, green; bottom row blue, white at alpha 0.
    std::unique_ptr<Texture> quadrantsFromPng() {
        std::string png = pngfiles::rgba(2, 2, [](int x, int y) {
            const std::array<unsigned char, 4> c[2][2] = {{{255, 0, 0, 255}, {0, 255, 0, 255}},
                                                          {{0, 0, 255, 255}, {255, 255, 255, 0}}};
            return c[y][x];
        });
        Image image(dir.write("quadrants.png", png));
        EXPECT_NE(image.getData(), nullptr);
        auto texture = std::make_unique<Texture>(image.getWidth(), image.getHeight(), GL_RGBA, image.getData());
        texture->setInterpolation(GL_NEAREST);
        return texture;
    }

    // Samples at the centres of the four screen quadrants: top-left, top-right, bottom-left, bottom-right.
    std::array<Rgb, 4> quadrants() {
        return {pixel(w / 4, 3 * h / 4), pixel(3 * w / 4, 3 * h / 4), pixel(w / 4, h / 4), pixel(3 * w / 4, h / 4)};
    }

    testsupport::TempDir dir;
    int w = 0, h = 0;
};

}  // namespace

TEST_F(TextureTest, PngUploadDrawsUprightFullScreenAndFlipped) {
    auto texture = quadrantsFromPng();
    EXPECT_EQ(texture->getWidth(), 2);
    EXPECT_EQ(texture->getBPP(), 32);
    EXPECT_EQ(texture->getFileSize(), 0);
    EXPECT_EQ(texture->getFilename(), "");

    glMatrixMode(GL_PROJECTION);
    glOrtho(-5, 5, -5, 5, -1, 1);  // must not matter: the full-screen quad loads identities
    glMatrixMode(GL_MODELVIEW);
    texture->bind();
    texture->drawQuadFS();
    EXPECT_EQ(quadrants(), (std::array<Rgb, 4>{red, green, blue, white}));
    EXPECT_EQ(glstate::integer(GL_MATRIX_MODE), GL_MODELVIEW);
    GLfloat projection[16];
    glGetFloatv(GL_PROJECTION_MATRIX, projection);
    EXPECT_FLOAT_EQ(projection[0], 0.2f) << "the caller's projection comes back";

    glClear(GL_COLOR_BUFFER_BIT);
    texture->drawQuadFS_Flip();
    EXPECT_EQ(quadrants(), (std::array<Rgb, 4>{blue, white, red, green}));
    texture->release();
}

TEST_F(TextureTest, ScaledQuadUsesTheCurrentMatrices) {
    auto texture = quadrantsFromPng();
    texture->bind();
    texture->drawQuadScaled(Vector<float, 2>(1.0f, 1.0f));
    // Covers the middle half of the screen, upside down like the flipped quad.
    EXPECT_EQ(pixel(3 * w / 8, 3 * h / 8), red);
    EXPECT_EQ(pixel(5 * w / 8, 5 * h / 8), white);
    EXPECT_EQ(pixel(w / 8, h / 8), black);
    EXPECT_EQ(pixel(7 * w / 8, 7 * h / 8), black);

    glClear(GL_COLOR_BUFFER_BIT);
    glTranslatef(0.5f, 0.5f, 0.0f);
    texture->drawQuadScaled(Vector<float, 2>(1.0f, 1.0f));
    EXPECT_EQ(pixel(5 * w / 8, 5 * h / 8), red);
    EXPECT_EQ(pixel(3 * w / 8, 3 * h / 8), black);
}

TEST_F(TextureTest, BlendedQuadLeavesAlphaTestOn) {
    auto texture = quadrantsFromPng();
    glClearColor(0.5f, 0.5f, 0.5f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    texture->bind();
    texture->drawQuadBlendFS(GL_ONE, GL_ZERO);
    // Flipped layout; the alpha-0 white texel is rejected by the alpha test, grey stays.
    EXPECT_EQ(quadrants(), (std::array<Rgb, 4>{blue, (Rgb{128, 128, 128}), red, green}));
    EXPECT_TRUE(glIsEnabled(GL_ALPHA_TEST));
    EXPECT_EQ(glstate::integer(GL_ALPHA_TEST_FUNC), GL_GREATER);
    EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));

    glClear(GL_COLOR_BUFFER_BIT);
    glDisable(GL_ALPHA_TEST);
    texture->bind();
    glColor4f(1, 1, 1, 0.5f);
    texture->drawQuadBlendFS(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    EXPECT_TRUE(near(pixel(w / 4, h / 4), Rgb{191, 64, 64})) << str(pixel(w / 4, h / 4));
}

TEST_F(TextureTest, BindSetsParametersAndReleaseUndoesIt) {
    auto texture = quadrantsFromPng();
    texture->setTextureWrap(GL_CLAMP_TO_EDGE);
    texture->bind();
    EXPECT_TRUE(glIsEnabled(GL_TEXTURE_2D));
    EXPECT_EQ(static_cast<GLuint>(glstate::integer(GL_TEXTURE_BINDING_2D)), texture->getID());
    GLint value = 0;
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, &value);
    EXPECT_EQ(value, GL_CLAMP_TO_EDGE);
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, &value);
    EXPECT_EQ(value, GL_CLAMP_TO_EDGE);
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, &value);
    EXPECT_EQ(value, GL_NEAREST);
    glGetTexEnviv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, &value);
    EXPECT_EQ(value, GL_MODULATE);

    texture->isMipmapped(true);
    texture->bind();
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, &value);
    EXPECT_EQ(value, GL_LINEAR_MIPMAP_LINEAR);
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, &value);
    EXPECT_EQ(value, GL_LINEAR);

    texture->release();
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    EXPECT_EQ(glstate::integer(GL_TEXTURE_BINDING_2D), 0);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(TextureTest, OneDimensionalTextureWrapsTheTwoDimensionalTarget) {
    auto flat = quadrantsFromPng();
    flat->bind();  // bound to the 2D target with GL_REPEAT

    GLuint name = 0;
    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_1D, name);
    const unsigned char line[8] = {255, 0, 0, 255, 0, 0, 255, 255};
    glTexImage1D(GL_TEXTURE_1D, 0, GL_RGBA, 2, 0, GL_RGBA, GL_UNSIGNED_BYTE, line);
    Texture ramp("ramp.png", name);
    ramp.setType(GL_TEXTURE_1D);
    ramp.setTextureWrap(GL_CLAMP_TO_EDGE);
    ramp.bind();

    EXPECT_TRUE(glIsEnabled(GL_TEXTURE_1D));
    EXPECT_EQ(static_cast<GLuint>(glstate::integer(GL_TEXTURE_BINDING_1D)), name);
    GLint wrap = 0;
    glGetTexParameteriv(GL_TEXTURE_1D, GL_TEXTURE_WRAP_S, &wrap);
    EXPECT_EQ(wrap, GL_REPEAT) << "the 1D texture's own wrap is untouched";
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, &wrap);
    EXPECT_EQ(wrap, GL_CLAMP_TO_EDGE) << "the texture bound to the 2D target got the wrap";
    ramp.release();
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_1D));
    EXPECT_EQ(glstate::integer(GL_TEXTURE_BINDING_1D), 0);
    flat->release();
}

TEST_F(TextureTest, UpdateStorageAndDeletion) {
    const unsigned char one[4] = {0, 255, 0, 255};
    auto texture = std::make_unique<Texture>(1, 1, GL_RGBA, const_cast<unsigned char*>(one));
    texture->isMipmapped(true);
    texture->setBPP(24);
    texture->setFileSize(99);
    texture->setType(GL_TEXTURE_1D);
    texture->setInterpolation(GL_NEAREST);

    // Blue given in BGRA order: the pixel format is passed through.
    const unsigned char bgra[16] = {255, 0, 0, 255, 255, 0, 0, 255, 255, 0, 0, 255, 255, 0, 0, 255};
    texture->updateTexture(2, 2, GL_BGRA, const_cast<unsigned char*>(bgra));
    EXPECT_EQ(texture->getWidth(), 2);
    EXPECT_EQ(texture->getHeight(), 2);
    EXPECT_FALSE(texture->isMipmapped());
    EXPECT_EQ(texture->getBPP(), 32);
    EXPECT_EQ(texture->getFileSize(), 0);
    EXPECT_EQ(texture->getType(), static_cast<unsigned>(GL_TEXTURE_2D));
    EXPECT_EQ(texture->getInterpolation(), static_cast<unsigned>(GL_LINEAR));
    EXPECT_EQ(glstate::integer(GL_TEXTURE_BINDING_2D), 0) << "the update unbinds";
    texture->bind();
    texture->drawQuadFS();
    EXPECT_EQ(pixel(w / 2, h / 2), blue);
    texture->release();

    Texture target(64, 32, GL_RGBA8, GL_RGBA);
    glBindTexture(GL_TEXTURE_2D, target.getID());
    GLint width = 0, height = 0, format = 0, filter = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &height);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_INTERNAL_FORMAT, &format);
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, &filter);
    glBindTexture(GL_TEXTURE_2D, 0);
    EXPECT_EQ(width, 64);
    EXPECT_EQ(height, 32);
    EXPECT_EQ(format, GL_RGBA8);
    EXPECT_EQ(filter, GL_LINEAR);
    EXPECT_EQ(target.getMemorySize(), 64 * 32 * 4);

    GLuint name = texture->getID();
    ASSERT_TRUE(glIsTexture(name));
    texture.reset();
    EXPECT_FALSE(glIsTexture(name)) << "the destructor deletes the texture name";
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}
