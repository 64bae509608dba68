#pragma once
// A small deterministic random source: the same seed gives the same numbers on
// every machine and library version, so generated assets stay byte-identical.
#include <cstdint>

namespace qlntools {

class Random {
public:
    explicit Random(uint32_t seed);
    uint32_t next();
    // Uniform in [0, 1).
    double uniform();
    // Uniform in [low, high).
    double range(double low, double high);
    // Uniform integer in [0, count).
    int below(int count);

private:
    uint64_t state;
};

}  // namespace qlntools
