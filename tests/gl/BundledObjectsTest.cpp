// The bundled object files through the engine's own scene loader, drawn in a real
// window: the meshes carry their names, and the logo's letters show where the font has
// pixels and leave its gaps empty.
#include <gtest/gtest.h>

#include <GL/glew.h>
#include <memory>

#include "demosys/QLNNode.h"
#include "demosys/QLNObject.h"
#include "demosys/QLNScene.h"
#include "demosys/QLNSceneLoader.h"
#include "demosys/QLNSceneTree.h"
#include "support/GLTestSupport.h"
#include "support/TestSupport.h"

namespace {

std::unique_ptr<QLNScene> load(const std::string& file) {
    QLNSceneLoader loader(testsupport::sourceDir() + "/resources/objects/" + file);
    std::unique_ptr<QLNScene> scene(loader.loadScene());
    EXPECT_TRUE(loader.isValid()) << loader.getErrorMessage();
    return scene;
}

// Orthographic view of x -3.2..3.2 and y -2.4..2.4 (100 pixels a unit), lit head-on.
void frontView() {
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
    glViewport(0, 0, 640, 480);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(-3.2, 3.2, -2.4, 2.4, -10, 10);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    const float white[4] = {1, 1, 1, 1}, none[4] = {0, 0, 0, 1}, direction[4] = {0, 0, 1, 0};
    glLightfv(GL_LIGHT0, GL_DIFFUSE, white);
    glLightfv(GL_LIGHT0, GL_AMBIENT, none);
    glLightfv(GL_LIGHT0, GL_SPECULAR, none);
    glLightfv(GL_LIGHT0, GL_POSITION, direction);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_DEPTH_TEST);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_BLEND);
    glDisable(GL_CULL_FACE);
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void restore() {
    glDisable(GL_LIGHTING);
    glDisable(GL_LIGHT0);
    glDisable(GL_DEPTH_TEST);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
}

int brightness(int x, int y) {
    auto p = testsupport::readPixel(x, y);
    return p[0] + p[1] + p[2];
}

}  // namespace

TEST(BundledObjects, LoadWithTheirNamedMeshes) {
    ASSERT_TRUE(testsupport::ensureGLWindow());
    const std::pair<const char*, std::vector<const char*>> files[] = {
        {"cube.qlo", {"cube"}}, {"star.qlo", {"star"}}, {"logo.qlo", {"letter_q", "letter_l", "letter_n"}}};
    for (const auto& [file, names] : files) {
        SCOPED_TRACE(file);
        std::unique_ptr<QLNScene> scene = load(file);
        ASSERT_TRUE(scene);
        EXPECT_EQ(scene->getTree()->getRoot()->countChildren(), int(names.size()));
        for (const char* name : names) EXPECT_NE(scene->getTree()->getObjectByName(name), nullptr) << name;
    }
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

TEST(BundledObjects, LogoLettersAreLitWhereTheFontHasPixels) {
    ASSERT_TRUE(testsupport::ensureGLWindow());
    std::unique_ptr<QLNScene> logo = load("logo.qlo");
    ASSERT_TRUE(logo);
    frontView();
    logo->draw();
    glFinish();
    // The letters are 0.25 units a font pixel, the block 5.75 × 1.75 centred on the origin.
    // Font pixel (x, y) of the whole "QLN" row has its centre at
    // (-2.875 + 0.25 x + 0.125, 0.875 - 0.25 y - 0.125), i.e. pixel (45 + 25 x, 315 - 25 y).
    auto at = [](int fx, int fy) { return brightness(45 + 25 * fx, 315 - 25 * fy); };
    EXPECT_LT(at(0, 0), 30) << "the Q's rounded corner is empty";
    EXPECT_GT(at(1, 0), 90) << "the Q's top bar is lit";
    EXPECT_GT(at(0, 3), 90) << "the Q's left stroke is lit";
    EXPECT_LT(at(3, 3), 30) << "the Q's counter is empty";
    EXPECT_GT(at(8, 6), 90) << "the L's foot is lit";
    EXPECT_LT(at(12, 2), 30) << "right of the L's stem is empty";
    EXPECT_GT(at(16, 0), 90) << "the N's left stroke is lit";
    restore();
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}
