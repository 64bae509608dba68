// The set of running effects: drawing order by layer and name, removal, and the frame
// step each effect sees.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "demosys/ActionPool.h"
#include "support/TestSupport.h"
#include "unit/RecordingEffect.h"

using testsupport::captureStdout;
using Log = std::vector<std::string>;

TEST(ActionPool, DrawsByLayerThenByteOrderOfNamesAndDropsLayersOutOfRange) {
    Log log;
    RecordingEffect late(&log, "late"), early(&log, "early"), lower(&log, "a"), upper(&log, "B"), top(&log, "top"),
        over(&log, "over"), negative(&log, "negative");
    ActionPool pool;
    pool.addEffect("late", &late, 12);
    pool.addEffect("early", &early, 7);
    pool.addEffect("a", &lower, 50);
    pool.addEffect("B", &upper, 50);
    pool.addEffect("top", &top, 100);
    std::string said = captureStdout([&] {
        pool.addEffect("over", &over, 101);
        pool.addEffect("negative", &negative, -1);
    });
    EXPECT_EQ("", said);
    EXPECT_EQ(5, pool.countEffects());

    pool.execute(40);
    EXPECT_EQ((Log{"draw early 40", "draw late 40", "draw B 40", "draw a 40", "draw top 40"}), log);
    EXPECT_EQ(
        "ActionPool {\n"
        "    Effects:\n"
        "        007_early - Effect\n"
        "        012_late - Effect\n"
        "        050_B - Effect\n"
        "        050_a - Effect\n"
        "        100_top - Effect\n"
        "    AliasTable:\n"
        "        B - 050_B\n"
        "        a - 050_a\n"
        "        early - 007_early\n"
        "        late - 012_late\n"
        "        top - 100_top\n"
        "}\n",
        pool.toString());
}

TEST(ActionPool, RemovingPrintsAnErrorForNamesThatAreNotRunning) {
    Log log;
    RecordingEffect logo(&log, "logo");
    ActionPool pool;
    pool.addEffect("logo", &logo, 5);

    bool removed = false;
    std::string said = captureStdout([&] { removed = pool.removeEffect("ghost"); });
    EXPECT_FALSE(removed);
    EXPECT_EQ("ERROR: ActionPool - error removing 'ghost' from ActonPool\n", said);

    said = captureStdout([&] { removed = pool.removeEffect("logo"); });
    EXPECT_TRUE(removed);
    EXPECT_EQ("", said);
    EXPECT_EQ(0, pool.countEffects());
    pool.execute(10);
    EXPECT_TRUE(log.empty());

    said = captureStdout([&] { removed = pool.removeEffect("logo"); });
    EXPECT_FALSE(removed);
    EXPECT_EQ("ERROR: ActionPool - error removing 'logo' from ActonPool\n", said);
}

TEST(ActionPool, StartingAgainInAnotherLayerDrawsTwiceAndRemovalTakesOnlyTheNewerEntry) {
    Log log;
    RecordingEffect twice(&log, "twice");
    ActionPool pool;
    pool.addEffect("twice", &twice, 10);
    pool.addEffect("twice", &twice, 10);  // same key: overwritten
    EXPECT_EQ(1, pool.countEffects());
    pool.addEffect("twice", &twice, 20);
    EXPECT_EQ(2, pool.countEffects());
    pool.execute(1);
    EXPECT_EQ((Log{"draw twice 1", "draw twice 1"}), log);

    EXPECT_TRUE(pool.removeEffect("twice"));
    log.clear();
    pool.execute(2);
    EXPECT_EQ((Log{"draw twice 2"}), log);
    EXPECT_NE(std::string::npos, pool.toString().find("010_twice - Effect"));
    bool removed = true;
    captureStdout([&] { removed = pool.removeEffect("twice"); });
    EXPECT_FALSE(removed);
}

TEST(ActionPool, RemoveAllForgetsTheEffectsWithoutDeletingThem) {
    Log log;
    RecordingEffect* owned = new RecordingEffect(&log, "kept");
    ActionPool pool;
    pool.addEffect("kept", owned, 1);
    pool.removeAll();
    EXPECT_EQ(0, pool.countEffects());
    EXPECT_EQ("ActionPool {\n    Effects:\n    AliasTable:\n}\n", pool.toString());
    owned->draw(3);  // still alive: the pool owns nothing
    EXPECT_EQ((Log{"draw kept 3"}), log);
    delete owned;
}

TEST(ActionPool, EachDrawSeesTheStepSinceItsPreviousFrame) {
    RecordingEffect effect;
    ActionPool pool;
    pool.addEffect("effect", &effect, 50);
    pool.execute(5000);
    EXPECT_EQ(16u, effect.lastStep);  // first frame: nothing drawn before
    pool.execute(5020);
    EXPECT_EQ(20u, effect.lastStep);
    pool.execute(6020);
    EXPECT_EQ(1000u, effect.lastStep);  // exactly a second still counts
    pool.execute(7021);
    EXPECT_EQ(16u, effect.lastStep);  // a jump
}

TEST(Effect, FrameAndModifyTimesFollowTheirThresholds) {
    Effect effect;
    EXPECT_EQ(16u, effect.getFrameTicks(5000));
    EXPECT_FLOAT_EQ(16.0f, effect.getFrameTime(5000));
    EXPECT_EQ(1000u, effect.getFrameTicks(1000));
    EXPECT_FLOAT_EQ(1000.0f, effect.getFrameTime(1000));
    effect.setLastCalled(2000);
    EXPECT_EQ(16u, effect.getFrameTicks(1000));  // backwards wraps to a huge step
    EXPECT_EQ(33u, effect.getFrameTicks(2033));
    EXPECT_FLOAT_EQ(33.0f, effect.getFrameTime(2033));

    effect.setModifyTime(3000);
    EXPECT_EQ(2500u, effect.getModifyTicks(5500));
    EXPECT_FLOAT_EQ(2500.0f, effect.getModifyTime(5500));
    EXPECT_EQ(4294967295u, effect.getModifyTicks(2999));  // no clamping
    EXPECT_FLOAT_EQ(4294967295.0f, effect.getModifyTime(2999));
}

TEST(Effect, BaseClassSaysWhenItsFallbacksAreCalledAndClonesItself) {
    Effect effect;
    EXPECT_EQ("Fallback draw method! This should never happen!\n", captureStdout([&] { effect.draw(0); }));
    EXPECT_EQ("Fallback music event method called! This should never happen!\n",
              captureStdout([&] { effect.musicEvent(); }));
    EXPECT_EQ("", captureStdout([&] {
                  effect.init();
                  effect.reset();
                  effect.modify("anything", nullptr);
              }));
    EXPECT_EQ(nullptr, effect.getRenderTarget());

    Effect* clone = effect.getInstance();
    ASSERT_NE(nullptr, clone);
    EXPECT_NE(&effect, clone);
    delete clone;

    Log log;
    RecordingEffect prototype(&log, "proto");
    Effect* instance = prototype.getInstance();
    ASSERT_NE(nullptr, dynamic_cast<RecordingEffect*>(instance));
    instance->draw(7);
    EXPECT_EQ((Log{"draw proto 7"}), log);
    delete instance;
}
