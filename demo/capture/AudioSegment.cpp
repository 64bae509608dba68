#include "demo/capture/AudioSegment.h"

#include <sndfile.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <vector>

#include "demosys/Sound.h"

static SNDFILE* openForWriting(const std::string& path, int rate, std::string& error) {
    SF_INFO info = {};
    info.samplerate = rate;
    info.channels = 2;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    if (!file) error = "cannot write " + path + ": " + sf_strerror(nullptr);
    return file;
}

int64_t AudioSegment::sampleAt(int64_t frame, int rate, int fps) {
    return (frame * rate * 2 + fps) / (2 * static_cast<int64_t>(fps));
}

bool AudioSegment::write(const Sound& sound, const std::string& path, int64_t firstFrame, int64_t endFrame, int fps,
                         std::string& error) {
    const int rate = sound.getRate();
    const int64_t begin = sampleAt(firstFrame, rate, fps);
    const int64_t end = sampleAt(endFrame, rate, fps);
    SNDFILE* file = openForWriting(path, rate, error);
    if (!file) return false;
    const int64_t available = static_cast<int64_t>(sound.getFrameCount());
    const int16_t* samples = sound.getSamples();
    std::vector<int16_t> silence;
    bool ok = true;
    int64_t at = begin;
    while (ok && at < end) {
        const int64_t chunk = std::min<int64_t>(end - at, 65536);
        if (at + chunk <= available) {
            ok = sf_writef_short(file, samples + at * 2, chunk) == chunk;
        } else {
            // Past the end of the music: pad with silence so the sound track is as long as the video.
            silence.assign(static_cast<size_t>(chunk) * 2, 0);
            int64_t music = std::max<int64_t>(0, std::min(available - at, chunk));
            if (music > 0) std::copy(samples + at * 2, samples + (at + music) * 2, silence.begin());
            ok = sf_writef_short(file, silence.data(), chunk) == chunk;
        }
        at += chunk;
    }
    if (!ok) error = "cannot write " + path + ": " + sf_strerror(file);
    sf_close(file);
    return ok;
}

bool AudioSegment::join(const std::string& dir, const std::string& path, std::string& error) {
    std::map<long long, std::pair<long long, std::string>> pieces;  // first frame -> last, file
    std::error_code code;
    for (const auto& entry : std::filesystem::directory_iterator(dir, code)) {
        const std::string name = entry.path().filename().string();
        long long first = 0, last = 0;
        char tail[8] = {0};
        if (std::sscanf(name.c_str(), "audio_%lld-%lld.%4s", &first, &last, tail) == 3 && std::string(tail) == "wav")
            pieces[first] = {last, entry.path().string()};
    }
    if (pieces.empty()) {
        error = "no audio_FIRST-LAST.wav in '" + dir + "' to join";
        return false;
    }
    long long expected = pieces.begin()->first;
    for (const auto& piece : pieces) {
        if (piece.first != expected) {
            error = "frames " + std::to_string(expected) + "-" + std::to_string(piece.first - 1) +
                    " have no audio file in '" + dir + "'";
            return false;
        }
        expected = piece.second.first + 1;
    }
    SNDFILE* out = nullptr;
    std::vector<int16_t> samples(65536 * 2);
    bool ok = true;
    for (const auto& piece : pieces) {
        SF_INFO info = {};
        SNDFILE* in = sf_open(piece.second.second.c_str(), SFM_READ, &info);
        if (!in || info.channels != 2) {
            error = "cannot read " + piece.second.second + " as stereo audio";
            if (in) sf_close(in);
            ok = false;
            break;
        }
        if (!out && !(out = openForWriting(path, info.samplerate, error))) {
            sf_close(in);
            return false;
        }
        sf_count_t got;
        while (ok && (got = sf_readf_short(in, samples.data(), 65536)) > 0)
            ok = sf_writef_short(out, samples.data(), got) == got;
        if (!ok) error = "cannot write " + path + ": " + sf_strerror(out);
        sf_close(in);
        if (!ok) break;
    }
    if (out) sf_close(out);
    return ok;
}
