// The object, shader and framebuffer pools without GL: lookups of missing names,
// reports and disposal lines as they appear on standard output.
#include <gtest/gtest.h>

#include "demosys/DataFBOPool.h"
#include "demosys/DataObjectPool.h"
#include "demosys/DataShaderPool.h"
#include "demosys/QLNScene.h"
#include "support/TestSupport.h"

using testsupport::captureStdout;

TEST(ObjectPool, CountsAddsListsScenesInNameOrderAndDisposesThem) {
    DataObjectPool* pool = new DataObjectPool();
    QLNScene* ship = new QLNScene();
    QLNScene* asteroid = new QLNScene();
    QLNScene* firstShip = new QLNScene();
    pool->addObject("ship", firstShip);
    pool->addObject("ship", ship);  // replaces without deleting, and still counts
    pool->addObject("asteroid", asteroid);

    EXPECT_EQ(pool->size(), 3);
    EXPECT_EQ(pool->getObject("ship"), ship);
    EXPECT_EQ(pool->getObject("comet"), nullptr);
    EXPECT_FALSE(pool->exists("comet"));
    EXPECT_TRUE(pool->exists("asteroid"));
    EXPECT_EQ(pool->getObject(0), asteroid);  // alphabetical order
    EXPECT_EQ(pool->getObject(1), ship);
    EXPECT_EQ(pool->getObject(2), nullptr);
    EXPECT_EQ(pool->toString(), "DataObjectPool {\n}\n");

    std::string out = captureStdout([&] { delete pool; });
    EXPECT_EQ(out, "[Dispose objectPool]\n -> delete asteroid\n -> delete ship\n");
    delete firstShip;  // still the caller's
}

TEST(ShaderPool, MissingNameIsEnteredEmptyAndReported) {
    DataShaderPool pool;
    std::string report;
    std::string out = captureStdout([&] { report = pool.toString(); });
    EXPECT_EQ(out, "Shaders in pool : 0");
    EXPECT_EQ(report, "ShaderPool {\n<Empty>\n}\n");

    EXPECT_FALSE(pool.exists("glow"));
    EXPECT_EQ(pool.getShader("glow"), nullptr);
    EXPECT_TRUE(pool.exists("glow"));
    EXPECT_EQ(pool.size(), 1);
    out = captureStdout([&] { report = pool.toString(); });
    EXPECT_EQ(out, "Shaders in pool : 1");
    EXPECT_NE(report.find("  glow = "), std::string::npos);
    EXPECT_EQ(report.find("<Empty>"), std::string::npos);
    EXPECT_EQ(captureStdout([] { DataShaderPool quiet; }), "");
}

TEST(FBOPool, MissingNameIsSaidOncePerCallAndNotEntered) {
    DataFBOPool pool;
    FrameBufferObject* found = reinterpret_cast<FrameBufferObject*>(1);
    std::string out = captureStdout([&] {
        found = pool.getFBO("glowbuffer");
        pool.getFBO("glowbuffer");
    });
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(out,
              "FrameBufferObject::getFBO(glowbuffer) cannot find the requested VBO\n"
              "FrameBufferObject::getFBO(glowbuffer) cannot find the requested VBO\n");
    EXPECT_FALSE(pool.exists("glowbuffer"));
    EXPECT_EQ(pool.size(), 0);
    EXPECT_EQ(pool.toString(), "FBOPool {\n}\n");
}
