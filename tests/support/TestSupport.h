#pragma once
// Helpers shared by the tests: temporary folders, files, captured output.
#include <functional>
#include <string>

namespace testsupport {

// A fresh folder below the system temp dir, removed with everything in it on destruction.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::string& path() const { return dir; }
    // Writes text (or bytes) to a file below the folder, creating sub-folders; returns its full path.
    std::string write(const std::string& relative, const std::string& content) const;
    std::string file(const std::string& relative) const { return dir + "/" + relative; }
private:
    std::string dir;
};

// Runs fn and returns what it wrote to standard output (C++ streams and C stdio alike).
std::string captureStdout(const std::function<void()>& fn);

// The repository root (for resources) and the build tree (for the programs).
std::string sourceDir();
std::string binaryDir();

// Whole content of a file as bytes; empty when it cannot be read.
std::string readFile(const std::string& path);

}  // namespace testsupport
