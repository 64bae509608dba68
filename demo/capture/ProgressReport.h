#pragma once
// A progress line on standard error: frames done, frames per second, time left.
#include <chrono>
#include <cstdint>

class ProgressReport {
public:
    // total < 0: not known yet (the range runs to the demo's stop time).
    explicit ProgressReport(int64_t total);
    void setTotal(int64_t frames) { total = frames; }
    void frameDone();                 // redraws at most a few times per second
    void finish();

private:
    void draw(bool final);

    int64_t total;
    int64_t done = 0;
    bool interactive;
    std::chrono::steady_clock::time_point started;
    std::chrono::steady_clock::time_point lastDrawn;
};
