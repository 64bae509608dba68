#include "demo/check/ResourceCheck.h"

#include <filesystem>
#include <map>
#include <memory>

#include "demo/check/Diagnostics.h"
#include "demo/check/ScriptReading.h"
#include "demo/check/ShaderCompiler.h"
#include "demosys/Animation.h"
#include "demosys/AnimationParser.h"
#include "demosys/Binary.h"
#include "demosys/DemoScriptParser.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNMeshData.h"
#include "demosys/QLNSceneLoader.h"
#include "demosys/ResourceEntries.h"
#include "demosys/SoundDecoder.h"
#include "qlnutils/File.h"
#include "qlnutils/Image.h"
#include "qlnutils/QLNUtils.h"

namespace {

// Decoding the first second proves the music readable without rendering all of it.
const int soundProbeRate = 8000;
const unsigned int soundProbeSeconds = 1;
const int fallbackWidth = 640;
const int fallbackHeight = 480;

}  // namespace

ResourceCheck::ResourceCheck(ScriptReading& script, Diagnostics& diagnostics)
    : script(script), diagnostics(diagnostics) {}

void ResourceCheck::run() {
    shaders();
    framebuffers();
    graphics();
    binaries();
    objects();
    animations();
    sound();
}

ParameterGroup* ResourceCheck::group(const std::string& name) {
    Parameters* system = script.parser().getParameterGroup("system_parameters");
    return system != nullptr ? system->getGroup(name) : nullptr;
}

std::string ResourceCheck::path(const std::string& key) {
    ParameterGroup* paths = group("paths");
    return paths != nullptr && paths->exist(key) ? paths->getParameter(key) : "";
}

int ResourceCheck::line(const std::string& block, const std::string& key) {
    int found = script.parser().getLine(block, key);
    return found > 0 ? found : script.parser().getLine(block);
}

void ResourceCheck::error(const std::string& block, const std::string& key, const std::string& message) {
    diagnostics.error(script.path(), line(block, key), message);
}

bool ResourceCheck::isFile(const std::string& file, const std::string& block, const std::string& key,
                           const std::string& message) {
    std::error_code ignored;
    if (std::filesystem::is_regular_file(file, ignored)) return true;
    // A folder of that name is there, but the readers cannot take it.
    error(block, key, std::filesystem::exists(file, ignored) ? "'" + file + "' is not a file" : message);
    return false;
}

static ShaderCompiler& compiler() {
    static ShaderCompiler instance;
    return instance;
}

void ResourceCheck::compileShader(const std::string& file, const std::string& source, bool vertex) {
    for (const ShaderCompiler::Problem& problem : compiler().compile(source, vertex))
        diagnostics.error(file, problem.line, problem.message);
}

void ResourceCheck::shaders() {
    ParameterGroup* shaders = group("shaders");
    if (shaders == nullptr) return;
    std::string dir = path("shaders");
    for (int i = 0; i < shaders->size(); ++i) {
        std::string alias = shaders->getKey(i);
        std::string name = shaders->getValue(i);
        std::string vert = dir + name + ".vert";
        std::string frag = dir + name + ".frag";
        bool present = isFile(vert, "shaders", alias, "Vertex shader '" + name + ".vert' not found");
        present = isFile(frag, "shaders", alias, "Fragement shader '" + name + ".frag' not found") && present;
        if (!present) continue;
        std::string vertexSource = File(vert, 0).getAsString();
        std::string fragmentSource = File(frag, 0).getAsString();
        compileShader(vert, vertexSource, true);
        compileShader(frag, fragmentSource, false);
        for (const ShaderCompiler::Problem& problem : compiler().link(vertexSource, fragmentSource))
            error("shaders", alias, "Error while linking shader pair\nShader: " + name + "\n" + problem.message);
    }
}

void ResourceCheck::framebuffers() {
    ParameterGroup* framebuffers = group("framebuffers");
    if (framebuffers == nullptr) return;
    ParameterGroup* screen = group("screen");
    auto size = [screen](const char* key, int fallback) {
        return screen != nullptr && screen->exist(key) ? QLNUtils::string2Int(screen->getParameter(key)) : fallback;
    };
    for (int i = 0; i < framebuffers->size(); ++i) {
        ResourceEntries::FramebufferOptions options;
        std::string message;
        if (!ResourceEntries::framebuffer(framebuffers->getKey(i), framebuffers->getValue(i),
                                          size("width", fallbackWidth), size("height", fallbackHeight), options,
                                          message))
            error("framebuffers", framebuffers->getKey(i), message);
    }
}

void ResourceCheck::graphics() {
    ParameterGroup* graphics = group("graphics");
    if (graphics == nullptr) return;
    std::string dir = path("gfx");
    std::map<std::string, std::string> aliasOfFile;
    for (int i = 0; i < graphics->size(); ++i) {
        std::string alias = graphics->getKey(i);
        ResourceEntries::TextureOptions options;
        std::string message;
        if (!ResourceEntries::texture(alias, graphics->getValue(i), options, message)) {
            error("graphics", alias, message);
            continue;
        }
        auto first = aliasOfFile.emplace(options.file, alias);
        if (!first.second) {
            error("graphics", alias,
                  "'" + alias + "' names the same picture as '" + first.first->second + "' (" + options.file +
                      "): the loader reads a picture once and drops the second alias, so whatever uses '" + alias +
                      "' draws nothing; use '" + first.first->second + "' instead");
            continue;
        }
        std::string file = dir + options.file;
        if (!isFile(file, "graphics", alias, "Failed to load texture!\nFile : '" + file + "'")) continue;
        Image image(file);
        if (image.getData() == nullptr) {
            error("graphics", alias, "'" + file + "' is not a PNG that decodes: the file is corrupt or truncated");
        } else if (!image.unsupportedFormat().empty()) {
            error("graphics", alias,
                  "'" + file + "' is a " + image.unsupportedFormat() +
                      " PNG: only 8-bit RGB and RGBA pictures load as textures, this one draws as a white square");
        }
    }
}

void ResourceCheck::binaries() {
    ParameterGroup* binary = group("binary");
    if (binary == nullptr) return;
    std::string dir = path("misc");
    for (int i = 0; i < binary->size(); ++i) {
        std::string file = binary->getValue(i);
        std::string message = "Failed to binary data!\nFile : '" + file + "'";
        if (!isFile(dir + file, "binary", binary->getKey(i), message)) continue;
        std::unique_ptr<Binary> blob(QLNDemosys::loadBinary(dir + file));
        if (!blob) error("binary", binary->getKey(i), message);
    }
}

void ResourceCheck::objects() {
    ParameterGroup* objects = group("objects");
    if (objects == nullptr) return;
    std::string dir = path("object");
    for (int i = 0; i < objects->size(); ++i) {
        std::string file = dir + objects->getValue(i);
        if (!isFile(file, "objects", objects->getKey(i), "Object '" + file + "' not found")) continue;
        QLNSceneLoader loader(file);
        if (!loader.readMeshes([](QLNMeshData&) {}))
            error("objects", objects->getKey(i), loader.getErrorMessage());
    }
}

void ResourceCheck::animations() {
    ParameterGroup* animation = group("animation");
    if (animation == nullptr) return;
    std::string dir = path("misc");
    for (int i = 0; i < animation->size(); ++i) {
        std::string file = dir + animation->getValue(i);
        std::error_code ignored;
        if (std::filesystem::exists(file, ignored) && !std::filesystem::is_regular_file(file, ignored)) {
            error("animation", animation->getKey(i), "'" + file + "' is not a file");
            continue;
        }
        AnimationParser parser(file);
        std::unique_ptr<Animation> result(parser.parse());
        if (!parser.isValid()) error("animation", animation->getKey(i), parser.getErrorMessage());
    }
}

void ResourceCheck::sound() {
    ParameterGroup* sound = group("sound");
    if (sound == nullptr || !sound->exist("play") || sound->getParameter("play") != "1") return;
    std::string file = path("sound") + (sound->exist("file") ? sound->getParameter("file") : "");
    std::string message = "Failed to load sound!\nFile : '" + file + "'";
    if (!isFile(file, "sound", "file", message)) return;
    std::vector<int16_t> frames;
    if (!SoundDecoder(soundProbeRate, soundProbeSeconds).decode(file, frames)) error("sound", "file", message);
}
