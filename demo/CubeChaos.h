#pragma once
// Breaks the picture in a framebuffer object into a wall of small lit cubes that wave
// and tumble; each cube shows one cell of the picture on all six faces. The framebuffer
// is cleared after use, so its source effect paints it afresh every frame.
#include <string>
#include <vector>

#include "demosys/Effect.h"

class FrameBufferObject;
class ParameterGroup;

class CubeChaos : public Effect {
public:
    CubeChaos();
    virtual ~CubeChaos();

    virtual void draw(unsigned int time);
    virtual void init();
    virtual void reset();
    virtual void modify(std::string method, ParameterGroup* parameters);
    virtual Effect* getInstance();

    void setPosition(float x, float y, float z);
    CubeChaos* setCubeCount(int a, int b);
    CubeChaos* setRotation(float degrees);
    void setRotationSpeed(float degreesPerMs);
    CubeChaos* setIntensity(float value);

    static const int kCornersPerCube = 24;

private:
    struct Vertex {
        float s, t, nx, ny, nz, x, y, z;  // the GL_T2F_N3F_V3F layout
    };
    void drawWall(unsigned int time);
    static Vertex* addCube(Vertex* out, const float* matrix, float u, float v, float du, float dv, float halfSize);
    void drawCorners();

    float rotation;
    float rotationSpeed;
    float elapsed;  // accumulated frame time; nothing reads it
    float positionX, positionY, positionZ;
    int countA;  // cubes per row
    int countB;  // rows
    float intensity;
    FrameBufferObject* buffer;  // not owned
    std::vector<Vertex> corners;  // this frame's cubes in eye space
};
