// makepath OUT.ani: writes the camera path (a closed flight around the origin).
#include <iostream>

#include "tools/CameraPathMaker.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: makepath output.ani\n";
        return 2;
    }
    std::string error;
    if (!qlntools::CameraPathMaker::write(argv[1], error)) {
        std::cerr << "makepath: " << error << "\n";
        return 1;
    }
    return 0;
}
