#pragma once
// What a capture needs to know of a demoscript before any window opens: its start and
// stop times and its screen size, read by the engine's own script reader.
#include <cstdint>
#include <string>

struct ScriptSettings {
    uint32_t startMs = 0;
    uint32_t stopMs = 30 * 60 * 1000;  // the driver's default without a "stop"
    int width = 0;                     // 0 = the script names no size
    int height = 0;

    // Reads resources/scripts/<name> (the default script when name is empty) once the
    // demo's effect templates are registered; false with the reader's message.
    bool read(const std::string& name, std::string& error);
};
