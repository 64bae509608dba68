#pragma once
// Reads one binary object file into a scene: a root node with one child per mesh.
#include <functional>
#include <string>

class File;
class QLNScene;
class QLNMeshData;

class QLNSceneLoader {
public:
    explicit QLNSceneLoader(std::string filename);
    ~QLNSceneLoader();
    QLNSceneLoader(const QLNSceneLoader&) = delete;
    QLNSceneLoader& operator=(const QLNSceneLoader&) = delete;

    // The scene, owned by the caller from here on, or null when the file is missing.
    // Needs a current GL context: every mesh gets its own vertex buffers.
    QLNScene* loadScene();
    // The reading half of loadScene, without GL: hands each mesh record to onMesh in
    // file order. False, with the error message set, when the file is missing.
    bool readMeshes(const std::function<void(QLNMeshData&)>& onMesh);

    bool isValid();
    std::string getErrorMessage();

private:
    void readMesh(File& file, QLNMeshData& mesh);
    void readVertices(File& file, QLNMeshData& mesh);
    void readIndices(File& file, QLNMeshData& mesh);
    void addObject(QLNMeshData& mesh);

    std::string filename;
    QLNScene* scene;
    bool valid;
    std::string errorMessage;
    bool verbose;
};
