#include <gtest/gtest.h>

#include "demosys/Camera.h"
#include "demosys/Lightsource.h"
#include "demosys/Material.h"
#include "gl/GLState.h"

using glstate::pixel;
using glstate::Rgb;

namespace {

class CameraLightTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(testsupport::ensureGLWindow());
        glstate::reset();
        w = glstate::windowWidth();
        h = glstate::windowHeight();
    }
    void TearDown() override { glstate::reset(); }

    static std::array<GLfloat, 16> modelview() {
        std::array<GLfloat, 16> m{};
        glGetFloatv(GL_MODELVIEW_MATRIX, m.data());
        return m;
    }

    // A red square facing the origin, 5 units out along +x.
    static void drawMarkerOnPositiveX() {
        glColor3f(1, 0, 0);
        glBegin(GL_QUADS);
        glVertex3f(5, -1, -1);
        glVertex3f(5, -1, 1);
        glVertex3f(5, 1, 1);
        glVertex3f(5, 1, -1);
        glEnd();
    }

    int w = 0, h = 0;
};

}  // namespace

TEST_F(CameraLightTest, LevelCameraIsIdentityAndFliesForward) {
    Camera camera;
    glMatrixMode(GL_PROJECTION);  // the camera selects the modelview itself
    camera.setGLMatrixes();
    EXPECT_EQ(glstate::integer(GL_MATRIX_MODE), GL_MODELVIEW);
    std::array<GLfloat, 16> identity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    EXPECT_EQ(modelview(), identity);
    EXPECT_EQ(camera.getDirection(), (Vector<float, 3>(0, 0, -1)));

    glLoadIdentity();
    camera.changeVelocity(2);
    camera.setGLMatrixes();
    EXPECT_EQ(camera.getPosition(), (Vector<float, 3>(0, 0, -2)));
    EXPECT_FLOAT_EQ(modelview()[14], 2.0f) << "the world moves back by the camera position";
    camera.setGLMatrixes();
    EXPECT_EQ(camera.getPosition(), (Vector<float, 3>(0, 0, -4))) << "one velocity step per call";
}

TEST_F(CameraLightTest, HeadingTurnsTheViewTowardsTheMarker) {
    glMatrixMode(GL_PROJECTION);
    glFrustum(-0.5, 0.5, -0.5, 0.5, 1, 100);
    glMatrixMode(GL_MODELVIEW);

    Camera camera;
    camera.setGLMatrixes();
    drawMarkerOnPositiveX();
    EXPECT_EQ(pixel(w / 2, h / 2), (Rgb{0, 0, 0})) << "looking down -z the marker is out of view";

    glClear(GL_COLOR_BUFFER_BIT);
    glLoadIdentity();
    camera.setHeading(90);
    camera.setGLMatrixes();
    drawMarkerOnPositiveX();
    EXPECT_EQ(pixel(w / 2, h / 2), (Rgb{255, 0, 0}));
    Vector<float, 3> d = camera.getDirection();
    EXPECT_NEAR(d[0], 1.0f, 1e-5f);
    EXPECT_NEAR(d[2], 0.0f, 1e-5f);

    // Pitching up by 90 degrees looks along +y, whatever the heading.
    glLoadIdentity();
    camera.setPitch(-90);
    camera.setGLMatrixes();
    EXPECT_NEAR(camera.getDirection()[1], 1.0f, 1e-5f);
}

TEST_F(CameraLightTest, LightAndMaterialReachOpenGL) {
    Lightsource light;
    light.enable();
    EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
    EXPECT_TRUE(glIsEnabled(GL_LIGHT0));
    light.getMaterial()->setDiffuse(0.5f, 0.25f, 1.0f);
    light.setPos(1, 2, 3);
    light.update();
    GLfloat v[4];
    glGetLightfv(GL_LIGHT0, GL_DIFFUSE, v);
    EXPECT_EQ((Vector<float, 4>(v)), (Vector<float, 4>(0.5f, 0.25f, 1.0f, 1.0f)));
    glGetLightfv(GL_LIGHT0, GL_AMBIENT, v);
    EXPECT_EQ((Vector<float, 4>(v)), (Vector<float, 4>(0.75f, 0.75f, 0.75f, 1.0f)));
    glGetLightfv(GL_LIGHT0, GL_POSITION, v);
    EXPECT_EQ((Vector<float, 4>(v)), (Vector<float, 4>(1, 2, 3, 1))) << "a positional light";

    Material material;
    material.setDiffuse(1, 0, 0)->setAmbience(0, 0, 0)->setSpecular(0, 0, 0)->setShinyness(32);
    material.drawMaterial();
    glGetMaterialfv(GL_FRONT, GL_SHININESS, v);
    EXPECT_EQ(v[0], 32.0f);
    glGetMaterialfv(GL_FRONT, GL_EMISSION, v);
    EXPECT_EQ((Vector<float, 4>(v)), (Vector<float, 4>(0, 0, 0, 1)));

    // A lit square facing the light shows the material colour times the light's.
    light.setPos(0, 0, 2);
    light.getMaterial()->setDiffuse(1, 1, 1)->setAmbience(0, 0, 0);
    light.update();
    GLfloat noAmbient[4] = {0, 0, 0, 1};
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, noAmbient);
    glNormal3f(0, 0, 1);
    glstate::fillRect(-0.5f, -0.5f, 0.5f, 0.5f);
    Rgb lit = pixel(w / 2, h / 2);
    EXPECT_GT(lit[0], 200) << str(lit);
    EXPECT_EQ(lit[1], 0);
    EXPECT_EQ(lit[2], 0);

    light.disable();
    EXPECT_FALSE(glIsEnabled(GL_LIGHTING));
    EXPECT_FALSE(glIsEnabled(GL_LIGHT0));
}
