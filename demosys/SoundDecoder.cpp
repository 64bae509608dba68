#include "demosys/SoundDecoder.h"

#include <sndfile.h>

#include <libopenmpt/libopenmpt.hpp>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <new>
#include <sstream>

namespace {

const size_t chunkFrames = 4096;

int16_t toSample(float value) {
    float scaled = std::nearbyint(value * 32768.0f);
    if (!(scaled > -32768.0f)) return -32768;  // also catches NaN
    if (scaled > 32767.0f) return 32767;
    return static_cast<int16_t>(scaled);
}

int16_t clampSample(float value) {
    if (!(value > -32768.0f)) return -32768;
    if (value > 32767.0f) return 32767;
    return static_cast<int16_t>(std::lrint(value));
}

}  // namespace

SoundDecoder::SoundDecoder(int outputRate, unsigned int maxSeconds)
    : outputRate(outputRate > 0 ? outputRate : 44100), maxSeconds(maxSeconds) {}

size_t SoundDecoder::maxFrames(int rate) const {
    return static_cast<size_t>(maxSeconds) * static_cast<size_t>(rate);
}

bool SoundDecoder::decode(const std::string& file, std::vector<int16_t>& frames) {
    try {
        return decodeAny(file, frames);
    } catch (const std::bad_alloc&) {
        // A file too big for memory is no more playable than a broken one.
        frames = std::vector<int16_t>();
        kind.clear();
        sourceRate = 0;
        return false;
    }
}

bool SoundDecoder::decodeAny(const std::string& file, std::vector<int16_t>& frames) {
    frames.clear();
    kind.clear();
    sourceRate = 0;
    if (decodeSampled(file, frames)) {
        kind = "sampled";
        if (sourceRate != outputRate) frames = resample(frames, sourceRate, outputRate);
        return !frames.empty();
    }
    frames.clear();
    if (decodeModule(file, frames)) {
        kind = "module";
        sourceRate = outputRate;
        return true;
    }
    frames.clear();
    sourceRate = 0;
    return false;
}

bool SoundDecoder::decodeSampled(const std::string& file, std::vector<int16_t>& frames) {
    SF_INFO info{};
    SNDFILE* in = sf_open(file.c_str(), SFM_READ, &info);
    if (!in) return false;
    if (info.channels < 1 || info.channels > 256 || info.samplerate < 1 || info.samplerate > 768000) {
        sf_close(in);
        return false;
    }
    sourceRate = info.samplerate;
    const size_t channels = static_cast<size_t>(info.channels);
    const size_t limit = maxFrames(sourceRate);
    std::vector<float> buffer(chunkFrames * channels);
    // The header's frame count is not trusted: compressed and damaged files are read to their end.
    size_t total = 0;
    sf_count_t got;
    while (total < limit && (got = sf_readf_float(in, buffer.data(), chunkFrames)) > 0) {
        size_t count = std::min(static_cast<size_t>(got), limit - total);
        for (size_t i = 0; i < count; ++i) {
            const float* frame = &buffer[i * channels];
            // Mono plays on both sides; beyond stereo only the front pair is kept.
            frames.push_back(toSample(frame[0]));
            frames.push_back(toSample(channels > 1 ? frame[1] : frame[0]));
        }
        total += count;
    }
    sf_close(in);
    return total > 0;
}

bool SoundDecoder::decodeModule(const std::string& file, std::vector<int16_t>& frames) {
    std::ifstream in(file, std::ios::binary);
    if (!in) return false;
    try {
        std::ostringstream log;  // the library's chatter stays out of the demo's log
        openmpt::module module(in, log);
        module.set_repeat_count(0);
        // The default dither adds random noise: two decodes of one file would differ.
        module.ctl_set_integer("dither", 0);
        const size_t limit = maxFrames(outputRate);
        std::vector<int16_t> buffer(chunkFrames * 2);
        size_t total = 0;
        size_t got;
        while (total < limit &&
               (got = module.read_interleaved_stereo(outputRate, std::min(chunkFrames, limit - total),
                                                     buffer.data())) > 0) {
            frames.insert(frames.end(), buffer.begin(), buffer.begin() + got * 2);
            total += got;
        }
        return total > 0;
    } catch (...) {
        return false;
    }
}

std::vector<int16_t> SoundDecoder::resample(const std::vector<int16_t>& frames, int fromRate, int toRate) {
    const size_t inFrames = frames.size() / 2;
    if (inFrames == 0 || fromRate <= 0 || toRate <= 0) return {};
    const uint64_t from = static_cast<uint64_t>(fromRate);
    const uint64_t to = static_cast<uint64_t>(toRate);
    const size_t outFrames = std::max<size_t>(1, static_cast<size_t>(inFrames * to / from));
    std::vector<int16_t> out(outFrames * 2);
    auto at = [&](int64_t index, int side) -> float {
        index = std::clamp<int64_t>(index, 0, static_cast<int64_t>(inFrames) - 1);
        return frames[static_cast<size_t>(index) * 2 + side];
    };
    for (size_t i = 0; i < outFrames; ++i) {
        // Exact rational position: whole source frame plus the fraction to the next one.
        const uint64_t scaled = i * from;
        const int64_t index = static_cast<int64_t>(scaled / to);
        const float t = static_cast<float>(scaled % to) / static_cast<float>(to);
        for (int side = 0; side < 2; ++side) {
            const float p0 = at(index - 1, side), p1 = at(index, side);
            const float p2 = at(index + 1, side), p3 = at(index + 2, side);
            const float a = -0.5f * p0 + 1.5f * p1 - 1.5f * p2 + 0.5f * p3;
            const float b = p0 - 2.5f * p1 + 2.0f * p2 - 0.5f * p3;
            const float c = -0.5f * p0 + 0.5f * p2;
            out[i * 2 + side] = clampSample(((a * t + b) * t + c) * t + p1);
        }
    }
    return out;
}
