#include "tools/Random.h"

namespace qlntools {

Random::Random(uint32_t seed) : state(0x853c49e6748fea9bULL ^ (uint64_t(seed) * 0x9e3779b97f4a7c15ULL)) {
    next();
}

// PCG-XSH-RR: tiny, fast and well distributed.
uint32_t Random::next() {
    uint64_t old = state;
    state = old * 6364136223846793005ULL + 1442695040888963407ULL;
    uint32_t xorshifted = uint32_t(((old >> 18u) ^ old) >> 27u);
    uint32_t rot = uint32_t(old >> 59u);
    return (xorshifted >> rot) | (xorshifted << ((32u - rot) & 31u));
}

double Random::uniform() {
    return next() * (1.0 / 4294967296.0);
}

double Random::range(double low, double high) {
    return low + (high - low) * uniform();
}

int Random::below(int count) {
    return count <= 0 ? 0 : int(uniform() * count);
}

}  // namespace qlntools
