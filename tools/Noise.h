#pragma once
// Smooth value noise on a lattice that repeats every `period` cells, so textures
// built from it tile without seams.
#include <cstdint>
#include <vector>

namespace qlntools {

class Noise {
public:
    Noise(uint32_t seed, int period);

    // Noise in 0..1 at lattice coordinates (x, y); repeats every period cells.
    double sample(double x, double y) const;
    // Sum of octaves, each at twice the frequency and half the weight of the one before,
    // normalised to 0..1. The first octave has `period` cells across the tile.
    double fractal(double u, double v, int octaves) const;

private:
    double lattice(int x, int y, int period) const;
    double sampleWithPeriod(double x, double y, int period) const;
    int period;
    std::vector<double> values;
    static constexpr int tableSize = 256;
};

}  // namespace qlntools
