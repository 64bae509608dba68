#pragma once
// One pose of a camera or object path: position, pitch and heading.
#include "demosys/Vector.h"

class Keyframe {
public:
    Keyframe();
    Keyframe(Vector<float, 3> position, float pitch, float heading);

    Vector<float, 3> getPosition();
    void setPosition(Vector<float, 3> position);
    float getPitch();
    void setPitch(float pitch);
    float getHeading();
    void setHeading(float heading);
    void print();

private:
    Vector<float, 3> position;
    float pitch;
    float heading;
};
