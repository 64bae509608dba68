#include <gtest/gtest.h>

#include <memory>

#include "demosys/Shader.h"
#include "demosys/Texture.h"
#include "gl/GLState.h"
#include "support/TestSupport.h"

using glstate::pixel;
using glstate::Rgb;
using testsupport::captureStdout;

namespace {

const char* passThroughVertex =
    "void main() {\n"
    "    gl_TexCoord[0] = gl_MultiTexCoord0;\n"
    "    gl_Position = gl_Vertex;\n"
    "}\n";

const char* uniformColourFragment =
    "uniform vec4 colour;\n"
    "uniform float level;\n"
    "void main() { gl_FragColor = colour * level; }\n";

const char* twoTextureFragment =
    "uniform sampler2D first;\n"
    "uniform sampler2D second;\n"
    "void main() { gl_FragColor = texture2D(first, gl_TexCoord[0].st) + texture2D(second, gl_TexCoord[0].st); }\n";

class ShaderTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(testsupport::ensureGLWindow());
        glstate::reset();
        w = glstate::windowWidth();
        h = glstate::windowHeight();
    }
    void TearDown() override { glstate::reset(); }

    std::unique_ptr<Shader> program(const char* vertex, const char* fragment) {
        auto shader = std::make_unique<Shader>();
        EXPECT_TRUE(shader->setVertexSource(vertex)) << shader->getErrorMessage();
        EXPECT_TRUE(shader->setFragmentSource(fragment)) << shader->getErrorMessage();
        EXPECT_TRUE(shader->link()) << shader->getErrorMessage();
        return shader;
    }

    static std::unique_ptr<Texture> solid(unsigned char r, unsigned char g, unsigned char b) {
        unsigned char texel[4] = {r, g, b, 255};
        return std::make_unique<Texture>(1, 1, GL_RGBA, texel);
    }

    int w = 0, h = 0;
};

}  // namespace

TEST_F(ShaderTest, LinkedProgramDrawsWithItsUniforms) {
    auto shader = program(passThroughVertex, uniformColourFragment);
    EXPECT_TRUE(shader->isValid());
    EXPECT_EQ(shader->getErrorMessage(), "");
    shader->use();
    EXPECT_EQ(static_cast<GLuint>(glstate::integer(GL_CURRENT_PROGRAM)), shader->getProgramHandle());

    shader->setUniform4f("colour", 0.0f, 1.0f, 0.5f, 1.0f);
    shader->setUniform1f("level", 1.0f);
    glstate::fillRect(-1, -1, 1, 1);
    EXPECT_TRUE(near(pixel(w / 2, h / 2), Rgb{0, 255, 128})) << str(pixel(w / 2, h / 2));

    // The integer setter goes through the float setter: 3 arrives as 3.0.
    shader->setUniform1i("level", 3);
    GLfloat level = 0;
    glGetUniformfv(shader->getProgramHandle(), glGetUniformLocation(shader->getProgramHandle(), "level"), &level);
    EXPECT_EQ(level, 3.0f);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR)) << "a float uniform accepts it";

    shader->setUniform1f("level", 1.0f);
    shader->setUniform4fv("colour", Vector<float, 4>(1.0f, 0.0f, 0.0f, 1.0f));
    glstate::fillRect(-1, -1, 1, 1);
    EXPECT_EQ(pixel(w / 2, h / 2), (Rgb{255, 0, 0}));

    shader->release();
    EXPECT_EQ(glstate::integer(GL_CURRENT_PROGRAM), 0);
}

TEST_F(ShaderTest, VectorUniformSetters) {
    auto shader = program(passThroughVertex,
                          "uniform vec2 a;\nuniform vec3 b;\n"
                          "void main() { gl_FragColor = vec4(a, b.z, 1.0); }\n");
    shader->use();
    GLuint handle = shader->getProgramHandle();
    GLfloat values[3] = {0, 0, 0};
    shader->setUniform2f("a", 0.25f, 0.5f);
    glGetUniformfv(handle, glGetUniformLocation(handle, "a"), values);
    EXPECT_EQ(values[1], 0.5f);
    shader->setUniform2fv("a", Vector<float, 2>(1.0f, 0.0f));
    shader->setUniform3f("b", 9, 9, 9);
    shader->setUniform3fv("b", Vector<float, 3>(0.0f, 0.0f, 1.0f));
    glGetUniformfv(handle, glGetUniformLocation(handle, "b"), values);
    EXPECT_EQ(values[2], 1.0f);
    glstate::fillRect(-1, -1, 1, 1);
    EXPECT_EQ(pixel(w / 2, h / 2), (Rgb{255, 0, 255}));

    // Names the program lacks are silently ignored by the vector setters.
    std::string out = captureStdout([&] {
        shader->setUniform2f("missing", 1, 1);
        shader->setUniform4fv("missing", Vector<float, 4>());
    });
    EXPECT_EQ(out, "");
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    shader->release();
}

TEST_F(ShaderTest, MissingScalarUniformIsReportedOnEveryCall) {
    auto shader = program(passThroughVertex,
                          "uniform float unused;\n"
                          "void main() { gl_FragColor = vec4(1.0); }\n");
    shader->use();
    std::string out = captureStdout([&] {
        shader->setUniform1f("unused", 1.0f);
        shader->setUniform1i("unused", 2);
    });
    EXPECT_EQ(out,
              "Error: Uniform variable 'unused' not found!\n"
              "Error: Uniform variable 'unused' not found!\n");
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR)) << "nothing is set";
    shader->release();
}

TEST_F(ShaderTest, TwoTextureUnitsAndRelease) {
    auto shader = program(passThroughVertex, twoTextureFragment);
    auto red = solid(200, 0, 0);
    auto blue = solid(0, 0, 150);
    shader->use();
    shader->setTextureUnit0("first", red.get());
    shader->setTextureUnit1("second", blue.get());
    EXPECT_EQ(glstate::integer(GL_ACTIVE_TEXTURE), GL_TEXTURE0) << "unit 1 is selected only while binding";
    GLint unit = -1;
    glGetUniformiv(shader->getProgramHandle(), glGetUniformLocation(shader->getProgramHandle(), "second"), &unit);
    EXPECT_EQ(unit, 1);

    glBegin(GL_QUADS);
    glTexCoord2f(0, 0), glVertex2f(-1, -1);
    glTexCoord2f(1, 0), glVertex2f(1, -1);
    glTexCoord2f(1, 1), glVertex2f(1, 1);
    glTexCoord2f(0, 1), glVertex2f(-1, 1);
    glEnd();
    EXPECT_TRUE(near(pixel(w / 2, h / 2), Rgb{200, 0, 150})) << str(pixel(w / 2, h / 2));

    shader->release();
    EXPECT_EQ(glstate::integer(GL_CURRENT_PROGRAM), 0);
    EXPECT_EQ(glstate::integer(GL_ACTIVE_TEXTURE), GL_TEXTURE0);
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    glActiveTexture(GL_TEXTURE1);
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    glActiveTexture(GL_TEXTURE0);
}

TEST_F(ShaderTest, CompileErrorsCarryTheDriverLog) {
    Shader shader;
    EXPECT_FALSE(shader.setVertexSource("void main() { gl_Position = undefinedThing; }\n"));
    EXPECT_FALSE(shader.isValid());
    std::string vertexLog = shader.getErrorMessage();
    EXPECT_NE(vertexLog.find("undefinedThing"), std::string::npos) << vertexLog;
    EXPECT_EQ(vertexLog.find('\0'), std::string::npos) << "no terminating NUL in the text";

    EXPECT_FALSE(shader.setFragmentSource("void main() { gl_FragColor = vec4(1.0) }\n"));
    std::string both = shader.getErrorMessage();
    EXPECT_EQ(both.compare(0, vertexLog.size(), vertexLog), 0) << "logs are appended";
    EXPECT_GT(both.size(), vertexLog.size());

    // Fixing the source compiles, but the shader remembers it failed.
    EXPECT_TRUE(shader.setFragmentSource(uniformColourFragment));
    EXPECT_FALSE(shader.isValid());
    EXPECT_EQ(shader.getErrorMessage(), both);
}

TEST_F(ShaderTest, LinkErrorCarriesTheDriverLog) {
    Shader shader;
    ASSERT_TRUE(shader.setVertexSource("void main() { gl_Position = gl_Vertex; }\n"));
    ASSERT_TRUE(shader.setFragmentSource("void helper();\nvoid main() { helper(); gl_FragColor = vec4(1.0); }\n"));
    EXPECT_FALSE(shader.link());
    EXPECT_FALSE(shader.isValid());
    EXPECT_NE(shader.getErrorMessage().find("helper"), std::string::npos) << shader.getErrorMessage();
}

TEST_F(ShaderTest, DescriptionAndDeletion) {
    auto shader = program(passThroughVertex, uniformColourFragment);
    GLuint handle = shader->getProgramHandle();
    GLuint shaders[2] = {0, 0};
    GLsizei count = 0;
    glGetAttachedShaders(handle, 2, &count, shaders);
    ASSERT_EQ(count, 2);
    EXPECT_EQ(shader->toString(), "Shader(vshader size = " + std::to_string(std::string(passThroughVertex).size()) +
                                      ", fragshader size = " +
                                      std::to_string(std::string(uniformColourFragment).size()) +
                                      ", pref=" + std::to_string(handle) + ", vref=" + std::to_string(shaders[0]) +
                                      ", fref=" + std::to_string(shaders[1]) + ")");
    EXPECT_TRUE(shader->link()) << "linking again attaches nothing twice";
    shader.reset();
    EXPECT_FALSE(glIsProgram(handle));
    EXPECT_FALSE(glIsShader(shaders[0]));
    EXPECT_FALSE(glIsShader(shaders[1]));
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));

    Shader empty;
    EXPECT_EQ(empty.toString(), "Shader(vshader size = 0, fragshader size = 0, pref=0, vref=0, fref=0)");
}
