// The timeline block of a real demoscript becomes events and checkpoints; fired on a
// driven clock they start, modify and stop the scripted effects in their layers.
#include <gtest/gtest.h>

#include <memory>

#include "ScriptTestState.h"
#include "demosys/QLNTime.h"

namespace {

using scripttest::calls;
using scripttest::ParsedScript;
using scripttest::StartUpState;
using scripttest::writeDefinitions;
using scripttest::writeScript;
using testsupport::TempDir;

const std::string effectBlocks =
    "graphics {\n    logo = logo.png;\n    font = font.png;\n}\n"
    "intro * SpinEffect {\n    texture = graphics[logo];\n    speed = 2.5;\n}\n"
    "badge * SpinEffect {\n    mode = additive;\n}\n"
    "scroller * ScrollerEffect {\n    text = graphics[font];\n    lines = 3;\n}\n";

class TimelineLanguage : public ::testing::Test {
protected:
    TimelineLanguage() { writeDefinitions(dir); }

    // Parses a script with the effect blocks above and the given timeline body, creates
    // the effect instances and installs the timeline; returns the parse's log.
    std::string load(const std::string& timeline, bool debug = false) {
        script.reset(new ParsedScript(writeScript(dir, effectBlocks + "timeline {\n" + timeline + "\n}\n")));
        EXPECT_TRUE(script->parser.isValid()) << script->parser.getErrorMessage();
        state.createEffectObjects(script->effects());
        script->parser.setDebug(debug);
        return script->parseTimeline();
    }

    StartUpState state;
    TempDir dir;
    std::unique_ptr<ParsedScript> script;
};

TEST_F(TimelineLanguage, ScriptedEffectsStartChangeAndStopOnTheClock) {
    std::string log = load(
        "    intro.start(00:01:000);              // default layer 50\n"
        "    scroller.start(00:01:000, 7);        // drawn before layer 50\n"
        "    badge.start(00:02:000, 90, nofbo);   // no such framebuffer: drawn to the screen\n"
        "    intro.setSpeed(00:02:500, 0.75);\n"
        "    scroller.setText(00:03:000, graphics[font]);\n"
        "    scroller.jump(00:03:000, -4, true);\n"
        "    titles < badge.fadeTo(00:03:500, 1.0, 00:04:000);\n"
        "    Checkpoint 00:02:000;\n"
        "    intro.stop(00:04:000);\n"
        "    Checkpoint 00:04:000;\n"
        "    scroller.rewind(00:04:500, 1.5);      // no <event> argument: fires at its first\n"
        "    scroller.stop(00:05:000)\n");
    ASSERT_TRUE(script->parser.isValid()) << script->parser.getErrorMessage();
    EXPECT_EQ(log, "");

    Timeline* timeline = QLNDemosys::timeline;
    ASSERT_EQ(timeline->countCheckpoints(), 2);
    EXPECT_EQ(timeline->getCheckpoint(0)->getTicks(), 2000u);
    EXPECT_EQ(timeline->getCheckpoint(1)->getTicks(), 4000u);

    for (unsigned int ticks : {0u, 999u, 1000u, 2000u, 2500u, 3000u, 3500u, 4000u, 4500u, 5000u}) {
        StartUpState::frame(ticks);
    }
    std::vector<std::string> expected = {
        "scroller<ScrollerEffect>.draw@1000",
        "intro<SpinEffect>.draw@1000",
        "scroller<ScrollerEffect>.draw@2000",
        "intro<SpinEffect>.draw@2000",
        "badge<SpinEffect>.draw@2000",
        "intro<SpinEffect>.setSpeed(method=setSpeed,object=intro,p1=00:02:500,p2=0.75)",
        "scroller<ScrollerEffect>.draw@2500",
        "intro<SpinEffect>.draw@2500",
        "badge<SpinEffect>.draw@2500",
        "scroller<ScrollerEffect>.setText(method=setText,object=scroller,p1=00:03:000,p2=font)",
        "scroller<ScrollerEffect>.jump(method=jump,object=scroller,p1=00:03:000,p2=-4,p3=true)",
        "scroller<ScrollerEffect>.draw@3000",
        "intro<SpinEffect>.draw@3000",
        "badge<SpinEffect>.draw@3000",
        "badge<SpinEffect>.fadeTo(method=fadeTo,object=badge,p1=00:03:500,p2=1.0,p3=00:04:000)",
        "scroller<ScrollerEffect>.draw@3500",
        "intro<SpinEffect>.draw@3500",
        "badge<SpinEffect>.draw@3500",
        "scroller<ScrollerEffect>.draw@4000",
        "badge<SpinEffect>.draw@4000",
        "scroller<ScrollerEffect>.rewind(method=rewind,object=scroller,p1=00:04:500,p2=1.5)",
        "scroller<ScrollerEffect>.draw@4500",
        "badge<SpinEffect>.draw@4500",
        "badge<SpinEffect>.draw@5000",
    };
    EXPECT_EQ(calls(), expected);
    EXPECT_EQ(QLNDemosys::action->toString(),
              "ActionPool {\n    Effects:\n        090_badge - Effect\n    AliasTable:\n        badge - 090_badge\n}\n");
}

TEST_F(TimelineLanguage, TheWorkedExampleYieldsItsFourEntries) {
    load("intro.start(00:10:000);\nintro.setSpeed(00:12:000, 2.5);\nCheckpoint 00:20:000;\nintro.stop(00:30:000);");
    ASSERT_TRUE(script->parser.isValid()) << script->parser.getErrorMessage();
    EXPECT_EQ(QLNDemosys::timeline->toString(),
              "(0000010000)-[00:10:000] = EventStartEffect {\nparameters {\n    object = intro;\n    p1 = 00:10:000;\n}\n}\n"
              "(0000012000)-[00:12:000] = EventModifyEffect {\nparameters {\n    method = setSpeed;\n    object = intro;\n"
              "    p1 = 00:12:000;\n    p2 = 2.5;\n}\n}\n"
              "(0000030000)-[00:30:000] = EventStopEffect {  }\n");
    ASSERT_EQ(QLNDemosys::timeline->countCheckpoints(), 1);
    EXPECT_EQ(QLNDemosys::timeline->getCheckpoint(0)->getTicks(), 20000u);
}

TEST_F(TimelineLanguage, ReportsEveryTimelineError) {
    const std::string omp = "Error while parsing Timeline!\nobject : ";
    struct Case {
        std::string timeline;
        std::string error;
        bool alsoOnStandardError;
    };
    Case cases[] = {
        {"intro.start()", "Timeline : Error near ''intro.start()\nPossible reason : Missing parameter(s)", false},
        {"intro.start( , )", "Timeline : Error near ''intro.start( , )\nPossible reason : Missing parameter(s)", false},
        {"ghost.start(00:01:000)", "Error Pasing Timeline!\nScript object 'ghost' not found\nProbable Cause : Spelling error?",
         false},
        {"a < b < intro.start(00:01:000)",
         "Error Pasing Timeline!\nScript object 'a < b < intro' not found\nProbable Cause : Spelling error?", false},
        {"intro.spin(00:01:000)", "Timeline : method 'spin' don't exist!", false},
        {"intro.setSpeed(00:12:000)", omp + "intro\nmethod : setSpeed\nCause : Wrong number of arguments (1)\n", false},
        {"intro.setSpeed(00:12:000, 2.5, 3)", omp + "intro\nmethod : setSpeed\nCause : Wrong number of arguments (3)\n",
         false},
        {"intro.setSpeed(12:000, 2.5)",
         omp + "intro\nmethod : setSpeed\nparameter : 12:000\n (0)\n"
               "Parameter is not a valid (mm:ss:mmm) timestamp as defined in SpinEffect.def\n", false},
        {"intro.fadeTo(00:01:000, 1.0, soon)",
         omp + "intro\nmethod : fadeTo\nparameter : soon\n (2)\n"
               "Parameter is not a valid (mm:ss:mmm) timestamp as defined in SpinEffect.def\n", false},
        {"intro.setSpeed(00:01:000, 2)",
         omp + "intro\nmethod : setSpeed\nparameter : 2\n (1)\nParameter is not a float as defined in SpinEffect.def\n",
         true},
        {"scroller.jump(00:01:000, x, true)",
         omp + "scroller\nmethod : jump\nparameter : x\n (1)\nParameter is not an integer as defined in ScrollerEffect.def\n",
         false},
        {"scroller.jump(00:01:000, 1, yes)",
         omp + "scroller\nmethod : jump\nparameter : yes\n (2)\nParameter is not a boolean as defined in ScrollerEffect.def\n",
         false},
        {"scroller.setText(00:01:000, graphics[none])",
         omp + "scroller\nmethod : setText\nparameter : graphics[none]\n (1)\nReverse lookup failed\n", true},
        {"Checkpoint 1:2", "Error while parsing Timeline!\nobject : Checkpoint\nparameter : 1:2\nParameter is not a valid (mm:ss:mmm)\n",
         false},
        {"intro", "Error Pasing Timeline!\nDeclaration 'intro' invalid\nProbable Cause : Spelling error?", false},
        {"Checkpoint", "Error Pasing Timeline!\nDeclaration 'Checkpoint' invalid\nProbable Cause : Spelling error?", false},
    };
    for (const Case& c : cases) {
        calls().clear();
        testing::internal::CaptureStderr();
        load(c.timeline);
        std::string standardError = testing::internal::GetCapturedStderr();
        EXPECT_FALSE(script->parser.isValid()) << c.timeline;
        EXPECT_EQ(script->parser.getErrorMessage(), c.error) << c.timeline;
        EXPECT_EQ(standardError, c.alsoOnStandardError ? c.error : "") << c.timeline;
        // The timeline is returned all the same, holding nothing from the failed declaration.
        ASSERT_NE(QLNDemosys::timeline, nullptr);
        EXPECT_EQ(QLNDemosys::timeline->toString(), "") << c.timeline;
        EXPECT_EQ(QLNDemosys::timeline->countCheckpoints(), 0);
        testsupport::captureStdout([] { delete QLNDemosys::timeline; });
        QLNDemosys::timeline = nullptr;
        // The next case makes its instances afresh.
        for (const char* name : {"intro", "badge", "scroller"}) {
            Effect* instance = state.instances->getEffect(name);
            state.instances->removeEffect(name);
            delete instance;
        }
    }
}

TEST_F(TimelineLanguage, ReadingStopsAtTheFirstErrorKeepingWhatCameBefore) {
    load("intro.start(00:01:000);\nCheckpoint 00:02:000;\nghost.stop(00:03:000);\nbadge.start(00:04:000)");
    EXPECT_FALSE(script->parser.isValid());
    EXPECT_EQ(QLNDemosys::timeline->toString(),
              "(0000001000)-[00:01:000] = EventStartEffect {\nparameters {\n    object = intro;\n    p1 = 00:01:000;\n}\n}\n");
    EXPECT_EQ(QLNDemosys::timeline->countCheckpoints(), 1);
}

TEST_F(TimelineLanguage, DuplicateCheckpointsAreLoggedAndDropped) {
    std::string log = load("Checkpoint 00:20:000;\nCheckpoint 00:20:000;\nCheckpoint 0:20:0;\nCheckpoint 00:10:000");
    ASSERT_TRUE(script->parser.isValid()) << script->parser.getErrorMessage();
    EXPECT_EQ(log,
              "duplicate checkpoint ignored : (0000020000)-[00:20:000])\n"
              "duplicate checkpoint ignored : (0000020000)-[00:20:000])\n");
    ASSERT_EQ(QLNDemosys::timeline->countCheckpoints(), 2);
    EXPECT_EQ(QLNDemosys::timeline->getCheckpoint(0)->getTicks(), 10000u);
    EXPECT_EQ(QLNDemosys::timeline->getCheckpoint(1)->toString(), "(0000020000)-[00:20:000]");
}

TEST_F(TimelineLanguage, EventCallsAreTakenAsWritten) {
    // Event templates are not checked: an unreadable time fires at zero. Plain
    // declarations other than checkpoints add nothing.
    load("intro.start(soon, 7);\nMarker 00:01:000;\nlabel < badge.start(00:00:500);\nbadge.stop(0:0:700)");
    ASSERT_TRUE(script->parser.isValid()) << script->parser.getErrorMessage();
    StartUpState::frame(0);
    StartUpState::frame(600);
    std::string stopped = StartUpState::frame(700);
    std::string again = StartUpState::frame(800);
    std::vector<std::string> expected = {
        "intro<SpinEffect>.draw@0", "intro<SpinEffect>.draw@600", "badge<SpinEffect>.draw@600",
        "intro<SpinEffect>.draw@700", "intro<SpinEffect>.draw@800",
    };
    EXPECT_EQ(calls(), expected);
    EXPECT_EQ(stopped, "");
}

TEST_F(TimelineLanguage, TenOrMoreArgumentsKeepTheirNumbers) {
    load("scroller.setAll(00:01:000, 1.5, 2, true, 00:02:000, graphics[logo], a, b, c, d.e, f)");
    ASSERT_TRUE(script->parser.isValid()) << script->parser.getErrorMessage();
    StartUpState::frame(1000);
    ASSERT_EQ(calls().size(), 1u);
    EXPECT_EQ(calls()[0],
              "scroller<ScrollerEffect>.setAll(method=setAll,object=scroller,p1=00:01:000,p10=d.e,p11=f,p2=1.5,p3=2,"
              "p4=true,p5=00:02:000,p6=logo,p7=a,p8=b,p9=c)");
}

TEST_F(TimelineLanguage, DebugModeTellsEachStep) {
    std::string log = load(
        "intro.start(00:01:000);\ntitles < intro.setSpeed(00:02:000, 1.5);\nCheckpoint 00:03:000;\nbogus", true);
    EXPECT_FALSE(script->parser.isValid());
    const char* lines[] = {
        "line : intro.start(00:01:000)\n",
        "object = 'intro' method = 'start' params = '00:01:000', \n",
        "addEvent((0000001000)-[00:01:000]",
        "line : titles < intro.setSpeed(00:02:000, 1.5)\n",
        "ActionGroup(titles) : intro.setSpeed(00:02:000, 1.5)\n",
        "object = 'intro' method = 'setSpeed' params = '00:02:000', '1.5', \n",
        "ScriptObject 'intro' with Class 'SpinEffect have method 'setSpeed'\n",
        "defaults : setSpeed {\n    00 = <event>;\n    01 = <float>;\n}\n",
        "timeline.addCheckpoint((0000003000)-[00:03:000])\n",
        "line : bogus\nDeclaration : bogus\n",
    };
    size_t from = 0;
    for (const char* line : lines) {
        size_t at = log.find(line, from);
        EXPECT_NE(at, std::string::npos) << line << "\nin\n" << log;
        if (at != std::string::npos) from = at;
    }
}

TEST(TimelineLanguageWithoutDefinitions, MethodCallsNeedTheDefinitions) {
    StartUpState state;
    TempDir dir;
    ParsedScript script(dir.write("s.txt", "{QLNDS1}\nintro * SpinEffect { speed = 1.0; }\n"
                                           "timeline { intro.start(00:01:000); intro.setSpeed(00:02:000, 2.5); }"),
                        false);
    ASSERT_TRUE(script.parser.isValid()) << script.parser.getErrorMessage();
    script.parseTimeline();
    EXPECT_EQ(script.parser.getErrorMessage(), "Timeline : method 'setSpeed' don't exist!");
    EXPECT_NE(QLNDemosys::timeline->toString().find("EventStartEffect"), std::string::npos);
}

}  // namespace
