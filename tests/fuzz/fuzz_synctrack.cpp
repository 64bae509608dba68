// Track files: arbitrary bytes read as a .track file; an accepted track is evaluated and written back.
#include "demosys/SyncTrack.h"
#include "demosys/SyncTrackFile.h"
#include "fuzz/FuzzFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string path = fuzzFile("fuzz.track", data, size);
    SyncTrack track("fuzz:x");
    std::string error;
    if (SyncTrackFile::read(path, track, error)) {
        for (double row : {-1.0, 0.0, 0.5, 7.25, 1e3, 1e9, 1e12}) track.getValue(row);
        if (!SyncTrackFile::write(path, track) || !SyncTrackFile::read(path, track, error)) __builtin_trap();
    }
    return 0;
}
