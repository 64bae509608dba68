#include "demosys/Binary.h"

#include "qlnutils/QLNUtils.h"

namespace {
const float byteScale = 0.00390625f;  // 1 / 256
}

Binary::Binary(std::vector<unsigned char> bytes) : bytes(std::move(bytes)) {}

Binary::~Binary() {
    bytes.clear();
    delete[] floatCopy;
}

unsigned int Binary::size() const { return static_cast<unsigned int>(bytes.size()); }

unsigned char Binary::getData(int index) const {
    if (index < 0 || static_cast<size_t>(index) >= bytes.size()) return 0;
    return bytes[index];
}

std::string Binary::getString(int, int) const { return ""; }

float* Binary::getFloatData(int start, int count) const {
    if (count < 0) count = 0;
    float* values = new float[count];
    for (int k = 0; k < count; ++k) {
        long long index = static_cast<long long>(start) + k;
        bool inside = index >= 0 && static_cast<unsigned long long>(index) < bytes.size();
        values[k] = inside ? bytes[index] * byteScale : 0.0f;
    }
    return values;
}

float* Binary::getFloatData() {
    if (!floatCopy) {
        floatCopy = new float[bytes.size()];
        for (size_t i = 0; i < bytes.size(); ++i) floatCopy[i] = bytes[i] * byteScale;
    }
    return floatCopy;
}

std::string Binary::toString() const { return "Binary { size = " + QLNUtils::uint2string(size()) + " }\n"; }
