#include "qlnutils/PngWriter.h"

#include <png.h>

#include <cstdio>

namespace {

void appendToString(png_structp png, png_bytep data, png_size_t length) {
    static_cast<std::string*>(png_get_io_ptr(png))->append(reinterpret_cast<const char*>(data), length);
}

void flushNothing(png_structp) {}

// Encodes through writeFn on io; null functions mean libpng's own stdio output on a FILE*.
bool encodeTo(void* io, png_rw_ptr writeFn, png_flush_ptr flushFn, const uint8_t* pixels, int width, int height,
              int channels, int level) {
    if (channels != 3 && channels != 4) return false;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    // Nothing with a destructor lives in this function, so libpng's long jump is safe.
    if (!png || !info || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return false;
    }
    png_set_write_fn(png, io, writeFn, flushFn);
    png_set_compression_level(png, level);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, level <= 1 ? PNG_FILTER_SUB : PNG_ALL_FILTERS);
    png_set_IHDR(png, info, png_uint_32(width), png_uint_32(height), 8,
                 channels == 4 ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    const size_t stride = size_t(width) * size_t(channels);
    for (size_t y = 0; y < size_t(height); ++y) png_write_row(png, const_cast<png_bytep>(pixels + y * stride));
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return true;
}

}  // namespace

bool PngWriter::encode(const uint8_t* pixels, int width, int height, int channels, int level, std::string& bytes) {
    bytes.clear();
    return encodeTo(&bytes, appendToString, flushNothing, pixels, width, height, channels, level);
}

bool PngWriter::write(const std::string& path, const uint8_t* pixels, int width, int height, int channels,
                      int level) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) return false;
    bool ok = encodeTo(file, nullptr, nullptr, pixels, width, height, channels, level) && std::fflush(file) == 0;
    return std::fclose(file) == 0 && ok;
}
