// The bundled GLSL pair compiles and links on a real OpenGL 2.0 context and draws the
// texture on unit 0 tinted by the vertex colour.
#include <gtest/gtest.h>

#include <string>

#include "support/GLTestSupport.h"
#include "support/TestSupport.h"

namespace {

GLuint compile(GLenum type, const std::string& source, std::string& log) {
    GLuint shader = glCreateShader(type);
    const char* text = source.c_str();
    glShaderSource(shader, 1, &text, nullptr);
    glCompileShader(shader);
    GLint ok = 0;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &ok);
    char buffer[2048] = {0};
    glGetShaderInfoLog(shader, sizeof buffer, nullptr, buffer);
    log += buffer;
    return ok ? shader : 0;
}

}  // namespace

TEST(BundledShader, SimplePairCompilesLinksAndTintsTheTexture) {
    ASSERT_TRUE(testsupport::ensureGLWindow());
    const std::string dir = testsupport::sourceDir() + "/resources/shaders/";
    const std::string vertexSource = testsupport::readFile(dir + "simple.vert");
    const std::string fragmentSource = testsupport::readFile(dir + "simple.frag");
    ASSERT_FALSE(vertexSource.empty());
    ASSERT_FALSE(fragmentSource.empty());

    std::string log;
    GLuint vertex = compile(GL_VERTEX_SHADER, vertexSource, log);
    GLuint fragment = compile(GL_FRAGMENT_SHADER, fragmentSource, log);
    ASSERT_NE(vertex, 0u) << log;
    ASSERT_NE(fragment, 0u) << log;
    GLuint program = glCreateProgram();
    glAttachShader(program, vertex);
    glAttachShader(program, fragment);
    glLinkProgram(program);
    GLint linked = 0;
    glGetProgramiv(program, GL_LINK_STATUS, &linked);
    ASSERT_TRUE(linked);
    EXPECT_GE(glGetUniformLocation(program, "texture0"), 0);

    // A white-and-grey texture drawn full screen in yellow: white texels show yellow, grey ones dark yellow.
    const unsigned char texels[2 * 2 * 4] = {255, 255, 255, 255, 128, 128, 128, 255,
                                             255, 255, 255, 255, 128, 128, 128, 255};
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 2, 2, 0, GL_RGBA, GL_UNSIGNED_BYTE, texels);
    glViewport(0, 0, 640, 480);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_LIGHTING);
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glUseProgram(program);
    glUniform1i(glGetUniformLocation(program, "texture0"), 0);
    glColor4f(1, 1, 0, 1);
    glBegin(GL_QUADS);
    glTexCoord2f(0, 0), glVertex2f(-1, -1);
    glTexCoord2f(1, 0), glVertex2f(1, -1);
    glTexCoord2f(1, 1), glVertex2f(1, 1);
    glTexCoord2f(0, 1), glVertex2f(-1, 1);
    glEnd();
    glUseProgram(0);
    glFinish();

    auto left = testsupport::readPixel(160, 240), right = testsupport::readPixel(480, 240);
    EXPECT_EQ(left[0], 255);
    EXPECT_EQ(left[1], 255);
    EXPECT_EQ(left[2], 0);
    EXPECT_NEAR(right[0], 128, 1);
    EXPECT_NEAR(right[1], 128, 1);
    EXPECT_EQ(right[2], 0);

    glDeleteTextures(1, &texture);
    glDeleteProgram(program);
    glDeleteShader(vertex);
    glDeleteShader(fragment);
}
