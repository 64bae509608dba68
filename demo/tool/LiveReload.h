#pragma once
// Rebuilds a running demo from its files through the engine's own loader. A change to the
// timeline alone takes the loader's fast reload; anything else builds a complete new state
// beside the running one. A build that fails is thrown away and the running demo stays.
#include <string>
#include <vector>

#include "demo/tool/FileWatcher.h"
#include "demosys/ResourceLoader.h"

class Demo;

class LiveReload {
public:
    LiveReload(Demo& demo, std::string scriptPath);

    // Every file the script names: itself, the definitions, shaders, textures, blobs,
    // objects, animations and the music.
    std::vector<std::string> scriptFiles() const;
    void watchScriptFiles();
    std::vector<std::string> changedFiles(bool settled) { return watcher.changed(settled); }

    // Rebuilds after the given files changed (none: the script is read again). On false,
    // error() holds the engine's message and the demo's state is as it was.
    bool reload(const std::vector<std::string>& changed);
    const std::string& error() const { return lastError; }
    bool lastWasFast() const { return fast; }
    // Script actions that do not depend on which build is running.
    ResourceLoader& loader() { return quick; }

private:
    bool timelineOnly(bool& parsed);
    bool rebuild(bool withMusic);
    std::string musicFile() const;

    Demo& demo;
    std::string scriptPath;
    ResourceLoader quick;
    FileWatcher watcher;
    std::string lastError;
    bool fast = false;
};
