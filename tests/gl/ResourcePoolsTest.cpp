// The texture, shader and framebuffer pools holding real GL objects: reports, lookups,
// disposal lines, and the GL objects gone afterwards.
#include <gtest/gtest.h>

#include <GL/glew.h>

#include "demosys/DataFBOPool.h"
#include "demosys/DataShaderPool.h"
#include "demosys/DataTexturePool.h"
#include "demosys/FrameBufferObject.h"
#include "demosys/Shader.h"
#include "demosys/Texture.h"
#include "support/GLTestSupport.h"
#include "support/TestSupport.h"

using testsupport::captureStdout;

namespace {

GLuint newTextureName() {
    GLuint id = 0;
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    glBindTexture(GL_TEXTURE_2D, 0);
    return id;
}

}  // namespace

TEST(TexturePool, ReportSumsSizesAndDisposalDeletesTheTextures) {
    ASSERT_TRUE(testsupport::ensureGLWindow());
    DataTexturePool* pool = new DataTexturePool();
    Texture* back = new Texture(512, 512, GL_RGBA, nullptr);
    back->setFilename("back.png");
    back->setFileSize(524288);
    Texture* icon = new Texture(256, 256, GL_RGBA, nullptr);
    icon->setFilename("icon.png");
    pool->addTexture("icon", icon);
    pool->addTexture("back", back);
    GLuint backID = back->getID(), iconID = icon->getID();

    EXPECT_EQ(pool->size(), 2);
    EXPECT_EQ(pool->getTexture("back"), back);
    EXPECT_TRUE(pool->isFileInPool("icon.png"));
    EXPECT_EQ(pool->getTextureIDbyFilename("icon.png"), iconID);
    EXPECT_EQ(pool->getTextureIDbyAlias("back"), backID);
    EXPECT_EQ(pool->getTexVector(), (std::vector<unsigned int>{backID, iconID}));  // alias order
    EXPECT_EQ(pool->getTextureTotalMemsize(), 1310720u);
    EXPECT_EQ(pool->getTextureTotalFilesize(), 524288u);
    EXPECT_EQ(pool->toString(),
              "DataTexturePool {\n"
              "    total memory size : 1.25 MB - 1310720 bytes\n"
              "    total file size : 0.5 mb - 524288 bytes\n"
              "    numTextures = 2\n"
              "    back = " + back->toString() +
              "    icon = " + icon->toString() + "}\n");

    // A missing alias is only a null answer; nothing is entered.
    EXPECT_EQ(pool->getTexture("nothing"), nullptr);
    EXPECT_EQ(pool->getTextureIDbyAlias("nothing"), 0u);
    EXPECT_EQ(pool->getTextureIDbyFilename("nothing.png"), 0u);
    EXPECT_FALSE(pool->exist("nothing"));

    ASSERT_TRUE(glIsTexture(backID));
    std::string out = captureStdout([&] { delete pool; });
    EXPECT_EQ(out, "[Dispose texturePool]\n -> delete texture 'back'\n -> delete texture 'icon'\n");
    EXPECT_FALSE(glIsTexture(backID));
    EXPECT_FALSE(glIsTexture(iconID));
}

TEST(TexturePool, SameAliasTwiceKeepsOneEntryAndBothFiles) {
    ASSERT_TRUE(testsupport::ensureGLWindow());
    DataTexturePool* pool = new DataTexturePool();
    GLuint first = newTextureName(), second = newTextureName();
    pool->addTexture("logo", "logo-a.png", first);
    Texture* replaced = pool->getTexture("logo");
    pool->addTexture("logo", "logo-b.png", second);  // overwrites without deleting

    EXPECT_EQ(pool->size(), 2);
    std::map<std::string, std::string> files = pool->getFilemap();
    EXPECT_EQ(files.size(), 2u);
    EXPECT_EQ(files["logo-a.png"], "logo");
    EXPECT_EQ(files["logo-b.png"], "logo");
    EXPECT_EQ(pool->getTexVector().size(), 1u);
    EXPECT_EQ(pool->getTexture("logo")->getFilename(), "logo-b.png");
    // Both file names lead to the alias, and so to the texture added last.
    EXPECT_EQ(pool->getTextureIDbyFilename("logo-a.png"), second);
    EXPECT_NE(pool->toString().find("numTextures = 2\n"), std::string::npos);

    std::string out = captureStdout([&] { delete pool; });
    EXPECT_EQ(out, "[Dispose texturePool]\n -> delete texture 'logo'\n");
    EXPECT_TRUE(glIsTexture(first));
    EXPECT_FALSE(glIsTexture(second));
    delete replaced;
}

TEST(ShaderAndFBOPools, ReportTheirObjectsAndDeleteThemQuietly) {
    ASSERT_TRUE(testsupport::ensureGLWindow());
    DataShaderPool* shaders = new DataShaderPool();
    Shader* flat = new Shader();
    ASSERT_TRUE(flat->setVertexSource("void main() { gl_Position = ftransform(); }"));
    ASSERT_TRUE(flat->setFragmentSource("void main() { gl_FragColor = vec4(1.0); }"));
    ASSERT_TRUE(flat->link());
    shaders->addShader("flat", flat);
    GLuint program = flat->getProgramHandle();
    std::string report;
    std::string out = captureStdout([&] { report = shaders->toString(); });
    EXPECT_EQ(out, "Shaders in pool : 1");
    EXPECT_EQ(report, "ShaderPool {\n  flat = " + flat->toString() + "\n}\n");
    EXPECT_EQ(shaders->getShader("flat"), flat);

    DataFBOPool* fbos = new DataFBOPool();
    FrameBufferObject* glow = new FrameBufferObject(64, 32, true, false);
    FrameBufferObject* blur = new FrameBufferObject(16, 16, false, true);
    fbos->addFBO("glow", glow);
    fbos->addFBO("blur", blur);
    GLuint glowID = glow->getId();
    EXPECT_EQ(fbos->size(), 2);
    EXPECT_TRUE(fbos->exists("blur"));
    std::string silent = captureStdout([&] { EXPECT_EQ(fbos->getFBO("glow"), glow); });
    EXPECT_EQ(silent, "");
    EXPECT_EQ(fbos->toString(), "FBOPool {\n  blur = " + blur->toString() + "\n  glow = " + glow->toString() + "\n}\n");

    ASSERT_TRUE(glIsProgram(program));
    ASSERT_TRUE(glIsFramebufferEXT(glowID));
    out = captureStdout([&] {
        delete shaders;
        delete fbos;
    });
    EXPECT_EQ(out, "");
    EXPECT_FALSE(glIsProgram(program));
    EXPECT_FALSE(glIsFramebufferEXT(glowID));
}
