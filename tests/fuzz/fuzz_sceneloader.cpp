// Object files of any content: the loader reads them through a real file and builds
// the scene graph from each record, without GL (the vertex buffers need a context).
#include <cstdint>
#include <cstdlib>
#include <string>

#include "demosys/QLNMaterial.h"
#include "demosys/QLNMeshData.h"
#include "demosys/QLNNode.h"
#include "demosys/QLNObject.h"
#include "demosys/QLNSceneLoader.h"
#include "demosys/QLNSceneTree.h"
#include "demosys/Vector.h"
#include "fuzz/FuzzFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string path = fuzzFile("input.qlo", data, size);

    QLNSceneTree tree;
    tree.setRoot(new QLNNode());
    QLNSceneLoader loader(path);
    loader.readMeshes([&](QLNMeshData& mesh) {
        // Everything a GL upload would read must lie inside what was read.
        size_t stride = mesh.floatsPerVertex() > 0 ? (size_t)mesh.floatsPerVertex() : 0;
        if (stride && mesh.vertices.size() % stride) std::abort();
        if (mesh.indices.size() % 3) std::abort();
        for (unsigned int index : mesh.indices)
            if ((int)index >= mesh.usableVertexCount()) std::abort();
        QLNObject* object = new QLNObject();
        object->setName(mesh.name);
        Vector<float, 3> corner;
        for (int i = 0; i < 3; ++i) corner[i] = mesh.bboxMin[i];
        object->setBBoxMin(corner);
        QLNNode* node = new QLNNode();
        node->setObject(object);
        tree.getRoot()->addChild(node);
    });
    tree.getObjectByName("Object");
    return 0;
}
