// objconvert IN.obj OUT.qlo: converts a Wavefront OBJ model into the engine's object file.
#include <iostream>
#include <vector>

#include "tools/ObjConverter.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: objconvert input.obj output.qlo\n";
        return 2;
    }
    std::string error;
    std::vector<std::string> warnings;
    bool ok = qlntools::ObjConverter::convertFile(argv[1], argv[2], error, &warnings);
    for (const std::string& w : warnings) std::cerr << "objconvert: " << argv[1] << ": warning: " << w << "\n";
    if (!ok) {
        std::cerr << "objconvert: " << error << "\n";
        return 1;
    }
    return 0;
}
