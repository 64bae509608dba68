// Object files read without GL: records, guards against corrupt counts, and the
// scene that an empty or missing file leaves.
#include <gtest/gtest.h>

#include <vector>

#include "demosys/QLNMeshData.h"
#include "demosys/QLNNode.h"
#include "demosys/QLNScene.h"
#include "demosys/QLNSceneLoader.h"
#include "demosys/QLNSceneTree.h"
#include "support/TestSupport.h"
#include "unit/ObjectFileBytes.h"

using testsupport::ObjectFileBytes;
using testsupport::squareIndices;
using testsupport::squareVertices;

namespace {

std::vector<QLNMeshData> readAll(const std::string& path, bool* ok = nullptr) {
    std::vector<QLNMeshData> meshes;
    QLNSceneLoader loader(path);
    bool result = loader.readMeshes([&](QLNMeshData& mesh) { meshes.push_back(mesh); });
    if (ok) *ok = result;
    return meshes;
}

}  // namespace

TEST(SceneLoader, ReadsEveryFieldOfEachRecordInFileOrder) {
    testsupport::TempDir dir;
    ObjectFileBytes file;
    file.i32(2);
    file.mesh("plate", {0.1f, 0.1f, 0.1f, 0.8f, 0.8f, 0.8f, 0, 0, 0}, 3, 3, 2, squareVertices(-1, -1, 1, 1, 0),
              squareIndices());
    // The second record has translation and box of its own and no material block.
    file.name("pin").i32(0).floats({1, 2, 3, -4, -5, -6, 4, 5, 6}).i32(3).i8(3).i8(0).i8(0);
    file.floats({0, 0, 0, 1, 0, 0, 0, 1, 0}).i32(1).ints({2, 1, 0});
    bool ok = false;
    std::vector<QLNMeshData> meshes = readAll(dir.write("two.obj", file.bytes), &ok);
    ASSERT_TRUE(ok);
    ASSERT_EQ(meshes.size(), 2u);

    const QLNMeshData& plate = meshes[0];
    EXPECT_EQ(plate.name, "plate");
    EXPECT_TRUE(plate.hasMaterial);
    EXPECT_FLOAT_EQ(plate.material[3], 0.8f);
    EXPECT_EQ(plate.vertexCount, 4);
    EXPECT_EQ(plate.vertexSize, 3);
    EXPECT_EQ(plate.normalSize, 3);
    EXPECT_EQ(plate.uvSize, 2);
    EXPECT_EQ(plate.vertices.size(), 32u);  // 4 vertices of 3 + 3 + 2 floats
    EXPECT_EQ(plate.vertices, squareVertices(-1, -1, 1, 1, 0));
    EXPECT_EQ(plate.polygonCount, 2);
    EXPECT_EQ(plate.indices, (std::vector<unsigned int>{0, 1, 2, 0, 2, 3}));
    EXPECT_TRUE(plate.hasDrawableLayout());

    const QLNMeshData& pin = meshes[1];
    EXPECT_EQ(pin.name, "pin");
    EXPECT_FALSE(pin.hasMaterial);
    EXPECT_FLOAT_EQ(pin.translation[2], 3.0f);
    EXPECT_FLOAT_EQ(pin.bboxMin[0], -4.0f);
    EXPECT_FLOAT_EQ(pin.bboxMax[1], 5.0f);
    EXPECT_EQ(pin.usableVertexCount(), 3);
    EXPECT_EQ(pin.indices, (std::vector<unsigned int>{2, 1, 0}));
}

TEST(SceneLoader, CorruptCountsStayInsideTheFile) {
    testsupport::TempDir dir;

    // More meshes announced than present: only the records that start in the file.
    ObjectFileBytes many;
    many.i32(2000000000);
    many.mesh("only", {}, 3, 0, 0, {0, 0, 0, 1, 0, 0, 0, 1, 0}, {0, 1, 2});
    std::vector<QLNMeshData> meshes = readAll(dir.write("many.obj", many.bytes));
    ASSERT_EQ(meshes.size(), 1u);
    EXPECT_EQ(meshes[0].name, "only");

    // A vertex count far beyond the file: whole vertices that are there, nothing more,
    // and the triangle count after them reads as past the end.
    ObjectFileBytes huge;
    huge.i32(1).name("huge").i32(0).floats({0, 0, 0, 0, 0, 0, 0, 0, 0});
    huge.i32(1 << 30).i8(3).i8(0).i8(0).floats({1, 2, 3, 4, 5, 6, 7});
    meshes = readAll(dir.write("huge.obj", huge.bytes));
    ASSERT_EQ(meshes.size(), 1u);
    EXPECT_EQ(meshes[0].vertexCount, 1 << 30);
    EXPECT_EQ(meshes[0].vertices, (std::vector<float>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(meshes[0].polygonCount, 0);
    EXPECT_TRUE(meshes[0].indices.empty());

    // Negative sizes and counts give empty loops; the next record still lines up.
    ObjectFileBytes negative;
    negative.i32(2).name("neg").i32(0).floats({0, 0, 0, 0, 0, 0, 0, 0, 0});
    negative.i32(-4).i8(-3).i8(-3).i8(-2).i32(-7);
    negative.mesh("after", {}, 2, 0, 0, {0, 0, 1, 0, 0, 1}, {0, 1, 2});
    meshes = readAll(dir.write("neg.obj", negative.bytes));
    ASSERT_EQ(meshes.size(), 2u);
    EXPECT_TRUE(meshes[0].vertices.empty());
    EXPECT_FALSE(meshes[0].hasDrawableLayout());
    EXPECT_EQ(meshes[1].name, "after");
    EXPECT_EQ(meshes[1].usableTriangleCount(), 1);
}

TEST(SceneLoader, TrianglesNamingMissingVerticesAreDropped) {
    testsupport::TempDir dir;
    ObjectFileBytes file;
    file.i32(1).mesh("bad", {}, 3, 0, 0, {0, 0, 0, 1, 0, 0, 0, 1, 0}, {0, 1, 2, 0, 1, 3, -1, 0, 1, 2, 2, 2});
    std::vector<QLNMeshData> meshes = readAll(dir.write("bad.obj", file.bytes));
    ASSERT_EQ(meshes.size(), 1u);
    EXPECT_EQ(meshes[0].polygonCount, 4);
    EXPECT_EQ(meshes[0].indices, (std::vector<unsigned int>{0, 1, 2, 2, 2, 2}));
}

TEST(SceneLoader, EmptyAndMissingFiles) {
    testsupport::TempDir dir;
    ObjectFileBytes empty;
    empty.i32(0);
    QLNSceneLoader loader(dir.write("empty.obj", empty.bytes));
    QLNScene* scene = loader.loadScene();
    ASSERT_NE(scene, nullptr);
    EXPECT_TRUE(loader.isValid());
    ASSERT_NE(scene->getTree(), nullptr);
    ASSERT_NE(scene->getTree()->getRoot(), nullptr);
    EXPECT_EQ(scene->getTree()->getRoot()->countChildren(), 0);
    delete scene;  // a valid load hands the scene over

    std::string missing = dir.file("nowhere.obj");
    QLNSceneLoader lost(missing);
    std::string out = testsupport::captureStdout([&] { EXPECT_EQ(lost.loadScene(), nullptr); });
    EXPECT_FALSE(lost.isValid());
    EXPECT_EQ(lost.getErrorMessage(), "Object '" + missing + "' not found");
    EXPECT_EQ(out, "");
    bool ok = true;
    readAll(missing, &ok);
    EXPECT_FALSE(ok);
}
