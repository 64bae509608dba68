// Shader programs and textures as the effects use them, checked on the picture they draw.
#include <memory>

#include "demosys/Animation.h"
#include "demosys/GLExtensions.h"
#include "demosys/Keyframe.h"
#include "demosys/Lightsource.h"
#include "demosys/Shader.h"
#include "demosys/Texture.h"
#include "support/GLHarness.h"
#include "support/TestSupport.h"

namespace {

using gl::Rgb;

void fullQuad() {
    glBegin(GL_QUADS);
    glTexCoord2f(0, 0), glVertex2f(-1, -1);
    glTexCoord2f(1, 0), glVertex2f(1, -1);
    glTexCoord2f(1, 1), glVertex2f(1, 1);
    glTexCoord2f(0, 1), glVertex2f(-1, 1);
    glEnd();
}

std::unique_ptr<Texture> texture(int w, int h, std::vector<uint8_t> rgba) {
    return std::unique_ptr<Texture>(new Texture(w, h, GL_RGBA, rgba.data()));
}

class Graphics : public GLTest {};

TEST_F(Graphics, AShaderDrawsWithEveryKindOfUniformAndTwoTextureUnits) {
    Shader shader;
    ASSERT_TRUE(shader.setVertexSource("void main() { gl_TexCoord[0] = gl_MultiTexCoord0; gl_Position = gl_Vertex; }"));
    ASSERT_TRUE(shader.setFragmentSource(
        "uniform vec2 a; uniform vec3 b; uniform vec4 c; uniform float level; uniform float unused;\n"
        "uniform sampler2D first; uniform sampler2D second;\n"
        "void main() { vec4 t = texture2D(first, gl_TexCoord[0].st) + texture2D(second, gl_TexCoord[0].st);\n"
        "  gl_FragColor = vec4(a.x, b.y, c.z, 1.0) * level + t; }"));
    ASSERT_TRUE(shader.link()) << shader.getErrorMessage();
    auto red = texture(1, 1, {100, 0, 0, 255});
    auto blue = texture(1, 1, {0, 0, 50, 255});
    shader.use();
    shader.setUniform2f("a", 0.5f, 0);
    shader.setUniform3f("b", 0, 0.5f, 0);
    shader.setUniform4f("c", 0, 0, 0.25f, 0);
    shader.setUniform1i("level", 1);
    shader.setTextureUnit0("first", red.get());
    shader.setTextureUnit1("second", blue.get());
    fullQuad();
    EXPECT_TRUE(gl::near(gl::pixelAt(0, 0), Rgb{128 + 100, 128, 64 + 50}));
    shader.setUniform2fv("a", Vector<float, 2>(0, 0));
    shader.setUniform3fv("b", Vector<float, 3>(0, 0, 0));
    shader.setUniform4fv("c", Vector<float, 4>(0, 0, 0, 0));
    fullQuad();
    EXPECT_TRUE(gl::near(gl::pixelAt(0, 0), Rgb{100, 0, 50}));
    EXPECT_EQ(testsupport::captureStdout([&] { shader.setUniform1f("unused", 1.0f); }),
              "Error: Uniform variable 'unused' not found!\n");
    shader.release();
    EXPECT_EQ(gl::integer(GL_CURRENT_PROGRAM), 0);
    EXPECT_EQ(gl::integer(GL_ACTIVE_TEXTURE), GL_TEXTURE0);
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
}

TEST_F(Graphics, TexturesDrawFullScreenFlippedAndBlended) {
    // Bottom row red, green; top row blue, transparent white.
    auto quadrants = texture(2, 2, {255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255, 255, 255, 0});
    quadrants->setInterpolation(GL_NEAREST);
    auto corners = [] {
        return std::array<Rgb, 4>{gl::pixelAt(-0.5f, -0.5f), gl::pixelAt(0.5f, -0.5f), gl::pixelAt(-0.5f, 0.5f),
                                  gl::pixelAt(0.5f, 0.5f)};
    };
    const Rgb red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, white{255, 255, 255}, grey{128, 128, 128};
    quadrants->bind();
    quadrants->drawQuadFS();
    EXPECT_EQ(corners(), (std::array<Rgb, 4>{red, green, blue, white}));
    quadrants->drawQuadFS_Flip();
    EXPECT_EQ(corners(), (std::array<Rgb, 4>{blue, white, red, green}));
    glClearColor(0.5f, 0.5f, 0.5f, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    quadrants->drawQuadBlendFS(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    EXPECT_EQ(corners(), (std::array<Rgb, 4>{blue, grey, red, green})) << "the transparent texel is left out";
    EXPECT_TRUE(glIsEnabled(GL_ALPHA_TEST)) << "left on for later effects";

    gl::reset();
    std::vector<uint8_t> bgra = {255, 0, 0, 255, 255, 0, 0, 255, 255, 0, 0, 255, 255, 0, 0, 255};
    quadrants->updateTexture(2, 2, GL_BGRA, bgra.data());
    quadrants->bind();
    quadrants->drawQuadFS();
    EXPECT_EQ(corners()[3], blue) << "new storage in the given pixel order";
    quadrants->release();
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
}

// A square facing the light at (0, 0, 2), lit with no global ambient: each material colour
// shows on its own, multiplied by the light's.
Rgb litPixel(const Material& material, Lightsource& light) {
    glClear(GL_COLOR_BUFFER_BIT);
    light.update();
    material.drawMaterial();
    glNormal3f(0, 0, 1);
    fullQuad();
    return gl::pixelAt(0, 0);
}

TEST_F(Graphics, MaterialColoursAndTheLightsOwnShowInTheLitPicture) {
    const float none[4] = {0, 0, 0, 1}, white[4] = {1, 1, 1, 1}, globalDefault[4] = {0.2f, 0.2f, 0.2f, 1};
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, none);
    glLightfv(GL_LIGHT0, GL_SPECULAR, white);
    Lightsource light;
    light.setPos(0, 0, 2);
    light.getMaterial()->setAmbience(0.5f, 0.5f, 0.5f)->setDiffuse(Vector<float, 4>(0.5f, 0.5f, 0.5f, 1));
    light.enable();
    Material m;
    m.setAmbience(0, 0, 0, 1)->setDiffuse(Vector<float, 4>(0, 0, 0, 1))->setSpecular(0, 0, 0, 1)->setEmissive(0, 0, 0, 1);
    EXPECT_TRUE(gl::near(litPixel(m, light), Rgb{0, 0, 0}));
    m.setEmissive(Vector<float, 4>(0.25f, 0, 0, 1));
    EXPECT_TRUE(gl::near(litPixel(m, light), Rgb{64, 0, 0}));
    m.setEmissive(0, 0, 0)->setAmbience(Vector<float, 4>(0, 0.5f, 0, 1));
    EXPECT_TRUE(gl::near(litPixel(m, light), Rgb{0, 64, 0}));

    // Copies own their material: darkening one leaves the others lit.
    Lightsource dark(light), assigned;
    dark.getMaterial()->setAmbience(0, 0, 0);
    EXPECT_TRUE(gl::near(litPixel(m, dark), Rgb{0, 0, 0}));
    EXPECT_TRUE(gl::near(litPixel(m, light), Rgb{0, 64, 0}));
    assigned = dark;
    assigned = light;
    dark.getMaterial()->setAmbience(1, 1, 1);
    EXPECT_TRUE(gl::near(litPixel(m, assigned), Rgb{0, 64, 0}));

    // Lit at the corners, which see the light at cos 2/sqrt(6), and shaded in between.
    m.setAmbience(0, 0, 0)->setDiffuse(0, 0, 1);
    EXPECT_TRUE(gl::near(litPixel(m, light), Rgb{0, 0, 104}));
    m.setDiffuse(0, 0, 0)->setSpecular(Vector<float, 4>(0.5f, 0.5f, 0.5f, 1));
    EXPECT_TRUE(gl::near(litPixel(m, light), Rgb{79, 79, 79})) << "shininess 10";
    // The corners lie off the highlight: the shinier the material, the darker they are.
    const int broad = litPixel(*m.setShinyness(1), light)[0];
    const int narrow = litPixel(*m.setShinyness(128), light)[0];
    EXPECT_GT(broad, 100);
    EXPECT_LT(narrow, 10);

    // The three-float form keeps the alpha, which blends the lit colour.
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    m.setSpecular(0, 0, 0)->setDiffuse(1, 1, 1, 0.5f)->setDiffuse(0, 0, 1);
    EXPECT_TRUE(gl::near(litPixel(m, light), Rgb{0, 0, 52}));
    light.disable();
    EXPECT_FALSE(glIsEnabled(GL_LIGHTING) || glIsEnabled(GL_LIGHT0));
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, globalDefault);
}

TEST_F(Graphics, AnimationPathsDrawThroughTheirKeyframes) {
    Animation path;
    for (float x : {-0.9f, -0.3f, 0.3f, 0.9f}) path.addKeyframe(new Keyframe(Vector<float, 3>(x, 0, 0), 0, 0));
    const Rgb white{255, 255, 255}, black{0, 0, 0};
    glLineWidth(3);
    path.draw();
    EXPECT_EQ(gl::pixelAt(-0.6f, 0), white);
    EXPECT_EQ(gl::pixelAt(0.6f, 0), white);
    glClear(GL_COLOR_BUFFER_BIT);
    path.drawCatmul();  // only the stretch between the middle two keyframes
    EXPECT_EQ(gl::pixelAt(0, 0), white);
    EXPECT_EQ(gl::pixelAt(-0.6f, 0), black);
    EXPECT_EQ(gl::pixelAt(0.6f, 0), black);
    glLineWidth(1);
}

TEST_F(Graphics, TheCapabilityCheckNamesWhatIsMissing) {
    GLExtensions extensions;
    extensions.addToChecklist("GL_EXT_framebuffer_object");
    EXPECT_TRUE(extensions.isSupported());
    extensions.addToChecklist("GL_QLN_no_such_thing");
    EXPECT_FALSE(extensions.isSupported());
    EXPECT_EQ(extensions.getErrorMessage(),
              "Error: Your OpenGL implementation is missing the following extensions :\n - GL_QLN_no_such_thing\n");
}

}  // namespace
