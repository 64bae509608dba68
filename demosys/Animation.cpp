#include "demosys/Animation.h"

#include <GL/glew.h>

#include <climits>
#include <cmath>
#include <iostream>

#include "demosys/AnimationCameraController.h"
#include "demosys/AnimationObjectController.h"
#include "demosys/Keyframe.h"
#include "qlnutils/QLNUtils.h"

Animation::Animation() : pitch(0.0f), heading(0.0f), interpolationType(LINEAR) {}

Animation::~Animation() {
    for (Keyframe* keyframe : keyframes) delete keyframe;
}

void Animation::addKeyframe(Keyframe* keyframe) { keyframes.push_back(keyframe); }

Keyframe* Animation::getKeyFrame(int index) {
    if (index < 0 || index >= countKeyFrames()) return nullptr;
    return keyframes[index];
}

int Animation::countKeyFrames() { return static_cast<int>(keyframes.size()); }

void Animation::setInterpolationType(int type) { interpolationType = type; }

Vector<float, 3> Animation::getPosition() { return position; }
float Animation::getPitch() { return pitch; }
float Animation::getHeading() { return heading; }

// The segment index as printed in the range messages; NaN and huge values cannot be ints.
static int printableIndex(double index) {
    if (std::isnan(index)) return 0;
    if (index <= INT_MIN) return INT_MIN;
    if (index >= INT_MAX) return INT_MAX;
    return static_cast<int>(index);
}

// The position within a segment. It stops at exactly 1.0, so an integral point past the
// first segment lands on the segment's far keyframe.
static double segmentFraction(double x) {
    while (x > 1.0) x -= 1.0;
    return x;
}

void Animation::next(double t) {
    if (interpolationType == CATMULL_ROM)
        nextCatmull(t);
    else
        nextLinear(t);
}

void Animation::nextLinear(double t) {
    int last = countKeyFrames() - 1;
    double x = last * t;
    double segment = std::floor(x);
    if (!(segment >= 0.0 && segment < last)) {
        std::cout << "OUT OF RANGE " << printableIndex(segment) << std::endl;
        return;
    }
    int i = static_cast<int>(segment);
    interpolateLinear(keyframes[i], keyframes[i + 1], segmentFraction(x));
}

void Animation::nextCatmull(double t) {
    int count = countKeyFrames();
    double x = (count - 3) * t;
    double segment = std::floor(x);
    if (!(segment >= 0.0 && segment <= count - 4)) {
        std::cout << "OUT OF RANGE [" << count - 4 << "] -> " << printableIndex(segment) << std::endl;
        return;
    }
    int i = static_cast<int>(segment);
    interpolateCatmull(keyframes[i], keyframes[i + 1], keyframes[i + 2], keyframes[i + 3],
                       static_cast<float>(segmentFraction(x)));
}

void Animation::interpolateLinear(Keyframe* a, Keyframe* b, double s) {
    Vector<float, 3> from = a->getPosition();
    Vector<float, 3> to = b->getPosition();
    for (int c = 0; c < 3; ++c) position[c] = static_cast<float>(from[c] * (1.0 - s) + to[c] * s);
    pitch = static_cast<float>(a->getPitch() + (b->getPitch() - a->getPitch()) * s);
    heading = static_cast<float>(a->getHeading() + (b->getHeading() - a->getHeading()) * s);
}

static float catmull(float v0, float v1, float v2, float v3, float s) {
    float s2 = s * s;
    float s3 = s2 * s;
    float w0 = 2.0f * s2 - s3 - s;
    float w1 = 3.0f * s3 - 5.0f * s2 + 2.0f;
    float w2 = s + 4.0f * s2 - 3.0f * s3;
    float w3 = s3 - s2;
    return 0.5f * (w0 * v0 + w1 * v1 + w2 * v2 + w3 * v3);
}

static Vector<float, 3> catmullPosition(Keyframe* p0, Keyframe* p1, Keyframe* p2, Keyframe* p3, float s) {
    Vector<float, 3> a = p0->getPosition(), b = p1->getPosition(), c = p2->getPosition(), d = p3->getPosition();
    Vector<float, 3> result;
    for (int k = 0; k < 3; ++k) result[k] = catmull(a[k], b[k], c[k], d[k], s);
    return result;
}

void Animation::interpolateCatmull(Keyframe* p0, Keyframe* p1, Keyframe* p2, Keyframe* p3, float s) {
    position = catmullPosition(p0, p1, p2, p3, s);
    pitch = catmull(p0->getPitch(), p1->getPitch(), p2->getPitch(), p3->getPitch(), s);
    heading = catmull(p0->getHeading(), p1->getHeading(), p2->getHeading(), p3->getHeading(), s);
}

AnimationCameraController* Animation::getCameraController() {
    AnimationCameraController* controller = new AnimationCameraController();
    controller->setAnimation(this);
    return controller;
}

AnimationObjectController* Animation::getObjectController() {
    AnimationObjectController* controller = new AnimationObjectController();
    controller->setAnimation(this);
    return controller;
}

std::string Animation::toString() {
    return "Animation {\n    keyframes = " + QLNUtils::int2string(countKeyFrames()) +
           "\n    interpolation = " + (interpolationType == CATMULL_ROM ? "catmull-rom" : "linear") + "\n}\n";
}

void Animation::print() {
    std::cout << toString();
    for (Keyframe* keyframe : keyframes) keyframe->print();
}

void Animation::draw() {
    glBegin(GL_LINE_STRIP);
    for (Keyframe* keyframe : keyframes) glVertex3fv(keyframe->getPosition().data());
    glEnd();
    glBegin(GL_POINTS);
    for (Keyframe* keyframe : keyframes) glVertex3fv(keyframe->getPosition().data());
    glEnd();
}

void Animation::drawCatmul() {
    static const int stepsPerSegment = 20;
    glBegin(GL_LINE_STRIP);
    for (int i = 0; i + 3 < countKeyFrames(); ++i) {
        for (int step = 0; step <= stepsPerSegment; ++step) {
            float s = static_cast<float>(step) / stepsPerSegment;
            Vector<float, 3> point = catmullPosition(keyframes[i], keyframes[i + 1], keyframes[i + 2], keyframes[i + 3], s);
            glVertex3fv(point.data());
        }
    }
    glEnd();
}
