// The shared services that need a real OpenGL context: the error report, texture loading
// from PNG files on disk, and the key poll on SDL's event queue.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "demosys/ActionPool.h"
#include "demosys/Effect.h"
#include "demosys/QLNDemosys.h"
#include "demosys/Texture.h"
#include "support/GLTestSupport.h"
#include "support/TestSupport.h"
#include "unit/PngFiles.h"

using testsupport::captureStdout;
using testsupport::TempDir;

namespace {

class SystemServicesGL : public ::testing::Test {
protected:
    void SetUp() override {
        if (!testsupport::ensureGLWindow()) GTEST_SKIP() << "no OpenGL window";
        while (glGetError() != GL_NO_ERROR) {
        }
        QLNDemosys::system_error = false;
    }
    void TearDown() override {
        QLNDemosys::system_error = false;
        QLNDemosys::action = nullptr;
    }
};

using Pixel = std::array<unsigned char, 4>;

// 2 x 2: top row red, green; bottom row blue, half-transparent white.
std::string twoByTwoRgba() {
    return pngfiles::rgba(2, 2, [](int x, int y) {
        const Pixel pixels[2][2] = {{Pixel{255, 0, 0, 255}, Pixel{0, 255, 0, 255}},
                                    {Pixel{0, 0, 255, 255}, Pixel{255, 255, 255, 128}}};
        return pixels[y][x];
    });
}

std::vector<unsigned char> texturePixels(GLenum target, GLenum format, int count) {
    std::vector<unsigned char> bytes(count);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glGetTexImage(target, 0, format, GL_UNSIGNED_BYTE, bytes.data());
    return bytes;
}

GLint levelParameter(GLenum target, int level, GLenum name) {
    GLint value = -1;
    glGetTexLevelParameteriv(target, level, name, &value);
    return value;
}

GLint textureParameter(GLenum target, GLenum name) {
    GLint value = -1;
    glGetTexParameteriv(target, name, &value);
    return value;
}

}  // namespace

TEST_F(SystemServicesGL, ErrorReportIsSilentWhenOpenGLIsHappy) {
    bool clean = false;
    EXPECT_EQ("", captureStdout([&] { clean = QLNDemosys::glErrPrint("nothing"); }));
    EXPECT_TRUE(clean);
    EXPECT_FALSE(QLNDemosys::system_error);
}

TEST_F(SystemServicesGL, ErrorReportNamesThePlaceTheCodeAndWhatWasRunning) {
    ActionPool pool;
    Effect running;
    pool.addEffect("intro", &running, 3);
    QLNDemosys::action = &pool;
    glEnable(0x1234);  // not a capability
    bool clean = true;
    std::string said = captureStdout([&] { clean = QLNDemosys::glErrPrint("after intro"); });
    EXPECT_FALSE(clean);
    EXPECT_TRUE(QLNDemosys::system_error);
    EXPECT_EQ("[GL_ERROR LOCATION = 'after intro']\n"
              "[GL_ERROR CODE 1280] 'invalid enumerant' in ->\n"
              "ActionPool {\n    Effects:\n        003_intro - Effect\n    AliasTable:\n        intro - 003_intro\n}\n",
              said);
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(SystemServicesGL, LoadsAnRgbaPngAsA2DTexture) {
    TempDir dir;
    std::string png = twoByTwoRgba();
    std::string path = dir.write("tex/tiny.png", png);
    std::unique_ptr<Texture> texture;
    std::string said = captureStdout([&] { texture.reset(QLNDemosys::loadTexture(path, GL_TEXTURE_2D, false)); });
    ASSERT_TRUE(texture);
    EXPECT_EQ("", said);
    EXPECT_EQ(path, texture->getFilename());
    EXPECT_EQ(2, texture->getWidth());
    EXPECT_EQ(2, texture->getHeight());
    EXPECT_EQ(32, texture->getBPP());
    EXPECT_EQ(static_cast<int>(png.size()), texture->getFileSize());
    EXPECT_EQ(GLenum(GL_TEXTURE_2D), texture->getType());
    EXPECT_FALSE(texture->isMipmapped());

    ASSERT_TRUE(glIsTexture(texture->getID()));
    glBindTexture(GL_TEXTURE_2D, texture->getID());
    EXPECT_EQ(GL_RGBA, levelParameter(GL_TEXTURE_2D, 0, GL_TEXTURE_INTERNAL_FORMAT));
    EXPECT_EQ(GL_LINEAR, textureParameter(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER));
    EXPECT_EQ(GL_LINEAR, textureParameter(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER));
    // The file's bottom row comes first, as OpenGL expects.
    EXPECT_EQ((std::vector<unsigned char>{0, 0, 255, 255, 255, 255, 255, 128, 255, 0, 0, 255, 0, 255, 0, 255}),
              texturePixels(GL_TEXTURE_2D, GL_RGBA, 16));
    glBindTexture(GL_TEXTURE_2D, 0);
}

TEST_F(SystemServicesGL, MipmappedLoadBuildsTheLevelsAndReportsTheRejectedFilter) {
    TempDir dir;
    std::string path = dir.write("mip.png", pngfiles::rgba(4, 4, [](int, int) { return Pixel{10, 20, 30, 255}; }));
    std::unique_ptr<Texture> texture;
    std::string said = captureStdout([&] { texture.reset(QLNDemosys::loadTexture(path, GL_TEXTURE_2D, true)); });
    ASSERT_TRUE(texture);
    EXPECT_EQ("[GL_ERROR] 'invalid enumerant' in ->" + path + "\n", said);
    EXPECT_TRUE(texture->isMipmapped());
    glBindTexture(GL_TEXTURE_2D, texture->getID());
    EXPECT_EQ(GL_LINEAR_MIPMAP_LINEAR, textureParameter(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER));
    EXPECT_EQ(1, levelParameter(GL_TEXTURE_2D, 2, GL_TEXTURE_WIDTH));
    glBindTexture(GL_TEXTURE_2D, 0);
    EXPECT_FALSE(QLNDemosys::system_error);  // reported on its own, not through glErrPrint
}

TEST_F(SystemServicesGL, LoadsRgbAndOneDimensionalTextures) {
    TempDir dir;
    pngfiles::Layout rgb;
    rgb.width = 3;
    rgb.height = 1;
    rgb.colourType = PNG_COLOR_TYPE_RGB;
    std::string rgbPath = dir.write("strip.png", pngfiles::encode(rgb, {1, 2, 3, 4, 5, 6, 7, 8, 9}));

    std::unique_ptr<Texture> flat(QLNDemosys::loadTexture(rgbPath, GL_TEXTURE_2D, false));
    ASSERT_TRUE(flat);
    EXPECT_EQ(24, flat->getBPP());
    glBindTexture(GL_TEXTURE_2D, flat->getID());
    EXPECT_EQ(GL_RGB, levelParameter(GL_TEXTURE_2D, 0, GL_TEXTURE_INTERNAL_FORMAT));
    EXPECT_EQ((std::vector<unsigned char>{1, 2, 3, 4, 5, 6, 7, 8, 9}), texturePixels(GL_TEXTURE_2D, GL_RGB, 9));
    glBindTexture(GL_TEXTURE_2D, 0);

    std::unique_ptr<Texture> line(QLNDemosys::loadTexture(rgbPath, GL_TEXTURE_1D, true));
    ASSERT_TRUE(line);
    EXPECT_EQ(GLenum(GL_TEXTURE_1D), line->getType());
    glBindTexture(GL_TEXTURE_1D, line->getID());
    EXPECT_EQ(3, levelParameter(GL_TEXTURE_1D, 0, GL_TEXTURE_WIDTH));  // the longer side
    EXPECT_EQ(GL_LINEAR, textureParameter(GL_TEXTURE_1D, GL_TEXTURE_MIN_FILTER));  // mipmap flag ignored
    EXPECT_EQ((std::vector<unsigned char>{1, 2, 3, 4, 5, 6, 7, 8, 9}), texturePixels(GL_TEXTURE_1D, GL_RGB, 9));
    glBindTexture(GL_TEXTURE_1D, 0);
}

TEST_F(SystemServicesGL, MissingFilesAndOtherTargetsUploadNothing) {
    TempDir dir;
    GLuint before = 0, after = 0;
    glGenTextures(1, &before);
    std::string said = captureStdout([&] { EXPECT_EQ(nullptr, QLNDemosys::loadTexture(dir.file("none.png"), GL_TEXTURE_2D, false)); });
    glGenTextures(1, &after);
    EXPECT_EQ("", said);
    EXPECT_EQ(before + 1, after);  // no texture name was taken in between
    glDeleteTextures(1, &before);
    glDeleteTextures(1, &after);

    std::string path = dir.write("cube.png", twoByTwoRgba());
    std::unique_ptr<Texture> volume(QLNDemosys::loadTexture(path, GL_TEXTURE_3D, false));
    ASSERT_TRUE(volume);
    EXPECT_EQ(GLenum(GL_TEXTURE_3D), volume->getType());
    EXPECT_EQ(2, volume->getWidth());
    EXPECT_FALSE(glIsTexture(volume->getID()));  // named but never bound
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(SystemServicesGL, KeyPollFindsTheKeyAndConsumesWhatItPassesOver) {
    while (QLNDemosys::checkKeyPress(-1)) {
    }
    auto push = [](SDLKey key) {
        SDL_Event event{};
        event.type = SDL_KEYDOWN;
        event.key.keysym.sym = key;
        SDL_PushEvent(&event);
    };
    push(SDLK_a);
    push(SDLK_ESCAPE);
    push(SDLK_b);
    EXPECT_TRUE(QLNDemosys::checkKeyPress(SDLK_ESCAPE));
    EXPECT_TRUE(QLNDemosys::checkKeyPress(SDLK_b));
    push(SDLK_a);
    EXPECT_FALSE(QLNDemosys::checkKeyPress(SDLK_ESCAPE));
    EXPECT_FALSE(QLNDemosys::checkKeyPress(SDLK_a));  // consumed by the poll before
}
