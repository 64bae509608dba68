#pragma once
// Notices saved files by polling their modification times (and sizes): portable, needs
// no thread, and a few dozen stat calls a poll cost nothing next to a frame.
#include <map>
#include <string>
#include <vector>

class FileWatcher {
public:
    // Replaces the watched set; the files' current state is the baseline.
    void watch(const std::vector<std::string>& files);
    // The files whose state differs from the baseline; the baseline moves on. Settled: only
    // files that have not changed again since the previous call, so that a file caught
    // half-written is taken once its writer is done.
    std::vector<std::string> changed(bool settled = true);
    const std::map<std::string, std::string>& files() const { return stamps; }

private:
    static std::string stamp(const std::string& file);
    std::map<std::string, std::string> stamps;  // file -> "mtime-ns:size", "" while missing
    std::map<std::string, std::string> seen;    // changed stamps seen by the previous call
};
