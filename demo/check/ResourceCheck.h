#pragma once
// Loads, without a display or a sound device, every file the script names, with the
// engine's own readers: shaders (compiled offline), framebuffer declarations, pictures,
// blobs, object files, animation files and the music. Reports what the loader would stop
// at and what it would pass over in silence.
#include <set>
#include <string>

class Diagnostics;
class ParameterGroup;
class ScriptReading;

class ResourceCheck {
public:
    ResourceCheck(ScriptReading& script, Diagnostics& diagnostics);
    void run();

private:
    void shaders();
    void framebuffers();
    void graphics();
    void binaries();
    void objects();
    void animations();
    void sound();

    ParameterGroup* group(const std::string& name);
    std::string path(const std::string& key);
    int line(const std::string& block, const std::string& key);
    void error(const std::string& block, const std::string& key, const std::string& message);
    // The file exists and is a regular file; otherwise the loader's message (for a missing
    // file) or a message of its own (for a folder) is reported.
    bool isFile(const std::string& file, const std::string& block, const std::string& key,
                const std::string& message);
    void compileShader(const std::string& file, const std::string& source, bool vertex);

    ScriptReading& script;
    Diagnostics& diagnostics;
};
