// makemusic OUT.mod: composes the demo's music as a ProTracker module (125 BPM, speed 6).
#include <iostream>

#include "tools/MusicComposer.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: makemusic output.mod\n";
        return 2;
    }
    std::string error;
    if (!qlntools::MusicComposer::write(argv[1], error)) {
        std::cerr << "makemusic: " << error << "\n";
        return 1;
    }
    return 0;
}
