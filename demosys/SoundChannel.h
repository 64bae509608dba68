#pragma once
// One voice of the mixer: which sound it plays and the next frame it will hand to the
// device. Owned by its SoundSystem; the audio thread reads it only under SDL's audio lock.
#include <cstdint>

class Sound;
class SoundSystem;

class SoundChannel {
public:
    SoundChannel(SoundSystem* system, int index);

    // True while the channel's sound is sounding: started, not stopped, not past its end.
    bool isPlaying() const;
    // Silences the channel and keeps its position. False only when the system is closed.
    bool stop();
    // Moves to the frame at ms × rate / 1000 (rounded down). Past the end of the sound the
    // channel goes to the end and falls silent, and the result is false; false without a sound.
    bool setPosition(unsigned int ms);
    // The millisecond in which the next frame to be mixed lies; the inverse of setPosition.
    unsigned int getPosition() const;
    uint64_t getFramePosition() const;
    Sound* getCurrentSound() const;
    int getIndex() const { return index; }

private:
    friend class SoundSystem;
    // Called by the system with the audio lock held.
    void start(Sound* next, uint64_t order);
    void detach();
    void mixInto(int32_t* mix, unsigned int frames);

    SoundSystem* system;
    int index;
    Sound* sound = nullptr;
    uint64_t frame = 0;
    uint64_t startOrder = 0;  // when it was started: the oldest voice is stolen first
    bool playing = false;
};
