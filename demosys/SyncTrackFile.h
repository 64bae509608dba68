#pragma once
// Track files as sync players read them: an int key count, then per key an int row, a
// float value and a char kind, little-endian. One file per track, named after the tracks
// prefix and the track name, in which every character other than a letter, a digit,
// '.', '_' or '/' is written as '-' and two upper-case hex digits.
#include <string>

class SyncTrack;

class SyncTrackFile {
public:
    static std::string escapeName(const std::string& name);
    static std::string fileName(const std::string& prefix, const std::string& trackName);

    // Replaces the track's keys with the file's; false with a message when the file is
    // missing or not a whole track file.
    static bool read(const std::string& path, SyncTrack& track, std::string& error);
    static bool write(const std::string& path, const SyncTrack& track);
};
