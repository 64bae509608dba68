#pragma once
// A keyframe path that yields the pose at any point t in [0, 1) of its run, by linear or
// Catmull-Rom interpolation.
#include <string>
#include <vector>

#include "demosys/Vector.h"

class Keyframe;
class AnimationCameraController;
class AnimationObjectController;

class Animation {
public:
    static const int LINEAR = 0;
    static const int CATMULL_ROM = 1;

    Animation();
    ~Animation();
    Animation(const Animation&) = delete;
    Animation& operator=(const Animation&) = delete;

    // The animation owns its keyframes.
    void addKeyframe(Keyframe* keyframe);
    // Null outside 0..count-1.
    Keyframe* getKeyFrame(int index);
    int countKeyFrames();
    void setInterpolationType(int type);
    Vector<float, 3> getPosition();
    float getPitch();
    float getHeading();

    // Moves the pose to point t of the run; out of range only prints and keeps the pose.
    void next(double t);
    void interpolateLinear(Keyframe* a, Keyframe* b, double s);
    // The uniform Catmull-Rom spline through p1 and p2.
    void interpolateCatmull(Keyframe* p0, Keyframe* p1, Keyframe* p2, Keyframe* p3, float s);

    // New controllers bound to this animation; the caller owns them.
    AnimationCameraController* getCameraController();
    AnimationObjectController* getObjectController();

    std::string toString();
    void print();
    // Debug drawings of the path: the keyframes joined by lines, and the spline.
    void draw();
    void drawCatmul();

private:
    void nextLinear(double t);
    void nextCatmull(double t);

    std::vector<Keyframe*> keyframes;
    Vector<float, 3> position;
    float pitch;
    float heading;
    int interpolationType;
};
