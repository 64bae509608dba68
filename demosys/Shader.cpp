#include "demosys/Shader.h"

#include <GL/glew.h>
#include <iostream>
#include <sstream>
#include <vector>

#include "demosys/Texture.h"

Shader::Shader() : vertexShader(0), fragmentShader(0), program(0), valid(true) {}

Shader::~Shader() {
    if (program != 0) {
        if (vertexShader != 0) glDetachShader(program, vertexShader);
        if (fragmentShader != 0) glDetachShader(program, fragmentShader);
    }
    if (vertexShader != 0) glDeleteShader(vertexShader);
    if (fragmentShader != 0) glDeleteShader(fragmentShader);
    if (program != 0) glDeleteProgram(program);
}

bool Shader::setVertexSource(std::string source) {
    vertexSource = source;
    return compile(GL_VERTEX_SHADER, vertexSource, vertexShader);
}

bool Shader::setFragmentSource(std::string source) {
    fragmentSource = source;
    return compile(GL_FRAGMENT_SHADER, fragmentSource, fragmentShader);
}

// The log length counts the terminating NUL; only the text goes into the message.
static std::string infoLog(GLint length, bool program, GLuint handle) {
    if (length < 1) return std::string();
    std::vector<GLchar> text(length);
    GLsizei written = 0;
    if (program)
        glGetProgramInfoLog(handle, length, &written, text.data());
    else
        glGetShaderInfoLog(handle, length, &written, text.data());
    return std::string(text.data(), written);
}

bool Shader::compile(unsigned int kind, const std::string& source, unsigned int& handle) {
    if (handle == 0) handle = glCreateShader(kind);
    const GLchar* text = source.c_str();
    glShaderSource(handle, 1, &text, nullptr);
    glCompileShader(handle);
    GLint status = GL_FALSE;
    glGetShaderiv(handle, GL_COMPILE_STATUS, &status);
    if (status == GL_TRUE) return true;
    GLint length = 0;
    glGetShaderiv(handle, GL_INFO_LOG_LENGTH, &length);
    errorMessage += infoLog(length, false, handle);
    valid = false;
    return false;
}

// Linking again after a shader was replaced must not attach a shader twice.
void Shader::attach(unsigned int shader) {
    if (shader == 0) return;
    GLuint attached[2] = {0, 0};
    GLsizei count = 0;
    glGetAttachedShaders(program, 2, &count, attached);
    for (GLsizei i = 0; i < count; ++i)
        if (attached[i] == shader) return;
    glAttachShader(program, shader);
}

bool Shader::link() {
    if (program == 0) program = glCreateProgram();
    // A shader whose compile failed is still attached: the link log then names it.
    attach(vertexShader);
    attach(fragmentShader);
    glLinkProgram(program);
    GLint status = GL_FALSE;
    glGetProgramiv(program, GL_LINK_STATUS, &status);
    if (status == GL_TRUE) return true;
    GLint length = 0;
    glGetProgramiv(program, GL_INFO_LOG_LENGTH, &length);
    if (length >= 1) {
        errorMessage += infoLog(length, true, program);
        valid = false;
    } else {
        errorMessage += "Unknown error while linking shader pair";
    }
    return false;
}

void Shader::use() { glUseProgram(program); }

void Shader::release() {
    glUseProgram(0);
    glActiveTexture(GL_TEXTURE1);
    glDisable(GL_TEXTURE_2D);
    glActiveTexture(GL_TEXTURE0);
    glDisable(GL_TEXTURE_2D);
}

void Shader::setTextureUnit0(std::string name, Texture* texture) {
    GLint where = location(name);
    glActiveTexture(GL_TEXTURE0);
    texture->bind();
    glUniform1i(where, 0);
}

void Shader::setTextureUnit1(std::string name, Texture* texture) {
    GLint where = location(name);
    glActiveTexture(GL_TEXTURE1);
    texture->bind();
    glUniform1i(where, 1);
    glActiveTexture(GL_TEXTURE0);
}

int Shader::location(const std::string& name) const { return glGetUniformLocation(program, name.c_str()); }

int Shader::reportedLocation(const std::string& name) const {
    GLint where = location(name);
    if (where == -1) std::cout << "Error: Uniform variable '" << name << "' not found!" << std::endl;
    return where;
}

void Shader::setUniform1f(std::string name, float value) {
    GLint where = reportedLocation(name);
    if (where != -1) glUniform1f(where, value);
}

void Shader::setUniform1i(std::string name, int value) {
    GLint where = reportedLocation(name);
    if (where != -1) glUniform1f(where, static_cast<float>(value));
}

void Shader::setUniform2f(std::string name, float x, float y) { glUniform2f(location(name), x, y); }

void Shader::setUniform3f(std::string name, float x, float y, float z) { glUniform3f(location(name), x, y, z); }

void Shader::setUniform4f(std::string name, float x, float y, float z, float w) {
    glUniform4f(location(name), x, y, z, w);
}

void Shader::setUniform2fv(std::string name, Vector<float, 2> v) { glUniform2f(location(name), v[0], v[1]); }

void Shader::setUniform3fv(std::string name, Vector<float, 3> v) { glUniform3f(location(name), v[0], v[1], v[2]); }

void Shader::setUniform4fv(std::string name, Vector<float, 4> v) {
    glUniform4f(location(name), v[0], v[1], v[2], v[3]);
}

std::string Shader::toString() const {
    std::ostringstream out;
    out << "Shader(" << "vshader size = " << vertexSource.size() << ", fragshader size = " << fragmentSource.size()
        << ", pref=" << program << ", vref=" << vertexShader << ", fref=" << fragmentShader << ")";
    return out.str();
}
