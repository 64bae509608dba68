#include "demosys/QLNNode.h"

#include "demosys/QLNObject.h"

QLNNode::QLNNode() : matrix(Matrix<float, 4, 4, 16>::zero()), object(nullptr) {}

QLNNode::~QLNNode() {
    delete object;
    for (QLNNode* child : children) delete child;
}

void QLNNode::setObject(QLNObject* value) {
    if (object != value) delete object;
    object = value;
}
QLNObject* QLNNode::getObject() { return object; }
void QLNNode::setMatrix(Matrix<float, 4, 4, 16> value) { matrix = value; }
Matrix<float, 4, 4, 16> QLNNode::getMatrix() { return matrix; }
void QLNNode::addChild(QLNNode* child) { children.push_back(child); }

QLNNode* QLNNode::getChild(int index) {
    if (index < 0 || index >= (int)children.size()) return nullptr;
    return children[index];
}

int QLNNode::countChildren() { return (int)children.size(); }

void QLNNode::draw(QLNMaterial* material) {
    if (object && object->isVisible()) object->draw(material);
    for (QLNNode* child : children) child->draw(material);
}

QLNObject* QLNNode::getObjectByName(std::string name) {
    if (object && object->getName() == name) return object;
    for (QLNNode* child : children) {
        QLNObject* found = child->getObjectByName(name);
        if (found) return found;
    }
    return nullptr;
}
