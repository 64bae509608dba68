#include "demosys/QLNSceneTree.h"

#include "demosys/QLNNode.h"

QLNSceneTree::QLNSceneTree() : root(nullptr) {}

QLNSceneTree::~QLNSceneTree() { delete root; }

void QLNSceneTree::setRoot(QLNNode* node) {
    if (root != node) delete root;
    root = node;
}
QLNNode* QLNSceneTree::getRoot() { return root; }

void QLNSceneTree::draw(QLNMaterial* material) {
    if (root) root->draw(material);
}

QLNObject* QLNSceneTree::getObjectByName(std::string name) {
    return root ? root->getObjectByName(name) : nullptr;
}
