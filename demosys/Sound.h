#pragma once
// One music file, decoded whole into memory at load: 16-bit interleaved stereo frames at
// the rate of the system that loaded it. Nothing streams while the demo plays.
#include <cstdint>
#include <string>
#include <vector>

class SoundSystem;

class Sound {
public:
    Sound(SoundSystem* system, const std::string& name, int rate, std::vector<int16_t> frames);
    // Stops every channel that plays this sound first, so the mixer never reads freed memory.
    ~Sound();
    Sound(const Sound&) = delete;
    Sound& operator=(const Sound&) = delete;

    const std::string& getName() const { return name; }
    int getRate() const { return rate; }
    uint64_t getFrameCount() const { return samples.size() / 2; }
    unsigned int getLength() const;  // milliseconds, rounded down
    const int16_t* getSamples() const { return samples.data(); }
    std::string toString() const;

private:
    friend class SoundSystem;
    SoundSystem* system;  // null once the system is gone
    std::string name;
    int rate;
    std::vector<int16_t> samples;
};
