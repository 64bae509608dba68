#pragma once
// Every texture of the demo except the font, by file name.
#include <functional>
#include <string>
#include <vector>

#include "tools/Picture.h"

namespace qlntools {

class TextureSet {
public:
    struct Entry {
        std::string file;
        int channels;  // 3 = RGB, 4 = RGBA
        std::function<Picture()> paint;
    };

    static const std::vector<Entry>& entries();
};

}  // namespace qlntools
