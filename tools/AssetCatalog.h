#pragma once
// Every generated file of the resource tree, with the tool call that makes it.
// tools/make-assets.sh runs the programs; the tests run these entries and compare.
#include <functional>
#include <string>
#include <vector>

namespace qlntools {

class AssetCatalog {
public:
    struct Asset {
        std::string path;  // relative to the resource folder
        // Makes the asset at outPath; sources (OBJ models) are read from resourceDir.
        std::function<bool(const std::string& resourceDir, const std::string& outPath, std::string& error)> make;
    };

    static const std::vector<Asset>& assets();
};

}  // namespace qlntools
