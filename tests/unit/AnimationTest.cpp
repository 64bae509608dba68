// Keyframe files read from disk, playback along linear and Catmull-Rom paths, and the
// camera controller moving the shared camera.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "demosys/Animation.h"
#include "demosys/AnimationCameraController.h"
#include "demosys/AnimationObjectController.h"
#include "demosys/AnimationParser.h"
#include "demosys/DataAnimationPool.h"
#include "demosys/Keyframe.h"
#include "demosys/QLNDemosys.h"
#include "support/TestSupport.h"

using testsupport::captureStdout;
using testsupport::TempDir;

static const char* const twoKeyframes =
    "QLNANI1\n"
    "keyframes 2\n"
    "position 0 0 0\n"
    "angles 0 0\n"
    "position 10 20 -30\n"
    "angles 45 90\n";

static void expectPose(Animation& animation, float x, float y, float z, float pitch, float heading,
                       float tolerance = 1e-4f) {
    Vector<float, 3> position = animation.getPosition();
    EXPECT_NEAR(x, position[0], tolerance);
    EXPECT_NEAR(y, position[1], tolerance);
    EXPECT_NEAR(z, position[2], tolerance);
    EXPECT_NEAR(pitch, animation.getPitch(), tolerance);
    EXPECT_NEAR(heading, animation.getHeading(), tolerance);
}

static std::unique_ptr<Animation> parseText(const TempDir& dir, const std::string& text) {
    AnimationParser parser(dir.write("path.ani", text));
    std::unique_ptr<Animation> animation(parser.parse());
    EXPECT_TRUE(parser.isValid()) << parser.getErrorMessage();
    return animation;
}

TEST(AnimationParser, ReadsKeyframesInFileOrder) {
    TempDir dir;
    std::unique_ptr<Animation> animation = parseText(dir, twoKeyframes);
    ASSERT_TRUE(animation);
    ASSERT_EQ(2, animation->countKeyFrames());
    Keyframe* last = animation->getKeyFrame(1);
    EXPECT_EQ((Vector<float, 3>(10, 20, -30)), last->getPosition());
    EXPECT_EQ(45.0f, last->getPitch());
    EXPECT_EQ(90.0f, last->getHeading());
    EXPECT_EQ(nullptr, animation->getKeyFrame(2));
    EXPECT_EQ(nullptr, animation->getKeyFrame(-1));
}

TEST(AnimationParser, ReportsAMissingFileAndABadHeader) {
    TempDir dir;
    AnimationParser missing(dir.file("nothere.ani"));
    EXPECT_EQ(nullptr, missing.parse());
    EXPECT_FALSE(missing.isValid());
    EXPECT_EQ("Error while loading animation data\nFile '" + dir.file("nothere.ani") + "' not found!\n",
              missing.getErrorMessage());

    std::string path = dir.write("old.ani", "QLNANI0\nkeyframes 0\n");
    AnimationParser header(path);
    EXPECT_EQ(nullptr, header.parse());
    EXPECT_FALSE(header.isValid());
    EXPECT_EQ("Error while loading animation data\nFile : '" + path + "' have invalid header\n",
              header.getErrorMessage());

    AnimationParser empty(dir.write("empty.ani", ""));
    EXPECT_EQ(nullptr, empty.parse());
    EXPECT_FALSE(empty.isValid());
}

TEST(Animation, LinearPlaybackOnAnIntegralPointLandsOnTheFarKeyframe) {
    Animation animation;
    for (float x : {0.0f, 100.0f, 200.0f, 300.0f}) animation.addKeyframe(new Keyframe(Vector<float, 3>(x, 0, 0), x, 0));
    animation.next(0.5);  // x = 1.5: second segment, halfway
    expectPose(animation, 150, 0, 0, 150, 0);

    Animation three;
    for (float x : {0.0f, 10.0f, 20.0f}) three.addKeyframe(new Keyframe(Vector<float, 3>(x, 0, 0), 0, 0));
    three.next(0.5);  // x = 1.0 exactly: segment 1 at fraction 1, keyframe 2
    expectPose(three, 20, 0, 0, 0, 0);
}

TEST(Animation, CatmullRomRunsFromTheSecondToTheThirdOfFourKeyframes) {
    Animation animation;
    animation.setInterpolationType(1);
    animation.addKeyframe(new Keyframe(Vector<float, 3>(-10, 0, 0), 0, 0));
    animation.addKeyframe(new Keyframe(Vector<float, 3>(0, 1, 0), 10, 100));
    animation.addKeyframe(new Keyframe(Vector<float, 3>(10, 2, 0), 20, 200));
    animation.addKeyframe(new Keyframe(Vector<float, 3>(20, 3, 0), 30, 300));
    animation.next(0.0);
    expectPose(animation, 0, 1, 0, 10, 100);
    animation.next(0.5);  // points on a line, evenly spaced: the spline is linear there
    expectPose(animation, 5, 1.5f, 0, 15, 150);
    animation.next(0.99999);
    expectPose(animation, 10, 2, 0, 20, 200, 0.01f);
    EXPECT_EQ("OUT OF RANGE [0] -> 1\n", captureStdout([&] { animation.next(1.0); }));

    Animation three;
    three.setInterpolationType(1);
    for (int k = 0; k < 3; ++k) three.addKeyframe(new Keyframe());
    EXPECT_EQ("OUT OF RANGE [-1] -> 0\n", captureStdout([&] { three.next(0.5); }));
}

TEST(AnimationCameraController, MovesTheCameraBetweenItsStartAndEndTimes) {
    TempDir dir;
    std::unique_ptr<Animation> animation = parseText(dir, twoKeyframes);
    std::unique_ptr<AnimationCameraController> controller(animation->getCameraController());
    EXPECT_EQ(animation.get(), controller->getAnimation());
    controller->setStartTime(QLNTime(0, 10, 0));
    controller->setEndTime(12000u);

    Camera& camera = QLNDemosys::camera;
    camera.setPosition(Vector<float, 3>(7, 7, 7));
    camera.setPitch(7);
    camera.setHeading(7);
    controller->animate(9999);  // a millisecond early
    EXPECT_EQ((Vector<float, 3>(7, 7, 7)), camera.getPosition());
    EXPECT_EQ(7.0f, camera.getHeading());

    controller->animate(10000);
    EXPECT_EQ((Vector<float, 3>(0, 0, 0)), camera.getPosition());
    controller->animate(11000);
    EXPECT_EQ((Vector<float, 3>(5, 10, -15)), camera.getPosition());
    EXPECT_FLOAT_EQ(22.5f, camera.getPitch());
    EXPECT_FLOAT_EQ(45.0f, camera.getHeading());

    // At the end time it still acts: the path is past its last segment and keeps its pose.
    camera.setPosition(Vector<float, 3>(7, 7, 7));
    EXPECT_EQ("OUT OF RANGE 1\n", captureStdout([&] { controller->animate(12000); }));
    EXPECT_EQ((Vector<float, 3>(5, 10, -15)), camera.getPosition());
    camera.setPosition(Vector<float, 3>(7, 7, 7));
    controller->animate(12001);
    EXPECT_EQ((Vector<float, 3>(7, 7, 7)), camera.getPosition());

    AnimationCameraController unbound;
    unbound.setStartTime(0u);
    unbound.setEndTime(QLNTime(1000u));
    unbound.animate(500);
    EXPECT_EQ((Vector<float, 3>(7, 7, 7)), camera.getPosition());
    camera.reset();

    std::unique_ptr<AnimationObjectController> objects(animation->getObjectController());
    EXPECT_EQ(animation.get(), objects->getAnimation());
}
