#include "demosys/Sound.h"

#include <sstream>
#include <utility>

#include "demosys/SoundSystem.h"

Sound::Sound(SoundSystem* system, const std::string& name, int rate, std::vector<int16_t> frames)
    : system(system), name(name), rate(rate > 0 ? rate : 44100), samples(std::move(frames)) {
    samples.resize(samples.size() & ~static_cast<size_t>(1));
}

Sound::~Sound() {
    if (system) system->forgetSound(this);
}

unsigned int Sound::getLength() const {
    return static_cast<unsigned int>(getFrameCount() * 1000 / static_cast<uint64_t>(rate));
}

std::string Sound::toString() const {
    std::ostringstream text;
    text << "Sound {\n"
         << "file = " << name << "\n"
         << "rate = " << rate << "\n"
         << "frames = " << getFrameCount() << "\n"
         << "length = " << getLength() << " ms\n"
         << "}\n";
    return text.str();
}
