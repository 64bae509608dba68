// Keyframe files: arbitrary bytes are written to a file, read by the parser, and a
// resulting animation is played back along both kinds of path.
#include <cstddef>
#include <cstdint>

#include "demosys/Animation.h"
#include "demosys/AnimationParser.h"
#include "fuzz/FuzzFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string path = fuzzFile("input.ani", data, size);
    AnimationParser parser(path);
    Animation* animation = parser.parse();
    if (animation) {
        // Stay inside the ranges that print nothing; the edges are covered by the unit tests.
        if (animation->countKeyFrames() >= 2)
            for (double t : {0.0, 0.25, 0.5, 0.999}) animation->next(t);
        if (animation->countKeyFrames() >= 4) {
            animation->setInterpolationType(Animation::CATMULL_ROM);
            for (double t : {0.0, 0.5, 0.999}) animation->next(t);
        }
        animation->toString();
        delete animation;
    }
    parser.getErrorMessage();
    return 0;
}
