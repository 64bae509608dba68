#include "tools/PngWriter.h"

#include <csetjmp>
#include <png.h>

#include "tools/FileWriter.h"

namespace qlntools {

namespace {

void appendToString(png_structp png, png_bytep data, png_size_t length) {
    auto* out = static_cast<std::string*>(png_get_io_ptr(png));
    out->append(reinterpret_cast<const char*>(data), length);
}

void flushNothing(png_structp) {}

}  // namespace

bool PngWriter::encode(const Picture& picture, int channels, std::string& bytes, std::string& error) {
    if (channels != 3 && channels != 4) {
        error = "PNG output needs 3 or 4 channels";
        return false;
    }
    if (picture.width() == 0 || picture.height() == 0) {
        error = "cannot write an empty picture";
        return false;
    }
    const std::vector<uint8_t> pixels = picture.toBytes(channels);
    std::vector<png_bytep> rows(size_t(picture.height()));
    const size_t stride = size_t(picture.width()) * size_t(channels);
    for (size_t y = 0; y < rows.size(); ++y) rows[y] = const_cast<png_bytep>(pixels.data() + y * stride);
    bytes.clear();

    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    if (!png) {
        error = "libpng could not create its write structure";
        return false;
    }
    png_infop info = png_create_info_struct(png);
    if (!info) {
        png_destroy_write_struct(&png, nullptr);
        error = "libpng could not create its info structure";
        return false;
    }
    // Nothing with a destructor is created below this point, so the long jump is safe.
    if (setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        error = "libpng failed while encoding";
        return false;
    }
    png_set_write_fn(png, &bytes, appendToString, flushNothing);
    png_set_IHDR(png, info, png_uint_32(picture.width()), png_uint_32(picture.height()), 8,
                 channels == 4 ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_compression_level(png, 9);
    png_write_info(png, info);
    png_write_image(png, rows.data());
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return true;
}

bool PngWriter::write(const std::string& path, const Picture& picture, int channels, std::string& error) {
    std::string bytes;
    if (!encode(picture, channels, bytes, error)) return false;
    return FileWriter::write(path, bytes, error);
}

}  // namespace qlntools
