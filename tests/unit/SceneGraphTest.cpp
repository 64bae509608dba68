// The scene graph without GL: searching by name, ownership and the material's colours.
#include <gtest/gtest.h>

#include "demosys/QLNMaterial.h"
#include "demosys/QLNNode.h"
#include "demosys/QLNObject.h"
#include "demosys/QLNScene.h"
#include "demosys/QLNSceneTree.h"
#include "support/TestSupport.h"

namespace {

QLNNode* nodeWith(const std::string& name) {
    QLNNode* node = new QLNNode();
    QLNObject* object = new QLNObject();
    object->setName(name);
    node->setObject(object);
    return node;
}

}  // namespace

TEST(SceneGraph, ObjectByNameIsTheFirstMetParentBeforeChildren) {
    QLNScene scene;
    QLNSceneTree* tree = new QLNSceneTree();
    scene.setTree(tree);
    QLNNode* root = new QLNNode();
    tree->setRoot(root);
    QLNNode* left = nodeWith("twin");
    QLNNode* deep = nodeWith("leaf");
    left->addChild(deep);
    left->addChild(nodeWith("twin"));
    root->addChild(left);
    QLNNode* right = nodeWith("leaf");
    root->addChild(right);

    EXPECT_EQ(tree->getObjectByName("twin"), left->getObject());  // parent before its child
    EXPECT_EQ(tree->getObjectByName("leaf"), deep->getObject());  // depth first
    EXPECT_EQ(tree->getObjectByName("Leaf"), nullptr);            // exact match only
    EXPECT_EQ(root->countChildren(), 2);
    EXPECT_EQ(root->getChild(1), right);
    EXPECT_EQ(root->getChild(2), nullptr);
    EXPECT_EQ(root->getChild(-1), nullptr);
}

TEST(SceneGraph, NewPartsStartFromTheirDefaults) {
    QLNNode node;
    Matrix<float, 4, 4, 16> matrix = node.getMatrix();
    for (int i = 0; i < 16; ++i) EXPECT_EQ(matrix[i], 0.0f);
    EXPECT_EQ(node.getObject(), nullptr);

    QLNObject object;
    EXPECT_TRUE(object.isVisible());
    EXPECT_EQ(object.getVBO(), nullptr);
    EXPECT_EQ(object.getMaterial(), nullptr);
    EXPECT_EQ(object.getTranslation()[2], 0.0f);

    QLNScene scene;
    EXPECT_EQ(scene.getTree(), nullptr);
    ASSERT_NE(scene.getDefaultMaterial(), nullptr);
    scene.draw();  // no tree: nothing to do
}

TEST(SceneGraph, MaterialColoursAndPrintout) {
    typedef Vector<float, 3> Colour;
    QLNMaterial material;
    EXPECT_EQ(material.getAmbient(), Colour(0.5f, 0.5f, 0.5f));
    EXPECT_EQ(material.getDiffuse(), Colour(0.5f, 0.5f, 0.5f));
    EXPECT_EQ(material.getEmissive(), Colour(0.0f, 0.0f, 0.0f));
    EXPECT_EQ(testsupport::captureStdout([&] { material.print(); }), "Amb : [0.5,0.5,0.5]\nDif : [0.5,0.5,0.5]\n");

    material.setAmbient(0.25f, 0.5f, 1.0f);
    material.setDiffuse(1.0f, 0.0f, 0.0f);
    material.setEmissive(0.0f, 0.0f, 2.0f);
    EXPECT_EQ(material.getEmissive()[2], 2.0f);
    std::string out = testsupport::captureStdout([&] { material.print(); });
    EXPECT_EQ(out, "Amb : [0.25,0.5,1]\nDif : [1,0,0]\n");
}
