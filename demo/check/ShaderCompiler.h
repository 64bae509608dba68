#pragma once
// Compiles and links a vertex/fragment pair as GLSL 1.10 without a GPU (glslang, called
// as a library), so that a shader error is found before any window opens.
#include <string>
#include <vector>

class ShaderCompiler {
public:
    ShaderCompiler();
    ~ShaderCompiler();
    ShaderCompiler(const ShaderCompiler&) = delete;
    ShaderCompiler& operator=(const ShaderCompiler&) = delete;

    struct Problem {
        int line;  // in the source file; 0 when the compiler names none
        std::string message;
    };
    // vertex: true for a ".vert" source. Empty when the source compiles.
    std::vector<Problem> compile(const std::string& source, bool vertex);
    // Empty when the pair links.
    std::vector<Problem> link(const std::string& vertexSource, const std::string& fragmentSource);
};
