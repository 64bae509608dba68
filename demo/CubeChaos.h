#pragma once
// Breaks the picture in a framebuffer object into a wall of small lit cubes that wave
// and tumble; each cube shows one cell of the picture on all six faces. The framebuffer
// is cleared after use, so its source effect paints it afresh every frame.
#include <string>

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

private:
    void drawCube(float u, float v, float du, float dv, float halfSize);

    float rotation;
    float rotationSpeed;
    float elapsed;  // accumulated frame time; nothing reads it
    float positionX, positionY, positionZ;
    int countA;  // cubes per row
    int countB;  // rows
    float intensity;
    FrameBufferObject* buffer;  // not owned
};
