#include "tools/Noise.h"

#include <cmath>

#include "tools/Random.h"

namespace qlntools {

Noise::Noise(uint32_t seed, int period) : period(period > 0 ? period : 1), values(tableSize * tableSize) {
    Random random(seed);
    for (double& value : values) value = random.uniform();
}

double Noise::lattice(int x, int y, int p) const {
    x %= p;
    y %= p;
    if (x < 0) x += p;
    if (y < 0) y += p;
    return values[size_t(y % tableSize) * tableSize + size_t(x % tableSize)];
}

double Noise::sampleWithPeriod(double x, double y, int p) const {
    double fx = std::floor(x), fy = std::floor(y);
    int ix = int(fx), iy = int(fy);
    double tx = x - fx, ty = y - fy;
    auto fade = [](double t) { return t * t * t * (t * (t * 6 - 15) + 10); };
    double sx = fade(tx), sy = fade(ty);
    double a = lattice(ix, iy, p), b = lattice(ix + 1, iy, p);
    double c = lattice(ix, iy + 1, p), d = lattice(ix + 1, iy + 1, p);
    double top = a + (b - a) * sx, bottom = c + (d - c) * sx;
    return top + (bottom - top) * sy;
}

double Noise::sample(double x, double y) const {
    return sampleWithPeriod(x, y, period);
}

double Noise::fractal(double u, double v, int octaves) const {
    double sum = 0, weight = 1, total = 0;
    int p = period;
    for (int o = 0; o < octaves; ++o) {
        sum += weight * sampleWithPeriod(u * p, v * p, p);
        total += weight;
        weight *= 0.5;
        p *= 2;
    }
    return total > 0 ? sum / total : 0;
}

}  // namespace qlntools
