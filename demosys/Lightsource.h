#pragma once
// The scene's single OpenGL light (GL_LIGHT0); its colours come from its own material.
#include "demosys/Material.h"
#include "demosys/Vector.h"

class Lightsource {
public:
    Lightsource();
    ~Lightsource();
    Lightsource(const Lightsource& other);
    Lightsource& operator=(const Lightsource& other);

    void setPos(Vector<float, 3> p) { position = p; }
    void setPos(float x, float y, float z) { position = Vector<float, 3>(x, y, z); }
    Vector<float, 3> getPos() const { return position; }
    Material* getMaterial() const { return material; }

    void enable();
    void disable();
    // Uploads ambient and diffuse colour and the position of GL_LIGHT0.
    void update();

private:
    Vector<float, 3> position;
    Material* material;  // owned
};
