// Off-screen targets nest: each release returns to the target (and viewport) below it,
// the last one to the screen's view; a release out of order is reported and ignored.
#include <memory>

#include "demosys/FrameBufferObject.h"
#include "demosys/QLNDemosys.h"
#include "support/GLHarness.h"
#include "support/TestSupport.h"

namespace {

class FrameBufferStack : public GLTest {
protected:
    static std::array<GLint, 4> viewport() {
        std::array<GLint, 4> v{};
        glGetIntegerv(GL_VIEWPORT, v.data());
        return v;
    }
    static void fill(float r, float g, float b) {
        glClearColor(r, g, b, 1);
        glClear(GL_COLOR_BUFFER_BIT);
    }
    // Made once the harness has a window: framebuffers need its context.
    void SetUp() override {
        GLTest::SetUp();
        outer.reset(new FrameBufferObject(64, 64, true, false));
        inner.reset(new FrameBufferObject(32, 16, false, false));
    }
    std::unique_ptr<FrameBufferObject> outer, inner;
};

TEST_F(FrameBufferStack, NestedBindsRestoreTheOuterTargetThenTheScreen) {
    ASSERT_TRUE(outer->isValid() && inner->isValid());
    outer->bind();
    EXPECT_EQ(viewport(), (std::array<GLint, 4>{0, 0, 64, 64}));
    fill(1, 0, 0);
    inner->bind();
    EXPECT_EQ(GLuint(gl::integer(GL_FRAMEBUFFER_BINDING_EXT)), inner->getId());
    EXPECT_EQ(viewport(), (std::array<GLint, 4>{0, 0, 32, 16}));
    fill(0, 1, 0);
    inner->release();
    EXPECT_EQ(GLuint(gl::integer(GL_FRAMEBUFFER_BINDING_EXT)), outer->getId());
    EXPECT_EQ(viewport(), (std::array<GLint, 4>{0, 0, 64, 64}));
    EXPECT_TRUE(gl::near(gl::pixel(40, 40), gl::Rgb{255, 0, 0})) << "the outer target kept its picture";
    outer->release();
    EXPECT_EQ(gl::integer(GL_FRAMEBUFFER_BINDING_EXT), 0);
    EXPECT_EQ(viewport(), (std::array<GLint, 4>{0, 0, gl::width() - 1, gl::height() - 1}));

    // Both pictures reach the screen through their colour textures.
    gl::reset();
    outer->draw();
    inner->draw(0.5f);
    EXPECT_TRUE(gl::near(gl::pixel(gl::width() / 2, gl::height() / 2), gl::Rgb{0, 255, 0}));
    EXPECT_TRUE(gl::near(gl::pixel(gl::width() / 8, gl::height() / 8), gl::Rgb{255, 0, 0}));
}

TEST_F(FrameBufferStack, AReleaseOutOfOrderIsReportedAndChangesNothing) {
    outer->bind();
    inner->bind();
    EXPECT_EQ(testsupport::captureStdout([&] { outer->release(); }),
              "FBO : *** STACK ERROR : FrameBufferObject(64,64,COLOR_BUFFER,DEPTH_BUFFER) is not "
              "FrameBufferObject(32,16,COLOR_BUFFER) ***\n");
    EXPECT_EQ(GLuint(gl::integer(GL_FRAMEBUFFER_BINDING_EXT)), inner->getId());
    inner->release();
    outer->release();
    EXPECT_EQ(testsupport::captureStdout([&] { outer->release(); }),
              "FBO : *** STACK ERROR : Stack is already empty. Possible underflow ***\n");
    EXPECT_EQ(gl::integer(GL_FRAMEBUFFER_BINDING_EXT), 0);
    QLNDemosys::system_error = false;
}

TEST_F(FrameBufferStack, TooDeepAStackIsReportedAndAnIncompleteTargetNeverBinds) {
    std::string log = testsupport::captureStdout([&] {
        for (int i = 0; i < 17; i++) inner->bind();
    });
    EXPECT_EQ(log, "FBO: Overflow? 17 in stack\n");
    EXPECT_TRUE(QLNDemosys::system_error);
    for (int i = 0; i < 17; i++) inner->release();
    EXPECT_EQ(gl::integer(GL_FRAMEBUFFER_BINDING_EXT), 0);
    QLNDemosys::system_error = false;

    std::unique_ptr<FrameBufferObject> empty;
    log = testsupport::captureStdout([&] { empty.reset(new FrameBufferObject(0, 0, false, false)); });
    EXPECT_FALSE(empty->isValid());
    EXPECT_EQ(log.substr(0, 4), "FBO ") << log;
    empty->bind();
    EXPECT_EQ(gl::integer(GL_FRAMEBUFFER_BINDING_EXT), 0);
}

}  // namespace
