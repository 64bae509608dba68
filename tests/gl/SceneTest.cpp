// Object files written here, loaded, drawn in a real window and read back as pixels.
#include <gtest/gtest.h>

#include <GL/glew.h>
#include <cmath>

#include "demosys/QLNMaterial.h"
#include "demosys/QLNNode.h"
#include "demosys/QLNObject.h"
#include "demosys/QLNScene.h"
#include "demosys/QLNSceneLoader.h"
#include "demosys/QLNSceneTree.h"
#include "demosys/VBO.h"
#include "support/GLTestSupport.h"
#include "support/TestSupport.h"
#include "unit/ObjectFileBytes.h"

using testsupport::ObjectFileBytes;
using testsupport::readPixel;
using testsupport::squareIndices;
using testsupport::squareVertices;

namespace {

class Scene : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(testsupport::ensureGLWindow(640, 480));
        glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
        glViewport(0, 0, 640, 480);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glDisable(GL_DEPTH_TEST);
        glDisable(GL_BLEND);
        glDisable(GL_TEXTURE_2D);
        glDisable(GL_CULL_FACE);
        glDisable(GL_LIGHTING);
        glClearColor(0, 0, 0, 1);
        glClear(GL_COLOR_BUFFER_BIT);
        // Errors left by earlier tests in this process are not ours to report.
        while (glGetError() != GL_NO_ERROR) {
        }
    }
    void TearDown() override {
        glDisable(GL_LIGHTING);
        glDisable(GL_LIGHT0);
    }

    // One white light straight down the view axis, global ambient 0.2, no specular:
    // a face towards the viewer shows 0.2 x ambient + diffuse + emission.
    static void light() {
        const float white[4] = {1, 1, 1, 1};
        const float none[4] = {0, 0, 0, 1};
        const float ambient[4] = {0.2f, 0.2f, 0.2f, 1};
        const float direction[4] = {0, 0, 1, 0};
        glLightModelfv(GL_LIGHT_MODEL_AMBIENT, ambient);
        glLightfv(GL_LIGHT0, GL_DIFFUSE, white);
        glLightfv(GL_LIGHT0, GL_AMBIENT, none);
        glLightfv(GL_LIGHT0, GL_SPECULAR, none);
        glLightfv(GL_LIGHT0, GL_POSITION, direction);
        glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, none);
        glEnable(GL_LIGHTING);
        glEnable(GL_LIGHT0);
    }

    static int red(int x, int y) { return readPixel(x, y)[0]; }
    static int green(int x, int y) { return readPixel(x, y)[1]; }
};

}  // namespace

TEST_F(Scene, LoadedMeshesDrawWithTheirOwnOrTheDefaultMaterial) {
    testsupport::TempDir dir;
    ObjectFileBytes file;
    file.i32(2);
    file.mesh("left", {}, 3, 3, 2, squareVertices(-0.9f, -0.9f, -0.1f, 0.9f, 0), squareIndices());
    // All three triples end up as the ambient colour: red ambient, default grey diffuse.
    file.mesh("right", {0.1f, 0.1f, 0.1f, 0.8f, 0.8f, 0.8f, 1, 0, 0}, 3, 3, 2,
              squareVertices(0.1f, -0.9f, 0.9f, 0.9f, 0), squareIndices());
    QLNSceneLoader loader(dir.write("pair.obj", file.bytes));
    QLNScene* scene = loader.loadScene();
    ASSERT_NE(scene, nullptr);
    ASSERT_TRUE(loader.isValid());
    EXPECT_EQ(scene->getTree()->getRoot()->countChildren(), 2);

    QLNObject* right = scene->getTree()->getObjectByName("right");
    ASSERT_NE(right, nullptr);
    ASSERT_NE(right->getMaterial(), nullptr);
    EXPECT_FLOAT_EQ(right->getMaterial()->getAmbient()[0], 1.0f);
    EXPECT_FLOAT_EQ(right->getMaterial()->getDiffuse()[0], 0.5f);
    EXPECT_FLOAT_EQ(right->getMaterial()->getEmissive()[0], 0.0f);
    EXPECT_EQ(scene->getTree()->getObjectByName("left")->getMaterial(), nullptr);

    light();
    scene->draw();
    EXPECT_NEAR(red(160, 240), 153, 2);  // 0.2 x 0.5 + 0.5
    EXPECT_NEAR(green(160, 240), 153, 2);
    EXPECT_NEAR(red(480, 240), 178, 2);  // 0.2 x 1 + 0.5
    EXPECT_NEAR(green(480, 240), 128, 2);
    EXPECT_EQ(red(320, 240), 0);          // the gap between them
    GLboolean colorMaterial = GL_TRUE;
    glGetBooleanv(GL_COLOR_MATERIAL, &colorMaterial);
    EXPECT_FALSE(colorMaterial);

    // Hidden by name: the other mesh still draws.
    right->setVisible(false);
    glClear(GL_COLOR_BUFFER_BIT);
    scene->draw();
    EXPECT_NEAR(red(160, 240), 153, 2);
    EXPECT_EQ(red(480, 240), 0);
    delete scene;
}

TEST_F(Scene, CorruptMeshesLoadButDrawNothingWrong) {
    testsupport::TempDir dir;
    ObjectFileBytes file;
    file.i32(4);
    // One position float per vertex: GL cannot take it.
    file.mesh("thin", {}, 1, 0, 0, {0, 1, 2, 3}, {0, 1, 2});
    // Triangles naming vertices that are not there.
    file.mesh("wild", {}, 3, 0, 0, {-1, -1, 0, 1, -1, 0, 1, 1, 0}, {0, 1, 7, 0, 1000000, 2});
    // A good mesh after them, drawn as usual.
    file.mesh("good", {}, 3, 3, 2, squareVertices(-0.5f, -0.5f, 0.5f, 0.5f, 0), squareIndices());
    // And a record cut short after its name.
    file.bytes += std::string("cut\0\x01", 5);
    QLNSceneLoader loader(dir.write("corrupt.obj", file.bytes));
    QLNScene* scene = loader.loadScene();
    ASSERT_NE(scene, nullptr);
    EXPECT_EQ(scene->getTree()->getRoot()->countChildren(), 4);
    glColor3f(1, 1, 1);
    scene->draw();
    EXPECT_EQ(glGetError(), (GLenum)GL_NO_ERROR);
    EXPECT_GT(red(320, 240), 100);  // the good square, unlit
    EXPECT_EQ(red(600, 20), 0);     // the wild triangle's corner is not drawn
    delete scene;
}

TEST_F(Scene, InvisibleNodeStillDrawsItsChildren) {
    auto meshNode = [](float x0, float x1) {
        std::vector<float> vertices = squareVertices(x0, -0.5f, x1, 0.5f, 0);
        std::vector<int32_t> indices = squareIndices();
        std::vector<unsigned int> elements(indices.begin(), indices.end());
        VBO* vbo = new VBO();
        vbo->setVertexBuffer(4, 3, 3, 2, vertices.data());
        vbo->setElementBuffer(2, elements.data());
        QLNObject* object = new QLNObject();
        object->setVBO(vbo);
        QLNNode* node = new QLNNode();
        node->setObject(object);
        return node;
    };
    QLNScene scene;
    scene.setTree(new QLNSceneTree());
    QLNNode* parent = meshNode(-0.9f, -0.1f);
    parent->addChild(meshNode(0.1f, 0.9f));
    scene.getTree()->setRoot(parent);
    parent->getObject()->setVisible(false);

    light();
    scene.draw();
    EXPECT_EQ(red(160, 240), 0);
    EXPECT_NEAR(red(480, 240), 153, 2);  // default material
}

TEST_F(Scene, BoundingBoxLeavesOutOneEdgeAndTranslationPopsTheMatrix) {
    QLNObject object;
    Vector<float, 3> low, high, move;
    for (int i = 0; i < 3; ++i) {
        low[i] = -0.5f;
        high[i] = 0.5f;
        move[i] = 0.0f;
    }
    object.setBBoxMin(low);
    object.setBBoxMax(high);
    // An oblique view, so every edge lands somewhere else: screen = (x + z/2, y + z/4).
    const float shear[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0.5f, 0.25f, 1, 0, 0, 0, 0, 1};
    glLoadMatrixf(shear);
    object.drawBBox();
    // The edge at (high x, high z) is drawn at x = 0.75, its twin at (low x, high z),
    // x = -0.25, is the one left out; both run through y = 0.125.
    EXPECT_EQ(red(560, 270), 255);
    EXPECT_EQ(green(560, 270), 0);
    EXPECT_EQ(red(240, 270), 0);
    float width = 0;
    glGetFloatv(GL_LINE_WIDTH, &width);
    EXPECT_EQ(width, 1.0f);
    EXPECT_FALSE(glIsEnabled(GL_COLOR_MATERIAL));

    glLoadIdentity();
    glClear(GL_COLOR_BUFFER_BIT);
    move[0] = 0.5f;
    object.setTranslation(move);
    GLint depthBefore = 0, depthAfter = 0;
    glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depthBefore);
    glPushMatrix();
    object.drawTranslation();
    glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depthAfter);
    EXPECT_EQ(depthAfter, depthBefore);
    EXPECT_EQ(red(380, 240), 255);  // on the line from the origin to x = 0.5
    EXPECT_EQ(red(520, 240), 0);    // past its end
}
