#pragma once
// Reads a keyframe file ("QLNANI1") into an Animation:
//   QLNANI1
//   <label> <count>
//   <label> <x> <y> <z>          once per keyframe, followed by
//   <label> <pitch> <heading>
#include <string>

class Animation;

class AnimationParser {
public:
    explicit AnimationParser(std::string filename);
    // A new animation owned by the caller, or null (see getErrorMessage()).
    Animation* parse();
    bool isValid();
    std::string getErrorMessage();
    void loadFile(std::string filename);

private:
    Animation* animation;
    std::string filename;
    std::string content;
    std::string errorMessage;
    bool valid;
};
