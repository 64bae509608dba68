#pragma once
// Fuzz inputs reach the readers through real files: one scratch folder per process,
// memory-backed where possible, removed at exit.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

// The path lives on the heap, never freed: the exit handler that removes the folder runs
// after static destructors would have freed it.
inline const std::string& fuzzDir() {
    static const std::string* dir = [] {
        std::string pattern = std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : "/tmp";
        pattern += "/qln-fuzz-XXXXXX";
        if (!mkdtemp(&pattern[0])) std::abort();
        std::atexit([] { std::filesystem::remove_all(fuzzDir()); });
        return new std::string(pattern);
    }();
    return *dir;
}

// Writes the bytes to the named file of the scratch folder; returns its path.
inline std::string fuzzFile(const std::string& name, const uint8_t* data, size_t size) {
    std::string path = fuzzDir() + "/" + name;
    std::FILE* out = std::fopen(path.c_str(), "wb");
    if (!out) std::abort();
    if (size) std::fwrite(data, 1, size, out);
    std::fclose(out);
    return path;
}

inline std::string fuzzFile(const std::string& name, const std::string& text) {
    return fuzzFile(name, reinterpret_cast<const uint8_t*>(text.data()), text.size());
}
