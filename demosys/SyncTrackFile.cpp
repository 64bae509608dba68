#include "demosys/SyncTrackFile.h"

#include <cctype>
#include <cmath>

#include "demosys/SyncTrack.h"
#include "qlnutils/File.h"

static const unsigned int keyBytes = 9;  // row, value, kind

std::string SyncTrackFile::escapeName(const std::string& name) {
    static const char digits[] = "0123456789ABCDEF";
    std::string escaped;
    for (unsigned char c : name) {
        if (std::isalnum(c) || c == '.' || c == '_' || c == '/') {
            escaped += static_cast<char>(c);
        } else {
            escaped += '-';
            escaped += digits[c >> 4];
            escaped += digits[c & 15];
        }
    }
    return escaped;
}

std::string SyncTrackFile::fileName(const std::string& prefix, const std::string& trackName) {
    return prefix + "_" + escapeName(trackName) + ".track";
}

bool SyncTrackFile::read(const std::string& path, SyncTrack& track, std::string& error) {
    File file(path, File::READ);
    if (!file.exists()) {
        error = "File not found";
        return false;
    }
    unsigned int size = file.getFileSize();
    if (size < 4) {
        error = "File too short for a key count (" + std::to_string(size) + " bytes)";
        return false;
    }
    // The count is checked against the file before anything is made of it.
    int count = file.readInt();
    if (count < 0 || static_cast<unsigned int>(count) != (size - 4) / keyBytes || (size - 4) % keyBytes != 0) {
        error = "Key count " + std::to_string(count) + " does not fit the file (" + std::to_string(size) + " bytes)";
        return false;
    }
    track.clear();
    for (int i = 0; i < count; ++i) {
        int row = file.readInt();
        float value = file.readFloat();
        unsigned char type = static_cast<unsigned char>(file.readChar());
        if (row < 0 || type >= SyncTrack::KEY_TYPES || !std::isfinite(value)) {
            error = "Key " + std::to_string(i) + " is corrupt (row " + std::to_string(row) + ", kind " +
                    std::to_string(type) + ")";
            track.clear();
            return false;
        }
        track.setKey(static_cast<unsigned int>(row), value, type);
    }
    return true;
}

bool SyncTrackFile::write(const std::string& path, const SyncTrack& track) {
    File file(path, File::OVERWRITE);
    file.put(static_cast<int>(track.getKeys().size()));
    for (const auto& key : track.getKeys()) {
        file.put(static_cast<int>(key.first));
        file.put(key.second.value);
        file.put(key.second.type);
    }
    return file.write();
}
