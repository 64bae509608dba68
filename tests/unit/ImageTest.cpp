#include <gtest/gtest.h>
#include <zlib.h>

#include <array>
#include <memory>

#include "qlnutils/Image.h"
#include "support/TestSupport.h"
#include "unit/PngFiles.h"

using testsupport::TempDir;

namespace {

using Pixel = std::array<unsigned char, 4>;

// 2 x 2: top row red, green; bottom row blue, half-transparent white.
std::string twoByTwo() {
    return pngfiles::rgba(2, 2, [](int x, int y) {
        const Pixel pixels[2][2] = {{Pixel{255, 0, 0, 255}, Pixel{0, 255, 0, 255}},
                                    {Pixel{0, 0, 255, 255}, Pixel{255, 255, 255, 128}}};
        return pixels[y][x];
    });
}

std::unique_ptr<Image> fromMemory(const std::string& bytes) {
    return std::make_unique<Image>(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
}

std::vector<unsigned char> bytesOf(const Image& image) {
    return std::vector<unsigned char>(image.getData(), image.getData() + image.getDataSize());
}

// Rewrites the IHDR size of an encoded PNG, with a correct CRC, so only the size is wrong.
}  // namespace

TEST(Image, ReadsRgbaFileBottomRowFirst) {
    TempDir dir;
    std::string png = twoByTwo();
    Image image(dir.write("tiny.png", png));
    ASSERT_TRUE(image.exists());
    EXPECT_EQ(image.getFileSize(), static_cast<int>(png.size()));
    EXPECT_EQ(image.getWidth(), 2);
    EXPECT_EQ(image.getHeight(), 2);
    EXPECT_EQ(image.getBpp(), 32);
    EXPECT_EQ(image.getPixelSize(), 4);
    ASSERT_NE(image.getData(), nullptr);
    EXPECT_EQ(image.getDataSize(), 16u);
    EXPECT_EQ(bytesOf(image), (std::vector<unsigned char>{0, 0, 255, 255, 255, 255, 255, 128,  //
                                                          255, 0, 0, 255, 0, 255, 0, 255}));

    float* floats = image.getFloatData();
    ASSERT_NE(floats, nullptr);
    EXPECT_EQ(floats[2], 0.99609375f) << "bytes are divided by 256";
    EXPECT_EQ(floats[7], 0.5f);
    EXPECT_EQ(floats[0], 0.0f);
    EXPECT_EQ(image.getFloatData(), floats) << "made once and kept";

    auto same = fromMemory(png);
    EXPECT_TRUE(same->exists());
    EXPECT_EQ(same->getFileSize(), static_cast<int>(png.size()));
    EXPECT_EQ(bytesOf(*same), bytesOf(image));
}

TEST(Image, MissingFileAndNonPngFile) {
    TempDir dir;
    Image missing(dir.file("absent.png"));
    EXPECT_FALSE(missing.exists());
    EXPECT_EQ(missing.getData(), nullptr);
    EXPECT_EQ(missing.getFloatData(), nullptr);
    EXPECT_EQ(missing.getFileSize(), 0);

    Image text(dir.write("notes.png", "this is not a picture\n"));
    EXPECT_TRUE(text.exists()) << "the file opened, even though it did not decode";
    EXPECT_EQ(text.getFileSize(), 22);
    EXPECT_EQ(text.getData(), nullptr);
    EXPECT_EQ(text.getFloatData(), nullptr);
}

TEST(Image, OtherColourTypesKeepHeaderDepthAndStayInsideTheBuffer) {
    // RGB, 8 bit.
    pngfiles::Layout rgb;
    rgb.width = 3;
    rgb.colourType = PNG_COLOR_TYPE_RGB;
    auto image = fromMemory(pngfiles::encode(rgb, {1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(image->getBpp(), 24);
    EXPECT_EQ(image->getPixelSize(), 3);
    EXPECT_EQ(bytesOf(*image), (std::vector<unsigned char>{1, 2, 3, 4, 5, 6, 7, 8, 9}));

    // Palette: header says 8 bits, libpng expands to RGB.
    pngfiles::Layout indexed;
    indexed.width = 2;
    indexed.height = 2;
    indexed.colourType = PNG_COLOR_TYPE_PALETTE;
    indexed.palette = {{10, 20, 30}, {40, 50, 60}};
    image = fromMemory(pngfiles::encode(indexed, {0, 1, 1, 1}));
    EXPECT_EQ(image->getBpp(), 8);
    EXPECT_EQ(image->getPixelSize(), 1);
    ASSERT_NE(image->getData(), nullptr);
    EXPECT_EQ(bytesOf(*image), (std::vector<unsigned char>{40, 50, 60, 40, 50, 60, 10, 20, 30, 40, 50, 60}));
    ASSERT_NE(image->getFloatData(), nullptr);
    EXPECT_FLOAT_EQ(image->getFloatData()[3], 40 / 256.0f);

    // 16-bit RGBA: header says 64 bits; libpng strips to 8, the buffer still covers 8 bytes a pixel.
    pngfiles::Layout deep;
    deep.bitDepth = 16;
    image = fromMemory(pngfiles::encode(deep, {0x12, 0x34, 0x56, 0x78, 0x9a, 0xbc, 0xde, 0xf0}));
    EXPECT_EQ(image->getBpp(), 64);
    EXPECT_EQ(image->getPixelSize(), 8);
    ASSERT_GE(image->getDataSize(), 8u);
    EXPECT_EQ(bytesOf(*image), (std::vector<unsigned char>{0x12, 0x56, 0x9a, 0xde, 0, 0, 0, 0}));
    ASSERT_NE(image->getFloatData(), nullptr);
    EXPECT_EQ(image->getFloatData()[7], 0.0f);

    // Grey, 8 and 1 bit: no expansion to RGB.
    pngfiles::Layout grey;
    grey.width = 4;
    grey.colourType = PNG_COLOR_TYPE_GRAY;
    image = fromMemory(pngfiles::encode(grey, {0, 85, 170, 255}));
    EXPECT_EQ(image->getBpp(), 8);
    EXPECT_EQ(bytesOf(*image), (std::vector<unsigned char>{0, 85, 170, 255}));
    grey.bitDepth = 1;
    grey.width = 9;
    image = fromMemory(pngfiles::encode(grey, {0xa5, 0x80}));
    EXPECT_EQ(image->getBpp(), 1);
    EXPECT_EQ(image->getPixelSize(), 0);
    EXPECT_EQ(bytesOf(*image), (std::vector<unsigned char>{0xa5, 0x80})) << "packed bits stay packed";
}

TEST(Image, InterlacedDecodesLikeProgressive) {
    auto pattern = [](int x, int y) {
        return Pixel{static_cast<unsigned char>(x * 20), static_cast<unsigned char>(y * 20),
                     static_cast<unsigned char>(x ^ y), 255};
    };
    std::vector<unsigned char> pixels;
    for (int y = 0; y < 11; ++y)
        for (int x = 0; x < 13; ++x) {
            Pixel p = pattern(x, y);
            pixels.insert(pixels.end(), p.begin(), p.end());
        }
    pngfiles::Layout layout;
    layout.width = 13;
    layout.height = 11;
    auto progressive = fromMemory(pngfiles::encode(layout, pixels));
    layout.interlaced = true;
    auto interlaced = fromMemory(pngfiles::encode(layout, pixels));
    ASSERT_NE(interlaced->getData(), nullptr);
    EXPECT_EQ(bytesOf(*interlaced), bytesOf(*progressive));
    // Bottom row first: the first pixel in memory is (0, 10) of the picture.
    EXPECT_EQ(interlaced->getData()[1], 200);
}
