#include "demosys/AnimationParser.h"

#include "demosys/Animation.h"
#include "demosys/Keyframe.h"
#include "qlnutils/QLNUtils.h"

static const char* const magic = "QLNANI1";
static const char* const errorTitle = "Error while loading animation data\n";

// Keyframes past the end of the file read as empty tokens. A count far beyond the lines
// present would only allocate such empty keyframes, so their number is bounded.
static const int maxMissingKeyframes = 65536;

AnimationParser::AnimationParser(std::string filename) : animation(nullptr), valid(true) { loadFile(filename); }

void AnimationParser::loadFile(std::string name) {
    filename = name;
    File file(name, File::READ);
    if (!file.exists()) {
        valid = false;
        errorMessage = std::string(errorTitle) + "File '" + name + "' not found!\n";
        content.clear();
        return;
    }
    content = file.getAsString();
}

Animation* AnimationParser::parse() {
    animation = nullptr;
    if (!valid) return nullptr;

    StringTokenizer lines(content, "\n");
    if (StringUtils::trim(lines.getNext()) != magic) {
        valid = false;
        errorMessage = std::string(errorTitle) + "File : '" + filename + "' have invalid header\n";
        return nullptr;
    }

    StringTokenizer header(lines.getNext(), " ");
    header.getNext();  // label
    int count = QLNUtils::string2Int(header.getNext());

    int present = (lines.countTokens() - 2 + 1) / 2;
    if (count > present + maxMissingKeyframes) count = present + maxMissingKeyframes;

    animation = new Animation();
    for (int k = 0; k < count; ++k) {
        StringTokenizer positionLine(lines.getNext(), " ");
        positionLine.getNext();  // label
        float x = QLNUtils::string2Float(positionLine.getNext());
        float y = QLNUtils::string2Float(positionLine.getNext());
        float z = QLNUtils::string2Float(positionLine.getNext());
        StringTokenizer angleLine(lines.getNext(), " ");
        angleLine.getNext();  // label
        float pitch = QLNUtils::string2Float(angleLine.getNext());
        float heading = QLNUtils::string2Float(angleLine.getNext());
        animation->addKeyframe(new Keyframe(Vector<float, 3>(x, y, z), pitch, heading));
    }
    return animation;
}

bool AnimationParser::isValid() { return valid; }

std::string AnimationParser::getErrorMessage() { return errorMessage; }
