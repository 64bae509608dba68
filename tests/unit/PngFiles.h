#pragma once
// Encodes small PNGs with libpng for the image and texture tests.
#include <png.h>

#include <string>
#include <vector>

namespace pngfiles {

struct Layout {
    int width = 1;
    int height = 1;
    int colourType = PNG_COLOR_TYPE_RGBA;
    int bitDepth = 8;
    bool interlaced = false;
    std::vector<png_color> palette;  // for PNG_COLOR_TYPE_PALETTE
};

// pixels: the rows top to bottom, packed as the PNG stores them (before any filtering).
inline std::string encode(const Layout& layout, const std::vector<unsigned char>& pixels) {
    std::string out;
    // Declared before setjmp so that an error jump skips no destructor.
    std::vector<png_bytep> rows(layout.height);
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    if (setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return std::string();
    }
    png_set_write_fn(
        png, &out,
        [](png_structp p, png_bytep bytes, png_size_t length) {
            static_cast<std::string*>(png_get_io_ptr(p))->append(reinterpret_cast<char*>(bytes), length);
        },
        nullptr);
    png_set_IHDR(png, info, layout.width, layout.height, layout.bitDepth, layout.colourType,
                 layout.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    if (!layout.palette.empty())
        png_set_PLTE(png, info, layout.palette.data(), static_cast<int>(layout.palette.size()));
    png_write_info(png, info);
    size_t rowBytes = png_get_rowbytes(png, info);
    for (int y = 0; y < layout.height; ++y) rows[y] = const_cast<png_bytep>(pixels.data() + y * rowBytes);
    png_write_image(png, rows.data());
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return out;
}

// A width x height 8-bit RGBA picture from a pixel function (x, y from the top-left).
template <typename PixelFn>
inline std::string rgba(int width, int height, PixelFn pixel) {
    std::vector<unsigned char> bytes;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            auto c = pixel(x, y);
            bytes.insert(bytes.end(), c.begin(), c.end());
        }
    Layout layout;
    layout.width = width;
    layout.height = height;
    return encode(layout, bytes);
}

}  // namespace pngfiles
