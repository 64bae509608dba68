// Decodes arbitrary bytes as a PNG held in memory and touches everything the decoder
// hands out, so that any read or write outside the buffers shows under the sanitizers.
#include <cstddef>
#include <cstdint>

#include "qlnutils/Image.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Image image(data, size);
    unsigned char* pixels = image.getData();
    if (!pixels) return 0;
    unsigned sum = 0;
    for (size_t i = 0; i < image.getDataSize(); ++i) sum += pixels[i];
    size_t headerBytes = size_t(image.getWidth()) * image.getHeight() * image.getPixelSize();
    if (headerBytes <= (size_t(1) << 20)) {
        float* floats = image.getFloatData();
        for (size_t i = 0; i < headerBytes; ++i) sum += floats[i] > 1.0f;
    }
    return sum == 0xffffffffu ? 1 : 0;
}
