#pragma once
// Lines from a file descriptor (standard input), read without ever blocking the frame
// loop: each call takes what has arrived and hands out the complete lines.
#include <string>
#include <vector>

class ControlInput {
public:
    explicit ControlInput(int fd = 0) : fd(fd) {}
    std::vector<std::string> poll();
    bool closed() const { return eof; }

private:
    int fd;
    bool eof = false;
    std::string pending;
};
