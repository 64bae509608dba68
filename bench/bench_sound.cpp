// Load-time cost of music: decoding a whole file and bringing it to the device rate.
#include <benchmark/benchmark.h>
#include <sndfile.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>
#include <unistd.h>
#include <vector>

#include "demosys/SoundDecoder.h"

namespace {

const int seconds = 10;

std::vector<int16_t> stereoSine(int rate) {
    std::vector<int16_t> frames(static_cast<size_t>(rate) * seconds * 2);
    for (size_t i = 0; i < frames.size() / 2; ++i) {
        auto value = static_cast<int16_t>(16000 * std::sin(2 * M_PI * 440 * static_cast<double>(i) / rate));
        frames[i * 2] = frames[i * 2 + 1] = value;
    }
    return frames;
}

// A ten-second stereo file in the given container, removed when the benchmark ends.
struct MusicFile {
    std::string path;
    MusicFile(int format, const char* extension, int rate) {
        path = "/tmp/bench_sound-" + std::to_string(getpid()) + extension;
        SF_INFO info{};
        info.samplerate = rate;
        info.channels = 2;
        info.format = format;
        SNDFILE* out = sf_open(path.c_str(), SFM_WRITE, &info);
        std::vector<int16_t> frames = stereoSine(rate);
        if (out) sf_writef_short(out, frames.data(), static_cast<sf_count_t>(frames.size() / 2));
        sf_close(out);
    }
    ~MusicFile() { std::remove(path.c_str()); }
};

void decode(benchmark::State& state, int format, const char* extension, int rate) {
    MusicFile file(format, extension, rate);
    SoundDecoder decoder(44100);
    std::vector<int16_t> frames;
    for (auto _ : state) {
        if (!decoder.decode(file.path, frames)) state.SkipWithError("not decoded");
        benchmark::DoNotOptimize(frames.data());
    }
    state.counters["audio_s_per_s"] =
        benchmark::Counter(seconds * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void BM_DecodeWav44k(benchmark::State& state) { decode(state, SF_FORMAT_WAV | SF_FORMAT_PCM_16, ".wav", 44100); }
void BM_DecodeWav48kResampled(benchmark::State& state) {
    decode(state, SF_FORMAT_WAV | SF_FORMAT_PCM_16, ".wav", 48000);
}
void BM_DecodeFlac44k(benchmark::State& state) { decode(state, SF_FORMAT_FLAC | SF_FORMAT_PCM_16, ".flac", 44100); }
void BM_DecodeOgg44k(benchmark::State& state) { decode(state, SF_FORMAT_OGG | SF_FORMAT_VORBIS, ".ogg", 44100); }

void BM_Resample48kTo44k(benchmark::State& state) {
    std::vector<int16_t> frames = stereoSine(48000);
    for (auto _ : state) benchmark::DoNotOptimize(SoundDecoder::resample(frames, 48000, 44100).data());
    state.counters["audio_s_per_s"] =
        benchmark::Counter(seconds * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

}  // namespace

BENCHMARK(BM_DecodeWav44k)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DecodeWav48kResampled)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DecodeFlac44k)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DecodeOgg44k)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Resample48kTo44k)->Unit(benchmark::kMillisecond);
