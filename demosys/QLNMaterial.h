#pragma once
// The fixed-function colours of one scene mesh.
#include "demosys/Vector.h"

class QLNMaterial {
public:
    QLNMaterial();

    void setAmbient(float r, float g, float b);
    void setDiffuse(float r, float g, float b);
    void setEmissive(float r, float g, float b);
    Vector<float, 3> getAmbient();
    Vector<float, 3> getDiffuse();
    Vector<float, 3> getEmissive();

    void use();
    void print();

private:
    float ambient[3];
    float diffuse[3];
    float emission[3];
};
