// The sync verb: bound tracks call the method before each frame; wrong lines fail in the reader's words.
#include <gtest/gtest.h>

#include <memory>

#include "ScriptTestState.h"
#include "demosys/SyncPlayer.h"
#include "demosys/SyncTrack.h"

namespace {

const std::string blocks = "sync { bpm = 120.0; rpb = 4; tracks = sync/demo; }\n"
                           "intro * SpinEffect { speed = 2.5; }\n"
                           "scroller * ScrollerEffect { lines = 2; }\n";

class SyncScript : public ::testing::Test {
protected:
    SyncScript() { scripttest::writeDefinitions(dir); }
    // Returns the reader's error message, empty when the whole script was read.
    std::string load(const std::string& head, const std::string& timeline) {
        testsupport::captureStdout([] { delete QLNDemosys::timeline; });
        script.reset(new scripttest::ParsedScript(scripttest::writeScript(dir, head + "timeline {\n" + timeline + "\n}\n")));
        state.createEffectObjects(script->effects());
        script->parseTimeline();
        return script->parser.isValid() ? "" : script->parser.getErrorMessage();
    }
    scripttest::StartUpState state;
    testsupport::TempDir dir;
    std::unique_ptr<scripttest::ParsedScript> script;
};

TEST_F(SyncScript, BoundTracksCallTheMethodBeforeEachFrameWhileTheEffectRuns) {
    ASSERT_EQ(load(blocks, "intro.start(00:01:000); intro.sync(00:02:000, setSpeed, spin:speed);"
                           "intro.stop(00:04:000); intro.setSpeed(00:03:000, 9.0)"), "");
    std::string error;
    std::unique_ptr<SyncPlayer> player(SyncPlayer::create(script->system()->getGroup("sync"), error));
    ASSERT_TRUE(player) << error;
    for (const SyncBinding& binding : script->parser.getSyncBindings())
        player->bind(binding, state.instances->getEffect(binding.object));
    ASSERT_EQ(player->countTracks(), 1u);
    player->getTrack(0)->setKey(16, 0.5f, SyncTrack::LINEAR);  // 8 rows a second: row 16 is 2 s
    player->getTrack(0)->setKey(24, 1.5f, SyncTrack::STEP);
    EXPECT_EQ(player->getMilliseconds(20), 2500u);

    // Nothing before the sync time or after the stop; at 3 s the track overrides the timed call.
    const std::pair<unsigned int, const char*> frames[] = {{1500, nullptr}, {2000, "0.5"}, {2500, "1.0"},
                                                           {3000, "1.5"},   {3750, "1.5"},  {4000, nullptr}};
    for (auto [ticks, value] : frames) {
        scripttest::calls().clear();
        testsupport::captureStdout([&, ticks = ticks] {
            QLNDemosys::updateTime(ticks);
            QLNDemosys::timeline->watch();
            player->update(ticks);
        });
        std::string call = "intro<SpinEffect>.setSpeed(method=setSpeed,object=intro,p1=" + QLNTime(ticks).toString();
        EXPECT_EQ(scripttest::calls().empty() ? "" : scripttest::calls().back(), value ? call + ",p2=" + value + ")" : "") << ticks;
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
