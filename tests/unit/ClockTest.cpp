// The demo clock driven with chosen ticks: elapsed time, the seek offset, pausing, the
// frame rate and the tick source; plus the small services of the shared state.
#include <gtest/gtest.h>

#include <vector>

#include "demosys/Binary.h"
#include "demosys/QLNDemosys.h"
#include "unit/EngineFixture.h"

using testsupport::captureStdout;

class ClockTest : public EngineFixture {
protected:
    void TearDown() override {
        QLNDemosys::setTickSource(nullptr);
        EngineFixture::TearDown();
    }
    static unsigned int fixedTicks;
    static unsigned int readFixedTicks() { return fixedTicks; }
};
unsigned int ClockTest::fixedTicks = 0;

TEST_F(ClockTest, ElapsedTimeRunsFromTheStartTickAndIncludesTheSeekOffset) {
    fixedTicks = 123456;
    QLNDemosys::setTickSource(&readFixedTicks);
    EXPECT_EQ(123456u, QLNDemosys::getTicks());
    QLNDemosys::setStartTime(999);  // the argument is ignored: now is the start
    EXPECT_EQ(123456u, QLNDemosys::getStartTime());

    QLNDemosys::updateTime(123456);
    EXPECT_EQ(0u, QLNDemosys::getMillisecondsElapsed());
    QLNDemosys::updateTime(125456);
    EXPECT_EQ(2000u, QLNDemosys::getMillisecondsElapsed());

    timeline->setOffset(60000);
    EXPECT_EQ(62000u, QLNDemosys::getMillisecondsElapsed());
}

TEST_F(ClockTest, ElapsedTimeStandsStillWhilePaused) {
    QLNDemosys::startTime = 1000;
    QLNDemosys::updateTime(3000);
    EXPECT_EQ(2000u, QLNDemosys::getMillisecondsElapsed());
    captureStdout([] { QLNDemosys::stopTimer(); });  // no music loaded: the sound side has nothing to stop
    EXPECT_TRUE(QLNDemosys::pause);
    for (unsigned int now : {3016u, 3500u, 9000u}) {
        QLNDemosys::updateTime(now);
        EXPECT_EQ(2000u, QLNDemosys::getMillisecondsElapsed());
    }
    captureStdout([] { QLNDemosys::startTimer(); });
    EXPECT_FALSE(QLNDemosys::pause);
    QLNDemosys::updateTime(9100);
    EXPECT_EQ(2100u, QLNDemosys::getMillisecondsElapsed());
}

TEST_F(ClockTest, AnOffsetThatWrapsTheStartPinsTheClockToTheOffset) {
    QLNDemosys::startTime = 4294967000u;
    QLNDemosys::updateTime(4294967200u);
    timeline->setOffset(1000);  // start + offset wraps past 32 bits
    EXPECT_EQ(1000u, QLNDemosys::getMillisecondsElapsed());
    EXPECT_EQ(4294967000u, QLNDemosys::currentTime);
}

TEST_F(ClockTest, FramesPerSecondCountWallTimeOnly) {
    EXPECT_EQ(0.0f, QLNDemosys::getFPS());  // no time yet: no division by zero
    QLNDemosys::updateTime(2000);
    QLNDemosys::frames = 120;
    EXPECT_FLOAT_EQ(60.0f, QLNDemosys::getFPS());
    timeline->setOffset(30000);  // after a seek the jump is not drawing time
    EXPECT_FLOAT_EQ(60.0f, QLNDemosys::getFPS());
    QLNDemosys::updateTime(0);
    EXPECT_EQ(0.0f, QLNDemosys::getFPS());
}

TEST_F(ClockTest, ClockWorksWithoutATimeline) {
    QLNDemosys::timeline = nullptr;
    QLNDemosys::updateTime(250);
    EXPECT_EQ(250u, QLNDemosys::getMillisecondsElapsed());
    QLNDemosys::timeline = timeline;
}

TEST(SystemServices, MessagesAndTheQuitFlag) {
    EXPECT_EQ("Loading failed\n", captureStdout([] { QLNDemosys::showMessage("Loading failed"); }));
    EXPECT_EQ("", captureStdout([] { QLNDemosys::showMessage(); }));
    QLNDemosys::message = "Error while loading animation data\n";
    EXPECT_EQ("Error while loading animation data\n", QLNDemosys::getMessage());
    QLNDemosys::message.clear();

    EXPECT_FALSE(QLNDemosys::checkQuit());
    QLNDemosys::setQuit(true);
    EXPECT_TRUE(QLNDemosys::checkQuit());
    QLNDemosys::setQuit(false);
}

TEST(SystemServices, LoadBinaryReadsTheWholeFileOrGivesNull) {
    testsupport::TempDir dir;
    std::string bytes("\x00\x80\xff\x01", 4);
    std::string path = dir.write("data/blob.bin", bytes);
    Binary* blob = QLNDemosys::loadBinary(path);
    ASSERT_NE(nullptr, blob);
    EXPECT_EQ(4u, blob->size());
    EXPECT_EQ(0x80, blob->getData(1));
    EXPECT_EQ(0xff, blob->getData(2));
    delete blob;

    EXPECT_EQ(nullptr, QLNDemosys::loadBinary(dir.file("missing.bin")));
}
