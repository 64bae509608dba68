// The opening doors drawn into a real window on a driven clock: how far apart the two
// panels stand in each frame, read back as the rows of the picture they leave uncovered.
#include "demo/StartEffect.h"

#include "TextEffectsGL.h"

using namespace texttest;

namespace {

const Rgb behind{255, 0, 0};  // cleared before every frame; shows between the panels
const Rgb upperPanel{152, 220, 202};
const Rgb lowerPanel{49, 146, 121};

class StartEffectTest : public EffectFixture {
protected:
    void SetUp() override {
        EffectFixture::SetUp();
        StartEffect prototype;
        start(prototype, {});
    }

    void draw(unsigned int t) { frame(t, behind); }

    // Rows of the middle column that neither panel covers.
    int gap() {
        int rows = 0;
        for (int y = 0; y < windowHeight(); ++y)
            if (near(pixel(windowWidth() / 2, y), behind)) ++rows;
        return rows;
    }
    // The panels' distance from the middle, measured on screen.
    float measuredOffset() { return gap() / float(windowHeight()); }
};

TEST_F(StartEffectTest, DoorsCloseAndBounceBackWithHalfTheAmplitudeEachTime) {
    QLNDemosys::cameraActive = true;
    // First frame: the panels lie just outside the screen. The 910 ms step takes the
    // phase from 90 to 181 degrees.
    draw(910);
    EXPECT_EQ(gap(), windowHeight());
    EXPECT_FALSE(QLNDemosys::cameraActive);

    // Closed: the upper colour fills the top half, the lower the bottom half.
    draw(926);
    EXPECT_EQ(gap(), 0);
    EXPECT_TRUE(near(pixelAt(0.0f, 0.9f), upperPanel));
    EXPECT_TRUE(near(pixelAt(0.0f, 0.02f), upperPanel));
    EXPECT_TRUE(near(pixelAt(0.0f, -0.02f), lowerPanel));
    EXPECT_TRUE(near(pixelAt(-0.99f, -0.99f), lowerPanel));

    // After the wrap the phase restarts at 0: 1.7 degrees now, then an 881 ms step (plus
    // the grown speed) brings it to 90, the widest opening, now only half as wide.
    draw(1807);
    EXPECT_NEAR(measuredOffset(), std::sin(1.7 * M_PI / 180.0) / 2.0, 0.005);
    draw(1823);
    EXPECT_NEAR(measuredOffset(), 0.5, 0.005);
    EXPECT_TRUE(near(pixelAt(0.0f, 0.6f), upperPanel));
    EXPECT_TRUE(near(pixelAt(0.0f, 0.4f), behind));
    EXPECT_TRUE(near(pixelAt(0.0f, -0.4f), behind));
    EXPECT_TRUE(near(pixelAt(0.0f, -0.6f), lowerPanel));

    // Closed again past 180 degrees, then open to a quarter.
    draw(2713);
    draw(2729);
    EXPECT_EQ(gap(), 0);
    draw(3602);
    draw(3618);
    EXPECT_NEAR(measuredOffset(), 0.25, 0.005);
}

TEST_F(StartEffectTest, SpeedGrowsEveryFrameSoEqualStepsSwingFurther) {
    // Sixteen-millisecond frames: 1.6 degrees per frame plus a speed that grows by 0.1, so
    // frame n draws at 90 + 1.6 n + 0.05 n (n - 1) degrees: 177 at n = 29, 181.5 at n = 30.
    unsigned int t = 16;
    for (int n = 0; n < 30; ++n, t += 16) draw(t);
    EXPECT_NEAR(measuredOffset(), std::sin(177.0 * M_PI / 180.0), 0.005);
    draw(t);
    EXPECT_EQ(gap(), 0);
}

TEST_F(StartEffectTest, ResetAndInitOpenTheDoorsAgain) {
    draw(910);
    draw(926);
    EXPECT_EQ(gap(), 0);
    effect->reset();
    draw(942);
    EXPECT_EQ(gap(), windowHeight());
    draw(1852);
    draw(1868);
    EXPECT_EQ(gap(), 0);
    effect->init();
    draw(1884);
    EXPECT_EQ(gap(), windowHeight());
    effect->modify("anything", nullptr);  // no scripted methods
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST_F(StartEffectTest, DefinitionDeclaresNoMethodsAndItsDefaultsChangeNothing) {
    std::unique_ptr<EffectDefinition> definition = loadDefinition("StartEffect");
    ASSERT_NE(definition, nullptr);
    EXPECT_FALSE(definition->hasMethods() && definition->getMethods()->size() > 0);
    // A script block needs one entry to exist at all; the effect reads none.
    action.removeAll();
    std::unique_ptr<Effect> replaced(effect);  // the pool does not delete what a new "fx" replaces
    StartEffect prototype;
    startWithDefaults(prototype, *definition);
    draw(910);
    EXPECT_EQ(gap(), windowHeight());
    draw(926);
    EXPECT_EQ(gap(), 0);
}

}  // namespace
