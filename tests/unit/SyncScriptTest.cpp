// The sync verb: bound tracks call the method before each frame; wrong lines fail in the reader's words.
#include <gtest/gtest.h>

#include "demosys/QLNTime.h"
#include "unit/ScriptTest.h"

namespace {

using namespace scripttest;

const std::string blocks = "sync { bpm = 120.0; rpb = 4; tracks = TRACKS; }\n"
                           "intro * SpinEffect { speed = 2.5; }\n"
                           "scroller * ScrollerEffect { lines = 2; }\n";

class SyncScript : public ::testing::Test {
protected:
    SyncScript() { writeDefinitions(dir); }
    // Loads the script through the loader's stages; returns its error message, "" when it loaded.
    std::string load(std::string head, const std::string& timeline) {
        if (head.find("TRACKS") != std::string::npos) head.replace(head.find("TRACKS"), 6, dir.path() + "/demo");
        engine.reset();  // one engine at a time: they share the system state
        engine = engineFor(dir, scriptText(dir, head + "timeline {\n" + timeline + "\n}\n"));
        return engine->load() ? "" : engine->error();
    }
    testsupport::TempDir dir;
    std::unique_ptr<Engine> engine;
};

TEST_F(SyncScript, BoundTracksCallTheMethodBeforeEachFrameWhileTheEffectRuns) {
    // spin:speed: 0.5 at row 16 (2 s at 8 rows a second) rising to 1.5 at row 24.
    dir.write("demo_spin-3Aspeed.track", std::string("\2\0\0\0\20\0\0\0\0\0\0\77\1\30\0\0\0\0\0\300\77\0", 22));
    ASSERT_EQ(load(blocks, "intro.start(00:01:000); intro.sync(00:02:000, setSpeed, spin:speed);"
                           "intro.stop(00:04:000); intro.setSpeed(00:03:000, 9.0)"), "");
    // Nothing before the sync time or after the stop; at 3 s the track overrides the timed call.
    const std::pair<unsigned int, const char*> frames[] = {{1500, nullptr}, {2000, "0.5"}, {2500, "1.0"},
                                                           {3000, "1.5"},   {3750, "1.5"},  {4000, nullptr}};
    for (auto [ticks, value] : frames) {
        calls().clear();
        engine->frame(ticks);
        std::string call = "intro<SpinEffect>.setSpeed(method=setSpeed,object=intro,p1=" + QLNTime(ticks).toString();
        std::string last;
        for (const std::string& c : calls()) if (c.find(".setSpeed(") != std::string::npos) last = c;
        EXPECT_EQ(last, value ? call + ",p2=" + value + ")" : "") << ticks;
    }
}

TEST_F(SyncScript, WrongSyncLinesFailInTheReadersWords) {
    const std::string head = "Error while parsing Timeline!\nobject : ";
    struct Case { std::string blocks, line, error; } cases[] = {
        {blocks, "intro.sync(00:01:000, spin, a)", "Timeline : method 'spin' don't exist!"},
        {blocks, "intro.sync(00:01:000, setSpeed, a, b)",
         head + "intro\nmethod : setSpeed\nCause : Wrong number of arguments (3)\n"},
        {blocks, "intro.sync(00:01:000, fadeTo, a, b)",
         head + "intro\nmethod : fadeTo\nparameter : b\n (2)\nParameter is not a float as defined in SpinEffect.def\n"},
        {blocks, "scroller.sync(00:01:000, jump, a, b)",
         head + "scroller\nmethod : jump\nparameter : a\n (1)\nParameter is not a float as defined in ScrollerEffect.def\n"},
        {blocks, "intro.sync(00:01:000)", head + "intro\nmethod : sync\nCause : Wrong number of arguments (1)\n"},
        {blocks.substr(blocks.find('\n') + 1), "intro.sync(00:01:000, setSpeed, a)",
         head + "intro\nmethod : sync\nCause : No sync { } block in the demoscript\n"},
    };
    for (const Case& c : cases) {
        testing::internal::CaptureStderr();
        std::string error = load(c.blocks, c.line);
        testing::internal::GetCapturedStderr();
        EXPECT_EQ(error.substr(0, c.error.size()), c.error) << c.line;
    }
}

}  // namespace
