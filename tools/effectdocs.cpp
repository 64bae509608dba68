// effectdocs DEFINITIONS/ PAGE.md [--check]: writes the effect tables of the page again
// from the .def files; with --check only says whether the page is up to date (exit 1 if not).
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "tools/EffectTables.h"

int main(int argc, char** argv) {
    bool check = argc == 4 && std::string(argv[3]) == "--check";
    if (argc != 3 && !check) {
        std::cerr << "usage: effectdocs DEFINITIONS/ PAGE.md [--check]\n";
        return 2;
    }
    std::ifstream in(argv[2], std::ios::binary);
    if (!in) {
        std::cerr << "effectdocs: cannot read " << argv[2] << "\n";
        return 2;
    }
    std::ostringstream page;
    page << in.rdbuf();
    std::string fresh = EffectTables::refresh(page.str(), argv[1]);
    if (check) {
        if (fresh == page.str()) return 0;
        std::cerr << argv[2] << " is stale: run build/tools/effectdocs " << argv[1] << " " << argv[2] << "\n";
        return 1;
    }
    std::ofstream(argv[2], std::ios::binary) << fresh;
    return 0;
}
