// The tube as OpenGL receives it: drawn in feedback mode under an orthographic view whose
// window coordinates map straight back to tube coordinates, with each vertex's colour
// and its texture coordinates after the texture matrix.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "demo/Tunnel.h"
#include "gl/GLState.h"
#include "support/GLTestSupport.h"

namespace {

struct FedVertex {
    float x, y, z;
    float brightness, alpha;
    float s, t;
};

typedef std::vector<FedVertex> Polygon;

// The view: x and y from -10 to 10 over 1000 pixels, z from 0 to -50 over the depth range.
const float kPixelsPerUnit = 50.0f;

float degrees(float d) { return d * 3.1415927f / 180.0f; }

class TunnelTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(testsupport::ensureGLWindow());
        glstate::reset();
        // Texture coordinates reach the feedback only from an enabled texture unit.
        const GLubyte white[4] = {255, 255, 255, 255};
        glGenTextures(1, &texture);
        glBindTexture(GL_TEXTURE_2D, texture);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, white);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glEnable(GL_TEXTURE_2D);
    }

    void TearDown() override {
        glDeleteTextures(1, &texture);
        glstate::reset();
    }

    // One tunnel frame in feedback mode; the polygons as the rasteriser would get them.
    std::vector<Polygon> feed(Tunnel& tunnel, float speed, float frameTime) {
        std::vector<GLfloat> buffer(2000000);
        glViewport(0, 0, 1000, 1000);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(-10, 10, -10, 10, 0, 50);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glFeedbackBuffer(GLsizei(buffer.size()), GL_3D_COLOR_TEXTURE, buffer.data());
        glRenderMode(GL_FEEDBACK);
        tunnel.draw(speed, 0, frameTime);
        const GLint used = glRenderMode(GL_RENDER);
        EXPECT_GT(used, 0) << "feedback buffer overflow or nothing drawn";

        std::vector<Polygon> polygons;
        for (GLint i = 0; i < used;) {
            const GLint token = GLint(buffer[i++]);
            if (token == GL_PASS_THROUGH_TOKEN) {
                ++i;
                continue;
            }
            EXPECT_EQ(token, GL_POLYGON_TOKEN);
            if (token != GL_POLYGON_TOKEN) break;
            const int count = int(buffer[i++]);
            Polygon polygon;
            for (int k = 0; k < count; ++k, i += 11) {
                const GLfloat* v = &buffer[i];
                polygon.push_back(FedVertex{v[0] / kPixelsPerUnit - 10.0f, v[1] / kPixelsPerUnit - 10.0f,
                                            -v[2] * 50.0f, v[3], v[6], v[7] / v[10], v[8] / v[10]});
            }
            polygons.push_back(polygon);
        }
        return polygons;
    }

    static std::vector<FedVertex> vertices(const std::vector<Polygon>& polygons) {
        std::vector<FedVertex> all;
        for (const Polygon& p : polygons) all.insert(all.end(), p.begin(), p.end());
        return all;
    }

    static bool samePicture(const std::vector<Polygon>& a, const std::vector<Polygon>& b) {
        if (a.size() != b.size()) return false;
        for (size_t i = 0; i < a.size(); ++i) {
            if (a[i].size() != b[i].size()) return false;
            for (size_t k = 0; k < a[i].size(); ++k) {
                const FedVertex& p = a[i][k];
                const FedVertex& q = b[i][k];
                if (std::fabs(p.x - q.x) > 1e-4f || std::fabs(p.y - q.y) > 1e-4f || std::fabs(p.s - q.s) > 1e-5f ||
                    std::fabs(p.t - q.t) > 1e-5f || p.brightness != q.brightness)
                    return false;
            }
        }
        return true;
    }

    // Index of the ring a vertex lies on: rings are 0.5 apart from z = -0.5.
    static int ringOf(const FedVertex& v) { return int(std::lround((-0.5f - v.z) / 0.5f)); }

    GLuint texture = 0;
};

}  // namespace

TEST_F(TunnelTest, RingsAreCirclesOfEvenlySpacedVerticesFromTheTopClockwise) {
    Tunnel tunnel(2.0f, 40.0f, 36, 80);
    // At frame time 0 the first ring is only shifted sideways, by a third of the wobble
    // amplitude of 2.
    const std::vector<FedVertex> all = vertices(feed(tunnel, 0, 0));
    ASSERT_FALSE(all.empty());
    for (int k = 0; k < 36; ++k) {
        const float wantX = 2.0f * std::sin(degrees(10.0f * k)) + 2.0f / 3.0f;
        const float wantY = 2.0f * std::cos(degrees(10.0f * k));
        const float wantS = k / 36.0f;
        bool found = false;
        for (const FedVertex& v : all)
            if (ringOf(v) == 0 && std::fabs(v.x - wantX) < 1e-3f && std::fabs(v.y - wantY) < 1e-3f &&
                std::fabs(v.s - wantS) < 1e-4f && std::fabs(v.t) < 1e-5f)
                found = true;
        EXPECT_TRUE(found) << "no vertex " << k << " at (" << wantX << ", " << wantY << ") with u " << wantS;
    }
    int rings = 0;
    for (const FedVertex& v : all) rings = std::max(rings, ringOf(v) + 1);
    EXPECT_EQ(rings, 80);
    for (const FedVertex& v : all) {
        EXPECT_GE(v.z, -40.0f - 1e-3f);
        EXPECT_LE(v.z, -0.5f + 1e-3f);
    }
}

TEST_F(TunnelTest, EachRingIsDarkerThanTheOneBeforeAndTheSeamEndsAtTheTexturesRightEdge) {
    Tunnel tunnel(3.0f, 40.0f, 36, 80);
    const std::vector<Polygon> polygons = feed(tunnel, 0, 0);
    ASSERT_FALSE(polygons.empty());
    float darkest = 1.0f;
    int seamVertices = 0;
    std::vector<int> polygonsPerRing(80, 0);
    for (const Polygon& p : polygons) {
        int nearRing = 1000;
        for (const FedVertex& v : p) nearRing = std::min(nearRing, ringOf(v));
        ASSERT_GE(nearRing, 0);
        ASSERT_LT(nearRing, 79) << "the last ring only closes the one before it";
        polygonsPerRing[nearRing]++;
        for (const FedVertex& v : p) {
            // Colour and alpha both carry the ring's brightness.
            EXPECT_NEAR(v.brightness, 1.0f - nearRing / 80.0f, 1e-4f);
            EXPECT_EQ(v.brightness, v.alpha);
            EXPECT_GE(v.s, 0.0f);
            EXPECT_LE(v.s, 1.0f + 1e-6f);
            if (v.s == 1.0f) seamVertices++;
            darkest = std::min(darkest, v.brightness);
        }
    }
    EXPECT_NEAR(darkest, 1.0f - 78.0f / 80.0f, 1e-4f);
    for (int r = 0; r < 79; ++r) EXPECT_EQ(polygonsPerRing[r], polygonsPerRing[0]) << "ring " << r;
    EXPECT_GT(seamVertices, 0);
    // The tube is drawn with its own texture matrix, which is put back; the texture
    // matrix stays selected.
    EXPECT_EQ(glstate::integer(GL_MATRIX_MODE), GL_TEXTURE);
    EXPECT_EQ(glstate::integer(GL_TEXTURE_STACK_DEPTH), 1);
    GLfloat m[16];
    glGetFloatv(GL_TEXTURE_MATRIX, m);
    EXPECT_EQ(m[12], 0.0f);
    EXPECT_EQ(m[13], 0.0f);
}

TEST_F(TunnelTest, TheWobbleAndTheTextureScrollMoveOnlyWithFrameTime) {
    Tunnel tunnel(2.0f, 40.0f, 36, 80);
    const std::vector<Polygon> first = feed(tunnel, 0.5f, 0);
    EXPECT_TRUE(samePicture(first, feed(tunnel, 0.5f, 0)));

    // A step of 10 ms bends the tube and scrolls the texture by 5, applied from the next
    // frame on: along the tube by 5 and around it by a sixth of that.
    const std::vector<Polygon> stepped = feed(tunnel, 0.5f, 10);
    EXPECT_FALSE(samePicture(first, stepped));
    const std::vector<Polygon> after = feed(tunnel, 0.5f, 0);
    const std::vector<FedVertex> was = vertices(stepped);
    const std::vector<FedVertex> now = vertices(after);
    ASSERT_EQ(was.size(), now.size());
    for (size_t i = 0; i < was.size(); ++i) {
        EXPECT_NEAR(now[i].s - was[i].s, 5.0f / 6.0f, 1e-4f);
        EXPECT_NEAR(now[i].t - was[i].t, 5.0f, 1e-4f);
        EXPECT_NEAR(now[i].x, was[i].x, 1e-4f) << "no frame time, no wobble";
        EXPECT_NEAR(now[i].y, was[i].y, 1e-4f);
    }
}

TEST_F(TunnelTest, ResetStraightensTheWobbleButKeepsTheScroll) {
    Tunnel fresh(2.0f, 40.0f, 36, 80);
    const std::vector<FedVertex> start = vertices(feed(fresh, 0.5f, 0));

    Tunnel tunnel(2.0f, 40.0f, 36, 80);
    feed(tunnel, 0.5f, 400);
    tunnel.reset();
    const std::vector<FedVertex> again = vertices(feed(tunnel, 0.5f, 0));
    ASSERT_EQ(start.size(), again.size());
    for (size_t i = 0; i < start.size(); ++i) {
        EXPECT_NEAR(again[i].x, start[i].x, 1e-4f);
        EXPECT_NEAR(again[i].y, start[i].y, 1e-4f);
        EXPECT_NEAR(again[i].t - start[i].t, 200.0f, 1e-2f);
    }
}

TEST_F(TunnelTest, DegenerateTubesDrawNothingAndStayInsideTheirVertices) {
    // Steps that do not divide the circle evenly, or no rings at all, must not reach
    // past the stored vertices.
    for (int segments : {0, 1, 7, 13}) {
        for (int rings : {0, 1, 3, 7}) {
            Tunnel tunnel(1.0f, 3.0f, segments, rings);
            std::vector<GLfloat> buffer(100000);
            glFeedbackBuffer(GLsizei(buffer.size()), GL_3D, buffer.data());
            glRenderMode(GL_FEEDBACK);
            tunnel.draw(0.1f, 0, 16);
            tunnel.draw(0.1f, 0, 0);
            EXPECT_GE(glRenderMode(GL_RENDER), 0);
            glMatrixMode(GL_MODELVIEW);
        }
    }
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}
