#pragma once
// A node of the scene tree: an optional mesh and any number of child nodes, all owned.
#include <string>
#include <vector>

#include "demosys/Matrix.h"

class QLNObject;
class QLNMaterial;

class QLNNode {
public:
    QLNNode();
    ~QLNNode();
    QLNNode(const QLNNode&) = delete;
    QLNNode& operator=(const QLNNode&) = delete;

    void setObject(QLNObject* value);
    QLNObject* getObject();
    // Kept for the effects that place objects; drawing does not apply it.
    void setMatrix(Matrix<float, 4, 4, 16> value);
    Matrix<float, 4, 4, 16> getMatrix();
    void addChild(QLNNode* child);
    QLNNode* getChild(int index);
    int countChildren();

    // Depth first, parent before children; an invisible object's children still draw.
    void draw(QLNMaterial* material);
    // The first object of that name in drawing order, or null.
    QLNObject* getObjectByName(std::string name);

private:
    Matrix<float, 4, 4, 16> matrix;
    QLNObject* object;
    std::vector<QLNNode*> children;
};
