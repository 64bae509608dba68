#pragma once
// Fixed-function OpenGL material: colours, shininess, and up to two textures it refers to.
#include <string>

#include "demosys/Vector.h"

class Texture;

class Material {
public:
    Material();

    Material* setDiffuse(Vector<float, 4> rgba);
    Material* setDiffuse(float r, float g, float b);
    Material* setDiffuse(float r, float g, float b, float a);
    Material* setAmbience(Vector<float, 4> rgba);
    Material* setAmbience(float r, float g, float b);
    Material* setAmbience(float r, float g, float b, float a);
    Material* setSpecular(Vector<float, 4> rgba);
    Material* setSpecular(float r, float g, float b);
    Material* setSpecular(float r, float g, float b, float a);
    Material* setEmissive(Vector<float, 4> rgba);
    Material* setEmissive(float r, float g, float b);
    Material* setEmissive(float r, float g, float b, float a);
    Material* setShinyness(int value);
    Material* setTransparency(float value);
    Material* setTexture1(Texture* texture);
    Material* setTexture2(Texture* texture);
    Material* setName(std::string value);

    Vector<float, 4> getDiffuse() const { return diffuse; }
    Vector<float, 4> getAmbience() const { return ambient; }
    Vector<float, 4> getSpecular() const { return specular; }
    Vector<float, 4> getEmissive() const { return emission; }
    float getShinyness() const { return shininess; }
    float getTransparency() const { return transparency; }
    Texture* getTexture1() const { return texture1; }
    Texture* getTexture2() const { return texture2; }
    std::string getName() const { return name; }

    bool hasTexture() const { return texture1 != nullptr; }
    bool hasMultiTexture() const { return texture1 != nullptr && texture2 != nullptr; }

    // Uploads the colours and shininess for front faces; textures and transparency
    // are left to the caller.
    void drawMaterial() const;
    std::string toString() const;

private:
    std::string name;
    Vector<float, 4> diffuse;
    Vector<float, 4> emission;
    Vector<float, 4> specular;
    Vector<float, 4> ambient;
    float shininess;
    float transparency;
    Texture* texture1;  // not owned
    Texture* texture2;  // not owned
};
