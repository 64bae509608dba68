// makeassets RESOURCES [PATH...]: makes every generated file of the resource folder (or
// the named ones, as the catalogue names them: gfx/font.png, music/quillon.mod, ...).
#include <iostream>
#include <set>

#include "tools/AssetCatalog.h"

int main(int argc, char** argv) {
    if (argc < 2) {
        std::cerr << "usage: makeassets resource-folder [asset...]\n";
        return 2;
    }
    const std::string resources = argv[1];
    const bool all = argc == 2;
    std::set<std::string> wanted(argv + 2, argv + argc);
    for (const qlntools::AssetCatalog::Asset& asset : qlntools::AssetCatalog::assets()) {
        if (!all && !wanted.erase(asset.path)) continue;
        std::string error;
        if (!asset.make(resources, resources + "/" + asset.path, error)) {
            std::cerr << "makeassets: " << asset.path << ": " << error << "\n";
            return 1;
        }
    }
    for (const std::string& unknown : wanted) std::cerr << "makeassets: no asset named " << unknown << "\n";
    return wanted.empty() ? 0 : 2;
}
