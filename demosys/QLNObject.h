#pragma once
// One named mesh of a scene with its optional material.
#include <string>

#include "demosys/Vector.h"

class VBO;
class QLNMaterial;

class QLNObject {
public:
    QLNObject();
    ~QLNObject();
    QLNObject(const QLNObject&) = delete;
    QLNObject& operator=(const QLNObject&) = delete;

    void setVBO(VBO* buffer);
    VBO* getVBO();
    // The material is not owned: scenes share it with their loader or the caller.
    void setMaterial(QLNMaterial* value);
    QLNMaterial* getMaterial();
    void setName(std::string value);
    std::string getName();
    void setVisible(bool value);
    bool isVisible();
    void setTranslation(Vector<float, 3> value);
    Vector<float, 3> getTranslation();
    void setBBoxMin(Vector<float, 3> value);
    void setBBoxMax(Vector<float, 3> value);

    void draw(QLNMaterial* fallback);
    void drawBBox();
    // Pops the current matrix when done: the caller pushes one first.
    void drawTranslation();

private:
    VBO* vbo;
    QLNMaterial* material;
    std::string name;
    bool visible;
    Vector<float, 3> bboxMin;
    Vector<float, 3> bboxMax;
    Vector<float, 3> translation;
};
