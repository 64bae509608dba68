#pragma once
// A loaded 3-D object file: its node tree and the material for meshes that name none.
#include <vector>

class QLNSceneTree;
class QLNMaterial;

class QLNScene {
public:
    QLNScene();
    ~QLNScene();
    QLNScene(const QLNScene&) = delete;
    QLNScene& operator=(const QLNScene&) = delete;

    void setTree(QLNSceneTree* value);
    QLNSceneTree* getTree();
    QLNMaterial* getDefaultMaterial();
    // Materials of the meshes (objects do not own theirs); deleted with the scene.
    void addMaterial(QLNMaterial* material);
    void draw();

private:
    QLNSceneTree* tree;
    QLNMaterial* defaultMaterial;
    std::vector<QLNMaterial*> materials;
};
