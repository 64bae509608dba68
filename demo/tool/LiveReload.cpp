#include "demo/tool/LiveReload.h"

#include <dirent.h>

#include <iostream>

#include "demo/DemoEffects.h"
#include "demo/tool/EngineState.h"
#include "demo/tool/SilentProgressBar.h"
#include "demosys/DemoScriptParser.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "demosys/QLNDemosys.h"
#include "qlnutils/File.h"
#include "qlnutils/StringTokenizer.h"
#include "qlnutils/StringUtils.h"

using std::string;

namespace {

ParameterGroup* systemGroup(const string& name) {
    return QLNDemosys::parameters ? QLNDemosys::parameters->getGroup(name) : nullptr;
}

string folder(const string& key) {
    ParameterGroup* paths = systemGroup("paths");
    return paths && paths->exist(key) ? paths->getParameter(key) : string();
}

bool isFile(const string& name) {
    File file(name, 0);
    return file.exists();
}

string describe(const Parameters* parameters) { return parameters ? parameters->toString() : string(); }

}  // namespace

LiveReload::LiveReload(Demo& demo, string scriptPath)
    : demo(demo), scriptPath(scriptPath), quick(scriptPath) {}

string LiveReload::musicFile() const {
    ParameterGroup* sound = systemGroup("sound");
    if (!sound || !sound->exist("file") || !sound->exist("play") || sound->getParameter("play") != "1") return "";
    return folder("sound") + sound->getParameter("file");
}

std::vector<string> LiveReload::scriptFiles() const {
    std::vector<string> files = {scriptPath};
    string definitions = folder("definition");
    if (DIR* dir = opendir(definitions.empty() ? "." : definitions.c_str())) {
        while (dirent* entry = readdir(dir)) {
            string name = entry->d_name;
            if (name.size() > 4 && name.compare(name.size() - 4, 4, ".def") == 0) files.push_back(definitions + name);
        }
        closedir(dir);
    }
    // Each resource entry names its file among comma-separated fields; whichever field names
    // an existing file (or shader pair) in the block's folder is watched.
    const char* blocks[][2] = {
        {"shaders", "shaders"}, {"graphics", "gfx"}, {"binary", "misc"}, {"objects", "object"}, {"animation", "misc"}};
    for (const auto& block : blocks) {
        ParameterGroup* group = systemGroup(block[0]);
        string dir = folder(block[1]);
        for (int i = 0; group && i < group->size(); ++i) {
            StringTokenizer fields(group->getValue(i), ",");
            while (fields.hasMoreTokens()) {
                string name = dir + StringUtils::trim(fields.getNext());
                for (const string& candidate : {name, name + ".vert", name + ".frag"})
                    if (isFile(candidate)) files.push_back(candidate);
            }
        }
    }
    if (!musicFile().empty()) files.push_back(musicFile());
    return files;
}

void LiveReload::watchScriptFiles() { watcher.watch(scriptFiles()); }

// True when the script still reads and differs from the running one in its timeline only.
bool LiveReload::timelineOnly(bool& parsed) {
    DemoScriptParser parser(scriptPath);
    parser.setDebug(false);
    parser.parseDefaults(true);
    parser.parse();
    Parameters* system = parser.getParameterGroup("system_parameters");
    Parameters* effects = parser.getParameterGroup("effect_parameters");
    parsed = parser.isValid();
    if (!parsed) lastError = parser.getErrorMessage();
    bool same = parsed && describe(system) == describe(QLNDemosys::parameters) &&
                describe(effects) == describe(QLNDemosys::effects);
    delete system;
    delete effects;
    return same;
}

bool LiveReload::reload(const std::vector<string>& changed) {
    bool scriptOnly = true, musicChanged = false;
    for (const string& file : changed) {
        if (file != scriptPath) scriptOnly = false;
        if (file == musicFile()) musicChanged = true;
    }
    bool parsed = true;
    fast = scriptOnly && timelineOnly(parsed);
    if (!parsed) return false;
    if (fast) {
        if (quick.reload()) return true;
        lastError = quick.getErrorMessage();
        return false;
    }
    return rebuild(musicChanged);
}

bool LiveReload::rebuild(bool withMusic) {
    string oldMusic = musicFile();
    EngineState running = EngineState::current();
    EngineState().install();
    QLNDemosys::pBar = new SilentProgressBar();

    ResourceLoader* fresh = new ResourceLoader(scriptPath);
    bool built = fresh->createDataPools();
    registerDemoEffects(demo);
    built = built && fresh->parseConfig() && fresh->loadDataFiles() && (!withMusic || fresh->loadSound()) &&
            fresh->createEffectObjects() && fresh->createTimeline();
    if (!built) lastError = fresh->getErrorMessage();

    EngineState made = EngineState::current();
    EngineState().install();
    fresh->dispose();  // only its parser: the shared state it would free is empty here
    delete fresh;
    (built ? running : made).release();
    (built ? made : running).install();
    // A failed music load has already let the old music go: load it again.
    if (!built && withMusic && !oldMusic.empty() && !QLNDemosys::sound) QLNDemosys::soundInit(oldMusic.c_str());
    if (built) watchScriptFiles();
    return built;
}
