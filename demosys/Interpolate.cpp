#include "demosys/Interpolate.h"

#include <cmath>

// Slightly below pi/2: the far end of a cosine blend misses 0 or 1 by about 1.3e-6.
static const float quarterTurn = 1.570795f;

Interpolate::Interpolate() {}

void Interpolate::setTime(QLNTime start, QLNTime stop) {
    startTime = start;
    stopTime = stop;
}

static void copyParts(QLNTime& target, const QLNTime& source) {
    target.setMinutes(source.getMinutes());
    target.setSeconds(source.getSeconds());
    target.setMilliseconds(source.getMilliseconds());
}

void Interpolate::setStartTime(QLNTime start) { copyParts(startTime, start); }
void Interpolate::setStopTime(QLNTime stop) { copyParts(stopTime, stop); }

void Interpolate::setVectors(Vector<float, 3> start, Vector<float, 3> stop) {
    startVector = start;
    stopVector = stop;
}

void Interpolate::setStartVector(Vector<float, 3> start) { startVector = start; }
void Interpolate::setStopVector(Vector<float, 3> stop) { stopVector = stop; }

void Interpolate::setValues(float start, float stop) {
    setStartValue(start);
    setStopValue(stop);
}

Interpolate& Interpolate::setStartValue(float start) {
    startVector = Vector<float, 3>(start, 0.0f, 0.0f);
    return *this;
}

Interpolate& Interpolate::setStopValue(float stop) {
    stopVector = Vector<float, 3>(stop, 0.0f, 0.0f);
    return *this;
}

bool Interpolate::validTime(unsigned int t) {
    unsigned int start = startTime.getTicks();
    unsigned int stop = stopTime.getTicks();
    return start <= t && t <= stop && start != stop;
}

float Interpolate::fraction(unsigned int t) {
    float elapsed = static_cast<float>(t) - static_cast<float>(startTime.getTicks());
    return static_cast<float>(elapsed / (stopTime.getTicksAsDouble() - startTime.getTicksAsDouble()));
}

Vector<float, 3> Interpolate::linearInterpolateVector(unsigned int t) {
    return startVector.linearInterpolate(stopVector, fraction(t));
}

float Interpolate::linearInterpolate(unsigned int t) { return linearInterpolateVector(t)[0]; }

Vector<float, 3> Interpolate::cosInterpolateVector(unsigned int t, bool easeOut) {
    float f = fraction(t);
    float weight = easeOut ? std::cos((1.0f - f) * quarterTurn) : 1.0f - std::cos(f * quarterTurn);
    return startVector.linearInterpolate(stopVector, weight);
}
