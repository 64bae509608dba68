#include "demosys/Keyframe.h"

#include <iostream>

Keyframe::Keyframe() : pitch(0.0f), heading(0.0f) {}

Keyframe::Keyframe(Vector<float, 3> position, float pitch, float heading)
    : position(position), pitch(pitch), heading(heading) {}

Vector<float, 3> Keyframe::getPosition() { return position; }
void Keyframe::setPosition(Vector<float, 3> value) { position = value; }
float Keyframe::getPitch() { return pitch; }
void Keyframe::setPitch(float value) { pitch = value; }
float Keyframe::getHeading() { return heading; }
void Keyframe::setHeading(float value) { heading = value; }

void Keyframe::print() {
    std::cout << "Keyframe { position = " << position << " pitch = " << pitch << " heading = " << heading << " }"
              << std::endl;
}
