#include "demosys/SoundSystem.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <sstream>
#include <utility>

#include "demosys/Sound.h"
#include "demosys/SoundChannel.h"
#include "demosys/SoundDecoder.h"

namespace {
// About 23 ms at 44.1 kHz: short enough for the music to follow a seek at once.
const Uint16 deviceFrames = 1024;
}

SoundSystem* SoundSystem::create() { return new (std::nothrow) SoundSystem(); }

SoundSystem::SoundSystem() = default;

SoundSystem::~SoundSystem() {
    release();
    for (Sound* sound : sounds) sound->system = nullptr;
}

bool SoundSystem::init(int maxChannels) {
    if (open) {
        error = "sound system is already open";
        return false;
    }
    if (maxChannels < 1) {
        error = "a sound system needs at least one channel";
        return false;
    }
    if (!SDL_WasInit(SDL_INIT_AUDIO)) {
        if (SDL_InitSubSystem(SDL_INIT_AUDIO) < 0) {
            error = SDL_GetError();
            return false;
        }
        startedAudio = true;
    }
    // SDL 1.2 has a single audio device per process.
    if (SDL_GetAudioStatus() != SDL_AUDIO_STOPPED) {
        error = "the audio device is already in use";
        release();
        return false;
    }
    channels.clear();
    for (int i = 0; i < maxChannels; ++i) channels.push_back(std::make_unique<SoundChannel>(this, i));
    if (!openDevice()) {
        release();
        return false;
    }
    open = true;
    SDL_PauseAudio(0);
    return true;
}

bool SoundSystem::openDevice() {
    SDL_AudioSpec wanted{};
    wanted.freq = defaultRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 2;
    wanted.samples = deviceFrames;
    wanted.callback = &SoundSystem::audioCallback;
    wanted.userdata = this;
    SDL_AudioSpec obtained{};
    if (SDL_OpenAudio(&wanted, &obtained) < 0) {
        error = SDL_GetError();
        return false;
    }
    if (obtained.format != AUDIO_S16SYS || obtained.channels != 2) {
        // Let SDL convert sample format and layout, but at the device's own rate:
        // rate changes are done better at load than by SDL's converter.
        SDL_CloseAudio();
        wanted.freq = obtained.freq;
        if (SDL_OpenAudio(&wanted, nullptr) < 0) {
            error = SDL_GetError();
            return false;
        }
        obtained = wanted;
    }
    rate = obtained.freq > 0 ? obtained.freq : defaultRate;
    mixBuffer.assign(static_cast<size_t>(obtained.samples ? obtained.samples : deviceFrames) * 2, 0);
    return true;
}

Sound* SoundSystem::createSound(const std::string& file) {
    if (!open) {
        error = "sound system is not open";
        return nullptr;
    }
    std::vector<int16_t> frames;
    SoundDecoder decoder(rate);
    if (!decoder.decode(file, frames)) {
        error = "cannot decode " + file;
        return nullptr;
    }
    Sound* sound = new (std::nothrow) Sound(this, file, rate, std::move(frames));
    if (!sound) {
        error = "out of memory for " + file;
        return nullptr;
    }
    sounds.insert(sound);
    return sound;
}

SoundChannel* SoundSystem::playSound(Sound* sound, SoundChannel* reuse) {
    if (!open || !sound || sound->system != this) return nullptr;
    Lock lock(this);
    SoundChannel* channel = (reuse && reuse->system == this) ? reuse : nullptr;
    for (size_t i = 0; !channel && i < channels.size(); ++i) {
        if (!channels[i]->playing) channel = channels[i].get();
    }
    if (!channel) {
        channel = channels.front().get();
        for (auto& candidate : channels) {
            if (candidate->startOrder < channel->startOrder) channel = candidate.get();
        }
    }
    channel->start(sound, ++starts);
    return channel;
}

int SoundSystem::getChannelsPlaying() const {
    int count = 0;
    for (const auto& channel : channels) count += channel->isPlaying() ? 1 : 0;
    return count;
}

void SoundSystem::update() {
    if (open && SDL_GetAudioStatus() == SDL_AUDIO_STOPPED) {
        open = false;
        for (auto& channel : channels) channel->playing = false;
    }
}

bool SoundSystem::release() {
    if (open) {
        SDL_CloseAudio();
        open = false;
    }
    for (auto& channel : channels) channel->playing = false;
    if (startedAudio) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        startedAudio = false;
    }
    return true;
}

void SoundSystem::lock() {
    if (open) SDL_LockAudio();
}

void SoundSystem::unlock() {
    if (open) SDL_UnlockAudio();
}

void SoundSystem::forgetSound(Sound* sound) {
    Lock lock(this);
    for (auto& channel : channels) {
        if (channel->sound == sound) channel->detach();
    }
    sounds.erase(sound);
}

void SoundSystem::audioCallback(void* self, Uint8* stream, int length) {
    static_cast<SoundSystem*>(self)->mix(stream, length);
}

void SoundSystem::mix(Uint8* stream, int length) {
    const size_t samples = static_cast<size_t>(length) / sizeof(int16_t);
    if (mixBuffer.size() < samples) mixBuffer.resize(samples);
    std::fill(mixBuffer.begin(), mixBuffer.begin() + samples, 0);
    for (auto& channel : channels) channel->mixInto(mixBuffer.data(), static_cast<unsigned int>(samples / 2));
    int16_t* out = reinterpret_cast<int16_t*>(stream);
    for (size_t i = 0; i < samples; ++i) {
        const int32_t value = mixBuffer[i];
        out[i] = static_cast<int16_t>(value > 32767 ? 32767 : (value < -32768 ? -32768 : value));
    }
}

std::string SoundSystem::toString() const {
    std::ostringstream text;
    text << "SoundSystem {\n"
         << "rate = " << rate << "\n"
         << "channels = " << channels.size() << "\n"
         << "open = " << (open ? "true" : "false") << "\n"
         << "}\n";
    return text.str();
}
