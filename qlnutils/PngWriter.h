#pragma once
// Encodes 8-bit RGB or RGBA pixels (top row first) as PNG with libpng. Nothing with a
// time stamp or text is written, so the same pixels always give the same bytes.
#include <cstdint>
#include <string>

class PngWriter {
public:
    // channels is 3 (RGB) or 4 (RGBA); level is zlib's 0 to 9. Levels 0 and 1 filter rows
    // with Sub alone: most of the gain of adaptive filtering at a fraction of the cost.
    static bool encode(const uint8_t* pixels, int width, int height, int channels, int level, std::string& bytes);
    // Encodes straight into a file; on failure errno says why when the system knows.
    static bool write(const std::string& path, const uint8_t* pixels, int width, int height, int channels,
                      int level);
};
