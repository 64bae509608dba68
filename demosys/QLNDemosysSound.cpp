// Music playback of the static facade, on our own SDL-based sound layer.
#include <iostream>

#include "demosys/QLNDemosys.h"
#include "demosys/Sound.h"
#include "demosys/SoundChannel.h"
#include "demosys/SoundSystem.h"

bool QLNDemosys::music = false;
SoundSystem* QLNDemosys::soundsystem = nullptr;
Sound* QLNDemosys::sound = nullptr;
SoundChannel* QLNDemosys::soundchannel = nullptr;

namespace {

const int virtualChannels = 32;

// Frees the sound, its channels and the system, and forgets the handles so nothing
// dangles afterwards.
void releaseAll() {
    delete QLNDemosys::sound;
    QLNDemosys::sound = nullptr;
    QLNDemosys::soundchannel = nullptr;
    if (QLNDemosys::soundsystem) QLNDemosys::soundsystem->release();
    delete QLNDemosys::soundsystem;
    QLNDemosys::soundsystem = nullptr;
}

// Create, open and load, shared by both ways of starting. A second start replaces the
// first: SDL has only the one audio device.
bool createAndLoad(const char* file, bool printCode) {
    releaseAll();
    QLNDemosys::soundsystem = SoundSystem::create();
    if (!QLNDemosys::soundsystem) {
        if (printCode) {
            std::cout << "Failed to create the FMOD System object! Error code: " << SoundSystem::errorOutOfMemory
                      << std::endl;
        } else {
            std::cout << "Failed to create the FMOD System object!" << std::endl;
        }
        QLNDemosys::message = "Failed to initialize FMOD!";
        return false;
    }
    if (!QLNDemosys::soundsystem->init(virtualChannels)) {
        std::cout << "Failed to initialize FMOD!" << std::endl;
        QLNDemosys::message = "Failed to initialize FMOD!";
        releaseAll();
        return false;
    }
    QLNDemosys::sound = file ? QLNDemosys::soundsystem->createSound(file) : nullptr;
    if (!QLNDemosys::sound) {
        QLNDemosys::message = "Failed to load soundfile!";
        return false;
    }
    return true;
}

// A channel answers while its system is open; never having played means no channel.
bool stopChannel() {
    SoundChannel* channel = QLNDemosys::soundchannel;
    if (!channel || !QLNDemosys::soundsystem || !QLNDemosys::soundsystem->isOpen()) return false;
    channel->isPlaying();
    return channel->stop();
}

}  // namespace

bool QLNDemosys::soundInit(const char* file) {
    if (!createAndLoad(file, true)) return false;
    music = true;
    return true;
}

bool QLNDemosys::soundInitPlay(const char* file) {
    if (!createAndLoad(file, false)) return false;
    soundchannel = soundsystem->playSound(sound);
    music = true;
    return true;
}

bool QLNDemosys::soundPlay() {
    if (!sound) {
        message = "Failed to play sound!";
        return false;
    }
    soundchannel = soundsystem->playSound(sound);
    return true;
}

bool QLNDemosys::soundPlay(unsigned int ms) {
    if (!sound) {
        message = "Failed to play sound!";
        return false;
    }
    // Restart and seek under one lock, so not a single frame from the start is heard.
    SoundSystem::Lock lock(soundsystem);
    SoundChannel* channel = soundsystem->playSound(sound, soundchannel);
    if (!channel) {
        message = "Failed to play sound!";
        return false;
    }
    soundchannel = channel;
    if (!soundchannel->setPosition(ms)) message = "Failed to play sound from current position!";
    // Deliberately false even on success: callers must not read it as an error flag.
    return false;
}

bool QLNDemosys::soundStop() {
    if (stopChannel()) return true;
    message = "Failed to stop playing sound!";
    return false;
}

bool QLNDemosys::soundShutdown() {
    if (stopChannel()) {
        releaseAll();
        return false;
    }
    message = "Failed to shut down FMOD!";
    return true;
}

void QLNDemosys::soundUpdate() {
    if (soundsystem) soundsystem->update();
}
