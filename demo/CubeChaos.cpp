#include "demo/CubeChaos.h"

#include <GL/glew.h>
#include <algorithm>
#include <cmath>

#include "demosys/DataFBOPool.h"
#include "demosys/FrameBufferObject.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/QLNDemosys.h"
#include "demosys/Texture.h"
#include "qlnutils/QLNUtils.h"

namespace {

// A missing argument reads as empty text: a zero number, no such framebuffer.
using Read = ParameterReader;

const float kCubeHalfSize = 0.038f;

}  // namespace

CubeChaos::CubeChaos()
    : Effect(),
      rotation(0),
      rotationSpeed(0.4f),
      elapsed(0),
      positionX(0),
      positionY(0),
      positionZ(0),
      countA(50),
      countB(50),
      intensity(1.0f),
      buffer(nullptr) {}

CubeChaos::~CubeChaos() {}

Effect* CubeChaos::getInstance() { return new CubeChaos(); }

void CubeChaos::reset() {
    rotation = 0;
    rotationSpeed = 0.4f;
    elapsed = 0;
}

void CubeChaos::init() {
    reset();
    positionX = Read::number(parameters, "xpos");
    positionY = Read::number(parameters, "ypos");
    positionZ = Read::number(parameters, "zpos");
}

void CubeChaos::setPosition(float x, float y, float z) {
    positionX = x;
    positionY = y;
    positionZ = z;
}

CubeChaos* CubeChaos::setCubeCount(int a, int b) {
    countA = a;
    countB = b;
    return this;
}

CubeChaos* CubeChaos::setRotation(float degrees) {
    rotation = degrees;
    return this;
}

void CubeChaos::setRotationSpeed(float degreesPerMs) { rotationSpeed = degreesPerMs; }

CubeChaos* CubeChaos::setIntensity(float value) {
    intensity = value;
    return this;
}

void CubeChaos::modify(std::string method, ParameterGroup* params) {
    if (method == "setPosition") {
        setPosition(Read::number(params, "p2"), Read::number(params, "p3"), Read::number(params, "p4"));
    } else if (method == "setCubeCount") {
        setCubeCount(Read::integer(params, "p2"), Read::integer(params, "p3"));
    } else if (method == "setBuffer") {
        buffer = QLNDemosys::fboPool != nullptr ? QLNDemosys::fboPool->getFBO(Read::text(params, "p2")) : nullptr;
    } else if (method == "setIntensity") {
        setIntensity(Read::number(params, "p2"));
    }
}

void CubeChaos::draw(unsigned int time) {
    glClearColor(0, 0, 0, 0);
    // Without a complete source picture there is nothing to break up.
    if (buffer == nullptr || !buffer->isValid() || buffer->getColorBuffer() == nullptr) return;

    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_CULL_FACE);
    glCullFace(GL_BACK);
    glShadeModel(GL_SMOOTH);
    glEnable(GL_DEPTH_TEST);
    glMatrixMode(GL_MODELVIEW);

    const GLfloat ambient[] = {0.2f, 0.2f, 0.2f, 1.0f};
    const GLfloat diffuse[] = {1.0f, 1.0f, 0.0f, 1.0f};  // yellow on purpose
    const GLfloat position[] = {0.5f, 0.5f, 10.0f, 0.0f};
    glLightfv(GL_LIGHT0, GL_AMBIENT, ambient);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse);
    glLightfv(GL_LIGHT0, GL_POSITION, position);
    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    glColor4f(1, 1, 1, 1);

    Texture* picture = buffer->getColorBuffer();
    picture->bind();

    // Unseen cubes are not built; only the spin below has to move on.
    if (!pixelsDiscarded()) drawWall(time);
    // The normal and texture corner of the last cube's last corner stay current, as after
    // drawing corner by corner: effects drawn later without normals are lit by them.
    if (countA > 0 && countB > 0) {
        glNormal3f(-1, 0, 0);
        glTexCoord2f(float((countB - 1) * (1.0 / countB)) + float(1.0 / countA), float((countA - 1) * (1.0 / countA)));
    }

    picture->release();
    buffer->bind();
    buffer->clear();
    buffer->release();

    const float frameTime = getFrameTime(time);
    rotation += rotationSpeed * frameTime;
    elapsed += frameTime;

    // Lighting, culling and depth testing stay on for the effects that follow.
    glDisable(GL_COLOR_MATERIAL);
}

void CubeChaos::drawWall(unsigned int time) {
    const double du = 1.0 / countA;
    const double dv = 1.0 / countB;
    const double t = double(time);
    // Each cube keeps its own matrix, but the cubes are moved into eye space here and
    // submitted in one draw: 2,500 separate draws cost far more than their pixels.
    corners.resize(size_t(std::max(countA, 0)) * size_t(std::max(countB, 0)) * kCornersPerCube);
    Vertex* out = corners.data();
    GLfloat matrix[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    for (int a = 0; a < countB; ++a) {
        const double phase = t / 400.0 + (t / 10000.0 + 0.2) * a;
        const double speed = t / 10000.0;
        // The cell's u origin steps by the row count while its width is 1 / countA.
        const float u = float(a * dv);
        const float axisX = float(a * 0.34);
        for (int b = 0; b < countA; ++b) {
            glLoadIdentity();
            const double s = std::sin(phase - (speed + 0.1) * b);
            glTranslatef(float(positionX + a * 0.1), float(positionY + b * 0.1), float(s * intensity + positionZ));
            glRotatef(float(rotation + a * 175.0 + b * 87.0), axisX, float(b * 0.87), 0.1f);
            glGetFloatv(GL_MODELVIEW_MATRIX, matrix);
            out = addCube(out, matrix, u, float(b * du), float(du), float(dv), kCubeHalfSize);
        }
    }
    drawCorners();
    // The last cube's matrix stays current, as it would after drawing cube by cube.
    glLoadMatrixf(matrix);
}

namespace {

// The six faces of a cube (+z, -z, +y, -y, +x, -x), four corners each: the corner in
// half sizes, the face normal, and which end of the cell's u and v range it shows.
struct Corner {
    float x, y, z, nx, ny, nz;
    bool uEnd, vEnd;
};
const Corner kCubeCorners[CubeChaos::kCornersPerCube] = {
    {-1, -1, 1, 0, 0, 1, 0, 0},    {1, -1, 1, 0, 0, 1, 1, 0},    {1, 1, 1, 0, 0, 1, 1, 1},
    {-1, 1, 1, 0, 0, 1, 0, 1},     {-1, -1, -1, 0, 0, -1, 0, 0}, {-1, 1, -1, 0, 0, -1, 0, 1},
    {1, 1, -1, 0, 0, -1, 1, 1},    {1, -1, -1, 0, 0, -1, 1, 0},  {-1, 1, -1, 0, 1, 0, 0, 0},
    {-1, 1, 1, 0, 1, 0, 0, 1},     {1, 1, 1, 0, 1, 0, 1, 1},     {1, 1, -1, 0, 1, 0, 1, 0},
    {-1, -1, -1, 0, -1, 0, 0, 0},  {1, -1, -1, 0, -1, 0, 0, 1},  {1, -1, 1, 0, -1, 0, 1, 1},
    {-1, -1, 1, 0, -1, 0, 1, 0},   {1, -1, -1, 1, 0, 0, 0, 0},   {1, 1, -1, 1, 0, 0, 0, 1},
    {1, 1, 1, 1, 0, 0, 1, 1},      {1, -1, 1, 1, 0, 0, 1, 0},    {-1, -1, -1, -1, 0, 0, 0, 0},
    {-1, -1, 1, -1, 0, 0, 0, 1},   {-1, 1, 1, -1, 0, 0, 1, 1},   {-1, 1, -1, -1, 0, 0, 1, 0},
};

}  // namespace

// One cube of half size h, moved into eye space by the column-major matrix m.
CubeChaos::Vertex* CubeChaos::addCube(Vertex* out, const float* m, float u, float v, float du, float dv, float h) {
    const float uEnd = u + du, vEnd = v + dv;
    for (const Corner& c : kCubeCorners) {
        const float x = c.x * h, y = c.y * h, z = c.z * h;
        out->s = c.uEnd ? uEnd : u;
        out->t = c.vEnd ? vEnd : v;
        out->nx = m[0] * c.nx + m[4] * c.ny + m[8] * c.nz;
        out->ny = m[1] * c.nx + m[5] * c.ny + m[9] * c.nz;
        out->nz = m[2] * c.nx + m[6] * c.ny + m[10] * c.nz;
        out->x = m[0] * x + m[4] * y + m[8] * z + m[12];
        out->y = m[1] * x + m[5] * y + m[9] * z + m[13];
        out->z = m[2] * x + m[6] * y + m[10] * z + m[14];
        ++out;
    }
    return out;
}

void CubeChaos::drawCorners() {
    if (corners.empty()) return;
    glLoadIdentity();
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    glInterleavedArrays(GL_T2F_N3F_V3F, 0, corners.data());
    glDrawArrays(GL_QUADS, 0, GLsizei(corners.size()));
    glPopClientAttrib();
}
