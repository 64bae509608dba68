#include "qlnutils/Image.h"

#include <png.h>

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <cstring>
#include <new>

namespace {

// Larger pictures than any texture unit takes are refused before allocating.
const png_uint_32 maxDimension = 16384;
const size_t maxDecodedBytes = size_t(256) << 20;

struct MemoryReader {
    const unsigned char* bytes;
    size_t size;
    size_t position;
};

void readFromMemory(png_structp png, png_bytep out, png_size_t length) {
    MemoryReader* reader = static_cast<MemoryReader*>(png_get_io_ptr(png));
    if (length > reader->size - reader->position) png_error(png, "Read past end of data");
    std::memcpy(out, reader->bytes + reader->position, length);
    reader->position += length;
}

struct Decoded {
    int bitDepth = 0;
    int colourType = -1;
    int width = 0;
    int height = 0;
    int bpp = 0;
    unsigned char* data = nullptr;
    size_t dataSize = 0;
};

// Everything between setjmp and a possible longjmp is plain C data: no destructor may
// be skipped, and the buffers that an error has to free are volatile.
// libpng's own message does not say which file is broken; this one does, on standard
// error as before, so that the log on standard output stays as it is.
void reportError(png_structp png, png_const_charp message) {
    const char* name = static_cast<const char*>(png_get_error_ptr(png));
    std::fprintf(stderr, "libpng error: %s in '%s'\n", message, name != nullptr ? name : "");
    png_longjmp(png, 1);
}

bool decodePNG(FILE* file, MemoryReader* memory, const char* name, Decoded* out) {
    png_structp png =
        png_create_read_struct(PNG_LIBPNG_VER_STRING, const_cast<char*>(name), reportError, nullptr);
    if (!png) {
        std::printf("LibPNG: Failed to create read structure for %s\n", name);
        return false;
    }
    png_infop info = png_create_info_struct(png);
    if (!info) {
        std::printf("LibPNG: Failed to create info structure for %s\n", name);
        png_destroy_read_struct(&png, nullptr, nullptr);
        return false;
    }
    png_infop endInfo = png_create_info_struct(png);
    if (!endInfo) {
        std::printf("LibPNG: Failed to create end info structure for %s\n", name);
        png_destroy_read_struct(&png, &info, nullptr);
        return false;
    }

    unsigned char* volatile buffer = nullptr;
    png_bytep* volatile rows = nullptr;
    if (setjmp(png_jmpbuf(png))) {
        png_destroy_read_struct(&png, &info, &endInfo);
        delete[] buffer;
        delete[] rows;
        return false;
    }

    if (memory)
        png_set_read_fn(png, memory, readFromMemory);
    else
        png_init_io(png, file);
    png_set_sig_bytes(png, 0);
    png_set_user_limits(png, maxDimension, maxDimension);
    png_read_info(png, info);

    png_uint_32 width = 0, height = 0;
    int bitDepth = 0, colourType = 0, interlace = 0;
    png_get_IHDR(png, info, &width, &height, &bitDepth, &colourType, &interlace, nullptr, nullptr);
    out->bitDepth = bitDepth;
    out->colourType = colourType;
    out->width = static_cast<int>(width);
    out->height = static_cast<int>(height);
    // The depth the header states, before expansion.
    out->bpp = bitDepth * png_get_channels(png, info);
    size_t headerPixelSize = static_cast<size_t>(out->bpp >> 3);

    if (colourType == PNG_COLOR_TYPE_PALETTE) png_set_palette_to_rgb(png);
    if (bitDepth == 16) png_set_strip_16(png);
    png_set_interlace_handling(png);
    png_read_update_info(png, info);

    // Rows are laid out at the decoded length, which for palette images is wider than
    // the header depth says; the buffer also always covers width * height * pixelSize
    // so that readers going by the header stay inside it.
    size_t rowBytes = png_get_rowbytes(png, info);
    size_t decodedBytes = rowBytes * height;
    size_t headerBytes = size_t(width) * height * headerPixelSize;
    size_t total = std::max(decodedBytes, headerBytes);
    if (total > maxDecodedBytes) png_error(png, "Image too large");

    // OpenGL's default unpack alignment pads each row to 4 bytes; the slack keeps such a
    // read of a packed RGB picture inside the allocation.
    size_t slack = size_t(3) * height + 4;
    buffer = new (std::nothrow) unsigned char[total + slack];
    rows = new (std::nothrow) png_bytep[height];
    if (!buffer || !rows) png_error(png, "Out of memory for image rows");
    for (png_uint_32 y = 0; y < height; ++y) {
        rows[y] = buffer + (height - 1 - y) * rowBytes;
        // libpng keeps the padding bits of a row's last byte as it finds them.
        rows[y][rowBytes - 1] = 0;
    }

    png_read_image(png, rows);
    png_read_end(png, endInfo);
    png_destroy_read_struct(&png, &info, &endInfo);

    std::memset(buffer + decodedBytes, 0, total + slack - decodedBytes);
    delete[] rows;
    out->data = buffer;
    out->dataSize = total;
    return true;
}

}  // namespace

Image::Image(const char* path) : Image(std::string(path)) {}

Image::Image(std::string path)
    : width(0),
      height(0),
      bpp(0),
      pixelSize(0),
      existsFlag(false),
      fileSize(0),
      data(nullptr),
      floatData(nullptr),
      filename(path),
      dataSize(0),
      bitDepth(0),
      colourType(-1) {
    existsFlag = Load(path, 1);
}

Image::Image(const unsigned char* bytes, size_t size)
    : width(0),
      height(0),
      bpp(0),
      pixelSize(0),
      existsFlag(true),
      fileSize(static_cast<int>(std::min<size_t>(size, 0x7fffffff))),
      data(nullptr),
      floatData(nullptr),
      dataSize(0),
      bitDepth(0),
      colourType(-1) {
    LoadPNG(bytes, size);
}

Image::~Image() { clear(); }

void Image::clear() {
    delete[] data;
    delete[] floatData;
    data = nullptr;
    floatData = nullptr;
    dataSize = 0;
}

bool Image::Load(const std::string& path, int flags) {
    FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) return false;
    long start = std::ftell(file);
    std::fseek(file, 0, SEEK_END);
    long end = std::ftell(file);
    fileSize = static_cast<int>(end - start);
    std::rewind(file);
    LoadPNG(file, flags);
    std::fclose(file);
    // The file was there; whether it decoded shows in getData().
    return true;
}

static void takeHeader(const Decoded& decoded, int& width, int& height, int& bpp, int& pixelSize) {
    width = decoded.width;
    height = decoded.height;
    bpp = decoded.bpp;
    pixelSize = bpp >> 3;
}

bool Image::LoadPNG(FILE* file, int) {
    clear();
    Decoded decoded;
    bool ok = decodePNG(file, nullptr, filename.c_str(), &decoded);
    takeHeader(decoded, width, height, bpp, pixelSize);
    data = decoded.data;
    dataSize = decoded.dataSize;
    bitDepth = decoded.bitDepth;
    colourType = decoded.colourType;
    return ok;
}

bool Image::LoadPNG(const unsigned char* bytes, size_t size) {
    clear();
    MemoryReader reader{bytes, size, 0};
    Decoded decoded;
    bool ok = decodePNG(nullptr, &reader, filename.c_str(), &decoded);
    takeHeader(decoded, width, height, bpp, pixelSize);
    data = decoded.data;
    dataSize = decoded.dataSize;
    bitDepth = decoded.bitDepth;
    colourType = decoded.colourType;
    return ok;
}

float* Image::getFloatData() {
    if (!data) return nullptr;
    if (!floatData) {
        size_t count = size_t(width) * size_t(height) * size_t(pixelSize);
        floatData = new float[count == 0 ? 1 : count];
        for (size_t i = 0; i < count; ++i) floatData[i] = data[i] * 0.00390625f;
    }
    return floatData;
}

std::string Image::unsupportedFormat() const {
    if (colourType < 0) return "";  // nothing decoded: there is no format to speak of
    std::string depth = bitDepth == 8 ? "" : std::to_string(bitDepth) + "-bit ";
    switch (colourType) {
        case PNG_COLOR_TYPE_PALETTE: return "palette";
        case PNG_COLOR_TYPE_GRAY: return depth.empty() ? "grey" : depth + "grey";
        case PNG_COLOR_TYPE_GRAY_ALPHA: return depth.empty() ? "grey+alpha" : depth + "grey+alpha";
        case PNG_COLOR_TYPE_RGB: return depth.empty() ? "" : depth + "RGB";
        case PNG_COLOR_TYPE_RGB_ALPHA: return depth.empty() ? "" : depth + "RGBA";
        default: return "unknown";
    }
}
