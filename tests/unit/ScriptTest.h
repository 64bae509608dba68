#pragma once
// Two small effect classes with their .def files, for the script readers: each instance
// records its draws and method calls, in order, in one shared log.
#include <memory>
#include <string>
#include <vector>

#include "demosys/Effect.h"
#include "demosys/ParameterGroup.h"
#include "support/Engine.h"
#include "support/TestSupport.h"

namespace scripttest {

inline std::vector<std::string>& calls() {
    static std::vector<std::string> log;
    return log;
}

class RecordingEffect : public Effect {
public:
    explicit RecordingEffect(std::string kind) : kind(kind) {}
    void draw(unsigned int time) override { calls().push_back(name() + ".draw@" + std::to_string(time)); }
    void modify(std::string method, ParameterGroup* arguments) override {
        std::string call = name() + "." + method + "(";
        for (int i = 0; i < arguments->size(); ++i)
            call += (i ? "," : "") + arguments->getKey(i) + "=" + arguments->getValue(i);
        calls().push_back(call + ")");
    }
    Effect* getInstance() override { return new RecordingEffect(kind); }
    std::string name() { return (parameters ? parameters->getGroupName() : "?") + "<" + kind + ">"; }

private:
    std::string kind;
};

// The definitions of the two classes, the engine's own two and the three settings blocks, in <dir>/defs/.
inline void writeDefinitions(const testsupport::TempDir& dir) {
    for (std::string engineClass : {"DisplayTexture.def", "FadeEffect.def"})
        dir.write("defs/" + engineClass,
                  testsupport::readFile(testsupport::sourceDir() + "/resources/definitions/" + engineClass));
    dir.write("defs/SpinEffect.def",
              "parameters {\ntexture [type=string][default=logo][values=<string>];\n"
              "speed [type=float][default=1.0];\nmode [type=string][default=normal][values=normal,additive];\n}\n"
              "methods {\nsetSpeed(<event>, <float>);\nfadeTo(<event>, <float>, <time>);\n}\n");
    dir.write("defs/ScrollerEffect.def",
              "parameters {\ntext [type=string][default=hello][values=<string>];\nlines [type=int][default=1];\n"
              "loop [type=bool][default=false];\n}\n"
              "methods {\nsetText(<event>, <string>);\njump(<event>, <integer>, <bool>);\nrewind(<time>, <float>);\n}\n");
    dir.write("defs/system.def",
              "parameters {\nstart [type=string][default=00:00:000][values=<string>];\n"
              "stop [type=string][default=01:00:000][values=<string>];\n}\n");
    dir.write("defs/screen.def", "parameters {\nwidth [type=int][default=640];\nheight [type=int][default=480];\n}\n");
    dir.write("defs/sound.def", "parameters {\nplay [type=int][default=0];\n}\nmethods {\n}\n");
}

// A demoscript whose paths block points at the definitions, followed by body.
inline std::string scriptText(const testsupport::TempDir& dir, const std::string& body) {
    return "{QLNDS1}\n// written by the test\npaths {\n    definition = " + dir.path() + "/defs/;\n}\n" + body;
}

// The engine on a script written to dir, with the two classes registered.
inline std::unique_ptr<Engine> engineFor(const testsupport::TempDir& dir, const std::string& text,
                                         const std::string& name = "demoscript.txt") {
    std::unique_ptr<Engine> engine(new Engine(dir.write(name, text)));
    engine->driver().addEffect("SpinEffect", new RecordingEffect("SpinEffect"));
    engine->driver().addEffect("ScrollerEffect", new RecordingEffect("ScrollerEffect"));
    calls().clear();
    return engine;
}

}  // namespace scripttest
