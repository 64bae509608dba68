// makeheightmap OUT.bin: writes the height map of the landscape flight (100-byte rows).
#include <iostream>

#include "tools/HeightMapMaker.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: makeheightmap output.bin\n";
        return 2;
    }
    std::string error;
    if (!qlntools::HeightMapMaker::write(argv[1], error)) {
        std::cerr << "makeheightmap: " << error << "\n";
        return 1;
    }
    return 0;
}
