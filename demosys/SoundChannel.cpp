#include "demosys/SoundChannel.h"

#include "demosys/Sound.h"
#include "demosys/SoundSystem.h"

SoundChannel::SoundChannel(SoundSystem* system, int index) : system(system), index(index) {}

bool SoundChannel::isPlaying() const {
    SoundSystem::Lock lock(system);
    return playing && sound && frame < sound->getFrameCount();
}

bool SoundChannel::stop() {
    if (!system->isOpen()) return false;
    SoundSystem::Lock lock(system);
    playing = false;
    return true;
}

bool SoundChannel::setPosition(unsigned int ms) {
    SoundSystem::Lock lock(system);
    if (!sound) return false;
    const uint64_t target = static_cast<uint64_t>(ms) * static_cast<uint64_t>(sound->getRate()) / 1000;
    if (target > sound->getFrameCount()) {
        frame = sound->getFrameCount();
        return false;
    }
    frame = target;
    return true;
}

unsigned int SoundChannel::getPosition() const {
    SoundSystem::Lock lock(system);
    if (!sound) return 0;
    // Largest ms whose first frame (ms × rate / 1000) is not beyond the current frame.
    const uint64_t rate = static_cast<uint64_t>(sound->getRate());
    return static_cast<unsigned int>(((frame + 1) * 1000 - 1) / rate);
}

uint64_t SoundChannel::getFramePosition() const {
    SoundSystem::Lock lock(system);
    return frame;
}

Sound* SoundChannel::getCurrentSound() const {
    SoundSystem::Lock lock(system);
    return sound;
}

void SoundChannel::start(Sound* next, uint64_t order) {
    sound = next;
    frame = 0;
    startOrder = order;
    playing = true;
}

void SoundChannel::detach() {
    sound = nullptr;
    frame = 0;
    playing = false;
}

void SoundChannel::mixInto(int32_t* mix, unsigned int frames) {
    if (!playing || !sound) return;
    const uint64_t total = sound->getFrameCount();
    if (frame >= total) {
        playing = false;
        return;
    }
    const uint64_t count = frames < total - frame ? frames : total - frame;
    const int16_t* source = sound->getSamples() + frame * 2;
    for (uint64_t i = 0; i < count * 2; ++i) mix[i] += source[i];
    frame += count;
    if (frame >= total) playing = false;
}
