#pragma once
// One GLSL program made of one vertex and one fragment shader, with uniform setters
// and the binding of up to two textures.
#include <string>

#include "demosys/Vector.h"

class Texture;

class Shader {
public:
    Shader();
    ~Shader();
    Shader(const Shader&) = delete;
    Shader& operator=(const Shader&) = delete;

    // Each compiles its source; on failure the info log is appended to the error message.
    bool setVertexSource(std::string source);
    bool setFragmentSource(std::string source);
    bool link();

    void use();
    // Back to the fixed pipeline, 2D texturing off on units 1 and 0; unit 0 stays active.
    void release();

    void setTextureUnit0(std::string name, Texture* texture);
    void setTextureUnit1(std::string name, Texture* texture);

    void setUniform1f(std::string name, float value);
    // Deliberately set with the float setter: the engine's shaders declare these as float.
    void setUniform1i(std::string name, int value);
    void setUniform2f(std::string name, float x, float y);
    void setUniform3f(std::string name, float x, float y, float z);
    void setUniform4f(std::string name, float x, float y, float z, float w);
    void setUniform2fv(std::string name, Vector<float, 2> v);
    void setUniform3fv(std::string name, Vector<float, 3> v);
    void setUniform4fv(std::string name, Vector<float, 4> v);

    unsigned int getProgramHandle() const { return program; }
    bool isValid() const { return valid; }
    std::string getErrorMessage() const { return errorMessage; }
    std::string toString() const;

private:
    bool compile(unsigned int kind, const std::string& source, unsigned int& handle);
    void attach(unsigned int shader);
    int location(const std::string& name) const;
    int reportedLocation(const std::string& name) const;

    std::string vertexSource;
    std::string fragmentSource;
    unsigned int vertexShader;
    unsigned int fragmentShader;
    unsigned int program;
    bool valid;
    std::string errorMessage;
};
