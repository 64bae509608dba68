#pragma once
// A PNG decoded into memory with libpng, rows bottom-up as OpenGL expects them.
// 8-bit RGB and RGBA are the intended input; palette and 16-bit images are expanded
// and stripped by libpng, while bpp and pixelSize keep what the header says.
#include <cstddef>
#include <cstdio>
#include <string>

class Image {
public:
    explicit Image(const char* path);
    explicit Image(std::string path);
    // Decodes a PNG held in memory; exists() is true, fileSize is the byte count.
    Image(const unsigned char* bytes, size_t size);
    ~Image();
    Image(const Image&) = delete;
    Image& operator=(const Image&) = delete;

    // Opens and decodes the file; false only when it cannot be opened.
    bool Load(const std::string& path, int flags);

    bool exists() const { return existsFlag; }
    int getFileSize() const { return fileSize; }
    int getWidth() const { return width; }
    int getHeight() const { return height; }
    int getBpp() const { return bpp; }
    int getPixelSize() const { return pixelSize; }
    unsigned char* getData() const { return data; }
    // Bytes held in getData(): at least width * height * pixelSize, or 0 without data.
    size_t getDataSize() const { return dataSize; }
    // Each byte divided by 256, width * height * pixelSize values; null without data.
    float* getFloatData();
    // Empty for the 8-bit RGB and RGBA pictures the texture loader reads; otherwise the
    // format it draws wrongly, such as "palette" or "16-bit RGB".
    std::string unsupportedFormat() const;

private:
    bool LoadPNG(FILE* file, int flags);
    bool LoadPNG(const unsigned char* bytes, size_t size);
    void clear();

    int width;
    int height;
    int bpp;
    int pixelSize;
    bool existsFlag;
    int fileSize;
    unsigned char* data;
    float* floatData;
    std::string filename;
    size_t dataSize;
    int bitDepth;
    int colourType;
};
