// Feeds arbitrary bytes to the demoscript reader as a file, then reads its timeline and
// plays it to the end, with the pools and templates set up as start-up sets them. The
// definitions live in /tmp/qln-fuzz-defs/, the directory the seeds' paths blocks name.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "demosys/ActionPool.h"
#include "demosys/Data.h"
#include "demosys/DataEffectPool.h"
#include "demosys/DataEventPool.h"
#include "demosys/DemoScriptParser.h"
#include "demosys/Effect.h"
#include "demosys/EventModifyEffect.h"
#include "demosys/EventStartEffect.h"
#include "demosys/EventStopEffect.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "demosys/QLNDemosys.h"
#include "demosys/Timeline.h"

namespace {

class SpinEffect : public Effect {
public:
    void draw(unsigned int) override {}
    Effect* getInstance() override { return new SpinEffect(); }
};

class ScrollerEffect : public Effect {
public:
    void draw(unsigned int) override {}
    Effect* getInstance() override { return new ScrollerEffect(); }
};

const char* const definitionDir = "/tmp/qln-fuzz-defs/";

// Written through a rename so that fuzzers running side by side never read half a file.
void writeDefinition(const std::string& name, const std::string& text) {
    std::string path = definitionDir + name;
    std::string temporary = path + "." + std::to_string(getpid());
    std::FILE* file = std::fopen(temporary.c_str(), "wb");
    if (!file) std::abort();
    std::fwrite(text.data(), 1, text.size(), file);
    std::fclose(file);
    std::rename(temporary.c_str(), path.c_str());
}

std::string setUp() {
    mkdir(definitionDir, 0755);
    writeDefinition("SpinEffect.def",
                    "parameters {\ntexture [type=string][default=logo][values=<string>];\n"
                    "speed [type=float][default=1.0];\nmode [type=string][default=normal][values=normal,additive];\n}\n"
                    "methods {\nsetSpeed(<event>, <float>);\nfadeTo(<event>, <float>, <time>);\n}\n");
    writeDefinition("ScrollerEffect.def",
                    "parameters {\ntext [type=string][default=hello][values=<string>];\nlines [type=int][default=1];\n"
                    "loop [type=bool][default=false];\n}\n"
                    "methods {\nsetText(<event>, <string>);\njump(<event>, <integer>, <bool>);\nrewind(<time>, <float>);\n}\n");
    writeDefinition("system.def", "parameters {\nstart [type=string][default=00:00:000][values=<string>];\n}\n");
    writeDefinition("screen.def", "parameters {\nwidth [type=int][default=640];\nheight [type=int][default=480];\n}\n");
    writeDefinition("sound.def", "parameters {\nplay [type=int][default=0];\n}\n");

    // The readers' log lines would drown the fuzzer's own output on stderr.
    int null = open("/dev/null", O_WRONLY);
    dup2(null, STDOUT_FILENO);
    close(null);

    QLNDemosys::data = new Data();
    DataEffectPool* templates = new DataEffectPool();
    templates->addEffect("SpinEffect", new SpinEffect());
    templates->addEffect("ScrollerEffect", new ScrollerEffect());
    QLNDemosys::data->addData("effectTemplatePool", templates);
    DataEventPool* events = new DataEventPool();
    events->addEvent("start", new EventStartEffect());
    events->addEvent("stop", new EventStopEffect());
    events->addEvent("modify", new EventModifyEffect());
    QLNDemosys::data->addData("eventPool", events);
    QLNDemosys::effectTemplatePool = templates;
    QLNDemosys::eventPool = events;
    QLNDemosys::action = new ActionPool();

    char pattern[] = "/tmp/qln-fuzz-demoscript-XXXXXX";
    if (!mkdtemp(pattern)) std::abort();
    static std::string input = std::string(pattern) + "/demoscript.txt";
    std::atexit([] {
        std::remove(input.c_str());
        rmdir(input.substr(0, input.rfind('/')).c_str());
    });
    return input;
}

// Effect instances for the scripted blocks, as the loader creates them.
void createEffectObjects(Parameters* effects, DataEffectPool* instances) {
    for (int i = 0; i < effects->size(); ++i) {
        ParameterGroup* group = effects->getValue(i);
        if (!group->exist("class") || !QLNDemosys::effectTemplatePool->exist(group->getParameter("class"))) std::abort();
        Effect* instance = QLNDemosys::effectTemplatePool->getEffect(group->getParameter("class"))->getInstance();
        instance->setParameters(group);
        instance->init();
        instances->addEffect(effects->getKey(i), instance);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::string input = setUp();
    std::FILE* file = std::fopen(input.c_str(), "wb");
    if (!file) std::abort();
    std::fwrite(data, 1, size, file);
    std::fclose(file);

    DataEffectPool* instances = new DataEffectPool();
    QLNDemosys::data->addData("effectPool", instances);
    QLNDemosys::effectPool = instances;

    DemoScriptParser* parser = new DemoScriptParser(input);
    parser->parseDefaults(true);
    parser->parse();
    Parameters* system = parser->getParameterGroup("system_parameters");
    Parameters* effects = parser->getParameterGroup("effect_parameters");
    if (parser->isValid()) {
        createEffectObjects(effects, instances);
        Timeline* timeline = parser->parseTimeline();
        if (!timeline) std::abort();
        timeline->init();
        // Play the whole timeline in one frame, then once more from the start.
        QLNDemosys::timeline = timeline;
        QLNDemosys::startTime = 0;
        QLNDemosys::updateTime(UINT_MAX / 2);
        timeline->watch();
        QLNDemosys::action->execute(QLNDemosys::getMillisecondsElapsed());
        timeline->moveTo(0);
        QLNDemosys::action->removeAll();
        QLNDemosys::timeline = nullptr;
        delete timeline;
    } else if (parser->getErrorMessage() == "Unknown error") {
        std::abort();  // every failure leaves its own message
    }
    delete parser;
    delete system;
    delete effects;
    QLNDemosys::data->addData("effectPool", nullptr);
    delete instances;
    return 0;
}
