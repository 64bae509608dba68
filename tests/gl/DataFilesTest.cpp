// The loader's data-file stages on real files in a temp folder: a script naming good
// files loads them into the pools, and every way a resource block can be wrong ends
// loading with its own message, word for word ("@" stands for the folder).
#include "demosys/Binary.h"
#include "demosys/DataAnimationPool.h"
#include "demosys/DataBinaryPool.h"
#include "demosys/DataFBOPool.h"
#include "demosys/DataObjectPool.h"
#include "demosys/DataShaderPool.h"
#include "demosys/DataTexturePool.h"
#include "demosys/QLNDemosys.h"
#include "support/Engine.h"
#include "support/GLHarness.h"
#include "support/TestSupport.h"
#include "unit/ObjectFileBytes.h"
#include "demosys/QLNObject.h"
#include "demosys/QLNScene.h"
#include "demosys/QLNSceneTree.h"
#include "demosys/Texture.h"

namespace {

class DataFiles : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        dir.write("simple.vert", testsupport::readFile(testsupport::sourceDir() + "/resources/shaders/simple.vert"));
        dir.write("simple.frag", testsupport::readFile(testsupport::sourceDir() + "/resources/shaders/simple.frag"));
        dir.write("bad.vert", "void main() { gl_Position = nothing; }\n");
        dir.write("bad.frag", "void main() { gl_FragColor = nothing; }\n");
        dir.write("onlyvert.vert", testsupport::readFile(dir.file("simple.vert")));
        dir.write("badfrag.vert", testsupport::readFile(dir.file("simple.vert")));
        dir.write("badfrag.frag", "void main() { gl_FragColor = nothing; }\n");
        dir.write("nolink.vert", "void main() { gl_Position = vec4(0.0); }\n");
        dir.write("nolink.frag", "void helper();\nvoid main() { helper(); gl_FragColor = vec4(1.0); }\n");
        dir.write("cube.qlo", testsupport::readFile(testsupport::sourceDir() + "/resources/objects/cube.qlo"));
        dir.write("blob.bin", "\x01\x02\x03");
        dir.write("path.ani", "QLNANI1\nkeyframes 2\nposition 0 0 0\nangles 0 0\nposition 1 1 1\nangles 1 1\n");
        gl::writePNG(dir.file("red.png"), 4, 4, gl::solid(4, 4, gl::Rgb{255, 0, 0}));
        gl::writePNG(dir.file("green.png"), 4, 4, gl::solid(4, 4, gl::Rgb{0, 255, 0}));
        gl::writePNG(dir.file("line.png"), 4, 1, gl::solid(4, 1, gl::Rgb{0, 0, 255}));
        // Two squares side by side; the right one has a material with a red ambient.
        testsupport::ObjectFileBytes pair;
        pair.i32(2);
        pair.mesh("left", {}, 3, 3, 2, testsupport::squareVertices(-0.9f, -0.9f, -0.1f, 0.9f, 0),
                  testsupport::squareIndices());
        pair.mesh("right", {0.1f, 0.1f, 0.1f, 0.8f, 0.8f, 0.8f, 1, 0, 0}, 3, 3, 2,
                  testsupport::squareVertices(0.1f, -0.9f, 0.9f, 0.9f, 0), testsupport::squareIndices());
        dir.write("pair.qlo", pair.bytes);
    }
    // Loads a script made of the paths block and the given blocks; returns the error or "".
    std::string load(const std::string& blocks) {
        engine.reset(new Engine(dir.write("script.txt", "{QLNDS1}\npaths {\n    definition = " + testsupport::sourceDir() +
                                                            "/resources/definitions/;\n" +
                                                            here("    shaders = @;\n    gfx = @;\n    misc = @;\n"
                                                                 "    object = @;\n}\n" + blocks))));
        bool ok = engine->load(true);
        return ok ? "" : engine->error();
    }
    std::string here(std::string text) {
        for (size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at)) text.replace(at, 1, dir.path() + "/");
        return text;
    }
    testsupport::TempDir dir;
    std::unique_ptr<Engine> engine;
};

TEST_F(DataFiles, EveryBlockLoadsIntoItsPool) {
    ASSERT_EQ(load(("shaders { simple = simple; }\nframebuffers { small = 64, 32, COLOR_BUFFER, DEPTH_BUFFER; "
                        "screen = width, height, COLOR_BUFFER; }\ngraphics { red = red.png; again = red.png; "
                        "mip = green.png, GL_TEXTURE_2D, GEN_MIPMAP; line = line.png, GL_TEXTURE_1D; }\n"
                        "binary { blob = blob.bin; }\nobjects { cube = cube.qlo; pair = pair.qlo; }\nanimation { path = path.ani; }\n")),
              "");
    EXPECT_NE(QLNDemosys::shaderPool->getShader("simple"), nullptr);
    EXPECT_TRUE(QLNDemosys::fboPool->exists("small"));
    EXPECT_TRUE(QLNDemosys::fboPool->exists("screen"));
    EXPECT_NE(QLNDemosys::texturePool->getTexture("mip"), nullptr);
    EXPECT_NE(QLNDemosys::texturePool->getTexture("again"), nullptr);
    EXPECT_FALSE(QLNDemosys::texturePool->exist("red")) << "a file is loaded once, under its first alias in key order";
    EXPECT_EQ(QLNDemosys::binaryPool->getData("blob")->size(), 3u);
    EXPECT_NE(QLNDemosys::objectPool->getObject("cube"), nullptr);
    EXPECT_NE(QLNDemosys::animationPool->getAnimation("path"), nullptr);
    EXPECT_EQ(gl::integer(GL_FRAMEBUFFER_BINDING_EXT), 0);
    EXPECT_NE(QLNDemosys::texturePool->getTexture("line"), nullptr);

    // The mesh with a material draws in its own colour, the other in the scene's default.
    gl::reset();
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    QLNDemosys::objectPool->getObject("pair")->draw();
    gl::Rgb plain = gl::pixelAt(-0.5f, 0), own = gl::pixelAt(0.5f, 0);
    EXPECT_EQ(plain[0], plain[1]);
    EXPECT_GT(own[0], own[1] + 20);

    // A hidden mesh is left out; the debug box and translation are red lines.
    QLNScene* pair = QLNDemosys::objectPool->getObject("pair");
    QLNObject* right = pair->getTree()->getObjectByName("right");
    ASSERT_NE(right, nullptr);
    EXPECT_EQ(pair->getTree()->getObjectByName("middle"), nullptr);
    right->setVisible(false);
    glClear(GL_COLOR_BUFFER_BIT);
    pair->draw();
    EXPECT_EQ(gl::pixelAt(0.5f, 0), (gl::Rgb{0, 0, 0}));
    EXPECT_NE(gl::pixelAt(-0.5f, 0), (gl::Rgb{0, 0, 0}));
    gl::reset();
    right->setBBoxMin(Vector<float, 3>(-0.5f, -0.5f, 0));
    right->setBBoxMax(Vector<float, 3>(0.5f, 0.5f, 0));
    right->drawBBox();
    for (auto [x, y] : {std::pair{-0.5f, 0.0f}, {0.5f, 0.0f}, {0.0f, -0.5f}, {0.0f, 0.5f}})
        EXPECT_EQ(gl::pixelAt(x, y), (gl::Rgb{255, 0, 0})) << x << "," << y;
    EXPECT_EQ(gl::pixelAt(0, 0), (gl::Rgb{0, 0, 0}));
    gl::reset();
    right->setTranslation(Vector<float, 3>(0, -0.8f, 0));
    glPushMatrix();
    right->drawTranslation();
    EXPECT_EQ(gl::pixelAt(0, -0.4f), (gl::Rgb{255, 0, 0}));
    EXPECT_EQ(gl::integer(GL_MODELVIEW_STACK_DEPTH), 1) << "the caller's matrix is popped";
    EXPECT_FALSE(glIsEnabled(GL_COLOR_MATERIAL));

    // The texture pool finds a texture by its file, counts the files' bytes.
    Texture* red = QLNDemosys::texturePool->getTexture("again");
    EXPECT_EQ(QLNDemosys::texturePool->getTextureIDbyFilename(red->getFilename()), red->getID());
    EXPECT_EQ(QLNDemosys::texturePool->getTexVector().size(), 3u);
    const std::string pool = QLNDemosys::texturePool->toString();
    const size_t files = testsupport::readFile(dir.file("red.png")).size() +
                         testsupport::readFile(dir.file("green.png")).size() +
                         testsupport::readFile(dir.file("line.png")).size();
    EXPECT_NE(pool.find(" - " + std::to_string(files) + " bytes"), std::string::npos) << pool;
}

TEST_F(DataFiles, EachWrongEntryStopsLoadingWithItsMessage) {
    const std::string syntax = "\nValid syntax: width, height, COLOR_BUFFER [,DEPTH_BUFFER][,STENCIL_BUFFER]";
    struct Case {
        const char* block;
        std::string message;  // a message ending in "..." is compared up to there (the driver's log follows)
    } cases[] = {
        {"shaders { s = none; }", "Vertex shader 'none.vert' not found"},
        {"shaders { s = onlyvert; }", "Fragement shader 'onlyvert.frag' not found"},
        {"shaders { s = bad; }", "Error while compiling vertex shader\nShader: bad.vert\n..."},
        {"shaders { s = badfrag; }", "Error while compiling fragment shader\nShader: badfrag.frag\n..."},
        {"shaders { s = nolink; }", "Error while linking shader pair\nShader: nolink\n..."},
        {"framebuffers { f = 64, 64; }", "Wrong number of parameters in framebuffer block\nFramebuffer: f\ndefined as : 64, 64" + syntax},
        {"framebuffers { f = wide, 64, COLOR_BUFFER; }",
         "Frambuffer width is not an int\nFBO: f\nvalue : wide\nValid syntax: 'width' or unsinged integer"},
        {"framebuffers { f = 64, 6.5, COLOR_BUFFER; }",
         "Frambuffer height is not an int\nFBO: f\nvalue : 6.5\nValid syntax: 'height' or unsinged integer"},
        {"framebuffers { f = 64, 64, COLOR_BUFFER, STENCIL_BUFFER; }",
         "Wrong parameter for framebuffer 'fvalue: 'STENCIL_BUFFERexpected : 'DEPTH_BUFFER'\n"},
        {"graphics { t = red.png, GL_TEXTURE_4D; }",
         "TexturePool: 't' using wrong texture parameter 'GL_TEXTURE_4D\nOptions : GL_TEXTURE_1D/2D/3D"},
        {"graphics { t = red.png, GL_TEXTURE_2D, MIPMAPS; }",
         "TexturePool: 't' using wrong mipmap parameter MIPMAPS\nOptions : GEN_MIPMAPS"},
        {"graphics { t = none.png; }", "Failed to load texture!\nFile : '@none.png'"},
        {"binary { b = none.bin; }", "Failed to binary data!\nFile : 'none.bin'"},
        {"objects { o = none.qlo; }", "Object '@none.qlo' not found"},
        {"animation { a = none.ani; }", "Error while loading animation data\nFile '@none.ani' not found!\n"},
    };
    for (const Case& c : cases) {
        std::string got = load(c.block);
        std::string want = here(c.message);
        if (want.size() > 3 && want.compare(want.size() - 3, 3, "...") == 0)
            EXPECT_EQ(got.substr(0, want.size() - 3), want.substr(0, want.size() - 3)) << c.block;
        else
            EXPECT_EQ(got, want) << c.block;
        engine.reset();
        gl::reset();
    }
}

}  // namespace
