#pragma once
// Shared by the script reader tests: the start-up state the readers run in (pools in the
// shared data, event templates, effect prototypes registered by class name), the .def
// files of two test effect classes, and a clock the test drives frame by frame.
#include <string>
#include <vector>

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
#include "support/TestSupport.h"

namespace scripttest {

// What the test effects were asked to do, in order.
inline std::vector<std::string>& calls() {
    static std::vector<std::string> log;
    return log;
}

// Records its draws and modify calls under its instance name (the name of its group).
class RecordingEffect : public Effect {
public:
    explicit RecordingEffect(std::string kind) : kind(kind) {}
    void draw(unsigned int time) override { calls().push_back(name() + ".draw@" + std::to_string(time)); }
    void modify(std::string method, ParameterGroup* arguments) override {
        std::string call = name() + "." + method + "(";
        for (int i = 0; i < arguments->size(); ++i) {
            call += (i ? "," : "") + arguments->getKey(i) + "=" + arguments->getValue(i);
        }
        calls().push_back(call + ")");
    }
    std::string name() { return (parameters ? parameters->getGroupName() : "?") + "<" + kind + ">"; }

private:
    std::string kind;
};

class SpinEffect : public RecordingEffect {
public:
    SpinEffect() : RecordingEffect("SpinEffect") {}
    Effect* getInstance() override { return new SpinEffect(); }
};

class ScrollerEffect : public RecordingEffect {
public:
    ScrollerEffect() : RecordingEffect("ScrollerEffect") {}
    Effect* getInstance() override { return new ScrollerEffect(); }
};

// The pools and templates as start-up leaves them, with the clock at zero.
class StartUpState {
public:
    StartUpState() {
        templates = new DataEffectPool();
        instances = new DataEffectPool();
        events = new DataEventPool();
        QLNDemosys::data = new Data();
        QLNDemosys::data->addData("effectTemplatePool", templates);
        QLNDemosys::data->addData("effectPool", instances);
        QLNDemosys::data->addData("eventPool", events);
        QLNDemosys::effectTemplatePool = templates;
        QLNDemosys::effectPool = instances;
        QLNDemosys::eventPool = events;
        QLNDemosys::action = new ActionPool();
        QLNDemosys::timeline = nullptr;
        events->addEvent("start", new EventStartEffect());
        events->addEvent("stop", new EventStopEffect());
        events->addEvent("modify", new EventModifyEffect());
        templates->addEffect("SpinEffect", new SpinEffect());
        templates->addEffect("ScrollerEffect", new ScrollerEffect());
        QLNDemosys::startTime = 0;
        QLNDemosys::currentTime = 0;
        QLNDemosys::pause = false;
        calls().clear();
    }
    ~StartUpState() {
        testsupport::captureStdout([] {
            delete QLNDemosys::timeline;
            delete QLNDemosys::action;
            delete QLNDemosys::data;
        });
        QLNDemosys::timeline = nullptr;
        QLNDemosys::action = nullptr;
        QLNDemosys::data = nullptr;
        QLNDemosys::effectTemplatePool = nullptr;
        QLNDemosys::effectPool = nullptr;
        QLNDemosys::eventPool = nullptr;
    }
    StartUpState(const StartUpState&) = delete;
    StartUpState& operator=(const StartUpState&) = delete;

    // One instance per scripted effect block, cloned from its class's prototype.
    void createEffectObjects(Parameters* effects) {
        for (int i = 0; i < effects->size(); ++i) {
            ParameterGroup* group = effects->getValue(i);
            Effect* instance = templates->getEffect(group->getParameter("class"))->getInstance();
            instance->setParameters(group);
            instance->init();
            instances->addEffect(effects->getKey(i), instance);
        }
    }

    // One frame of the demo at the given tick count: fire what is due, draw what runs.
    static std::string frame(unsigned int ticks) {
        return testsupport::captureStdout([ticks] {
            QLNDemosys::updateTime(ticks);
            QLNDemosys::timeline->watch();
            QLNDemosys::action->execute(QLNDemosys::getMillisecondsElapsed());
        });
    }

    DataEffectPool* templates;
    DataEffectPool* instances;
    DataEventPool* events;
};

// The definitions of the test classes and the three settings blocks, in <dir>/defs/.
inline void writeDefinitions(const testsupport::TempDir& dir) {
    dir.write("defs/SpinEffect.def",
              "parameters {\n"
              "texture [type=string][default=logo][values=<string>];\n"
              "speed [type=float][default=1.0];\n"
              "mode [type=string][default=normal][values=normal,additive];\n"
              "}\n"
              "methods {\n"
              "setSpeed(<event>, <float>);\n"
              "fadeTo(<event>, <float>, <time>);\n"
              "}\n");
    dir.write("defs/ScrollerEffect.def",
              "parameters {\n"
              "text [type=string][default=hello][values=<string>];\n"
              "lines [type=int][default=1];\n"
              "loop [type=bool][default=false];\n"
              "}\n"
              "methods {\n"
              "setText(<event>, <string>);\n"
              "jump(<event>, <integer>, <bool>);\n"
              "rewind(<time>, <float>);\n"
              "setAll(<event>, <float>, <integer>, <bool>, <time>, <string>, <any>, <any>, <any>, <any>, <any>);\n"
              "}\n");
    dir.write("defs/system.def",
              "parameters {\nstart [type=string][default=00:00:000][values=<string>];\n"
              "stop [type=string][default=01:00:000][values=<string>];\n}\n");
    dir.write("defs/screen.def", "parameters {\nwidth [type=int][default=640];\nheight [type=int][default=480];\n}\n");
    dir.write("defs/sound.def", "parameters {\nplay [type=int][default=0];\n}\nmethods {\n}\n");
}

// A demoscript in dir whose paths block points at the definitions, followed by body.
inline std::string writeScript(const testsupport::TempDir& dir, const std::string& body,
                               const std::string& name = "demoscript.txt") {
    return dir.write(name, "{QLNDS1}\n// written by the test\npaths {\n    definition = " + dir.path() +
                               "/defs/;\n}\n" + body);
}

// A parser run on a script, holding the two collections it hands over.
class ParsedScript {
public:
    explicit ParsedScript(const std::string& path, bool defaults = true, bool debug = false) : parser(path) {
        parser.setDebug(debug);
        parser.parseDefaults(defaults);
        log = testsupport::captureStdout([this] { parser.parse(); });
    }
    ~ParsedScript() {
        delete parser.getParameterGroup("system_parameters");
        delete parser.getParameterGroup("effect_parameters");
    }
    ParsedScript(const ParsedScript&) = delete;
    ParsedScript& operator=(const ParsedScript&) = delete;

    Parameters* system() { return parser.getParameterGroup("system_parameters"); }
    Parameters* effects() { return parser.getParameterGroup("effect_parameters"); }
    // The text form of one group ("" when it is missing), to compare whole groups at once.
    std::string effect(const std::string& name) {
        ParameterGroup* group = effects() ? effects()->getGroup(name) : nullptr;
        return group ? group->toString() : "";
    }
    std::string settings(const std::string& name) {
        ParameterGroup* group = system() ? system()->getGroup(name) : nullptr;
        return group ? group->toString() : "";
    }
    // Builds the timeline as the loader does and installs it as the demo's timeline.
    std::string parseTimeline() {
        std::string out = testsupport::captureStdout([this] { QLNDemosys::timeline = parser.parseTimeline(); });
        if (QLNDemosys::timeline) QLNDemosys::timeline->init();
        return out;
    }

    DemoScriptParser parser;
    std::string log;
};

}  // namespace scripttest
