#pragma once
// The node hierarchy of a scene; owns its root.
#include <string>

class QLNNode;
class QLNObject;
class QLNMaterial;

class QLNSceneTree {
public:
    QLNSceneTree();
    ~QLNSceneTree();
    QLNSceneTree(const QLNSceneTree&) = delete;
    QLNSceneTree& operator=(const QLNSceneTree&) = delete;

    void setRoot(QLNNode* node);
    QLNNode* getRoot();
    void draw(QLNMaterial* material);
    QLNObject* getObjectByName(std::string name);

private:
    QLNNode* root;
};
