// Real demoscripts read by the loader's stages and played on a driven clock: what the
// readers hand over, and when the scripted effects start, change and stop in their layers.
#include <gtest/gtest.h>

#include "demosys/ActionPool.h"
#include "demosys/DemoScriptParser.h"
#include "demosys/Parameters.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"
#include "demosys/Timeline.h"
#include "unit/ScriptTest.h"

namespace {

using namespace scripttest;

const std::string effectBlocks =
    "graphics {\n    logo = logo.png;\n    font = font.png;\n}\n"
    "intro * SpinEffect {\n    texture = graphics[logo];\n    speed = 2.5;\n}\n"
    "badge * SpinEffect {\n    mode = additive;\n}\n"
    "scroller * ScrollerEffect {\n    text = graphics[font];\n    lines = 3;\n}\n";

class ScriptPlayback : public ::testing::Test {
protected:
    ScriptPlayback() { writeDefinitions(dir); }
    Engine& load(const std::string& body) {
        engine = engineFor(dir, scriptText(dir, body));
        EXPECT_TRUE(engine->load()) << engine->error();
        return *engine;
    }
    static std::string group(Parameters* from, const std::string& name) {
        ParameterGroup* found = from ? from->getGroup(name) : nullptr;
        return found ? found->toString() : "<missing>";
    }
    testsupport::TempDir dir;
    std::unique_ptr<Engine> engine;
};

TEST_F(ScriptPlayback, TheWorkedExampleMergesDefaultsAndYieldsFourTimelineEntries) {
    load("system {\n    stop = 00:40:000;\n}\n// comment\r\ngraphics {\r\n    logo = gfx/logo.png;\r\n}\r\n"
         "intro * SpinEffect {\n    texture = graphics[logo];\n    speed = 2.5;\n}\n"
         "timeline {\n    intro.start(00:10:000);\n    intro.setSpeed(00:12:000, 2.5);\n"
         "    Checkpoint 00:20:000;\n    intro.stop(00:30:000);\n}\n");
    EXPECT_EQ(group(QLNDemosys::parameters, "system"), "system {\n    start = 00:00:000;\n    stop = 00:40:000;\n}\n");
    EXPECT_EQ(group(QLNDemosys::parameters, "graphics"), "graphics {\n    logo = gfx/logo.png;\n}\n");
    EXPECT_EQ(group(QLNDemosys::effects, "intro"),
              "intro {\n    class = SpinEffect;\n    mode = normal;\n    speed = 2.5;\n    texture = logo;\n}\n");
    EXPECT_EQ(QLNDemosys::timeline->toString(),
              "(0000010000)-[00:10:000] = EventStartEffect {\nparameters {\n    object = intro;\n    p1 = 00:10:000;\n}\n}\n"
              "(0000012000)-[00:12:000] = EventModifyEffect {\nparameters {\n    method = setSpeed;\n    object = intro;\n"
              "    p1 = 00:12:000;\n    p2 = 2.5;\n}\n}\n"
              "(0000030000)-[00:30:000] = EventStopEffect {  }\n");
    ASSERT_EQ(QLNDemosys::timeline->countCheckpoints(), 1);
    EXPECT_EQ(QLNDemosys::timeline->getCheckpoint(0)->getTicks(), 20000u);
}

TEST_F(ScriptPlayback, ScriptedEffectsStartChangeAndStopOnTheClockInLayerOrder) {
    Engine& demo = load(effectBlocks +
                        "timeline {\n"
                        "    intro.start(00:01:000);              // default layer 50\n"
                        "    scroller.start(00:01:000, 7);        // drawn before layer 50\n"
                        "    badge.start(00:02:000, 90, nofbo);   // no such framebuffer: drawn to the screen\n"
                        "    intro.setSpeed(00:02:500, 0.75);\n"
                        "    scroller.jump(00:03:000, -4, true);\n"
                        "    titles < badge.fadeTo(00:03:500, 1.0, 00:04:000);\n"
                        "    intro.stop(00:04:000);\n"
                        "    scroller.rewind(00:04:500, 1.5);      // no <event> argument: fires at its first\n"
                        "    scroller.stop(00:05:000)\n}\n");
    for (unsigned int ticks : {0u, 999u, 1000u, 2000u, 2500u, 3000u, 3500u, 4000u, 4500u, 5000u}) demo.frame(ticks);
    std::vector<std::string> expected = {
        "scroller<ScrollerEffect>.draw@1000", "intro<SpinEffect>.draw@1000",
        "scroller<ScrollerEffect>.draw@2000", "intro<SpinEffect>.draw@2000", "badge<SpinEffect>.draw@2000",
        "intro<SpinEffect>.setSpeed(method=setSpeed,object=intro,p1=00:02:500,p2=0.75)",
        "scroller<ScrollerEffect>.draw@2500", "intro<SpinEffect>.draw@2500", "badge<SpinEffect>.draw@2500",
        "scroller<ScrollerEffect>.jump(method=jump,object=scroller,p1=00:03:000,p2=-4,p3=true)",
        "scroller<ScrollerEffect>.draw@3000", "intro<SpinEffect>.draw@3000", "badge<SpinEffect>.draw@3000",
        "badge<SpinEffect>.fadeTo(method=fadeTo,object=badge,p1=00:03:500,p2=1.0,p3=00:04:000)",
        "scroller<ScrollerEffect>.draw@3500", "intro<SpinEffect>.draw@3500", "badge<SpinEffect>.draw@3500",
        "scroller<ScrollerEffect>.draw@4000", "badge<SpinEffect>.draw@4000",
        "scroller<ScrollerEffect>.rewind(method=rewind,object=scroller,p1=00:04:500,p2=1.5)",
        "scroller<ScrollerEffect>.draw@4500", "badge<SpinEffect>.draw@4500",
        "badge<SpinEffect>.draw@5000",
    };
    EXPECT_EQ(calls(), expected);
    EXPECT_EQ(QLNDemosys::action->toString(),
              "ActionPool {\n    Effects:\n        090_badge - Effect\n    AliasTable:\n        badge - 090_badge\n}\n");
}

TEST_F(ScriptPlayback, MovingToATimeReplaysEverythingUpToItAndCheckpointsStaySortedAndUnique) {
    Engine& demo = load(effectBlocks +
                        "timeline {\n    intro.start(00:00:000);\n    intro.stop(00:10:000);\n"
                        "    badge.start(00:20:000);\n    badge.setSpeed(01:00:400, 2.0);\n"
                        "    scroller.start(01:10:000);\n    Checkpoint 00:20:000;\n    Checkpoint 00:20:000;\n"
                        "    Checkpoint 0:20:0;\n    Checkpoint 00:10:000;\n}\n");
    EXPECT_NE(demo.log.find("duplicate checkpoint ignored : (0000020000)-[00:20:000])\n"
                            "duplicate checkpoint ignored : (0000020000)-[00:20:000])\n"),
              std::string::npos);
    ASSERT_EQ(QLNDemosys::timeline->countCheckpoints(), 2);
    EXPECT_EQ(QLNDemosys::timeline->getCheckpoint(0)->getTicks(), 10000u);
    EXPECT_EQ(QLNDemosys::timeline->getCheckpoint(1)->getTicks(), 20000u);

    demo.frame(0);
    QLNDemosys::updateTime(500);
    QLNDemosys::timeline->moveTo(60000);
    EXPECT_EQ(QLNDemosys::getMillisecondsElapsed(), 60500u);
    const std::string badgeOnly =
        "ActionPool {\n    Effects:\n        050_badge - Effect\n    AliasTable:\n        badge - 050_badge\n}\n";
    EXPECT_EQ(QLNDemosys::action->toString(), badgeOnly);
    EXPECT_EQ(calls(), (std::vector<std::string>{"intro<SpinEffect>.draw@0",
                                                 "badge<SpinEffect>.setSpeed(method=setSpeed,object=badge,p1=01:00:400,p2=2.0)"}));
    calls().clear();
    demo.frame(9999);
    demo.frame(10000);  // demo time 70000
    EXPECT_EQ(calls(), (std::vector<std::string>{"badge<SpinEffect>.draw@69999", "badge<SpinEffect>.draw@70000",
                                                 "scroller<ScrollerEffect>.draw@70000"}));
    // Back again: the script is replayed from its start up to the new position.
    QLNDemosys::action->removeAll();
    QLNDemosys::timeline->moveTo(15000);
    EXPECT_EQ(QLNDemosys::action->toString(), badgeOnly);
}

TEST_F(ScriptPlayback, StoppingAnEffectThatIsNotRunningSaysSoTwice) {
    Engine& demo = load(effectBlocks + "timeline {\n    intro.stop(00:02:500);\n}\n");
    demo.frame(3000);
    EXPECT_NE(demo.log.find("ERROR: ActionPool - error removing 'intro' from ActonPool\n"
                            "EventStop : failed to remove effect from actionpool : (0000002500)-[00:02:500] : StopEffect(\n"
                            "parameters {\n    object = intro;\n    p1 = 00:02:500;\n}\n)\n"),
              std::string::npos)
        << demo.log;
}

TEST_F(ScriptPlayback, DebugModeLogsEveryDefinitionAndTheSettingsDefaults) {
    std::string path = dir.write("debug.txt", scriptText(dir, "screen { width = 800; }\n"));
    auto engine = engineFor(dir, testsupport::readFile(path));
    DemoScriptParser parser(path);
    parser.setDebug(true);
    parser.parseDefaults(true);
    std::string log = testsupport::captureStdout([&] { parser.parse(); });
    EXPECT_NE(log.find("Loading definition : '" + dir.path() + "/defs/SpinEffect.def\n"), std::string::npos) << log;
    EXPECT_NE(log.find("block name : screen\nparameters {\n    height = 480;\n    width = 640;\n}\n"), std::string::npos);
    delete parser.getParameterGroup("system_parameters");
    delete parser.getParameterGroup("effect_parameters");
}

TEST(ActionPool, AnEffectStartedAgainInAnotherLayerDrawsTwiceAndRemovalTakesTheNewerEntry) {
    RecordingEffect twice("Twice");
    ActionPool pool;
    pool.addEffect("twice", &twice, 10);
    pool.addEffect("twice", &twice, 10);
    pool.addEffect("twice", &twice, 20);
    EXPECT_EQ(pool.countEffects(), 2);
    calls().clear();
    pool.execute(1);
    EXPECT_EQ(calls().size(), 2u);
    EXPECT_TRUE(pool.removeEffect("twice"));
    EXPECT_NE(pool.toString().find("010_twice - Effect"), std::string::npos);
    bool removed = true;
    EXPECT_EQ(testsupport::captureStdout([&] { removed = pool.removeEffect("twice"); }),
              "ERROR: ActionPool - error removing 'twice' from ActonPool\n");
    EXPECT_FALSE(removed);
}

TEST(Clock, ElapsedTimeStandsStillWhilePaused) {
    QLNDemosys::startTime = 1000;
    QLNDemosys::pause = false;
    QLNDemosys::updateTime(3000);
    EXPECT_EQ(QLNDemosys::getMillisecondsElapsed(), 2000u);
    testsupport::captureStdout([] { QLNDemosys::stopTimer(); });
    for (unsigned int now : {3016u, 9000u}) {
        QLNDemosys::updateTime(now);
        EXPECT_EQ(QLNDemosys::getMillisecondsElapsed(), 2000u);
    }
    testsupport::captureStdout([] { QLNDemosys::startTimer(); });
    QLNDemosys::updateTime(9100);
    EXPECT_EQ(QLNDemosys::getMillisecondsElapsed(), 2100u);
}

}  // namespace
