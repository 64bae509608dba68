#include <gtest/gtest.h>

#include <memory>

#include "demosys/Texture.h"
#include "demosys/VBO.h"
#include "gl/GLState.h"

using glstate::pixel;
using glstate::Rgb;

namespace {

class VBOTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(testsupport::ensureGLWindow());
        glstate::reset();
        w = glstate::windowWidth();
        h = glstate::windowHeight();
    }
    void TearDown() override { glstate::reset(); }

    static GLint bufferSize(GLenum target, GLuint name) {
        GLint size = 0;
        glBindBuffer(target, name);
        glGetBufferParameteriv(target, GL_BUFFER_SIZE, &size);
        glBindBuffer(target, 0);
        return size;
    }

    int w = 0, h = 0;
};

// The left half of the screen as two triangles, x y z then s t.
float leftHalf[] = {-1, -1, 0, 0, 0,  //
                    0,  -1, 0, 1, 0,  //
                    0,  1,  0, 1, 1,  //
                    -1, 1,  0, 0, 1};
unsigned int twoTriangles[] = {0, 1, 2, 0, 2, 3};

}  // namespace

TEST_F(VBOTest, PositionsAndTextureCoordinatesDrawIndexedTriangles) {
    VBO vbo;
    vbo.setVertexBuffer(4, 3, 0, 2, leftHalf);
    vbo.setElementBuffer(2, twoTriangles);
    EXPECT_EQ(vbo.getStride(), 20);
    EXPECT_EQ(vbo.getTexCoordOffset(), 12);
    EXPECT_EQ(bufferSize(GL_ARRAY_BUFFER, vbo.getVertexBufferName()), 4 * 20);
    EXPECT_EQ(bufferSize(GL_ELEMENT_ARRAY_BUFFER, vbo.getIndexBufferName()), 2 * 12);
    EXPECT_EQ(glstate::integer(GL_ARRAY_BUFFER_BINDING), 0) << "uploads unbind";

    // Left texel green, right texel red: the texture coordinates reach the rasteriser.
    unsigned char texels[8] = {0, 255, 0, 255, 255, 0, 0, 255};
    Texture texture(2, 1, GL_RGBA, texels);
    texture.setInterpolation(GL_NEAREST);
    texture.bind();
    vbo.draw();
    texture.release();

    EXPECT_EQ(pixel(w / 8, h / 2), (Rgb{0, 255, 0}));
    EXPECT_EQ(pixel(3 * w / 8, h / 2), (Rgb{255, 0, 0}));
    EXPECT_EQ(pixel(3 * w / 4, h / 2), (Rgb{0, 0, 0})) << "the right half stays empty";

    EXPECT_FALSE(glIsEnabled(GL_VERTEX_ARRAY));
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_COORD_ARRAY));
    EXPECT_EQ(glstate::integer(GL_ARRAY_BUFFER_BINDING), 0);
    EXPECT_EQ(glstate::integer(GL_ELEMENT_ARRAY_BUFFER_BINDING), 0);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(VBOTest, NormalsFeedTheLighting) {
    // One triangle covering the screen centre, x y z then a normal.
    float vertices[] = {-1, -1, 0, 0, 0, 1,  //
                        3,  -1, 0, 0, 0, 1,  //
                        -1, 3,  0, 0, 0, 1};
    unsigned int indices[] = {0, 1, 2};
    VBO vbo;
    vbo.setVertexBuffer(3, 3, 3, 0, vertices);
    vbo.setElementBuffer(1, indices);
    EXPECT_EQ(vbo.getStride(), 24);
    EXPECT_EQ(vbo.getNormalOffset(), 12);

    const GLfloat black[4] = {0, 0, 0, 1}, white[4] = {1, 1, 1, 1}, towardsViewer[4] = {0, 0, 1, 0};
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, black);
    glLightfv(GL_LIGHT0, GL_AMBIENT, black);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, white);
    glLightfv(GL_LIGHT0, GL_POSITION, towardsViewer);
    glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, white);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    vbo.draw();
    EXPECT_TRUE(near(pixel(w / 2, h / 2), Rgb{255, 255, 255})) << str(pixel(w / 2, h / 2));
    EXPECT_FALSE(glIsEnabled(GL_NORMAL_ARRAY));

    // Normals facing away from the light leave the triangle unlit.
    for (int v = 0; v < 3; ++v) vertices[v * 6 + 5] = -1;
    VBO away;
    away.setVertexBuffer(3, 3, 3, 0, vertices);
    away.setElementBuffer(1, indices);
    away.draw();
    EXPECT_EQ(pixel(w / 2, h / 2), (Rgb{0, 0, 0}));
}

TEST_F(VBOTest, IncompleteBuffersDrawNothingAndDeletionFreesNames) {
    auto vbo = std::make_unique<VBO>();
    vbo->draw();
    vbo->setElementBuffer(2, twoTriangles);
    vbo->draw();  // indices but no vertices
    EXPECT_EQ(pixel(w / 4, h / 2), (Rgb{0, 0, 0}));

    vbo->setVertexBuffer(4, 3, 0, 2, leftHalf);
    GLuint vertices = vbo->getVertexBufferName();
    GLuint indices = vbo->getIndexBufferName();
    ASSERT_TRUE(glIsBuffer(vertices));
    ASSERT_TRUE(glIsBuffer(indices));
    vbo.reset();
    EXPECT_FALSE(glIsBuffer(vertices));
    EXPECT_FALSE(glIsBuffer(indices));
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(VBOTest, BadLayoutsAndIndicesDrawOnlyWhatIsSafe) {
    // One position float per vertex: OpenGL cannot take it, so nothing is drawn.
    float thin[] = {0, 1, 2, 3};
    unsigned int firstThree[] = {0, 1, 2};
    VBO narrow;
    narrow.setVertexBuffer(4, 1, 0, 0, thin);
    narrow.setElementBuffer(1, firstThree);
    EXPECT_FALSE(narrow.isDrawable());
    narrow.draw();
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));

    // Normals must come in threes; two would be read past each vertex.
    VBO flatNormals;
    flatNormals.setVertexBuffer(4, 3, 2, 0, leftHalf);
    flatNormals.setElementBuffer(1, firstThree);
    EXPECT_FALSE(flatNormals.isDrawable());

    // A triangle naming a missing vertex is dropped; the good one still draws.
    unsigned int wild[] = {0, 1, 2, 0, 2, 1000000};
    VBO mesh;
    mesh.setVertexBuffer(4, 3, 0, 2, leftHalf);
    mesh.setElementBuffer(2, wild);
    EXPECT_TRUE(mesh.isDrawable());
    mesh.draw();
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    EXPECT_EQ(pixel(3 * w / 8, h / 4), (Rgb{255, 255, 255})) << "triangle 0 1 2 covers the lower right";
    EXPECT_EQ(pixel(w / 8, 3 * h / 4), (Rgb{0, 0, 0})) << "triangle 0 2 3 was the wild one";

    // Indices given first are checked once the vertices are known.
    VBO early;
    early.setElementBuffer(2, twoTriangles);
    early.setVertexBuffer(3, 3, 0, 2, leftHalf);
    EXPECT_FALSE(early.isDrawable()) << "index 3 names a fourth vertex";
    early.setVertexBuffer(4, 3, 0, 2, leftHalf);
    EXPECT_TRUE(early.isDrawable());
}
