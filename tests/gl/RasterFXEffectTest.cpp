// The height-map flight drawn into a real window through the running-effects set on a
// driven clock: real PNG pictures and real height-map files, read back before any swap.
#include <GL/glew.h>
#include <SDL/SDL.h>
#include <gtest/gtest.h>
#include <png.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "demo/RasterFXEffect.h"
#include "demosys/ActionPool.h"
#include "demosys/Binary.h"
#include "demosys/DataBinaryPool.h"
#include "demosys/DataTexturePool.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "demosys/QLNDemosys.h"
#include "demosys/Texture.h"
#include "gl/FrameBytes.h"
#include "gl/GLState.h"
#include "support/GLTestSupport.h"
#include "support/TestSupport.h"

using glstate::Rgb;
using testsupport::captureStdout;

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

std::vector<uint8_t> solid(int size, uint8_t r, uint8_t g, uint8_t b) {
    std::vector<uint8_t> px;
    for (int i = 0; i < size * size; ++i) px.insert(px.end(), {r, g, b, 255});
    return px;
}

// Four coloured quarters: nothing in it looks the same turned.
std::vector<uint8_t> quarters(int size) {
    std::vector<uint8_t> px;
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            const bool right = x >= size / 2, low = y >= size / 2;
            px.insert(px.end(), {uint8_t(right ? 255 : 0), uint8_t(low ? 255 : 0), uint8_t(right && low ? 0 : 128), 255});
        }
    return px;
}

// Rows of 100 bytes; rows from..to (inclusive) hold the value, the rest 0.
std::string heightRows(size_t bytes, int from, int to, unsigned char value) {
    std::string map(bytes, '\0');
    for (size_t i = 0; i < bytes; ++i) {
        const int row = int(i / 100);
        if (row >= from && row <= to) map[i] = char(value);
    }
    return map;
}

std::vector<uint8_t> frameBytes() { return framebytes::read(glstate::windowWidth(), glstate::windowHeight()); }

}  // namespace

class RasterFXEffectTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(testsupport::ensureGLWindow());
        glstate::reset();
        width = glstate::windowWidth();
        height = glstate::windowHeight();

        savedParameters = QLNDemosys::parameters;
        scriptParameters = new Parameters();
        ParameterGroup* screen = new ParameterGroup();
        screen->addParameter("width", std::to_string(width));
        screen->addParameter("height", std::to_string(height));
        scriptParameters->addGroup("screen", screen);
        QLNDemosys::parameters = scriptParameters;

        textures = new DataTexturePool();
        binaries = new DataBinaryPool();
        QLNDemosys::texturePool = textures;
        QLNDemosys::binaryPool = binaries;

        writePNG(dir.file("blue.png"), 8, solid(8, 40, 120, 240));
        writePNG(dir.file("white.png"), 8, solid(8, 255, 255, 255));
        writePNG(dir.file("quarters.png"), 16, quarters(16));
        for (const char* alias : {"blue", "white", "quarters"}) {
            Texture* texture = QLNDemosys::loadTexture(dir.file(std::string(alias) + ".png"), GL_TEXTURE_2D, false);
            ASSERT_NE(texture, nullptr) << alias;
            textures->addTexture(alias, texture);
        }
    }

    void TearDown() override {
        action.removeAll();
        captureStdout([this] { effect.reset(); });
        QLNDemosys::texturePool = nullptr;
        QLNDemosys::binaryPool = nullptr;
        QLNDemosys::parameters = savedParameters;
        delete textures;
        glDisable(GL_COLOR_MATERIAL);
        glCullFace(GL_BACK);
        delete binaries;
        delete scriptParameters;
        glstate::reset();
    }

    void addMap(const std::string& alias, const std::string& bytes) {
        Binary* blob = QLNDemosys::loadBinary(dir.write(alias + ".bin", bytes));
        ASSERT_NE(blob, nullptr);
        ASSERT_EQ(blob->size(), bytes.size());
        binaries->addData(alias, blob);
    }

    void start(const char* picture, const char* map) {
        if (picture) params.addParameter("texture", picture);
        if (map) params.addParameter("wavemap", map);
        captureStdout([this] {
            RasterFXEffect prototype;
            effect.reset(prototype.getInstance());
        });
        effect->setParameters(&params);
        effect->init();
        action.addEffect("flight", effect.get(), 50);
    }

    // One frame at demo time t over a dark grey screen.
    void frame(unsigned int t) {
        glViewport(0, 0, width, height);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glClearColor(0.2f, 0.2f, 0.2f, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        action.execute(t);
    }

    // The pixel row that shows height y of the grid at depth z.
    int rowFor(float y, float z) const { return int((y / -z / 0.5f + 1.0f) * 0.5f * height); }

    Rgb centre() { return glstate::pixel(width / 2, height / 2); }

    testsupport::TempDir dir;
    int width = 0, height = 0;
    Parameters* savedParameters = nullptr;
    Parameters* scriptParameters = nullptr;
    DataTexturePool* textures = nullptr;
    DataBinaryPool* binaries = nullptr;
    ParameterGroup params;
    ActionPool action;
    std::unique_ptr<Effect> effect;
};

TEST_F(RasterFXEffectTest, AFlatMapShowsThePictureShadedByItsHeight) {
    addMap("half", std::string(17600, char(128)));
    addMap("zero", std::string(17600, '\0'));
    addMap("full", std::string(17600, char(255)));

    start("blue", "half");
    frame(0);
    for (const Rgb& c : {centre(), glstate::pixel(1, 1), glstate::pixel(width - 2, height - 2)})
        EXPECT_TRUE(near(c, Rgb{20, 60, 120}, 3)) << str(c);

    action.removeAll();
    start("blue", "full");
    frame(0);
    EXPECT_TRUE(near(centre(), Rgb{40, 119, 239}, 3)) << str(centre());

    // At height 0 the grid lies at the far end of the view and fills it exactly, black.
    action.removeAll();
    start("blue", "zero");
    frame(0);
    for (const Rgb& c : {centre(), glstate::pixel(0, 0), glstate::pixel(width - 1, height - 1),
                         glstate::pixel(0, height - 1), glstate::pixel(width - 1, 0)})
        EXPECT_TRUE(near(c, Rgb{0, 0, 0}, 1)) << str(c);
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(RasterFXEffectTest, MapRowsScrollTowardsTheViewerAndStartOverAfterRow99) {
    // Rows 30 to 39 raised a little and shaded grey 16, the rest black at the far end.
    addMap("band", heightRows(17600, 30, 39, 16));
    start("white", "band");
    const int bandMiddle = rowFor(-0.3f + 0.2f, -2.9f);   // grid rows 30..39 at the start
    const int bandLater = rowFor(-1.3f + 0.2f, -2.9f);    // grid rows 5..14 after 25 rows

    // Steps of one second advance the map by 25 rows, shown from the next frame on.
    frame(1000);
    const std::vector<uint8_t> first = frameBytes();
    EXPECT_TRUE(near(glstate::pixel(width / 2, bandMiddle), Rgb{16, 16, 16}, 2));
    EXPECT_TRUE(near(glstate::pixel(width / 2, bandLater), Rgb{0, 0, 0}, 1));

    frame(2000);
    EXPECT_TRUE(near(glstate::pixel(width / 2, bandMiddle), Rgb{0, 0, 0}, 1));
    EXPECT_TRUE(near(glstate::pixel(width / 2, bandLater), Rgb{16, 16, 16}, 2));

    frame(3000);  // 50 rows on: the band has passed
    EXPECT_TRUE(near(glstate::pixel(width / 2, bandLater), Rgb{0, 0, 0}, 1));
    frame(4000);  // 75 rows on; 100 would pass row 99, so the next frame starts over
    EXPECT_TRUE(near(glstate::pixel(width / 2, bandMiddle), Rgb{0, 0, 0}, 1));
    frame(5000);
    EXPECT_TRUE(framebytes::same(first, frameBytes()));
}

TEST_F(RasterFXEffectTest, AShortMapShowsWhatItHasAndTheRestAsHeightZero) {
    // Forty rows: the band of the full map, nothing after it.
    addMap("short", heightRows(4000, 30, 39, 16));
    addMap("long", heightRows(17600, 30, 39, 16));
    addMap("empty", "");
    start("white", "long");
    frame(1000);
    const std::vector<uint8_t> whole = frameBytes();

    action.removeAll();
    start("white", "short");
    frame(1000);
    EXPECT_TRUE(framebytes::same(whole, frameBytes()));
    for (unsigned int t = 1100; t <= 6000; t += 700) frame(t);  // every row offset reads past the end

    action.removeAll();
    start("white", "empty");
    frame(1000);
    EXPECT_TRUE(near(centre(), Rgb{0, 0, 0}, 1)) << str(centre());
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(RasterFXEffectTest, MissingPiecesAreLeftOut) {
    addMap("half", std::string(17600, char(128)));

    // No picture: the feedback image is the white of the clear, shaded by the grid.
    start(nullptr, "half");
    frame(0);
    EXPECT_TRUE(near(centre(), Rgb{128, 128, 128}, 3)) << str(centre());
    action.removeAll();
    params = ParameterGroup();
    start("nosuchpicture", "half");
    frame(0);
    EXPECT_TRUE(near(centre(), Rgb{128, 128, 128}, 3)) << str(centre());

    // No height map: no grid, the white clear stays.
    for (const char* map : {"nosuchmap", static_cast<const char*>(nullptr)}) {
        action.removeAll();
        params = ParameterGroup();
        start("blue", map);
        frame(0);
        EXPECT_TRUE(near(centre(), Rgb{255, 255, 255}, 1)) << str(centre());
    }

    // No screen size: nothing to draw into, the screen stays as it was.
    action.removeAll();
    params = ParameterGroup();
    QLNDemosys::parameters = nullptr;
    start("blue", "half");
    frame(0);
    EXPECT_TRUE(near(centre(), Rgb{51, 51, 51}, 1)) << str(centre());

    // No pools at all.
    action.removeAll();
    QLNDemosys::parameters = scriptParameters;
    QLNDemosys::texturePool = nullptr;
    QLNDemosys::binaryPool = nullptr;
    start("blue", "half");
    frame(0);
    EXPECT_TRUE(near(centre(), Rgb{255, 255, 255}, 1)) << str(centre());
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(RasterFXEffectTest, ThePictureTurnsWithFrameTimeFromTheNextFrameOn) {
    addMap("half", std::string(17600, char(128)));
    start("quarters", "half");
    frame(0);
    const std::vector<uint8_t> still = frameBytes();
    frame(0);
    EXPECT_TRUE(framebytes::same(still, frameBytes()));
    frame(1000);  // the second layer turns by 24 degrees, from the next frame on
    EXPECT_TRUE(framebytes::same(still, frameBytes()));
    frame(1000);
    const std::vector<uint8_t> turned = frameBytes();
    EXPECT_GT(framebytes::differing(still, turned), still.size() / 20);
}

TEST_F(RasterFXEffectTest, DrawsThroughItsOwnProjectionIntoAFreshFeedbackTexture) {
    addMap("half", std::string(17600, char(128)));
    const std::string said = captureStdout([] { RasterFXEffect prototype; delete prototype.getInstance(); });
    EXPECT_EQ(said, "RasterFXEffect\nRasterFXEffect\n");

    start("blue", "half");
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_CULL_FACE);
    glEnable(GL_LIGHTING);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glTranslatef(0.25f, 0.5f, 0.75f);
    action.execute(0);

    EXPECT_EQ(glstate::integer(GL_MATRIX_MODE), GL_PROJECTION);
    GLfloat m[16];
    glGetFloatv(GL_PROJECTION_MATRIX, m);
    EXPECT_NEAR(m[0], 2.0f * height / width, 1e-5f);  // near / half width
    EXPECT_NEAR(m[5], 2.0f, 1e-5f);                   // near / half height
    glGetFloatv(GL_MODELVIEW_MATRIX, m);
    EXPECT_EQ(m[12], 0.25f);
    EXPECT_EQ(m[13], 0.5f);
    EXPECT_EQ(m[14], 0.75f);
    EXPECT_FALSE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_FALSE(glIsEnabled(GL_CULL_FACE));
    EXPECT_FALSE(glIsEnabled(GL_LIGHTING));
    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    EXPECT_FALSE(glIsEnabled(GL_ALPHA_TEST));
    EXPECT_TRUE(glIsEnabled(GL_COLOR_MATERIAL));
    EXPECT_TRUE(glIsEnabled(GL_TEXTURE_2D));
    EXPECT_EQ(glstate::viewport(), (std::array<GLint, 4>{0, 0, width, height}));
    GLfloat clear[4];
    glGetFloatv(GL_COLOR_CLEAR_VALUE, clear);
    for (GLfloat c : clear) EXPECT_EQ(c, 1.0f);

    const GLint feedback = glstate::integer(GL_TEXTURE_BINDING_2D);
    EXPECT_NE(feedback, 0);
    GLint size[2] = {0, 0};
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &size[0]);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &size[1]);
    EXPECT_EQ(size[0], 512);
    EXPECT_EQ(size[1], 512);
    GLint filter = 0;
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, &filter);
    EXPECT_EQ(filter, GL_LINEAR);
    GLint mode = 0;
    glGetTexEnviv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, &mode);
    EXPECT_EQ(mode, GL_MODULATE);

    // Every init makes another texture; the earlier one is kept.
    effect->init();
    action.execute(16);
    const GLint again = glstate::integer(GL_TEXTURE_BINDING_2D);
    EXPECT_NE(again, feedback);
    EXPECT_TRUE(glIsTexture(GLuint(feedback)));
    EXPECT_TRUE(glIsTexture(GLuint(again)));
    glDeleteTextures(1, reinterpret_cast<const GLuint*>(&feedback));
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(RasterFXEffectTest, TheBundledPictureAndHeightMapMakeAHillyLandscape) {
    const std::string resources = testsupport::sourceDir() + "/resources/";
    Texture* plasma = QLNDemosys::loadTexture(resources + "gfx/plasma.png", GL_TEXTURE_2D, false);
    ASSERT_NE(plasma, nullptr);
    textures->addTexture("plasma", plasma);
    Binary* map = QLNDemosys::loadBinary(resources + "misc/heightmap.bin");
    ASSERT_NE(map, nullptr);
    EXPECT_GE(map->size(), 17501u) << "every row offset must stay inside the map";
    binaries->addData("heightmap", map);

    start("plasma", "heightmap");
    for (unsigned int t = 0; t <= 4000; t += 500) {
        frame(t);
        // Hills and valleys: the middle row of the picture holds many shades, none of
        // them the white of the clear.
        const std::vector<uint8_t> bytes = frameBytes();
        std::vector<bool> seen(256, false);
        int shades = 0, white = 0;
        for (int x = 0; x < width; ++x) {
            const uint8_t* p = &bytes[(size_t(height / 2) * width + x) * 3];
            if (!seen[p[1]]) shades++;
            seen[p[1]] = true;
            white += p[0] == 255 && p[1] == 255 && p[2] == 255;
        }
        EXPECT_GT(shades, 20) << "at " << t;
        EXPECT_EQ(white, 0) << "at " << t;
    }
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}
