#include "demosys/Lightsource.h"

#include <GL/glew.h>

Lightsource::Lightsource() : position(0.0f, 0.0f, 2.0f), material(new Material()) {}

Lightsource::~Lightsource() { delete material; }

Lightsource::Lightsource(const Lightsource& other)
    : position(other.position), material(new Material(*other.material)) {}

Lightsource& Lightsource::operator=(const Lightsource& other) {
    if (this != &other) {
        position = other.position;
        *material = *other.material;
    }
    return *this;
}

void Lightsource::enable() {
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
}

void Lightsource::disable() {
    glDisable(GL_LIGHTING);
    glDisable(GL_LIGHT0);
}

void Lightsource::update() {
    Vector<float, 4> ambient = material->getAmbience();
    Vector<float, 4> diffuse = material->getDiffuse();
    // w = 1: a positional light at the given point, not a direction.
    Vector<float, 4> pos(position[0], position[1], position[2], 1.0f);
    glLightfv(GL_LIGHT0, GL_AMBIENT, ambient.data());
    glLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse.data());
    glLightfv(GL_LIGHT0, GL_POSITION, pos.data());
}
