#include "demo/capture/AudioSegment.h"

#include <sndfile.h>

#include <algorithm>
#include <vector>

#include "demosys/Sound.h"

int64_t AudioSegment::sampleAt(int64_t frame, int rate, int fps) {
    return (frame * rate * 2 + fps) / (2 * static_cast<int64_t>(fps));
}

bool AudioSegment::write(const Sound& sound, const std::string& path, int64_t firstFrame, int64_t endFrame, int fps,
                         std::string& error) {
    const int rate = sound.getRate();
    const int64_t begin = sampleAt(firstFrame, rate, fps);
    const int64_t end = sampleAt(endFrame, rate, fps);
    SF_INFO info = {};
    info.samplerate = rate;
    info.channels = 2;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    if (!file) {
        error = "cannot write " + path + ": " + sf_strerror(nullptr);
        return false;
    }
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
