#pragma once
// Turns a demoscript into a running demo's state: pools, screen, data files, music,
// effect instances and the timeline, stage by stage, stopping at the first failure.
#include <string>

class DemoScriptParser;
class ScreenMetrics;
class ParameterGroup;

class ResourceLoader {
public:
    explicit ResourceLoader(std::string scriptPath);
    ~ResourceLoader();
    ResourceLoader(const ResourceLoader&) = delete;
    ResourceLoader& operator=(const ResourceLoader&) = delete;

    bool createDataPools();
    bool parseConfig();
    bool initScreen(ScreenMetrics* metrics, const char* title);
    bool loadDataFiles();
    bool loadSound();
    bool createEffectObjects();
    bool createTimeline();
    bool initDemo();

    bool reload();
    void resetAllEffects();
    void print();
    bool dispose();

    bool isValid() { return valid; }
    std::string getErrorMessage() { return errorMessage; }

private:
    bool fail(const std::string& message);
    bool loadSync(DemoScriptParser& from);
    static void deleteCollections(DemoScriptParser* from);
    void tick();
    // A group of the system parameters, or null; a path of the "paths" group, or "".
    static ParameterGroup* systemGroup(const std::string& name);
    static std::string path(const std::string& key);

    DemoScriptParser* parser;
    std::string scriptPath;
    std::string errorMessage;
    bool valid;
};
