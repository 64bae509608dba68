// makefont OUT.png: draws the text writer's font image (17 × 4 glyph cells).
#include <iostream>

#include "tools/FontImageMaker.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: makefont output.png\n";
        return 2;
    }
    std::string error;
    if (!qlntools::FontImageMaker::write(argv[1], error)) {
        std::cerr << "makefont: " << error << "\n";
        return 1;
    }
    return 0;
}
