#include "demosys/QLNScene.h"

#include "demosys/QLNMaterial.h"
#include "demosys/QLNSceneTree.h"

QLNScene::QLNScene() : tree(nullptr), defaultMaterial(new QLNMaterial()) {}

QLNScene::~QLNScene() {
    delete tree;
    delete defaultMaterial;
    for (QLNMaterial* material : materials) delete material;
}

void QLNScene::setTree(QLNSceneTree* value) {
    if (tree != value) delete tree;
    tree = value;
}
QLNSceneTree* QLNScene::getTree() { return tree; }
QLNMaterial* QLNScene::getDefaultMaterial() { return defaultMaterial; }
void QLNScene::addMaterial(QLNMaterial* material) { materials.push_back(material); }

void QLNScene::draw() {
    if (tree) tree->draw(defaultMaterial);
}
