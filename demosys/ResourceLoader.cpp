#include "demosys/ResourceLoader.h"

#include <iostream>

#include "demosys/ActionPool.h"
#include "demosys/Data.h"
#include "demosys/DataAnimationPool.h"
#include "demosys/DataBinaryPool.h"
#include "demosys/DataEffectPool.h"
#include "demosys/DataEventPool.h"
#include "demosys/DataFileLoader.h"
#include "demosys/DataFBOPool.h"
#include "demosys/DataObjectPool.h"
#include "demosys/DataShaderPool.h"
#include "demosys/DataTexturePool.h"
#include "demosys/DemoScriptParser.h"
#include "demosys/DisplayTexture.h"
#include "demosys/Effect.h"
#include "demosys/EventModifyEffect.h"
#include "demosys/EventStartEffect.h"
#include "demosys/EventStopEffect.h"
#include "demosys/FadeEffect.h"
#include "demosys/FrameBufferObject.h"
#include "demosys/GLExtensions.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/Parameters.h"
#include "demosys/ProgressBar.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"
#include "demosys/ScreenMetrics.h"
#include "demosys/SyncPlayer.h"
#include "demosys/SyncTrack.h"
#include "demosys/SyncTrackFile.h"
#include "demosys/Timeline.h"
#include "qlnutils/QLNUtils.h"

using std::cout;
using std::endl;
using std::string;

ResourceLoader::ResourceLoader(string scriptPath)
    : parser(nullptr), scriptPath(scriptPath), errorMessage("ResourceLoader : unknown"), valid(true) {}

ResourceLoader::~ResourceLoader() {}

bool ResourceLoader::fail(const string& message) {
    errorMessage = message;
    valid = false;
    return false;
}

void ResourceLoader::tick() {
    if (QLNDemosys::pBar) QLNDemosys::pBar->tick();
}

ParameterGroup* ResourceLoader::systemGroup(const string& name) {
    return QLNDemosys::parameters ? QLNDemosys::parameters->getGroup(name) : nullptr;
}

string ResourceLoader::path(const string& key) {
    ParameterGroup* paths = systemGroup("paths");
    return ParameterReader::text(paths, key);
}

void ResourceLoader::deleteCollections(DemoScriptParser* from) {
    delete from->getParameterGroup("system_parameters");
    delete from->getParameterGroup("effect_parameters");
}

bool ResourceLoader::createDataPools() {
    cout << "[Creating DataPools]" << endl;
    QLNDemosys::data = new Data();
    QLNDemosys::objectPool = new DataObjectPool();
    QLNDemosys::texturePool = new DataTexturePool();
    QLNDemosys::animationPool = new DataAnimationPool();
    QLNDemosys::effectTemplatePool = new DataEffectPool();
    QLNDemosys::effectPool = new DataEffectPool();
    QLNDemosys::eventPool = new DataEventPool();
    QLNDemosys::binaryPool = new DataBinaryPool();
    QLNDemosys::shaderPool = new DataShaderPool();
    QLNDemosys::fboPool = new DataFBOPool();

    cout << "[Creating Pool objects]" << endl;
    Data* data = QLNDemosys::data;
    data->addData("objectPool", QLNDemosys::objectPool);
    data->addData("texturePool", QLNDemosys::texturePool);
    data->addData("animationPool", QLNDemosys::animationPool);
    data->addData("effectTemplatePool", QLNDemosys::effectTemplatePool);
    data->addData("effectPool", QLNDemosys::effectPool);
    data->addData("binaryPool", QLNDemosys::binaryPool);
    QLNDemosys::action = new ActionPool();
    data->addData("eventPool", QLNDemosys::eventPool);
    data->addData("shaderPool", QLNDemosys::shaderPool);
    data->addData("fboPool", QLNDemosys::fboPool);

    cout << "[Adding effect templates]" << endl;
    QLNDemosys::effectTemplatePool->addEffect("DisplayTexture", new DisplayTexture());
    QLNDemosys::effectTemplatePool->addEffect("FadeEffect", new FadeEffect());

    cout << "[Adding event templates]" << endl;
    DataEventPool* events = static_cast<DataEventPool*>(data->getData("eventPool"));
    events->addEvent("start", new EventStartEffect());
    events->addEvent("stop", new EventStopEffect());
    events->addEvent("modify", new EventModifyEffect());
    return true;
}

bool ResourceLoader::parseConfig() {
    cout << "[Creating DemoScriptParser]" << endl;
    parser = new DemoScriptParser(scriptPath);
    cout << "[Parsing defaults]" << endl;
    parser->parseDefaults(true);
    cout << "[Parsing demoscript]" << endl;
    parser->parse();
    if (!parser->isValid()) {
        // The collections belong to whoever takes them; a failed script hands them to nobody.
        deleteCollections(parser);
        return fail(parser->getErrorMessage());
    }

    QLNDemosys::parameters = parser->getParameterGroup("system_parameters");
    QLNDemosys::effects = parser->getParameterGroup("effect_parameters");

    int ticks = 1;
    for (const char* name : {"objects", "graphics", "animation", "binary", "framebuffers"}) {
        ParameterGroup* group = systemGroup(name);
        if (group) ticks += group->size();
    }
    ticks += 2;
    if (!QLNDemosys::pBar)
        QLNDemosys::setProgressBar(new ProgressBar(0.09f, 1.2f, 0.0f, ticks));
    else
        QLNDemosys::pBar->setTicks(ticks);
    return true;
}

bool ResourceLoader::initScreen(ScreenMetrics* metrics, const char* title) {
    ParameterGroup* screen = systemGroup("screen");
    if (screen) {
        if (screen->exist("fullscreen") && !metrics->getFullScreenOverride())
            metrics->setFullscreen(QLNUtils::string2Int(screen->getParameter("fullscreen")) != 0);
        if (screen->exist("near")) metrics->setNear(QLNUtils::string2Float(screen->getParameter("near")));
        // The far plane is read whenever "near" is given, as the script format has always done.
        if (screen->exist("near") && screen->exist("far"))
            metrics->setFar(QLNUtils::string2Float(screen->getParameter("far")));
        if (metrics->getWidth() == 0 || metrics->getHeight() == 0) {
            cout << "No screen mode set. Attempting to read from demoscript" << endl;
            if (screen->exist("width") && screen->exist("height")) {
                metrics->setResolution(QLNUtils::string2Int(screen->getParameter("width")),
                                       QLNUtils::string2Int(screen->getParameter("height")));
            } else {
                cout << "No screen mode defined in demoscript. Doing fallback screenmode." << endl;
                metrics->setResolution(640, 480);
            }
        }
    }

    bool opened = metrics->isFullscreen() ? QLNDemosys::screenOpen(metrics)
                                          : QLNDemosys::windowOpen(metrics, title, nullptr);
    if (!opened) {
        return fail("Failed to open screen : " + QLNUtils::int2string(metrics->getWidth()) + "x" +
                    QLNUtils::int2string(metrics->getHeight()) + QLNDemosys::getMessage());
    }
    QLNDemosys::screenMetrics->initView();
    QLNDemosys::screenMetrics->setView();
    if (QLNDemosys::pBar) QLNDemosys::pBar->loadData();
    cout << "[Supported OpenGL Extensions]" << endl;
    QLNDemosys::glExtensions = new GLExtensions();
    cout << QLNDemosys::glExtensions->toString();
    if (QLNDemosys::pBar) QLNDemosys::pBar->draw();
    return true;
}

bool ResourceLoader::loadSound() {
    cout << "[Setting up sound]" << endl;
    ParameterGroup* sound = systemGroup("sound");
    // Without a sound group (or without "play") there is nothing to play.
    if (!sound || !sound->exist("play") || sound->getParameter("play") != "1") return true;
    string file = ParameterReader::text(sound, "file");
    string soundPath = path("sound") + file;
    cout << "Play : " << soundPath << endl;
    if (file.empty() || !QLNDemosys::soundInit(soundPath.c_str()))
        return fail("Failed to load sound!\nFile : '" + soundPath + "'");
    tick();
    return true;
}

bool ResourceLoader::createEffectObjects() {
    cout << "[Create effect objects]" << endl;
    DataEffectPool* effectPool = static_cast<DataEffectPool*>(QLNDemosys::data->getData("effectPool"));
    DataEffectPool* templates = static_cast<DataEffectPool*>(QLNDemosys::data->getData("effectTemplatePool"));
    Parameters* effects = QLNDemosys::effects;
    for (int i = 0; effects && i < effects->size(); ++i) {
        string name = effects->getKey(i);
        ParameterGroup* group = effects->getValue(i);
        string className = ParameterReader::text(group, "class");
        cout << "Creating instance of " << className << endl;
        Effect* prototype = templates->getEffect(className);
        // The script reader rejects unknown classes; a missing prototype is skipped, not followed.
        if (!prototype) continue;
        Effect* instance = prototype->getInstance();
        instance->setParameters(group);
        instance->init();
        effectPool->addEffect(name, instance);
    }
    tick();
    return true;
}

bool ResourceLoader::createTimeline() {
    cout << "[Parsing timeline]" << endl;
    QLNDemosys::timeline = parser->parseTimeline();
    if (parser->isValid()) {
        cout << "[Parsing timeline - DONE]" << endl;
        QLNDemosys::timeline->init();
        cout << "[Timeline init]" << endl;
        if (!loadSync(*parser)) return false;
        tick();
        return true;
    }
    errorMessage = parser->getErrorMessage();
    return false;
}

// A script with a sync block reads its tracks here, once the timeline has named them.
// Like a timeline error, a failure is reported without clearing the valid flag.
bool ResourceLoader::loadSync(DemoScriptParser& from) {
    ParameterGroup* block = systemGroup("sync");
    if (block == nullptr) return true;
    cout << "[Loading sync tracks]" << endl;
    SyncPlayer* player = SyncPlayer::create(block, errorMessage);
    if (player == nullptr) return false;
    for (const SyncBinding& binding : from.getSyncBindings())
        player->bind(binding, QLNDemosys::effectPool->getEffect(binding.object));
    if (!player->loadTracks(errorMessage)) {
        delete player;
        return false;
    }
    for (size_t i = 0; i < player->countTracks(); ++i) {
        SyncTrack* track = player->getTrack(i);
        cout << "-> " << SyncTrackFile::fileName(player->getPrefix(), track->getName()) << " ("
             << track->getKeys().size() << " keys)" << endl;
    }
    delete QLNDemosys::sync;
    QLNDemosys::sync = player;
    return true;
}

bool ResourceLoader::initDemo() {
    cout << "[Getting Startpos]" << endl;
    ParameterGroup* system = systemGroup("system");
    QLNTime start(ParameterReader::text(system, "start", "00:00:000"));
    cout << "startpos = " << start.toString() << endl;
    tick();
    cout << "[Demo Init]" << endl;

    ParameterGroup* sound = systemGroup("sound");
    if (sound && sound->exist("play") && sound->getParameter("play") == "1") {
        bool started = true;
        if (start.getTicks() != 0) {
            QLNDemosys::timeline->moveTo(start.getTicks());
            // Playing from a position reports false even when it worked.
            QLNDemosys::soundPlay(start.getTicks());
        } else {
            started = QLNDemosys::soundPlay();
        }
        if (!started) return fail("Failed to play sound");
    }
    return true;
}

bool ResourceLoader::reload() {
    cout << "ResourceLoader::reload()" << endl;
    cout << "Parsing demoscript..." << endl;
    DemoScriptParser* fresh = new DemoScriptParser(scriptPath);
    fresh->setDebug(false);
    fresh->parseDefaults(true);
    fresh->parse();
    Timeline* timeline = nullptr;
    if (fresh->isValid()) {
        cout << "Parsing timeline..." << endl;
        timeline = fresh->parseTimeline();
        // The sync lines come with the timeline; their tracks are read again from the files.
        if (fresh->isValid() && loadSync(*fresh)) {
            timeline->init();
            if (QLNDemosys::timeline) timeline->setOffset(QLNDemosys::timeline->getOffset());
            delete QLNDemosys::timeline;
            QLNDemosys::timeline = timeline;
            QLNDemosys::action->removeAll();
            cout << "ResourceLoader::reload() - Done" << endl;
            // Only the timeline is taken over: parameters and effects stay as loaded.
            deleteCollections(fresh);
            delete fresh;
            return true;
        }
    }
    if (!fresh->isValid()) errorMessage = fresh->getErrorMessage();
    delete timeline;
    deleteCollections(fresh);
    delete fresh;
    return false;
}

void ResourceLoader::resetAllEffects() {
    Parameters* effects = QLNDemosys::effects;
    if (!effects || !QLNDemosys::data) return;
    DataEffectPool* pool = static_cast<DataEffectPool*>(QLNDemosys::data->getData("effectPool"));
    for (int i = 0; i < effects->size(); ++i) {
        Effect* effect = pool->getEffect(effects->getKey(i));
        if (effect) effect->reset();
    }
}

void ResourceLoader::print() {
    const char* hashes = "################################################################";
    cout << hashes << endl;
    cout << "# Resources                                                    #" << endl;
    cout << hashes << endl;
    cout << "--------------------- System parameters ------------------------" << endl;
    cout << (QLNDemosys::parameters ? QLNDemosys::parameters->toString() : string("No Data")) << endl;
    cout << "--------------------- DataPools --------------------------------" << endl;
    cout << (QLNDemosys::data ? QLNDemosys::data->toString() : string("No Data")) << endl;
    cout << "No Data" << endl;
    cout << hashes << endl;
}

template <typename T>
static void deleteStatic(T*& pointer, const char* line) {
    if (!pointer) return;
    cout << line << endl;
    delete pointer;
    pointer = nullptr;
}

bool ResourceLoader::dispose() {
    delete parser;
    parser = nullptr;
    delete QLNDemosys::pBar;
    QLNDemosys::pBar = nullptr;
    cout << "[Deleting Pools]" << endl;
    // Each static is cleared once deleted, so a second dispose or a late report stays harmless.
    deleteStatic(QLNDemosys::parameters, "delete QLNDemosys::parameters");
    deleteStatic(QLNDemosys::effects, "delete QLNDemosys::effects");
    deleteStatic(QLNDemosys::data, "delete QLNDemosys::data");
    QLNDemosys::objectPool = nullptr;
    QLNDemosys::texturePool = nullptr;
    QLNDemosys::animationPool = nullptr;
    QLNDemosys::effectTemplatePool = nullptr;
    QLNDemosys::effectPool = nullptr;
    QLNDemosys::eventPool = nullptr;
    QLNDemosys::binaryPool = nullptr;
    QLNDemosys::shaderPool = nullptr;
    QLNDemosys::fboPool = nullptr;
    deleteStatic(QLNDemosys::sync, "delete QLNDemosys::sync");
    deleteStatic(QLNDemosys::timeline, "delete QLNDemosys::timeline");
    deleteStatic(QLNDemosys::action, "delete QLNDemosys::action");
    deleteStatic(QLNDemosys::glExtensions, "delete QLNDemosys::glExtensions");
    return true;
}

// ---- Data files: every resource block of the script, in a fixed order.

bool ResourceLoader::loadDataFiles() {
    DataFileLoader files;
    return files.load() || fail(files.getErrorMessage());
}
