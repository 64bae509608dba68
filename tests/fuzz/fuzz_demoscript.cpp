// Feeds arbitrary bytes to the demoscript reader as a file, then reads its timeline and
// plays it to the end, with the pools and templates set up as start-up sets them. The
// text "@DEFS@" in the input stands for the directory of the definitions written here.
#include <fcntl.h>
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
#include "fuzz/FuzzFile.h"

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

void setUp() {
    fuzzFile("SpinEffect.def",
                    "parameters {\ntexture [type=string][default=logo][values=<string>];\n"
                    "speed [type=float][default=1.0];\nmode [type=string][default=normal][values=normal,additive];\n}\n"
                    "methods {\nsetSpeed(<event>, <float>);\nfadeTo(<event>, <float>, <time>);\n}\n");
    fuzzFile("ScrollerEffect.def",
                    "parameters {\ntext [type=string][default=hello][values=<string>];\nlines [type=int][default=1];\n"
                    "loop [type=bool][default=false];\n}\n"
                    "methods {\nsetText(<event>, <string>);\njump(<event>, <integer>, <bool>);\nrewind(<time>, <float>);\n}\n");
    fuzzFile("system.def", "parameters {\nstart [type=string][default=00:00:000][values=<string>];\n}\n");
    fuzzFile("screen.def", "parameters {\nwidth [type=int][default=640];\nheight [type=int][default=480];\n}\n");
    fuzzFile("sound.def", "parameters {\nplay [type=int][default=0];\n}\n");

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
}

std::string withDefinitionDir(std::string text) {
    const std::string mark = "@DEFS@";
    for (std::string::size_type at = text.find(mark); at != std::string::npos; at = text.find(mark, at)) {
        text.replace(at, mark.size(), fuzzDir() + "/");
        at += fuzzDir().size() + 1;
    }
    return text;
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
    static bool ready = (setUp(), true);
    (void)ready;
    const std::string text = withDefinitionDir(std::string(reinterpret_cast<const char*>(data), size));
    const std::string input = fuzzFile("demoscript.txt", text);

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
    // Wherever reading stopped, the error is placed inside the file.
    if (!parser->isValid() && (parser->getErrorLine() < 1 || parser->getErrorBegin() > parser->getErrorEnd() ||
                               parser->getErrorEnd() > text.size()))
        std::abort();
    delete parser;
    delete system;
    delete effects;
    QLNDemosys::data->addData("effectPool", nullptr);
    delete instances;
    return 0;
}
