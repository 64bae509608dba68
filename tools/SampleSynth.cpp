#include "tools/SampleSynth.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "tools/Random.h"

namespace qlntools {

namespace {

const double pi = 3.14159265358979323846;

// Scales so that the loudest sample reaches `peak` (of 127), rounds, pads to an even length.
std::vector<int8_t> quantize(const std::vector<double>& wave, double peak) {
    double top = 0;
    for (double v : wave) top = std::max(top, std::fabs(v));
    const double scale = top > 0 ? peak / top : 0;
    std::vector<int8_t> out;
    for (double v : wave) out.push_back(int8_t(std::max(-128L, std::min(127L, std::lround(v * scale)))));
    if (out.size() % 2) out.push_back(0);
    return out;
}

ModSample make(const char* name, std::vector<int8_t> data, int volume, int loopStart, int loopLength) {
    ModSample s;
    s.name = name;
    s.data = std::move(data);
    s.volume = volume;
    s.loopStart = loopStart;
    s.loopLength = loopLength;
    return s;
}

}  // namespace

ModSample SampleSynth::kick() {
    const int n = int(drumRate * 0.30);
    std::vector<double> wave(static_cast<size_t>(n));
    Random random(1);
    double phase = 0;
    for (int i = 0; i < n; ++i) {
        double t = i / drumRate;
        double frequency = 48 + 130 * std::exp(-t * 28);
        phase += 2 * pi * frequency / drumRate;
        double body = std::tanh(2.2 * std::sin(phase)) * std::exp(-t * 6.5);
        double click = t < 0.003 ? random.range(-0.4, 0.4) * (1 - t / 0.003) : 0;
        double tail = i > n - 160 ? (n - i) / 160.0 : 1.0;
        wave[size_t(i)] = (body + click) * tail;
    }
    wave[0] = wave[1] = 0;  // trackers repeat the first word of one-shot samples: keep it silent
    return make("kick", quantize(wave, 124), 64, 0, 0);
}

ModSample SampleSynth::snare() {
    const int n = int(drumRate * 0.22);
    std::vector<double> wave(static_cast<size_t>(n));
    Random random(2);
    double previous = 0;
    for (int i = 0; i < n; ++i) {
        double t = i / drumRate;
        double white = random.range(-1, 1);
        double bright = white - 0.6 * previous;  // tilt the noise towards the highs
        previous = white;
        double tone = std::sin(2 * pi * 190 * t) * std::exp(-t * 30) * 0.55;
        double tail = i > n - 120 ? (n - i) / 120.0 : 1.0;
        wave[size_t(i)] = (tone + bright * std::exp(-t * 14) * 0.7) * tail;
    }
    wave[0] = wave[1] = 0;  // trackers repeat the first word of one-shot samples: keep it silent
    return make("snare", quantize(wave, 120), 50, 0, 0);
}

ModSample SampleSynth::hihat() {
    const int n = int(drumRate * 0.07);
    std::vector<double> wave(static_cast<size_t>(n));
    Random random(3);
    double previous = 0;
    for (int i = 0; i < n; ++i) {
        double t = i / drumRate;
        double white = random.range(-1, 1);
        double high = white - previous;  // first difference: only the top octaves remain
        previous = white;
        wave[size_t(i)] = high * std::exp(-t * 55);
    }
    wave[0] = wave[1] = 0;  // trackers repeat the first word of one-shot samples: keep it silent
    return make("hihat", quantize(wave, 110), 28, 0, 0);
}

ModSample SampleSynth::bass() {
    const int cycles = 40, frozen = 36;  // brightness stops falling at cycle 36: the loop is seamless
    std::vector<double> wave;
    for (int c = 0; c < cycles; ++c) {
        double cutoff = 3.0 + 13.0 * std::exp(-std::min(c, frozen) / 8.0);
        for (int i = 0; i < cycle; ++i) {
            double phase = 2 * pi * i / cycle, v = 0.45 * std::sin(phase);
            for (int k = 1; k < 24; ++k) {
                double gain = 1.0 / (1.0 + std::pow(k / cutoff, 4));
                v += (k % 2 ? 1.0 : -1.0) / k * gain * std::sin(phase * k);
            }
            wave.push_back(v);
        }
    }
    return make("bass", quantize(wave, 118), 52, frozen * cycle, (cycles - frozen) * cycle);
}

ModSample SampleSynth::lead() {
    const int length = 128 * cycle;  // 128 periods of oscillator a, 129 of oscillator b
    std::vector<double> wave(static_cast<size_t>(length));
    for (int i = 0; i < length; ++i) {
        double a = 2 * pi * 128.0 * i / length, b = 2 * pi * 129.0 * i / length;
        double v = 0;
        for (int k = 1; k <= 12; ++k) {
            double saw = (k % 2 ? 1.0 : -1.0) / k;
            double square = k % 2 ? 1.0 / k : 0.0;
            double weight = 0.6 * saw + 0.5 * square;
            v += weight * (std::sin(a * k) + std::sin(b * k));
        }
        wave[size_t(i)] = v;
    }
    return make("lead", quantize(wave, 112), 40, 0, length);
}

ModSample SampleSynth::chord(const char* name, int volume) {
    std::vector<double> wave(static_cast<size_t>(cycle));
    for (int i = 0; i < cycle; ++i) {
        double phase = 2 * pi * i / cycle, v = 0;
        // Fourier series of a 25% pulse, cut at the 16th harmonic.
        for (int k = 1; k <= 16; ++k) v += std::sin(pi * k * 0.25) / k * std::cos(phase * k);
        wave[size_t(i)] = v;
    }
    return make(name, quantize(wave, 100), volume, 0, cycle);
}

}  // namespace qlntools
