// The three timeline events acting on the real effect pool and running-effects set.
#include <gtest/gtest.h>

#include "demosys/DataFBOPool.h"
#include "unit/EngineFixture.h"

using testsupport::captureStdout;
using Log = std::vector<std::string>;

class EventTest : public EngineFixture {};

TEST_F(EventTest, StartPutsTheEffectInLayer50OrInTheLayerOfItsSecondArgument) {
    addEffect("back");
    addEffect("front");
    addEffect("plain");
    EventStartEffect plain(new QLNTime(1000), group({{"object", "plain"}, {"p1", "00:01:000"}}));
    EventStartEffect front(new QLNTime(2000), group({{"object", "front"}, {"p1", "00:02:000"}, {"p2", "7"}}));
    EventStartEffect back(new QLNTime(3000), group({{"object", "back"}, {"p1", "00:03:000"}, {"p2", "90"}}));
    plain.execute();
    front.execute();
    back.execute();
    action.execute(4000);
    EXPECT_EQ((Log{"draw front 4000", "draw plain 4000", "draw back 4000"}), log);
    EXPECT_NE(std::string::npos, action.toString().find("        plain - 050_plain\n"));
}

TEST_F(EventTest, StartRecordsTheScheduledTimeNotTheFrameTime) {
    RecordingEffect* intro = addEffect("intro");
    EventStartEffect start(new QLNTime(0, 10, 0), group({{"object", "intro"}, {"p1", "00:10:000"}}));
    QLNDemosys::updateTime(10016);
    start.execute();
    EXPECT_EQ(10000u, intro->startedAt());
}

TEST_F(EventTest, StartWithAnUnknownFramebufferNameDrawsToTheScreen) {
    data->addData("fboPool", new DataFBOPool());
    RecordingEffect* effect = addEffect("fx");
    EventStartEffect start(new QLNTime(0), group({{"object", "fx"}, {"p1", "00:00:000"}, {"p3", "nosuchfbo"}}));
    std::string said = captureStdout([&] { start.execute(); });
    EXPECT_EQ("", said);
    EXPECT_EQ(nullptr, effect->target());
    EXPECT_EQ(1, action.countEffects());
}

TEST_F(EventTest, StoppingAnEffectThatIsNotRunningPrintsBothLines) {
    addEffect("intro");
    EventStopEffect stop(new QLNTime(0, 2, 500), group({{"object", "intro"}, {"p1", "00:02:500"}}));
    std::string said = captureStdout([&] { stop.execute(); });
    EXPECT_EQ(
        "ERROR: ActionPool - error removing 'intro' from ActonPool\n"
        "EventStop : failed to remove effect from actionpool : (0000002500)-[00:02:500] : StopEffect(\n"
        "parameters {\n"
        "    object = intro;\n"
        "    p1 = 00:02:500;\n"
        "}\n"
        ")\n",
        said);

    EventStartEffect start(new QLNTime(0, 1, 0), group({{"object", "intro"}, {"p1", "00:01:000"}}));
    start.execute();
    said = captureStdout([&] { stop.execute(); });
    EXPECT_EQ("", said);
    EXPECT_EQ(0, action.countEffects());
}

TEST_F(EventTest, ModifyCallsTheMethodWithTheWholeGroupAndStampsTheModifyTime) {
    RecordingEffect* intro = addEffect("intro");
    ParameterGroup* parameters = group({{"object", "intro"}, {"method", "fadeUp"}, {"p1", "00:05:000"}, {"p2", "0.5"}});
    EventModifyEffect modify(new QLNTime(5000), parameters);
    EXPECT_EQ("fadeUp", modify.getMethod());
    modify.execute();
    EXPECT_EQ((Log{"modify intro fadeUp 5000"}), log);
    EXPECT_EQ(parameters, intro->lastModifyGroup);
    EXPECT_EQ(2000u, intro->getModifyTicks(7000));
}

TEST_F(EventTest, PrototypesCloneEmptyEventsThatResolveWhenGivenParameters) {
    addEffect("intro");
    EventStartEffect startPrototype;
    EventStopEffect stopPrototype;
    EventModifyEffect modifyPrototype;
    Event base;
    EXPECT_EQ(nullptr, base.getInstance());
    EXPECT_EQ(nullptr, base.getTime());
    EXPECT_EQ(nullptr, base.getParameters());
    EXPECT_EQ("Event {...}", base.toString());

    Event* start = startPrototype.getInstance();
    Event* stop = stopPrototype.getInstance();
    Event* modify = modifyPrototype.getInstance();
    EXPECT_EQ("EventStartEffect {  }\n", start->toString());
    EXPECT_EQ("EventStopEffect {  }\n", stop->toString());
    EXPECT_EQ("EventModifyEffect {  }\n", modify->toString());
    EXPECT_EQ("<method>", dynamic_cast<EventModifyEffect*>(modify)->getMethod());

    start->setTime(new QLNTime(100));
    start->setParameters(group({{"object", "intro"}, {"p1", "00:00:100"}, {"p2", "3"}}));
    modify->setTime(new QLNTime(200));
    modify->setParameters(group({{"object", "intro"}, {"method", "flash"}}));
    stop->setTime(new QLNTime(300));
    stop->setParameters(group({{"object", "intro"}}));
    EXPECT_EQ(100u, start->getTime()->getTicks());
    EXPECT_EQ("EventStartEffect {\nparameters {\n    object = intro;\n    p1 = 00:00:100;\n    p2 = 3;\n}\n}\n",
              start->toString());
    EXPECT_EQ("EventModifyEffect {\nparameters {\n    method = flash;\n    object = intro;\n}\n}\n", modify->toString());
    EXPECT_EQ("EventStopEffect {  }\n", stop->toString());

    start->execute();
    modify->execute();
    action.execute(250);
    EXPECT_NE(std::string::npos, action.toString().find("003_intro"));
    stop->execute();
    EXPECT_EQ(0, action.countEffects());
    EXPECT_EQ((Log{"modify intro flash 200", "draw intro 250"}), log);
    delete start;
    delete stop;
    delete modify;
}

TEST_F(EventTest, AnEffectNameThePoolDoesNotKnowStartsNothing) {
    EventStartEffect start(new QLNTime(0), group({{"object", "ghost"}}));
    EventModifyEffect modify(new QLNTime(0), group({{"object", "ghost"}, {"method", "boo"}}));
    start.execute();
    modify.execute();
    EXPECT_EQ(0, action.countEffects());
    // The pool's subscript lookup entered the name.
    EXPECT_TRUE(effectPool->exist("ghost"));
    EXPECT_EQ(nullptr, effectPool->getEffect("ghost"));
}
