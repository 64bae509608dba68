#include <gtest/gtest.h>

#include <memory>

#include "demosys/FrameBufferObject.h"
#include "demosys/QLNDemosys.h"
#include "demosys/ScreenMetrics.h"
#include "demosys/Texture.h"
#include "gl/GLState.h"
#include "support/TestSupport.h"

using glstate::pixel;
using glstate::Rgb;
using testsupport::captureStdout;

namespace {

const Rgb red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, black{0, 0, 0};

class FrameBufferObjectTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(testsupport::ensureGLWindow());
        glstate::reset();
        w = glstate::windowWidth();
        h = glstate::windowHeight();
        screen.setResolution(w, h);
        screen.initView();
        savedScreen = QLNDemosys::screenMetrics;
        QLNDemosys::screenMetrics = &screen;
        QLNDemosys::system_error = false;
        outer = std::make_unique<FrameBufferObject>(64, 64, true, false);
        inner = std::make_unique<FrameBufferObject>(32, 16, false, false);
    }
    void TearDown() override {
        outer.reset();
        inner.reset();
        FrameBufferObject::fboStack.clear();
        QLNDemosys::screenMetrics = savedScreen;
        QLNDemosys::system_error = false;
        glstate::reset();
    }

    static GLuint boundFramebuffer() { return static_cast<GLuint>(glstate::integer(GL_FRAMEBUFFER_BINDING_EXT)); }
    static std::array<GLint, 4> viewportOf(int width, int height) { return {0, 0, width, height}; }

    static void fill(float r, float g, float b) {
        glClearColor(r, g, b, 1);
        glClear(GL_COLOR_BUFFER_BIT);
    }

    ScreenMetrics screen;
    ScreenMetrics* savedScreen = nullptr;
    std::unique_ptr<FrameBufferObject> outer, inner;
    int w = 0, h = 0;
};

}  // namespace

TEST_F(FrameBufferObjectTest, NestedBindsRestoreTheOuterTargetThenTheScreen) {
    ASSERT_TRUE(outer->isValid());
    ASSERT_TRUE(inner->isValid());
    EXPECT_EQ(outer->getStatusMessage(), "Framebuffer is complete.");
    EXPECT_EQ(boundFramebuffer(), 0u) << "construction leaves the screen bound";

    outer->bind();
    EXPECT_EQ(boundFramebuffer(), outer->getId());
    EXPECT_EQ(glstate::viewport(), viewportOf(64, 64));
    fill(1, 0, 0);

    inner->bind();
    EXPECT_EQ(FrameBufferObject::fboStack.size(), 2u);
    EXPECT_EQ(boundFramebuffer(), inner->getId());
    EXPECT_EQ(glstate::viewport(), viewportOf(32, 16));
    fill(0, 1, 0);
    EXPECT_EQ(pixel(5, 5), green);

    inner->release();
    EXPECT_EQ(boundFramebuffer(), outer->getId());
    EXPECT_EQ(glstate::viewport(), viewportOf(64, 64));
    EXPECT_EQ(pixel(40, 40), red) << "the outer target kept its picture";

    outer->release();
    EXPECT_TRUE(FrameBufferObject::fboStack.empty());
    EXPECT_EQ(boundFramebuffer(), 0u);
    // The screen view is one pixel short in each direction, as every frame uses it.
    EXPECT_EQ(glstate::viewport(), viewportOf(w - 1, h - 1));
    EXPECT_EQ(glstate::integer(GL_MATRIX_MODE), GL_MODELVIEW);
    EXPECT_FALSE(QLNDemosys::system_error);

    // Both pictures reach the screen through their colour textures.
    glstate::reset();
    outer->draw();
    inner->draw(0.5f);
    EXPECT_EQ(pixel(w / 2, h / 2), green);
    EXPECT_EQ(pixel(w / 8, h / 8), red);
}

TEST_F(FrameBufferObjectTest, ReleasingTheWrongTargetIsReportedAndChangesNothing) {
    outer->bind();
    inner->bind();
    std::string out = captureStdout([&] { outer->release(); });
    EXPECT_EQ(out, "FBO : *** STACK ERROR : FrameBufferObject(64,64,COLOR_BUFFER,DEPTH_BUFFER) is not "
                   "FrameBufferObject(32,16,COLOR_BUFFER) ***\n");
    EXPECT_EQ(FrameBufferObject::fboStack.size(), 2u);
    EXPECT_EQ(boundFramebuffer(), inner->getId());
    inner->release();
    outer->release();

    out = captureStdout([&] { outer->release(); });
    EXPECT_EQ(out, "FBO : *** STACK ERROR : Stack is already empty. Possible underflow ***\n");
    EXPECT_TRUE(QLNDemosys::system_error);
    EXPECT_EQ(boundFramebuffer(), 0u);
}

TEST_F(FrameBufferObjectTest, SeventeenthNestedBindWarnsButStillBinds) {
    std::string out = captureStdout([&] {
        for (int i = 0; i < 16; ++i) outer->bind();
    });
    EXPECT_EQ(out, "");
    EXPECT_FALSE(QLNDemosys::system_error);
    out = captureStdout([&] { inner->bind(); });
    EXPECT_EQ(out, "FBO: Overflow? 17 in stack\n");
    EXPECT_TRUE(QLNDemosys::system_error);
    EXPECT_EQ(FrameBufferObject::fboStack.size(), 17u);
    EXPECT_EQ(boundFramebuffer(), inner->getId());

    inner->release();
    for (int i = 0; i < 16; ++i) outer->release();
    EXPECT_TRUE(FrameBufferObject::fboStack.empty());
    EXPECT_EQ(boundFramebuffer(), 0u);
}

TEST_F(FrameBufferObjectTest, IncompleteTargetIsReportedAndNeverBound) {
    std::unique_ptr<FrameBufferObject> broken;
    std::string out = captureStdout([&] { broken = std::make_unique<FrameBufferObject>(0, 0, false, false); });
    EXPECT_FALSE(broken->isValid());
    EXPECT_EQ(out, "FBO Framebuffer incomplete attachment(" + std::to_string(GL_FRAMEBUFFER_INCOMPLETE_ATTACHMENT_EXT) +
                       ") = false\n");

    outer->bind();
    broken->bind();
    EXPECT_EQ(FrameBufferObject::fboStack.size(), 1u) << "not pushed";
    EXPECT_EQ(boundFramebuffer(), outer->getId()) << "not bound";
    outer->release();

    glstate::reset();
    broken->draw();
    EXPECT_EQ(pixel(w / 2, h / 2), black) << "an invalid target draws nothing";
}

TEST_F(FrameBufferObjectTest, DepthStencilOptionsAndClears) {
    FrameBufferObject stencilOnly(16, 16, false, true);
    EXPECT_EQ(stencilOnly.toString(), "FrameBufferObject(16,16,COLOR_BUFFER,STENCIL_BUFFER)");
    stencilOnly.bind();
    EXPECT_EQ(glstate::integer(GL_DEPTH_BITS), 0) << "no depth storage";
    EXPECT_EQ(glstate::integer(GL_STENCIL_BITS), 0) << "no stencil storage";
    stencilOnly.release();

    outer->bind();
    EXPECT_GE(glstate::integer(GL_DEPTH_BITS), 24);
    glClearColor(0, 0, 1, 1);
    glClearDepth(0.25);
    outer->clear();
    GLfloat depth = 0;
    glReadPixels(3, 3, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
    EXPECT_NEAR(depth, 0.25f, 1e-4f);
    EXPECT_EQ(pixel(3, 3), blue);

    glClearColor(1, 0, 0, 1);
    glClearDepth(0.75);
    outer->clearRenderBuffer();
    glReadPixels(3, 3, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
    EXPECT_NEAR(depth, 0.75f, 1e-4f);
    EXPECT_EQ(pixel(3, 3), blue) << "the depth clear leaves colour alone";
    outer->clearColorBuffer();
    EXPECT_EQ(pixel(3, 3), red);
    glReadPixels(3, 3, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
    EXPECT_NEAR(depth, 0.75f, 1e-4f);
    outer->release();
}

TEST_F(FrameBufferObjectTest, DrawKeepsMatricesAndClampsTheTexture) {
    outer->bind();
    fill(0, 0, 1);
    outer->release();
    glstate::reset();

    glMatrixMode(GL_PROJECTION);
    glOrtho(-10, 10, -10, 10, -1, 1);
    outer->draw(0.5f);
    EXPECT_EQ(glstate::integer(GL_MATRIX_MODE), GL_PROJECTION) << "the caller's matrix mode comes back";
    GLfloat projection[16];
    glGetFloatv(GL_PROJECTION_MATRIX, projection);
    EXPECT_FLOAT_EQ(projection[0], 0.1f);
    EXPECT_EQ(pixel(w / 2, h / 2), blue);
    EXPECT_EQ(pixel(w / 8, h / 8), black) << "a quad of half-size 0.5 covers the middle only";
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));

    outer->bindColorBuffer();
    GLint wrap = 0;
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, &wrap);
    EXPECT_EQ(static_cast<GLuint>(glstate::integer(GL_TEXTURE_BINDING_2D)), outer->getColorBuffer()->getID());
    outer->getColorBuffer()->release();
}

TEST_F(FrameBufferObjectTest, DebugTraceAndDeletion) {
    outer->setDebug(true);
    std::string id = std::to_string(outer->getId());
    std::string out = captureStdout([&] {
        outer->bind();
        outer->release();
    });
    EXPECT_EQ(out, "FBO Bind " + id + " - 0\n Binding : (" + id + ") " + outer->toString() + "\nStack is empty, ok!\n");

    GLuint name = inner->getId();
    GLuint texture = inner->getColorBuffer()->getID();
    inner->bind();
    inner.reset();  // deleted while bound: the stack forgets it
    EXPECT_TRUE(FrameBufferObject::fboStack.empty());
    EXPECT_FALSE(glIsFramebufferEXT(name));
    EXPECT_FALSE(glIsTexture(texture));
}
