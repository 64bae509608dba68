// makemodels FOLDER: writes the generated source models (logo.obj with logo.mtl, star.obj).
#include <iostream>

#include "tools/ModelMaker.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: makemodels folder\n";
        return 2;
    }
    std::string error;
    if (!qlntools::ModelMaker::write(argv[1], error)) {
        std::cerr << "makemodels: " << error << "\n";
        return 1;
    }
    return 0;
}
