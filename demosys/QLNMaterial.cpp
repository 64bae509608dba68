#include "demosys/QLNMaterial.h"

#include <GL/glew.h>
#include <iostream>
#include <sstream>
#include <string>

static Vector<float, 3> toVector(const float* rgb) { return Vector<float, 3>(rgb); }

// The scene printouts write colours as "[r,g,b]".
static std::string bracketed(const float* rgb) {
    std::ostringstream text;
    text << "[" << rgb[0] << "," << rgb[1] << "," << rgb[2] << "]";
    return text.str();
}

QLNMaterial::QLNMaterial() {
    setAmbient(0.5f, 0.5f, 0.5f);
    setDiffuse(0.5f, 0.5f, 0.5f);
    setEmissive(0.0f, 0.0f, 0.0f);
}

void QLNMaterial::setAmbient(float r, float g, float b) {
    ambient[0] = r;
    ambient[1] = g;
    ambient[2] = b;
}

void QLNMaterial::setDiffuse(float r, float g, float b) {
    diffuse[0] = r;
    diffuse[1] = g;
    diffuse[2] = b;
}

void QLNMaterial::setEmissive(float r, float g, float b) {
    emission[0] = r;
    emission[1] = g;
    emission[2] = b;
}

Vector<float, 3> QLNMaterial::getAmbient() { return toVector(ambient); }
Vector<float, 3> QLNMaterial::getDiffuse() { return toVector(diffuse); }
Vector<float, 3> QLNMaterial::getEmissive() { return toVector(emission); }

void QLNMaterial::use() {
    // The colours have always reached GL as RGBA runs over the three stored triples,
    // so each alpha is the red of the colour after it; emission, the last, gets 1.
    const float ambientRGBA[4] = {ambient[0], ambient[1], ambient[2], diffuse[0]};
    const float diffuseRGBA[4] = {diffuse[0], diffuse[1], diffuse[2], emission[0]};
    const float emissionRGBA[4] = {emission[0], emission[1], emission[2], 1.0f};
    glDisable(GL_COLOR_MATERIAL);
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, ambientRGBA);
    glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, diffuseRGBA);
    glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, emissionRGBA);
}

void QLNMaterial::print() {
    std::cout << "Amb : " << bracketed(ambient) << std::endl;
    std::cout << "Dif : " << bracketed(diffuse) << std::endl;
}
