// Arbitrary bytes as a music file: both decoders (libsndfile, libopenmpt) and the
// resampler must reject or decode them without reading or writing out of bounds.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "demosys/SoundDecoder.h"
#include "fuzz/FuzzFile.h"

// The codec libraries under libsndfile lose a little memory on some broken streams (an
// Ogg whose Vorbis headers do not parse, for one); those leaks are theirs, not ours.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libvorbis.so\n"
           "leak:libogg.so\n"
           "leak:libFLAC.so\n"
           "leak:libmpg123.so\n"
           "leak:libsndfile.so\n";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string path = fuzzFile("input.snd", data, size);
    // A short limit keeps long-looping modules from eating the run.
    SoundDecoder decoder(44100, 30);
    std::vector<int16_t> frames;
    if (decoder.decode(path, frames) && frames.size() % 2 != 0) std::abort();
    return 0;
}
