// maketextures FOLDER: paints every texture of the demo (except the font) into the folder.
#include <iostream>

#include "tools/TextureSet.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: maketextures folder\n";
        return 2;
    }
    std::string error;
    if (!qlntools::TextureSet::write(argv[1], error)) {
        std::cerr << "maketextures: " << error << "\n";
        return 1;
    }
    return 0;
}
