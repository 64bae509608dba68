#pragma once
// Free-flying camera steered by pitch, heading and velocity; turned into the
// modelview matrix through two quaternions once per frame.
#include "demosys/Quaternion.h"
#include "demosys/Vector.h"

class Camera {
public:
    Camera();

    Vector<float, 3> getPosition() const { return position; }
    void setPosition(Vector<float, 3> p) { position = p; }
    float getPitch() const { return pitch; }
    void setPitch(float p) { pitch = p; }
    float getHeading() const { return heading; }
    void setHeading(float h) { heading = h; }
    float getVelocity() const { return velocity; }
    Vector<float, 3> getDirection() const { return direction; }
    const float* getMatrix() const { return matrix; }

    void reset();
    void changePitch(float d);
    void changeHeading(float d);
    void changeVelocity(float d);
    void tiltLeft();
    void tiltRight();

    // Multiplies the camera transform onto the current modelview matrix and moves
    // the camera one velocity step along its view direction.
    void setGLMatrixes();

private:
    float pitch;
    float heading;
    float maxPitchStep;
    float maxHeadingStep;
    float maxVelocity;
    float velocity;
    Vector<float, 3> direction;
    Quaternion<float> pitchRotation;
    Quaternion<float> headingRotation;
    Vector<float, 3> position;
    float matrix[16];
};
