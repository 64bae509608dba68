// What a viewer sees of the details that are easy to get subtly wrong: which glyph each
// character shows, how far a texture reaches and how fast it scrolls, and where the
// intro logo's camera is along its flight.
#include <memory>

#include "demo/IntroLogoEffect.h"
#include "demo/Textwriter.h"
#include "demosys/DataTexturePool.h"
#include "demosys/DisplayTexture.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "demosys/QLNDemosys.h"
#include "demosys/ScreenMetrics.h"
#include "demosys/Texture.h"
#include "gl/BundledDemo.h"
#include "support/GLHarness.h"

namespace {

using gl::Rgb;

class EffectBehaviour : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        bundledDemo();
        gl::reset();
    }
    // A PNG written to a temp folder, loaded as the engine loads textures, held by the pool.
    Texture* texture(const std::string& alias, int w, int h, const std::vector<uint8_t>& rgba) {
        std::string path = dir.file(alias + ".png");
        EXPECT_TRUE(gl::writePNG(path, w, h, rgba));
        Texture* loaded = QLNDemosys::loadTexture(path, GL_TEXTURE_2D, false);
        Texture* replaced = QLNDemosys::texturePool->getTexture(alias);
        QLNDemosys::texturePool->addTexture(alias, loaded);
        delete replaced;  // an overwritten entry stays its owner's
        return loaded;
    }
    // Left half red, right half blue.
    Texture* halves() {
        std::vector<uint8_t> px;
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x) px.insert(px.end(), {uint8_t(x < 32 ? 255 : 0), 0, uint8_t(x < 32 ? 0 : 255), 255});
        return texture("halves", 64, 64, px);
    }
    static bool red(const Rgb& c) { return c[0] > 200 && c[2] < 50; }
    static bool blue(const Rgb& c) { return c[2] > 200 && c[0] < 50; }
    static bool black(const Rgb& c) { return gl::near(c, Rgb{0, 0, 0}, 8); }
    testsupport::TempDir dir;
};

// The font: 17 x 4 cells of 8 x 8 pixels, each glyph a solid colour of its own, the space transparent.
const int glyphColumns = 17, glyphRows = 4, glyphPixels = 8, spaceGlyph = 28;
Rgb glyphColour(int g) { return Rgb{20 + 3 * g, 235 - 3 * g, 40 + 40 * (g % 5)}; }

TEST_F(EffectBehaviour, EachCharacterShowsItsGlyphAndCharactersOutsideTheTableShowNothing) {
    std::vector<uint8_t> px;
    for (int y = 0; y < glyphRows * glyphPixels; ++y)
        for (int x = 0; x < glyphColumns * glyphPixels; ++x) {
            int g = (y / glyphPixels) * glyphColumns + x / glyphPixels;
            Rgb c = glyphColour(g);
            px.insert(px.end(), {uint8_t(c[0]), uint8_t(c[1]), uint8_t(c[2]), uint8_t(g == spaceGlyph ? 0 : 255)});
        }
    Textwriter writer(texture("glyphs", glyphColumns * glyphPixels, glyphRows * glyphPixels, px), glyphColumns,
                      glyphRows);
    // Upper case and NUL have the entry -1: the strip left of glyph 0, which the repeating
    // texture wraps to glyph 16. 0xFF reads like "6"; bytes above the table stay empty.
    writer.setText(std::string("az09.-!+'*@12A\n\xff\x80x") + '\0' + "b");
    const int expected[] = {0, 25, 42, 41, 43, 43, 44, 52, 53, 54, 54, 8, 34, 16, -1, 38, -1, 23, 16, 1};
    glClearColor(200 / 255.0f, 200 / 255.0f, 200 / 255.0f, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    writer.write(0);
    for (int c = 0; c < 20; ++c) {
        Rgb shown = gl::pixelAt(-1.0f + 0.1f * (c + 0.5f), 0.9f - 0.05f);
        EXPECT_TRUE(gl::near(shown, expected[c] < 0 ? Rgb{100, 100, 100} : glyphColour(expected[c]))) << "cell " << c;
    }
}

TEST_F(EffectBehaviour, ATextureLayerReachesItsScaleAndScrollsAtItsSpeedPerMillisecond) {
    halves();
    ParameterGroup script("layer");
    for (auto kv : {std::pair<const char*, const char*>{"texture", "halves"}, {"xscale", "0.5"}, {"yscale", "0.25"}})
        script.addParameter(kv.first, kv.second);
    DisplayTexture layer;
    layer.setParameters(&script);
    layer.init();
    auto drawAt = [&](unsigned int time, unsigned int step) {
        gl::reset();
        layer.setLastCalled(time - step);
        layer.draw(time);
    };
    drawAt(1000, 16);
    for (float y : {-0.2f, 0.0f, 0.2f}) {
        EXPECT_TRUE(red(gl::pixelAt(-0.45f, y)));
        EXPECT_TRUE(blue(gl::pixelAt(0.45f, y)));
        EXPECT_TRUE(black(gl::pixelAt(-0.55f, y)));
        EXPECT_TRUE(black(gl::pixelAt(0.55f, y)));
    }
    for (float x : {-0.4f, 0.4f}) {
        EXPECT_FALSE(black(gl::pixelAt(x, 0.22f)));
        EXPECT_FALSE(black(gl::pixelAt(x, -0.22f)));
        EXPECT_TRUE(black(gl::pixelAt(x, 0.28f)));
        EXPECT_TRUE(black(gl::pixelAt(x, -0.28f)));
    }

    ParameterGroup call;
    call.addParameter("p1", "00:01:000");
    call.addParameter("p2", "1.0");
    call.addParameter("p3", "0.5");
    layer.modify("setScaleValue", &call);
    drawAt(1016, 16);
    EXPECT_TRUE(red(gl::pixelAt(-0.95f, 0.45f)));
    EXPECT_TRUE(black(gl::pixelAt(0.0f, 0.55f)));
    EXPECT_TRUE(red(gl::pixelAt(-0.25f, 0.0f)));

    // A thousandth of the width per millisecond: 250 ms move the picture by a quarter.
    call.addParameter("p2", "0.001");
    call.addParameter("p3", "0");
    layer.modify("scrollTexture", &call);
    drawAt(1266, 250);
    drawAt(1516, 250);
    EXPECT_TRUE(red(gl::pixelAt(-0.75f, 0.0f)));
    EXPECT_TRUE(blue(gl::pixelAt(-0.25f, 0.0f)));
    EXPECT_TRUE(blue(gl::pixelAt(0.25f, 0.0f)));
    EXPECT_TRUE(red(gl::pixelAt(0.75f, 0.0f))) << "the picture repeats while it scrolls";
}

TEST_F(EffectBehaviour, AScaledQuadIsHalfItsScaleEachWayFromTheCentre) {
    Texture* picture = halves();
    picture->bind();
    picture->drawQuadScaled(Vector<float, 2>(1.0f, 0.5f));
    picture->release();
    EXPECT_TRUE(red(gl::pixelAt(-0.45f, 0.2f)));
    EXPECT_TRUE(blue(gl::pixelAt(0.45f, -0.2f)));
    EXPECT_TRUE(black(gl::pixelAt(0.55f, 0.0f)));
    EXPECT_TRUE(black(gl::pixelAt(0.0f, 0.28f)));
}

// The bundled camera path has 19 keyframes: a Catmull-Rom flight passes keyframe 1 at its
// start, and halfway (a whole segment count, which the path rounds up) keyframe 10.
const Vector<float, 3> keyframe1(0.0f, 1.5f, 7.0f), halfway(-3.0847f, 0.5761f, -7.4471f);

::testing::AssertionResult cameraAt(const Vector<float, 3>& want) {
    Vector<float, 3> at = QLNDemosys::camera.getPosition();
    for (int i = 0; i < 3; ++i)
        if (std::abs(at[i] - want[i]) > 0.01f)
            return ::testing::AssertionFailure() << "camera at " << at[0] << "," << at[1] << "," << at[2];
    return ::testing::AssertionSuccess();
}

TEST_F(EffectBehaviour, TheIntroLogoFliesItsPathFromItsStartOrOverTheScriptedSpan) {
    ParameterGroup* scripted = QLNDemosys::effects->getGroup("intro");
    IntroLogoEffect late, early;
    for (IntroLogoEffect* logo : {&late, &early}) {
        logo->setParameters(scripted);
        logo->init();
    }
    auto drawAt = [](IntroLogoEffect& logo, unsigned int time) {
        gl::reset();
        QLNDemosys::screenMetrics->setView();
        logo.draw(time);
        return gl::frame();
    };
    // Without a "fly" call the flight lasts 7680 ms from the effect's start.
    late.setStartTime(2000);
    drawAt(late, 2000);
    EXPECT_TRUE(cameraAt(keyframe1));
    std::vector<uint8_t> lateFrame = drawAt(late, 2000 + 3840);
    EXPECT_TRUE(cameraAt(halfway));
    gl::reset();
    EXPECT_GT(gl::differing(gl::frame(), lateFrame), lateFrame.size() / 100) << "the logo is in sight";
    // Started two seconds earlier, the same moment of its flight looks the same.
    early.setStartTime(0);
    EXPECT_EQ(gl::differing(drawAt(early, 3840), lateFrame), 0u);
    EXPECT_TRUE(cameraAt(halfway));

    ParameterGroup fly;
    fly.addParameter("p1", "00:04:000");
    fly.addParameter("p2", "00:08:000");
    late.modify("fly", &fly);
    drawAt(late, 4000);
    EXPECT_TRUE(cameraAt(keyframe1));
    drawAt(late, 6000);
    EXPECT_TRUE(cameraAt(halfway));
    // A span that ends before it starts is ignored.
    fly.addParameter("p1", "00:09:000");
    late.modify("fly", &fly);
    drawAt(late, 6000);
    EXPECT_TRUE(cameraAt(halfway));
}

}  // namespace
