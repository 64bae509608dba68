#pragma once
// The height map of the landscape flight: rows of 100 bytes (0 = deep, 255 = high),
// read by the effect as a 100 × 75 window whose first row scrolls from 0 to 99 and
// then jumps back. Row r + 99 repeats row r, so the jump is seamless.
#include <string>

namespace qlntools {

class HeightMapMaker {
public:
    static constexpr int columns = 100;
    static constexpr int rows = 176;  // 176 × 100 bytes: every read of the effect stays inside
    static constexpr int rowPeriod = 99;

    static std::string bytes();
};

}  // namespace qlntools
