#include "demosys/QLNSceneLoader.h"

#include <algorithm>
#include <iostream>

#include "demosys/QLNMaterial.h"
#include "demosys/QLNMeshData.h"
#include "demosys/QLNNode.h"
#include "demosys/QLNObject.h"
#include "demosys/QLNScene.h"
#include "demosys/QLNSceneTree.h"
#include "demosys/VBO.h"
#include "demosys/Vector.h"
#include "qlnutils/File.h"

QLNSceneLoader::QLNSceneLoader(std::string filename)
    : filename(filename), scene(new QLNScene()), valid(false), verbose(false) {}

QLNSceneLoader::~QLNSceneLoader() {
    if (!valid) delete scene;
}

bool QLNSceneLoader::isValid() { return valid; }
std::string QLNSceneLoader::getErrorMessage() { return errorMessage; }

static unsigned int bytesLeft(File& file) {
    unsigned int size = file.getFileSize();
    unsigned int position = file.getReadPosition();
    return position < size ? size - position : 0;
}

// After a count that the file cannot hold, every further read would give zeros.
static void skipToEnd(File& file) {
    while (bytesLeft(file) > 0) file.readChar();
}

static void readFloats(File& file, float* out, int count) {
    for (int i = 0; i < count; ++i) out[i] = file.readFloat();
}

QLNScene* QLNSceneLoader::loadScene() {
    // The tree exists before the file is opened, so even a failed load leaves one.
    QLNSceneTree* tree = new QLNSceneTree();
    scene->setTree(tree);
    tree->setRoot(new QLNNode());
    if (!readMeshes([this](QLNMeshData& mesh) { addObject(mesh); })) return nullptr;
    valid = true;
    return scene;
}

bool QLNSceneLoader::readMeshes(const std::function<void(QLNMeshData&)>& onMesh) {
    File file(filename, 0);
    if (!file.exists()) {
        errorMessage = "Object '" + filename + "' not found";
        valid = false;
        return false;
    }
    int meshCount = file.readInt();
    if (verbose) std::cout << "* Number of Meshes : " << meshCount << std::endl;
    for (int i = 0; i < meshCount; ++i) {
        // A record that would start past the end holds nothing but zeros: not made.
        if (bytesLeft(file) == 0) break;
        QLNMeshData mesh;
        readMesh(file, mesh);
        onMesh(mesh);
    }
    return true;
}

void QLNSceneLoader::readMesh(File& file, QLNMeshData& mesh) {
    mesh.name = file.readString();
    if (file.readInt() > 0) {
        mesh.hasMaterial = true;
        readFloats(file, mesh.material, 9);
    }
    readFloats(file, mesh.translation, 3);
    readFloats(file, mesh.bboxMin, 3);
    readFloats(file, mesh.bboxMax, 3);
    mesh.vertexCount = file.readInt();
    mesh.vertexSize = file.readChar();
    mesh.normalSize = file.readChar();
    mesh.uvSize = file.readChar();
    if (verbose) {
        std::cout << "* Vertices : " << mesh.vertexCount << std::endl;
        std::cout << "* Vertex size : " << mesh.vertexSize << std::endl;
        std::cout << "* Normal size : " << mesh.normalSize << std::endl;
        std::cout << "* UV size : " << mesh.uvSize << std::endl;
    }
    readVertices(file, mesh);
    mesh.polygonCount = file.readInt();
    if (verbose) std::cout << "Polygons = " << mesh.polygonCount << std::endl;
    readIndices(file, mesh);
}

void QLNSceneLoader::readVertices(File& file, QLNMeshData& mesh) {
    long long stride = mesh.floatsPerVertex();
    if (mesh.vertexCount <= 0 || stride <= 0) return;
    // Only whole vertices that are in the file: a stated count can be anything.
    long long fit = bytesLeft(file) / (4 * stride);
    long long take = std::min<long long>(mesh.vertexCount, fit);
    mesh.vertices.resize((size_t)(take * stride));
    readFloats(file, mesh.vertices.data(), (int)mesh.vertices.size());
    if (take < mesh.vertexCount) skipToEnd(file);
}

void QLNSceneLoader::readIndices(File& file, QLNMeshData& mesh) {
    if (mesh.polygonCount <= 0) return;
    long long take = std::min<long long>(mesh.polygonCount, bytesLeft(file) / 12);
    // A triangle naming a vertex that was not read would send GL outside the buffer.
    long long vertexLimit = mesh.usableVertexCount();
    mesh.indices.reserve((size_t)(take * 3));
    for (long long t = 0; t < take; ++t) {
        int a = file.readInt(), b = file.readInt(), c = file.readInt();
        if (a < 0 || b < 0 || c < 0 || a >= vertexLimit || b >= vertexLimit || c >= vertexLimit) continue;
        mesh.indices.push_back((unsigned int)a);
        mesh.indices.push_back((unsigned int)b);
        mesh.indices.push_back((unsigned int)c);
    }
    if (take < mesh.polygonCount) skipToEnd(file);
}

void QLNSceneLoader::addObject(QLNMeshData& mesh) {
    QLNNode* node = new QLNNode();
    QLNObject* object = new QLNObject();
    node->setObject(object);
    scene->getTree()->getRoot()->addChild(node);
    object->setName(mesh.name);
    if (mesh.hasMaterial) {
        QLNMaterial* material = new QLNMaterial();
        // All three stored triples go to the ambient colour, so the last one wins and
        // diffuse and emission keep their defaults: the objects have always looked so.
        material->setAmbient(mesh.material[0], mesh.material[1], mesh.material[2]);
        material->setAmbient(mesh.material[3], mesh.material[4], mesh.material[5]);
        material->setAmbient(mesh.material[6], mesh.material[7], mesh.material[8]);
        object->setMaterial(material);
        scene->addMaterial(material);
    }
    object->setTranslation(Vector<float, 3>(mesh.translation));
    object->setBBoxMin(Vector<float, 3>(mesh.bboxMin));
    object->setBBoxMax(Vector<float, 3>(mesh.bboxMax));
    VBO* vbo = new VBO();
    if (mesh.hasDrawableLayout()) {
        int vertexCount = mesh.usableVertexCount();
        vbo->setVertexBuffer(vertexCount, mesh.vertexSize, mesh.normalSize, mesh.uvSize,
                             vertexCount > 0 ? mesh.vertices.data() : nullptr);
        int triangleCount = mesh.usableTriangleCount();
        vbo->setElementBuffer(triangleCount, triangleCount > 0 ? mesh.indices.data() : nullptr);
    } else {
        // A layout GL cannot take keeps its object, empty, so drawing it is harmless.
        vbo->setVertexBuffer(0, 3, 0, 0, nullptr);
        vbo->setElementBuffer(0, nullptr);
    }
    object->setVBO(vbo);
}
