// The text box drawn into a real window: which glyph each cell shows, the background and
// frame, the ghost writer with its blinking cursor, and the scripted setters.
#include "demo/TextwriterEffect.h"

#include "TextEffectsGL.h"

using namespace texttest;

namespace {

const Rgb clearColour{200, 200, 200};
const Rgb backgroundColour{100, 100, 100};  // black at half opacity over the clear colour
const Rgb white{255, 255, 255};

class TextwriterEffectTest : public EffectFixture {
protected:
    void startWriter(const char* font = "font") {
        addFont();
        TextwriterEffect prototype;
        start(prototype, {{"texture", font}, {"cols", "17"}, {"rows", "4"}});
    }

    // The box geometry the test expects the writer to use.
    float left = -1.0f, top = 0.9f, cellWidth = 0.1f, cellHeight = 0.1f;

    Rgb cell(int column, int row) {
        return pixelAt(left + cellWidth * (column + 0.5f), top - cellHeight * (row + 0.5f));
    }
    int glyphAt(int column, int row) { return glyphOf(cell(column, row)); }
};

TEST_F(TextwriterEffectTest, DefaultBoxWritesTheTopRowOverAHalfTransparentFramedBackground) {
    startWriter();
    call(0, "setText", {"hello world"});
    GLint projectionDepth = integer(GL_PROJECTION_STACK_DEPTH);
    GLint modelviewDepth = integer(GL_MODELVIEW_STACK_DEPTH);
    frame(10);

    const int expected[] = {7, 4, 11, 11, 14, -1, 22, 14, 17, 11, 3};
    for (int c = 0; c < 11; ++c) {
        if (expected[c] < 0)
            EXPECT_TRUE(near(cell(c, 0), backgroundColour)) << "space in cell " << c;
        else
            EXPECT_EQ(glyphAt(c, 0), expected[c]) << "cell " << c;
    }
    EXPECT_TRUE(near(cell(11, 0), backgroundColour));
    EXPECT_TRUE(near(cell(0, 1), backgroundColour));
    // The 2 x 2 background hangs from y = 0.9 to below the screen; above it the picture is untouched.
    EXPECT_TRUE(near(pixelAt(0.0f, 0.95f), clearColour));
    EXPECT_TRUE(near(pixelAt(0.5f, -0.99f), backgroundColour));
    // The white frame runs along the top edge.
    int frameRow = static_cast<int>(0.95f * windowHeight());
    bool frameSeen = near(pixel(windowWidth() / 2, frameRow), white) ||
                     near(pixel(windowWidth() / 2, frameRow - 1), white);
    EXPECT_TRUE(frameSeen);

    // The writer leaves blending, alpha test, colour material and both matrix stacks as it found them.
    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    EXPECT_FALSE(glIsEnabled(GL_ALPHA_TEST));
    EXPECT_FALSE(glIsEnabled(GL_COLOR_MATERIAL));
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    EXPECT_FALSE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_FALSE(glIsEnabled(GL_LIGHTING));
    EXPECT_EQ(integer(GL_MATRIX_MODE), GL_MODELVIEW);
    EXPECT_EQ(integer(GL_PROJECTION_STACK_DEPTH), projectionDepth);
    EXPECT_EQ(integer(GL_MODELVIEW_STACK_DEPTH), modelviewDepth);
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(TextwriterEffectTest, CharactersMapOntoTheFontLayout) {
    startWriter();
    // Upper case has no glyph of its own and shows the strip left of glyph 0, which the
    // repeating texture wraps to the last glyph of the top row. Line feeds draw as spaces,
    // 0xFF reads like "6", and bytes above the table leave their cell empty.
    call(0, "setText", {"az09.-!+'*@12A\n\xff\x80x"});
    frame(10);

    const int expected[] = {0, 25, 42, 41, 43, 43, 44, 52, 53, 54, 54, 8, 34, 16, -1, 38, -1, 23};
    for (int c = 0; c < 18; ++c) {
        if (expected[c] < 0)
            EXPECT_TRUE(near(cell(c, 0), backgroundColour)) << "cell " << c;
        else
            EXPECT_EQ(glyphAt(c, 0), expected[c]) << "cell " << c;
    }
}

TEST_F(TextwriterEffectTest, OnlyABackslashBreaksTheLine) {
    startWriter();
    call(0, "setText", {"a\\b"});
    frame(10);
    EXPECT_EQ(glyphAt(0, 0), 0);
    EXPECT_TRUE(near(cell(1, 0), backgroundColour));
    EXPECT_EQ(glyphAt(0, 1), 1);
    EXPECT_TRUE(near(cell(1, 1), backgroundColour));

    // Text longer than a row wraps into the next one.
    call(20, "setText", {"bbbbbbbbbbbbbbbbbbbbc"});
    frame(30);
    EXPECT_EQ(glyphAt(19, 0), 1);
    EXPECT_EQ(glyphAt(0, 1), 2);
}

TEST_F(TextwriterEffectTest, AFullGridShowsEveryCellButGhostWritingKeepsTheLastForTheCursor) {
    startWriter();
    top = 1.0f;
    call(0, "setPosition", {"-1.0", "1.0"});
    call(0, "setText", {std::string(450, 'b').c_str()});
    frame(10);
    EXPECT_EQ(glyphAt(0, 0), 1);
    EXPECT_EQ(glyphAt(19, 19), 1);

    call(0, "ghostWriter", {"1"});
    call(0, "setWriteSpeed", {"1"});
    frame(1050);  // far more letters due than cells: 399 letters, the cursor in the last cell
    EXPECT_EQ(glyphAt(18, 19), 1);
    EXPECT_TRUE(near(cell(19, 19), white));
    frame(1020);  // first half of the blink period: the cursor is off
    EXPECT_EQ(glyphAt(18, 19), 1);
    EXPECT_TRUE(near(cell(19, 19), backgroundColour));
}

TEST_F(TextwriterEffectTest, GhostWriterTypesOneLetterPerPeriodAndEveryCallRestartsIt) {
    startWriter();
    call(0, "setText", {"abcdefghij"});
    call(0, "ghostWriter", {"true"});

    frame(999);  // four letters; the cursor in cell 4 is in the lit half of its period
    EXPECT_EQ(glyphAt(3, 0), 3);
    EXPECT_TRUE(near(cell(4, 0), white));
    EXPECT_TRUE(near(cell(5, 0), backgroundColour));

    frame(1000);  // five letters after one second at 200 ms each; cursor dark for 0-49
    EXPECT_EQ(glyphAt(4, 0), 4);
    EXPECT_TRUE(near(cell(5, 0), backgroundColour));
    frame(1049);
    EXPECT_TRUE(near(cell(5, 0), backgroundColour));
    frame(1050);
    EXPECT_TRUE(near(cell(5, 0), white));
    EXPECT_TRUE(near(cell(6, 0), backgroundColour));

    // A later call, whatever it sets, restarts the typing from the first letter.
    call(2000, "setBlinkSpeed", {"1000"});
    frame(2000);
    EXPECT_TRUE(near(cell(0, 0), backgroundColour));
    frame(2499);
    EXPECT_EQ(glyphAt(1, 0), 1);
    EXPECT_TRUE(near(cell(2, 0), backgroundColour));
    frame(2500);
    EXPECT_TRUE(near(cell(2, 0), white));
}

TEST_F(TextwriterEffectTest, ScriptedSettersPlaceAndSizeTheBox) {
    startWriter();
    call(0, "setPosition", {"-0.5", "0.5"});
    call(0, "setBoxSize", {"1.0", "1.0"});
    call(0, "setGridSize", {"4", "2"});
    call(0, "setBorderSize", {"0.1"});
    call(0, "setLetterSpacing", {"0.5"});  // kept, but the inset stays fixed
    call(0, "setText", {"abcde"});
    frame(10);

    left = -0.5f, top = 0.5f, cellWidth = 0.25f, cellHeight = 0.5f;
    EXPECT_EQ(glyphAt(0, 0), 0);
    EXPECT_EQ(glyphAt(3, 0), 3);
    EXPECT_EQ(glyphAt(0, 1), 4);
    EXPECT_TRUE(near(cell(1, 1), backgroundColour));
    // Cells keep three hundredths of their size free on each side.
    EXPECT_EQ(glyphOf(pixelAt(-0.5f + 0.25f * 0.15f, 0.25f)), 0);
    EXPECT_TRUE(near(pixelAt(-0.5f + 0.25f * 0.01f, 0.25f), backgroundColour));
    // The background reaches the border size beyond the box on every side.
    EXPECT_TRUE(near(pixelAt(-0.55f, 0.0f), backgroundColour));
    EXPECT_TRUE(near(pixelAt(-0.65f, 0.0f), clearColour));
    EXPECT_TRUE(near(pixelAt(0.0f, 0.55f), backgroundColour));
    EXPECT_TRUE(near(pixelAt(0.0f, 0.65f), clearColour));
    EXPECT_TRUE(near(pixelAt(0.55f, -0.55f), backgroundColour));
    EXPECT_TRUE(near(pixelAt(0.65f, -0.65f), clearColour));
}

TEST_F(TextwriterEffectTest, ShowBackgroundAcceptsOnlyOneAndTrueAsOn) {
    startWriter();
    call(0, "setText", {"a"});
    const std::pair<const char*, bool> cases[] = {
        {"0", false}, {"1", true}, {"TRUE", false}, {"true", true}, {"yes", false}};
    for (const auto& c : cases) {
        call(0, "showBackground", {c.first});
        frame(10);
        EXPECT_TRUE(near(pixelAt(0.0f, -0.5f), c.second ? backgroundColour : clearColour)) << c.first;
        EXPECT_EQ(glyphAt(0, 0), 0) << c.first;
    }
}

TEST_F(TextwriterEffectTest, ASecondInitKeepsTheFirstWriter) {
    startWriter();
    addTexture("other", 8, 8, solid(8, 8, Rgb{255, 0, 0}));
    call(0, "setText", {"c"});
    params.addParameter("texture", "other");
    params.addParameter("cols", "1");
    effect->init();
    frame(10);
    EXPECT_EQ(glyphAt(0, 0), 2);
}

TEST_F(TextwriterEffectTest, MissingPiecesAndBadInputNeverCrashAndDrawNothingForWhatIsMissing) {
    // An unknown font alias: no letters, but the background and the cursor still show.
    startWriter("nope");
    call(0, "setText", {"ab"});
    call(0, "ghostWriter", {"1"});
    frame(1050);
    EXPECT_TRUE(near(cell(0, 0), backgroundColour));
    EXPECT_TRUE(near(cell(1, 0), backgroundColour));
    EXPECT_TRUE(near(cell(2, 0), white));

    // Calls that lack their arguments change nothing.
    const char* methods[] = {"setText",       "setPosition",   "setBoxSize",    "setGridSize",
                             "setLetterSpacing", "ghostWriter", "setWriteSpeed", "setBorderSize",
                             "setBlinkSpeed", "showBackground", "noSuchMethod"};
    for (const char* m : methods) call(1000, m, {});
    call(1000, "setPosition", {"0.5"});
    call(1000, "setGridSize", {"1"});
    frame(2050);
    EXPECT_TRUE(near(cell(2, 0), white));
    effect->modify("setText", nullptr);

    // Zero speeds would divide by zero: everything is typed at once, the cursor stays lit.
    call(3000, "setText", {"abcdefgh\x80\x90\xfe"});
    call(3000, "setWriteSpeed", {"0"});
    call(3000, "setBlinkSpeed", {"0"});
    frame(3000);
    EXPECT_TRUE(near(cell(11, 0), white));
    frame(3010);

    // No parameters at all, a zero-sized font grid, a writer that was never made.
    TextwriterEffect bare;
    bare.init();
    bare.modify("setText", nullptr);
    ParameterGroup text;
    text.addParameter("p2", "abc");
    bare.modify("setText", &text);
    bare.draw(100);
    TextwriterEffect neverInitialised;
    neverInitialised.modify("setPosition", &text);
    neverInitialised.draw(100);
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(TextwriterEffectTest, DefinitionDeclaresWhatInitReadsAndEveryMethod) {
    std::unique_ptr<EffectDefinition> definition = loadDefinition("TextwriterEffect");
    ASSERT_NE(definition, nullptr);
    for (const char* p : {"texture", "cols", "rows"}) EXPECT_TRUE(definition->hasParameter(p)) << p;
    const std::pair<const char*, int> methods[] = {
        {"setText", 2},        {"setPosition", 3},   {"setBoxSize", 3},    {"setGridSize", 3},
        {"setLetterSpacing", 2}, {"ghostWriter", 2}, {"setWriteSpeed", 2}, {"setBorderSize", 2},
        {"setBlinkSpeed", 2},  {"showBackground", 2}};
    for (const auto& m : methods) {
        ASSERT_TRUE(definition->hasMethod(m.first)) << m.first;
        EXPECT_EQ(definition->getMethod(m.first)->size(), m.second) << m.first;
        EXPECT_EQ(definition->getMethod(m.first)->getParameter("00"), "<event>") << m.first;
    }

    // Its defaults name a 17 x 4 font under the alias "font".
    addFont();
    TextwriterEffect prototype;
    startWithDefaults(prototype, *definition);
    call(0, "setText", {"q"});
    frame(10);
    EXPECT_EQ(glyphAt(0, 0), 16);
}

}  // namespace
