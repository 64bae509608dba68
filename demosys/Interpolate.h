#pragma once
// Moves a value or a three-component vector from a start to a stop value between two demo
// times. A scalar lives in the first component.
#include "demosys/QLNTime.h"
#include "demosys/Vector.h"

class Interpolate {
public:
    Interpolate();

    void setTime(QLNTime start, QLNTime stop);
    // Copy the parts only; the stored value keeps its validity flag.
    void setStartTime(QLNTime start);
    void setStopTime(QLNTime stop);
    void setVectors(Vector<float, 3> start, Vector<float, 3> stop);
    void setStartVector(Vector<float, 3> start);
    void setStopVector(Vector<float, 3> stop);
    void setValues(float start, float stop);
    Interpolate& setStartValue(float start);
    Interpolate& setStopValue(float stop);

    // start <= t <= stop, and the two times differ.
    bool validTime(unsigned int t);
    // Not clamped: times outside the range extrapolate.
    Vector<float, 3> linearInterpolateVector(unsigned int t);
    float linearInterpolate(unsigned int t);
    // easeOut: fast start, gentle arrival; otherwise gentle start, fast arrival.
    Vector<float, 3> cosInterpolateVector(unsigned int t, bool easeOut);

private:
    float fraction(unsigned int t);

    QLNTime startTime;
    QLNTime stopTime;
    Vector<float, 3> startVector;
    Vector<float, 3> stopVector;
};
