// Keyframe files: arbitrary bytes are written to a file, read by the parser, and a
// resulting animation is played back along both kinds of path.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string>
#include <unistd.h>

#include "demosys/Animation.h"
#include "demosys/AnimationParser.h"

static std::string scratchFile() {
    static std::string path = "/tmp/fuzz_animation_" + std::to_string(getpid()) + ".ani";
    return path;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string path = scratchFile();
    {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
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
    std::remove(path.c_str());
    return 0;
}
