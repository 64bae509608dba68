// The title flicker drawn into a real window: which of the three pictures fills the
// screen at chosen demo times.
#include "demo/TitleEffect.h"

#include "TextEffectsGL.h"

using namespace texttest;

namespace {

const Rgb red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255};
const Rgb clearColour{40, 40, 40};

class TitleEffectTest : public EffectFixture {
protected:
    void SetUp() override {
        EffectFixture::SetUp();
        addTexture("first", 4, 4, solid(4, 4, red));
        addTexture("second", 4, 4, solid(4, 4, green));
        addTexture("third", 4, 4, solid(4, 4, blue));
    }

    void startTitle(const char* one = "first", const char* two = "second", const char* three = "third") {
        TitleEffect prototype;
        start(prototype, {{"brovell1", one}, {"brovell2", two}, {"brovell3", three}});
    }

    // The picture on screen, judged at the middle and at two corners.
    Rgb shown(unsigned int t) {
        frame(t, clearColour);
        Rgb middle = pixelAt(0.0f, 0.0f);
        EXPECT_TRUE(near(pixelAt(-0.99f, 0.99f), middle)) << "at " << t;
        EXPECT_TRUE(near(pixelAt(0.99f, -0.99f), middle)) << "at " << t;
        return middle;
    }
};

TEST_F(TitleEffectTest, EachPictureFillsTheScreenForAHundredMillisecondsInTurn) {
    startTitle();
    EXPECT_TRUE(near(shown(0), red));
    EXPECT_TRUE(near(shown(99), red));
    EXPECT_TRUE(near(shown(100), green));
    EXPECT_TRUE(near(shown(199), green));
    EXPECT_TRUE(near(shown(200), blue));
    EXPECT_TRUE(near(shown(299), blue));
    EXPECT_TRUE(near(shown(300), red));
    EXPECT_TRUE(near(shown(65432), red));  // 65432 mod 300 = 32
    EXPECT_TRUE(near(shown(65699), blue));
}

TEST_F(TitleEffectTest, FullScreenWhateverTheMatricesAndStateAreRestored) {
    startTitle();
    frame(150, clearColour);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(45.0, 4.0 / 3.0, 0.1, 100.0);
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(0.3f, 0.2f, -5.0f);
    GLint projectionDepth = integer(GL_PROJECTION_STACK_DEPTH);
    GLint modelviewDepth = integer(GL_MODELVIEW_STACK_DEPTH);
    glClear(GL_COLOR_BUFFER_BIT);
    action.execute(150);
    EXPECT_TRUE(near(pixelAt(-0.99f, 0.99f), green));
    EXPECT_TRUE(near(pixelAt(0.99f, -0.99f), green));
    EXPECT_FALSE(glIsEnabled(GL_COLOR_MATERIAL));
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    EXPECT_EQ(integer(GL_PROJECTION_STACK_DEPTH), projectionDepth);
    EXPECT_EQ(integer(GL_MODELVIEW_STACK_DEPTH), modelviewDepth);
    // The clear colour for the next frame is transparent black.
    GLfloat clear[4] = {1, 1, 1, 1};
    glGetFloatv(GL_COLOR_CLEAR_VALUE, clear);
    EXPECT_EQ(clear[0] + clear[1] + clear[2] + clear[3], 0.0f);
}

TEST_F(TitleEffectTest, AMissingPictureLeavesItsTurnEmpty) {
    startTitle("first", "nope", "third");
    EXPECT_TRUE(near(shown(50), red));
    EXPECT_TRUE(near(shown(150), clearColour));
    EXPECT_TRUE(near(shown(250), blue));

    TitleEffect bare;  // no parameters at all
    bare.init();
    bare.draw(0);
    effect->modify("anything", nullptr);
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(TitleEffectTest, DefinitionDeclaresTheThreePictures) {
    std::unique_ptr<EffectDefinition> definition = loadDefinition("TitleEffect");
    ASSERT_NE(definition, nullptr);
    addTexture("title1", 4, 4, solid(4, 4, blue));
    addTexture("title2", 4, 4, solid(4, 4, red));
    addTexture("title3", 4, 4, solid(4, 4, green));
    TitleEffect prototype;
    startWithDefaults(prototype, *definition);
    EXPECT_TRUE(near(shown(10), blue));
    EXPECT_TRUE(near(shown(110), red));
    EXPECT_TRUE(near(shown(210), green));
}

}  // namespace
