#include "tools/HeightMapMaker.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "tools/Random.h"

namespace qlntools {

namespace {

struct Wave {
    int fx, fy;
    double amplitude, phase;
    bool ridge;
};

}  // namespace

std::string HeightMapMaker::bytes() {
    const double pi = 3.14159265358979323846;
    Random random(99);
    std::vector<Wave> waves;
    for (int i = 0; i < 14; ++i) {
        // Whole periods across the row and along the period keep the map seamless.
        int fx = 1 + random.below(1 + i / 2), fy = 1 + random.below(2 + i / 2);
        double amplitude = 1.0 / (1.0 + 0.45 * i);
        waves.push_back({fx, random.uniform() < 0.5 ? fy : -fy, amplitude, random.range(0, 2 * pi), i % 3 == 2});
    }
    std::vector<double> heights(size_t(columns) * rows);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c) {
            double sum = 0;
            for (const Wave& w : waves) {
                double s = std::sin(2 * pi * (w.fx * c / double(columns) + w.fy * r / double(rowPeriod)) + w.phase);
                sum += w.amplitude * (w.ridge ? 1.0 - 2.0 * std::fabs(s) : s);
            }
            heights[size_t(r) * columns + c] = sum;
        }
    auto [low, high] = std::minmax_element(heights.begin(), heights.end());
    const double lo = *low, span = *high - *low > 0 ? *high - *low : 1.0;
    std::string out(heights.size(), '\0');
    for (size_t i = 0; i < heights.size(); ++i)
        out[i] = char(uint8_t(std::lround((heights[i] - lo) / span * 255.0)));
    return out;
}

}  // namespace qlntools
