// Effects started with a framebuffer name draw into it: the pool binds it around their
// draw and the screen is bound again for the effects after them.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "demosys/ActionPool.h"
#include "demosys/Data.h"
#include "demosys/DataEffectPool.h"
#include "demosys/DataFBOPool.h"
#include "demosys/Effect.h"
#include "demosys/EventStartEffect.h"
#include "demosys/FrameBufferObject.h"
#include "demosys/ParameterGroup.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"
#include "demosys/ScreenMetrics.h"
#include "support/GLTestSupport.h"
#include "support/TestSupport.h"

namespace {

// Fills whatever it is drawing into with one colour and notes where it was drawing.
class FillEffect : public Effect {
public:
    FillEffect(float r, float g, float b) : colour{r, g, b} {}
    void draw(unsigned int) override {
        glGetIntegerv(GL_FRAMEBUFFER_BINDING_EXT, &boundFramebuffer);
        glGetIntegerv(GL_VIEWPORT, viewport.data());
        glClearColor(colour[0], colour[1], colour[2], 1.0f);
        glClear(GL_COLOR_BUFFER_BIT);
    }
    std::array<float, 3> colour;
    GLint boundFramebuffer = -1;
    std::array<GLint, 4> viewport{};
};

}  // namespace

TEST(RenderTarget, StartEventWithAFramebufferNameDrawsTheEffectOffScreen) {
    if (!testsupport::ensureGLWindow(640, 480)) GTEST_SKIP() << "no OpenGL window";
    ScreenMetrics metrics;
    metrics.setResolution(640, 480);
    QLNDemosys::screenMetrics = &metrics;
    metrics.initView();
    metrics.setView();

    Data* data = new Data();
    DataEffectPool* effects = new DataEffectPool();
    DataFBOPool* fbos = new DataFBOPool();
    data->addData("effectPool", effects);
    data->addData("fboPool", fbos);
    FrameBufferObject* target = new FrameBufferObject(64, 32, false, false);
    ASSERT_TRUE(target->isValid());
    fbos->addFBO("offscreen", target);
    FillEffect* inside = new FillEffect(1, 0, 0);
    FillEffect* onScreen = new FillEffect(0, 0, 1);
    effects->addEffect("inside", inside);
    effects->addEffect("onScreen", onScreen);
    ActionPool action;
    QLNDemosys::data = data;
    QLNDemosys::action = &action;

    ParameterGroup* first = new ParameterGroup();
    first->addParameter("object", "inside");
    first->addParameter("p2", "10");
    first->addParameter("p3", "offscreen");
    ParameterGroup* second = new ParameterGroup();
    second->addParameter("object", "onScreen");
    second->addParameter("p2", "20");
    EventStartEffect startInside(new QLNTime(0), first);
    EventStartEffect startOnScreen(new QLNTime(0), second);
    startInside.execute();
    startOnScreen.execute();
    EXPECT_EQ(target, inside->getRenderTarget());
    EXPECT_EQ(nullptr, onScreen->getRenderTarget());

    action.execute(100);
    EXPECT_EQ(static_cast<GLint>(target->getId()), inside->boundFramebuffer);
    EXPECT_EQ((std::array<GLint, 4>{0, 0, 64, 32}), inside->viewport);
    EXPECT_EQ(0, onScreen->boundFramebuffer);
    // The screen's own view again (one pixel short on both axes, as the screen sets it).
    EXPECT_EQ((std::array<GLint, 4>{0, 0, 639, 479}), onScreen->viewport);

    EXPECT_EQ((std::array<uint8_t, 4>{0, 0, 255, 255}), testsupport::readPixel(320, 240));
    target->bind();
    EXPECT_EQ((std::array<uint8_t, 4>{255, 0, 0, 255}), testsupport::readPixel(10, 10));
    target->release();
    EXPECT_TRUE(FrameBufferObject::fboStack.empty());
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());

    QLNDemosys::action = nullptr;
    QLNDemosys::data = nullptr;
    QLNDemosys::screenMetrics = nullptr;
    testsupport::captureStdout([&] { delete data; });
}
