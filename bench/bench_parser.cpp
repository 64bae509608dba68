// Reading generated demoscripts: effect blocks validated against their definitions, and
// timeline declarations turned into events. Both should grow linearly with the script.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
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
    Effect* getInstance() override { return new SpinEffect(); }
};

class ScrollerEffect : public Effect {
public:
    Effect* getInstance() override { return new ScrollerEffect(); }
};

const int timelineInstances = 100;

char workPath[] = "/tmp/qln-bench-parser-XXXXXX";

void removeWorkDir() {
    std::error_code ignored;
    std::filesystem::remove_all(workPath, ignored);
}

std::string workDir() {
    static bool made = false;
    if (!made) {
        if (!mkdtemp(workPath)) std::abort();
        std::atexit(removeWorkDir);
        made = true;
    }
    return workPath;
}

void writeFile(const std::string& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

// The log lines of the readers and the disposal lines of the pools would mix with the
// benchmark's own report.
template <typename Fn>
void quietly(Fn fn) {
    std::fflush(stdout);
    int saved = dup(STDOUT_FILENO);
    int null = open("/dev/null", O_WRONLY);
    dup2(null, STDOUT_FILENO);
    close(null);
    fn();
    std::fflush(stdout);
    dup2(saved, STDOUT_FILENO);
    close(saved);
}

void setUpOnce() {
    static bool done = false;
    if (done) return;
    done = true;
    std::string defs = workDir() + "/defs/";
    mkdir(defs.c_str(), 0755);
    writeFile(defs + "SpinEffect.def",
              "parameters {\ntexture [type=string][default=logo][values=<string>];\n"
              "speed [type=float][default=1.0];\nmode [type=string][default=normal][values=normal,additive];\n}\n"
              "methods {\nsetSpeed(<event>, <float>);\nfadeTo(<event>, <float>, <time>);\n}\n");
    writeFile(defs + "ScrollerEffect.def",
              "parameters {\ntext [type=string][default=hello][values=<string>];\nlines [type=int][default=1];\n"
              "loop [type=bool][default=false];\n}\nmethods {\njump(<event>, <integer>, <bool>);\n}\n");
    writeFile(defs + "system.def", "parameters {\nstart [type=string][default=00:00:000][values=<string>];\n}\n");
    writeFile(defs + "screen.def", "parameters {\nwidth [type=int][default=640];\n}\n");
    writeFile(defs + "sound.def", "parameters {\nplay [type=int][default=0];\n}\n");

    QLNDemosys::data = new Data();
    DataEffectPool* templates = new DataEffectPool();
    templates->addEffect("SpinEffect", new SpinEffect());
    templates->addEffect("ScrollerEffect", new ScrollerEffect());
    QLNDemosys::data->addData("effectTemplatePool", templates);
    QLNDemosys::effectTemplatePool = templates;
    DataEventPool* events = new DataEventPool();
    events->addEvent("start", new EventStartEffect());
    events->addEvent("stop", new EventStopEffect());
    events->addEvent("modify", new EventModifyEffect());
    QLNDemosys::data->addData("eventPool", events);
    QLNDemosys::eventPool = events;
    QLNDemosys::effectPool = new DataEffectPool();
    QLNDemosys::data->addData("effectPool", QLNDemosys::effectPool);
    QLNDemosys::action = new ActionPool();
}

std::string header() {
    return "{QLNDS1}\n// generated\npaths {\n    definition = " + workDir() +
           "/defs/;\n}\nsystem {\n    start = 00:00:000;\n}\ngraphics {\n    logo = logo.png;\n    font = font.png;\n}\n";
}

// A time text for a tick count.
std::string timeText(unsigned int ticks) {
    return std::to_string(ticks / 60000) + ":" + std::to_string(ticks % 60000 / 1000) + ":" + std::to_string(ticks % 1000);
}

std::string effectBlock(int i) {
    std::string name = "fx" + std::to_string(i);
    if (i % 2) return name + " * ScrollerEffect {\n    text = graphics[font];\n    lines = " + std::to_string(i) + ";\n}\n";
    return name + " * SpinEffect {\n    texture = graphics[logo]; // the logo\n    speed = 2.5;\n    mode = additive;\n}\n";
}

std::string writeEffectScript(int blocks) {
    std::string text = header();
    for (int i = 0; i < blocks; ++i) text += effectBlock(i);
    std::string path = workDir() + "/effects" + std::to_string(blocks) + ".txt";
    writeFile(path, text);
    return path;
}

std::string writeTimelineScript(int declarations) {
    std::string text = header();
    for (int i = 0; i < timelineInstances; ++i) text += effectBlock(i);
    text += "timeline {\n";
    for (int i = 0; i < declarations; ++i) {
        std::string object = "fx" + std::to_string(i % timelineInstances);
        std::string time = timeText(10u * static_cast<unsigned int>(i));
        switch (i % 5) {
            case 0: text += "    " + object + ".start(" + time + ", " + std::to_string(i % 100) + ");\n"; break;
            case 1: text += "    " + object + ".stop(" + time + ");\n"; break;
            case 2: text += "    Checkpoint " + time + ";\n"; break;
            default:
                if (i % timelineInstances % 2) text += "    group < " + object + ".jump(" + time + ", -3, true);\n";
                else text += "    " + object + ".setSpeed(" + time + ", 1.25);\n";
        }
    }
    text += "}\n";
    std::string path = workDir() + "/timeline" + std::to_string(declarations) + ".txt";
    writeFile(path, text);
    return path;
}

void BM_ParseEffectBlocks(benchmark::State& state) {
    setUpOnce();
    int blocks = static_cast<int>(state.range(0));
    std::string path = writeEffectScript(blocks);
    for (auto _ : state) {
        DemoScriptParser* parser = nullptr;
        quietly([&] {
            parser = new DemoScriptParser(path);
            parser->parseDefaults(true);
            parser->parse();
        });
        state.PauseTiming();
        if (!parser->isValid() || parser->getParameterGroup("effect_parameters")->size() != blocks) {
            state.SkipWithError(parser->getErrorMessage().c_str());
        }
        delete parser->getParameterGroup("system_parameters");
        delete parser->getParameterGroup("effect_parameters");
        delete parser;
        state.ResumeTiming();
    }
    state.SetComplexityN(blocks);
    state.SetItemsProcessed(state.iterations() * blocks);
}
BENCHMARK(BM_ParseEffectBlocks)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

// The whole script is read each time: the timeline block's text is cut from it, and then
// the declarations become events.
void BM_ParseTimeline(benchmark::State& state) {
    setUpOnce();
    int declarations = static_cast<int>(state.range(0));
    std::string path = writeTimelineScript(declarations);
    for (auto _ : state) {
        DemoScriptParser* parser = nullptr;
        Timeline* timeline = nullptr;
        quietly([&] {
            parser = new DemoScriptParser(path);
            parser->parseDefaults(true);
            parser->parse();
            timeline = parser->parseTimeline();
        });
        state.PauseTiming();
        if (!parser->isValid() || timeline == nullptr) state.SkipWithError(parser->getErrorMessage().c_str());
        quietly([&] {
            if (timeline) timeline->init();
            delete timeline;
        });
        delete parser->getParameterGroup("system_parameters");
        delete parser->getParameterGroup("effect_parameters");
        delete parser;
        state.ResumeTiming();
    }
    state.SetComplexityN(declarations);
    state.SetItemsProcessed(state.iterations() * declarations);
}
BENCHMARK(BM_ParseTimeline)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

}  // namespace
