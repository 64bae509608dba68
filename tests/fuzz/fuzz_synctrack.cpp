// Track files: arbitrary bytes read as a .track file; an accepted track is evaluated and written back.
#include <unistd.h>

#include <cstdio>
#include <fstream>

#include "demosys/SyncTrack.h"
#include "demosys/SyncTrackFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::string path = "/tmp/fuzz_synctrack_" + std::to_string(getpid()) + ".track";
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    SyncTrack track("fuzz:x");
    std::string error;
    if (SyncTrackFile::read(path, track, error)) {
        for (double row : {-1.0, 0.0, 0.5, 7.25, 1e3, 1e9, 1e12}) track.getValue(row);
        if (!SyncTrackFile::write(path, track) || !SyncTrackFile::read(path, track, error)) __builtin_trap();
    }
    std::remove(path.c_str());
    return 0;
}
