// The sine scroller in a real window: the text typed once into a real framebuffer object,
// the band of 40 quads bent by the wave, and the sideways scroll on a driven clock.
#include "demo/ScrollEffect.h"

#include <cmath>

#include "TextEffectsGL.h"
#include "demosys/FrameBufferObject.h"
#include "demosys/ScreenMetrics.h"

using namespace texttest;

namespace {

const Rgb clearColour{30, 30, 90};
const std::string alphabet = "abcdefghijklmnopqrstuvwxyz";

class ScrollEffectTest : public EffectFixture {
protected:
    void SetUp() override {
        EffectFixture::SetUp();
        metrics.setResolution(windowWidth(), windowHeight());
        metrics.initView();
        QLNDemosys::screenMetrics = &metrics;
        addFont();
        // 64 cells of 16 pixels: the screen shows a quarter, 16 cells of 40 pixels.
        buffer = new FrameBufferObject(1024, 64, false, false);
        ASSERT_TRUE(buffer->isValid());
        fbos->addFBO("fontbuffer", buffer);
        fill(0, 0, 0, 0);
    }

    void TearDown() override {
        EffectFixture::TearDown();
        QLNDemosys::screenMetrics = nullptr;
    }

    // Paints the whole text picture one colour.
    void fill(float r, float g, float b, float a) {
        buffer->bind();
        glClearColor(r, g, b, a);
        glClear(GL_COLOR_BUFFER_BIT);
        buffer->release();
    }

    // Starts the scroller and returns what its init printed.
    std::string startScroller(const std::string& text, const char* font = "font",
                              const char* fbo = "fontbuffer") {
        return testsupport::captureStdout([&] {
            ScrollEffect prototype;
            start(prototype, {{"font", font}, {"text", text.c_str()}, {"fontbuffer", fbo}});
        });
    }

    // The glyph seen in the middle of the band at screen x, for the given phase.
    int glyphAtBand(float x, float phase) {
        float centre = -0.1f + 0.1f * std::sin(std::sin(6.0f * x + phase));
        return glyphOf(pixelAt(x, centre));
    }

    // Lit runs along one window row: the quad edges when drawn as outlines.
    std::vector<int> runsInRow(int y) {
        std::vector<int> starts;
        bool inside = false;
        for (int x = 0; x < windowWidth(); ++x) {
            bool lit = !near(pixel(x, y), clearColour, 8);
            if (lit && !inside) starts.push_back(x);
            inside = lit;
        }
        return starts;
    }

    ScreenMetrics metrics;
    FrameBufferObject* buffer = nullptr;  // owned by the pool
};

TEST_F(ScrollEffectTest, TypesTheTextOnceAndShowsAQuarterOfItAlongTheWave) {
    EXPECT_EQ(startScroller(alphabet), "TEXT: " + alphabet + "\n");
    frame(1000, clearColour);  // phase 0, scroll 0
    for (int k = 0; k < 16; ++k) EXPECT_EQ(glyphAtBand(-1.0f + (k + 0.5f) / 8.0f, 0.0f), k) << "cell " << k;
    EXPECT_TRUE(near(pixelAt(0.0f, 0.5f), clearColour));
    EXPECT_TRUE(near(pixelAt(0.0f, -0.6f), clearColour));
    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    EXPECT_FALSE(glIsEnabled(GL_ALPHA_TEST));
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));

    // That frame was a second long: the text moved 0.07 of its width (4.48 cells) to the
    // left and the wave advanced by one radian.
    frame(1016, clearColour);
    for (int cell = 5; cell < 20; ++cell) {
        float x = (cell + 0.5f - 4.48f) / 8.0f - 1.0f;
        EXPECT_EQ(glyphAtBand(x, 1.0f), cell) << "cell " << cell;
    }

    // A new text is stored but not typed: the picture stays. "reset" rewinds the scroll.
    call(1020, "setText", {"zzzz"});
    call(1020, "reset", {});
    call(1020, "unknown", {"1"});
    frame(1032, clearColour);
    EXPECT_EQ(glyphAtBand(-1.0f + 0.5f / 8.0f, 1.016f), 0);
    EXPECT_EQ(glyphAtBand(-1.0f + 3.5f / 8.0f, 1.016f), 3);
}

TEST_F(ScrollEffectTest, BandIsFortyQuadsFromLeftToRightEdge) {
    startScroller(alphabet);
    fill(1, 1, 1, 1);
    // Drawn at half width and double height so that any quad beyond the right edge, and
    // the outlines of every quad, land on screen.
    resetGL();
    glClearColor(clearColour[0] / 255.0f, clearColour[1] / 255.0f, clearColour[2] / 255.0f, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glMatrixMode(GL_PROJECTION);
    glScalef(0.5f, 2.0f, 1.0f);
    glMatrixMode(GL_MODELVIEW);
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    action.execute(1000);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);

    // A row through the band's middle (y = -0.1) crosses only the vertical quad edges.
    std::vector<int> edges = runsInRow(static_cast<int>(0.4f * windowHeight()));
    ASSERT_EQ(edges.size(), 41u);
    int quarter = windowWidth() / 4;
    for (size_t k = 0; k < edges.size(); ++k)
        EXPECT_NEAR(edges[k], quarter + k * windowWidth() / 80.0, 1.5) << "edge " << k;

    // Filled, the band covers exactly the middle half of that row.
    frame(1016, clearColour);
    glMatrixMode(GL_PROJECTION);
    glScalef(0.5f, 2.0f, 1.0f);
    glMatrixMode(GL_MODELVIEW);
    glClear(GL_COLOR_BUFFER_BIT);
    action.execute(1016);
    std::vector<int> runs = runsInRow(static_cast<int>(0.4f * windowHeight()));
    ASSERT_EQ(runs.size(), 1u);
    EXPECT_NEAR(runs[0], quarter, 1);
    EXPECT_TRUE(near(pixel(3 * quarter - 2, static_cast<int>(0.4f * windowHeight())), Rgb{255, 255, 255}));
    EXPECT_TRUE(near(pixel(3 * quarter + 1, static_cast<int>(0.4f * windowHeight())), clearColour));
}

TEST_F(ScrollEffectTest, LeftEndOfTheBandFollowsTheSineOfASine) {
    startScroller(alphabet);
    fill(1, 1, 1, 1);
    frame(1000, clearColour);
    int column = 2;
    int lowest = -1, highest = -1;
    for (int y = 0; y < windowHeight(); ++y)
        if (near(pixel(column, y), Rgb{255, 255, 255})) {
            if (lowest < 0) lowest = y;
            highest = y;
        }
    ASSERT_GE(lowest, 0);
    float middle = 0.1f * std::sin(std::sin(-6.0f)) - 0.1f;
    auto toNdc = [this](int row) { return (row + 0.5f) / windowHeight() * 2.0f - 1.0f; };
    EXPECT_NEAR(toNdc(highest), middle + 0.1f, 0.012);
    EXPECT_NEAR(toNdc(lowest), middle - 0.1f, 0.012);
}

TEST_F(ScrollEffectTest, ASecondInitNeitherRetypesNorPrintsButRewinds) {
    startScroller(alphabet);
    frame(1000, clearColour);
    frame(1016, clearColour);
    std::string printed = testsupport::captureStdout([this] { effect->init(); });
    EXPECT_EQ(printed, "");
    frame(1032, clearColour);  // scroll and phase start from zero again
    for (int k = 0; k < 16; k += 5) EXPECT_EQ(glyphAtBand(-1.0f + (k + 0.5f) / 8.0f, 0.0f), k) << "cell " << k;

    fill(0, 0, 0, 0);
    testsupport::captureStdout([this] { effect->init(); });
    frame(1048, clearColour);
    EXPECT_TRUE(near(pixelAt(-1.0f + 0.5f / 8.0f, -0.1f + 0.1f * std::sin(std::sin(-6.0f + 0.375f))),
                     clearColour));
}

TEST_F(ScrollEffectTest, MissingBufferFontOrParametersDrawNothingAndNeverCrash) {
    std::string printed = startScroller(alphabet, "font", "nope");
    EXPECT_NE(printed.find("TEXT: " + alphabet + "\n"), std::string::npos);
    EXPECT_NE(printed.find("FrameBufferObject::getFBO(nope) cannot find the requested VBO"), std::string::npos);
    frame(1000, clearColour);
    EXPECT_TRUE(near(pixelAt(0.0f, -0.1f), clearColour));
    call(1000, "setText", {});
    call(1000, "reset", {});
    frame(1016, clearColour);
    EXPECT_FALSE(glIsEnabled(GL_BLEND));

    // Without a font the buffer is typed with nothing.
    ScrollEffect noFont;
    ParameterGroup group;
    group.addParameter("font", "nope");
    group.addParameter("text", alphabet);
    group.addParameter("fontbuffer", "fontbuffer");
    noFont.setParameters(&group);
    testsupport::captureStdout([&] { noFont.init(); });
    action.removeAll();
    action.addEffect("nofont", &noFont, 50);
    frame(2000, clearColour);
    EXPECT_TRUE(near(pixelAt(-1.0f + 0.5f / 8.0f, -0.1f + 0.1f * std::sin(std::sin(-6.0f + 0.375f))),
                     clearColour));
    action.removeAll();

    ScrollEffect bare;
    testsupport::captureStdout([&] { bare.init(); });
    bare.modify("setText", nullptr);
    bare.draw(10);
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(ScrollEffectTest, DefinitionDeclaresFontTextBufferAndMethods) {
    std::unique_ptr<EffectDefinition> definition = loadDefinition("ScrollEffect");
    ASSERT_NE(definition, nullptr);
    for (const char* p : {"font", "text", "fontbuffer"}) EXPECT_TRUE(definition->hasParameter(p)) << p;
    ASSERT_TRUE(definition->hasMethod("setText"));
    EXPECT_EQ(definition->getMethod("setText")->size(), 2);
    ASSERT_TRUE(definition->hasMethod("reset"));
    EXPECT_EQ(definition->getMethod("reset")->size(), 1);

    // The defaults name the font "font" and the buffer "fontbuffer".
    std::string printed = testsupport::captureStdout([&] {
        ScrollEffect prototype;
        startWithDefaults(prototype, *definition);
    });
    EXPECT_EQ(printed.rfind("TEXT: ", 0), 0u);
    frame(1000, clearColour);
    EXPECT_GE(glyphAtBand(-1.0f + 0.5f / 8.0f, 0.0f), 0);
}

}  // namespace
