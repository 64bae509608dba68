// The wipes move the viewport for whatever is drawn after them; the flip throws the
// picture of a framebuffer away as a spinning card. Viewports are read back with
// glGetIntegerv, the card as pixels.
#include <algorithm>
#include <cmath>
#include <vector>

#include "TextEffectsGL.h"
#include "demo/BounceWipe.h"
#include "demo/FlipTransitionEffect.h"
#include "demo/ScrollWipe.h"
#include "demosys/FrameBufferObject.h"
#include "demosys/ScreenMetrics.h"

using namespace texttest;

namespace {

std::array<GLint, 4> viewport() {
    std::array<GLint, 4> v{};
    glGetIntegerv(GL_VIEWPORT, v.data());
    return v;
}

class TransitionTest : public EffectFixture {
protected:
    void SetUp() override {
        EffectFixture::SetUp();
        metrics.setResolution(800, 600);
        metrics.initView();
        QLNDemosys::screenMetrics = &metrics;
    }
    void TearDown() override {
        QLNDemosys::screenMetrics = nullptr;
        EffectFixture::TearDown();
    }
    ScreenMetrics metrics;
};

TEST_F(TransitionTest, BounceWipeStartsHalfAScreenUpAndEachBounceIsHalfAsHigh) {
    BounceWipe prototype;
    start(prototype, {});
    call(1000, "down", {});
    effect->setLastCalled(1000);
    effect->draw(1000);  // a first frame: a 16 ms step
    EXPECT_EQ(viewport(), (std::array<GLint, 4>{0, 300, 800, 900}));

    // Follow the picture through its first fall and second bounce.
    std::vector<int> heights;
    unsigned int t = 1000;
    int bounces = 0;
    while (bounces < 2 && heights.size() < 5000) {
        effect->setLastCalled(t);
        t += 16;
        effect->draw(t);
        int y = viewport()[1];
        if (y <= 0 && !heights.empty() && heights.back() > 0) ++bounces;
        heights.push_back(y);
    }
    ASSERT_EQ(bounces, 2);
    size_t landed = std::find_if(heights.begin(), heights.end(), [](int y) { return y <= 0; }) - heights.begin();
    int secondPeak = *std::max_element(heights.begin() + landed, heights.end());
    EXPECT_LE(secondPeak, 150) << "the second bounce reaches half the height of the first";
    EXPECT_GE(secondPeak, 140);

    call(t, "up", {});
    effect->draw(t);
    EXPECT_LT(viewport()[1], 0) << "up moves the picture down";
}

TEST_F(TransitionTest, ScrollWipeDownSlidesTheWholeScreenAwayAndStops) {
    ScrollWipe prototype;
    start(prototype, {});
    call(0, "down", {});
    effect->draw(0);
    EXPECT_EQ(viewport(), (std::array<GLint, 4>{0, 0, 800, 600}));
    // 16 ms frames advance 0.64 degrees; 90 degrees take 141 frames.
    unsigned int t = 0;
    for (int i = 0; i < 200; ++i) {
        effect->setLastCalled(t);
        t += 16;
        effect->draw(t);
    }
    effect->draw(t);
    EXPECT_EQ(viewport(), (std::array<GLint, 4>{0, -600, 800, 0}));
}

TEST_F(TransitionTest, ScrollWipeUpStartsHalfAScreenOffAndAdvancesByFrameTicks) {
    ScrollWipe prototype;
    start(prototype, {});
    call(0, "up", {});
    effect->setLastCalled(0);
    effect->draw(5000);  // a long pause counts as one 16 ms frame
    EXPECT_EQ(viewport(), (std::array<GLint, 4>{0, -300, 800, 300}));
    effect->setLastCalled(5000);
    effect->draw(5016);
    // sin(90.64 deg) * 300, truncated.
    int expected = static_cast<int>(300 * std::sin(90.64 * 3.14159265 / 180));
    EXPECT_EQ(viewport()[1], -expected);
}

TEST_F(TransitionTest, FlipWithoutBufferDrawsNothingAndLeavesStateAlone) {
    FlipTransitionEffect prototype;
    testsupport::captureStdout([&] { start(prototype, {}); });
    glEnable(GL_DEPTH_TEST);
    frame(100, Rgb{10, 20, 30});
    EXPECT_TRUE(near(pixel(400, 300), Rgb{10, 20, 30}));
    EXPECT_FALSE(glIsEnabled(GL_COLOR_MATERIAL));
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(TransitionTest, FlipShowsTheFramebufferAsACardAndClearsItForTheNextFrame) {
    FrameBufferObject* buffer = nullptr;
    testsupport::captureStdout([&] { buffer = new FrameBufferObject(64, 64, true, false); });
    fbos->addFBO("scene", buffer);
    buffer->bind();
    glClearColor(1, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    buffer->release();

    FlipTransitionEffect prototype;
    std::string log = testsupport::captureStdout([&] {
        start(prototype, {});
        call(0, "setBuffer", {"scene"});
    });
    EXPECT_NE(log.find("FlipTransitionEffect\n"), std::string::npos);
    EXPECT_NE(log.find("scene = FrameBufferObject(64,64,COLOR_BUFFER,DEPTH_BUFFER)\n"), std::string::npos);

    // The first frame shows the red picture in the middle of the screen.
    resetGL();
    glClearColor(0, 0, 1, 1);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glFrustum(-0.6667, 0.6667, -0.5, 0.5, 1.0, 100.0);
    glMatrixMode(GL_MODELVIEW);
    glClear(GL_COLOR_BUFFER_BIT);
    effect->draw(16);
    EXPECT_TRUE(near(pixel(windowWidth() / 2, windowHeight() / 2), Rgb{255, 0, 0})) << "the card shows the framebuffer's picture";

    // The framebuffer was cleared: the next frame's card is empty (transparent black).
    glClear(GL_COLOR_BUFFER_BIT);
    effect->draw(32);
    EXPECT_FALSE(near(pixel(windowWidth() / 2, windowHeight() / 2), Rgb{255, 0, 0}));
}

}  // namespace
