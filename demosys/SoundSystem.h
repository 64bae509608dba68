#pragma once
// The music layer: SDL 1.2's audio output with our own software mixer. Sounds are decoded
// whole at load (SoundDecoder) at the device's rate; channels play them from memory.
// Every change the main thread makes to a channel happens under SDL's audio lock.
#include <SDL/SDL.h>

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

class Sound;
class SoundChannel;

class SoundSystem {
public:
    static const int defaultRate = 44100;
    static const int errorOutOfMemory = 1;  // the code create() failures are reported with

    // A new closed system, or null when it cannot be allocated.
    static SoundSystem* create();

    SoundSystem();
    ~SoundSystem();  // releases; sounds still alive are cut loose from it
    SoundSystem(const SoundSystem&) = delete;
    SoundSystem& operator=(const SoundSystem&) = delete;

    // Starts SDL's audio subsystem if nobody has, opens the device and starts mixing
    // silence. False (see getError) when there is no usable audio device.
    bool init(int maxChannels);
    bool isOpen() const { return open; }
    int getOutputRate() const { return rate; }
    int getChannelCount() const { return static_cast<int>(channels.size()); }
    const std::string& getError() const { return error; }

    // Decodes the whole file; null (see getError) when closed or the file is not music.
    // The caller owns the sound and deletes it before or after the system.
    Sound* createSound(const std::string& file);

    // Plays sound from its start. With reuse (one of this system's channels) that channel
    // is restarted; otherwise a silent channel is taken, or the oldest one when all sound.
    // Null when the system is closed or the sound is not one of its own.
    SoundChannel* playSound(Sound* sound, SoundChannel* reuse = nullptr);
    int getChannelsPlaying() const;

    // Once per frame: notices a device that was closed behind the system's back.
    void update();

    // Closes the device and, if this system started it, SDL's audio subsystem.
    bool release();

    // Groups several channel changes so the mixer sees them together (recursive).
    void lock();
    void unlock();
    class Lock {
    public:
        explicit Lock(SoundSystem* system) : system(system) { system->lock(); }
        ~Lock() { system->unlock(); }
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;
    private:
        SoundSystem* system;
    };

    std::string toString() const;

private:
    friend class Sound;
    void forgetSound(Sound* sound);
    bool openDevice();
    static void audioCallback(void* self, Uint8* stream, int length);
    void mix(Uint8* stream, int length);

    std::vector<std::unique_ptr<SoundChannel>> channels;
    std::vector<int32_t> mixBuffer;
    std::set<Sound*> sounds;
    std::string error;
    int rate = defaultRate;
    bool open = false;
    bool startedAudio = false;
    uint64_t starts = 0;
};
