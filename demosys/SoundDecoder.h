#pragma once
// Turns a whole music file into 16-bit interleaved stereo frames at one output rate:
// sampled formats (WAV, FLAC, OGG, MP3, ...) through libsndfile, resampled when the file's
// rate differs; tracker modules (MOD, XM, S3M, IT, ...) rendered at the output rate by libopenmpt.
#include <cstdint>
#include <string>
#include <vector>

class SoundDecoder {
public:
    // Twenty minutes is far beyond any demo track and keeps a looping module from filling memory.
    static const unsigned int defaultMaxSeconds = 20 * 60;

    explicit SoundDecoder(int outputRate, unsigned int maxSeconds = defaultMaxSeconds);

    // False when neither library can read the file or it holds no frames; frames is then empty.
    bool decode(const std::string& file, std::vector<int16_t>& frames);

    // "sampled", "module" or "" after a decode: which library understood the file.
    const std::string& getKind() const { return kind; }
    // The file's own rate (modules: the output rate).
    int getSourceRate() const { return sourceRate; }

    // Cubic (Hermite) resampling of interleaved stereo frames from one rate to another.
    static std::vector<int16_t> resample(const std::vector<int16_t>& frames, int fromRate, int toRate);

private:
    bool decodeAny(const std::string& file, std::vector<int16_t>& frames);
    bool decodeSampled(const std::string& file, std::vector<int16_t>& frames);
    bool decodeModule(const std::string& file, std::vector<int16_t>& frames);
    size_t maxFrames(int rate) const;

    int outputRate;
    unsigned int maxSeconds;
    std::string kind;
    int sourceRate = 0;
};
