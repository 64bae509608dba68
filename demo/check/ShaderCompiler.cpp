#include "demo/check/ShaderCompiler.h"

#include <glslang/Public/ResourceLimits.h>
#include <glslang/Public/ShaderLang.h>

#include <memory>
#include <sstream>

namespace {

// The OpenGL 2.0 the engine asks for, desktop profile: the source's own #version wins.
const int glslVersion = 110;

// glslang's log: one "ERROR: 0:LINE: text" line per problem, then a count.
std::vector<ShaderCompiler::Problem> problems(const std::string& log) {
    const std::string mark = "ERROR: ";
    std::vector<ShaderCompiler::Problem> found;
    std::istringstream lines(log);
    std::string line;
    while (std::getline(lines, line)) {
        if (line.compare(0, mark.size(), mark) != 0 || line.find("compilation errors") != std::string::npos) continue;
        std::string text = line.substr(mark.size());
        // "0:LINE: text": the string's number, then the line.
        size_t first = text.find(':');
        size_t second = first == std::string::npos ? first : text.find(": ", first + 1);
        std::string number = second == std::string::npos ? "" : text.substr(first + 1, second - first - 1);
        bool located = !number.empty() && number.find_first_not_of("0123456789") == std::string::npos;
        if (located)
            found.push_back({std::stoi(number), text.substr(second + 2)});
        else
            found.push_back({0, text});
    }
    if (found.empty()) found.push_back({0, log});
    return found;
}

std::unique_ptr<glslang::TShader> parsed(const std::string& source, bool vertex, std::string& log) {
    std::unique_ptr<glslang::TShader> shader(new glslang::TShader(vertex ? EShLangVertex : EShLangFragment));
    const char* text = source.c_str();
    shader->setStrings(&text, 1);
    bool ok = shader->parse(GetDefaultResources(), glslVersion, ENoProfile, false, false, EShMsgDefault);
    log = ok ? "" : shader->getInfoLog();
    return ok ? std::move(shader) : nullptr;
}

}  // namespace

ShaderCompiler::ShaderCompiler() { glslang::InitializeProcess(); }

ShaderCompiler::~ShaderCompiler() { glslang::FinalizeProcess(); }

std::vector<ShaderCompiler::Problem> ShaderCompiler::compile(const std::string& source, bool vertex) {
    std::string log;
    if (parsed(source, vertex, log)) return {};
    return problems(log);
}

std::vector<ShaderCompiler::Problem> ShaderCompiler::link(const std::string& vertexSource,
                                                          const std::string& fragmentSource) {
    std::string log;
    std::unique_ptr<glslang::TShader> vertex = parsed(vertexSource, true, log);
    std::unique_ptr<glslang::TShader> fragment = parsed(fragmentSource, false, log);
    if (!vertex || !fragment) return {};  // already reported by compile
    glslang::TProgram program;
    program.addShader(vertex.get());
    program.addShader(fragment.get());
    if (program.link(EShMsgDefault)) return {};
    return problems(program.getInfoLog());
}
