// The timeline on a driven clock: events fire once each, in order, in the frame that
// reaches them; seeking replays the script; checkpoints and the text forms.
#include <gtest/gtest.h>

#include "unit/EngineFixture.h"

using testsupport::captureStdout;
using Log = std::vector<std::string>;

class TimelineTest : public EngineFixture {};

TEST_F(TimelineTest, EventsFireOnceEachInTheFrameThatReachesThem) {
    addEffect("intro");
    addEffect("logo");
    schedule<EventStartEffect>(0, group({{"object", "intro"}}));
    schedule<EventStartEffect>(1000, group({{"object", "logo"}, {"p2", "7"}}));
    schedule<EventModifyEffect>(1000, group({{"object", "intro"}, {"method", "fadeUp"}}));
    schedule<EventStopEffect>(2000, group({{"object", "intro"}}));
    timeline->init();

    frame(0);  // an event at time 0 fires on the first frame
    EXPECT_EQ((Log{"draw intro 0"}), log);
    log.clear();
    frame(999);
    frame(999);
    EXPECT_EQ((Log{"draw intro 999", "draw intro 999"}), log);
    log.clear();
    frame(1000);  // exactly at the frame's time: fires now, both in the order added
    EXPECT_EQ((Log{"modify intro fadeUp 1000", "draw logo 1000", "draw intro 1000"}), log);
    log.clear();
    frame(1999);
    frame(2000);
    frame(2016);
    EXPECT_EQ((Log{"draw logo 1999", "draw intro 1999", "draw logo 2000", "draw logo 2016"}), log);
}

TEST_F(TimelineTest, AnEventOneMillisecondAfterTheFrameWaitsForTheNextFrame) {
    addEffect("late");
    schedule<EventStartEffect>(501, group({{"object", "late"}}));
    timeline->init();
    frame(500);
    EXPECT_EQ(0, action.countEffects());
    frame(517);
    EXPECT_EQ(1, action.countEffects());
}

TEST_F(TimelineTest, EventsOfTheSameTimeFireInTheOrderTheyWereAdded) {
    addEffect("fx");
    for (const char* method : {"first", "second", "third"})
        schedule<EventModifyEffect>(300, group({{"object", "fx"}, {"method", method}}));
    schedule<EventModifyEffect>(100, group({{"object", "fx"}, {"method", "earlier"}}));
    timeline->init();
    frame(400);
    EXPECT_EQ((Log{"modify fx earlier 100", "modify fx first 300", "modify fx second 300", "modify fx third 300"}), log);
    frame(800);
    EXPECT_EQ(4u, log.size());
}

TEST_F(TimelineTest, MovingToATimeReplaysEveryEventUpToItAtOnce) {
    addEffect("a");
    addEffect("b");
    addEffect("c");
    schedule<EventStartEffect>(0, group({{"object", "a"}}));
    schedule<EventStopEffect>(10000, group({{"object", "a"}}));
    schedule<EventStartEffect>(20000, group({{"object", "b"}}));
    schedule<EventModifyEffect>(60400, group({{"object", "b"}, {"method", "m"}}));
    schedule<EventStartEffect>(70000, group({{"object", "c"}}));
    timeline->init();
    frame(0);
    QLNDemosys::updateTime(500);

    timeline->moveTo(60000);
    EXPECT_EQ(60000u, timeline->getOffset());
    EXPECT_EQ(60500u, QLNDemosys::getMillisecondsElapsed());
    EXPECT_EQ("ActionPool {\n    Effects:\n        050_b - Effect\n    AliasTable:\n        b - 050_b\n}\n",
              action.toString());
    EXPECT_EQ((Log{"draw a 0", "modify b m 60400"}), log);

    log.clear();
    frame(9999);
    frame(10000);  // demo time 70000
    EXPECT_EQ((Log{"draw b 69999", "draw b 70000", "draw c 70000"}), log);

    // Back again: the script is replayed from the start up to the new position.
    log.clear();
    action.removeAll();
    timeline->moveTo(15000);  // demo time 25000
    EXPECT_EQ("ActionPool {\n    Effects:\n        050_b - Effect\n    AliasTable:\n        b - 050_b\n}\n",
              action.toString());
    EXPECT_TRUE(log.empty());
}

TEST_F(TimelineTest, AnEmptyScriptFiresNothing) {
    timeline->init();
    frame(0);
    frame(100000);
    timeline->moveTo(5000);
    EXPECT_EQ(0, action.countEffects());
    EXPECT_EQ("", timeline->toString());
}

TEST_F(TimelineTest, CheckpointsAreKeptInTimeOrder) {
    EXPECT_EQ(0, timeline->countCheckpoints());
    EXPECT_EQ(nullptr, timeline->getCheckpoint(0));
    QLNTime* late = new QLNTime(2, 0, 0);
    QLNTime* early = new QLNTime(0, 30, 0);
    timeline->addCheckpoint(late);
    timeline->addCheckpoint(early);
    EXPECT_EQ(2, timeline->countCheckpoints());
    EXPECT_EQ(early, timeline->getCheckpoint(0));
    EXPECT_EQ(late, timeline->getCheckpoint(1));
    EXPECT_EQ(nullptr, timeline->getCheckpoint(timeline->countCheckpoints()));

    QLNTime same(0, 0, 30000);  // other parts, same ticks
    QLNTime other(0, 30, 1);
    EXPECT_TRUE(timeline->checpointExists(&same));
    EXPECT_FALSE(timeline->checpointExists(&other));

    QLNTime* replacement = new QLNTime(0, 0, 120000);
    timeline->addCheckpoint(replacement);
    EXPECT_EQ(2, timeline->countCheckpoints());
    EXPECT_EQ(replacement, timeline->getCheckpoint(1));
}

TEST_F(TimelineTest, TextFormListsTheEventsByTime) {
    schedule<EventStopEffect>(61500, group({{"object", "x"}}));
    schedule<EventStartEffect>(10000, group({{"object", "x"}, {"p1", "00:10:000"}}));
    EXPECT_EQ(
        "(0000010000)-[00:10:000] = EventStartEffect {\n"
        "parameters {\n"
        "    object = x;\n"
        "    p1 = 00:10:000;\n"
        "}\n"
        "}\n"
        "(0000061500)-[01:01:500] = EventStopEffect {  }\n",
        timeline->toString());
}

TEST(Timeline, DisposalSaysWhatItDeletes) {
    Timeline* timeline = new Timeline();
    timeline->addEvent(5, new EventStopEffect(new QLNTime(5)));
    timeline->addEvent(7, new EventModifyEffect(new QLNTime(7)));
    timeline->addCheckpoint(new QLNTime(9));
    timeline->init();
    EXPECT_EQ("[Disposing Timeline Events]\n[Disposing Timeline Checkpoints]\n",
              captureStdout([&] { delete timeline; }));
}
