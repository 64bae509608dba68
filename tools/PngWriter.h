#pragma once
// Writes pictures as 8-bit RGB or RGBA PNG files with libpng. The output carries no
// time stamp or text chunk, so the same picture always gives the same bytes.
#include <string>

#include "tools/Picture.h"

namespace qlntools {

class PngWriter {
public:
    // Encodes the picture; channels is 3 (RGB) or 4 (RGBA). Returns false on failure.
    static bool encode(const Picture& picture, int channels, std::string& bytes, std::string& error);
    // Encodes and writes the picture to a file.
    static bool write(const std::string& path, const Picture& picture, int channels, std::string& error);
};

}  // namespace qlntools
