#include "demo/tool/ControlInput.h"

#include <poll.h>
#include <unistd.h>

std::vector<std::string> ControlInput::poll() {
    std::vector<std::string> lines;
    char buffer[4096];
    while (!eof) {
        pollfd ready = {fd, POLLIN, 0};
        if (::poll(&ready, 1, 0) <= 0 || !(ready.revents & (POLLIN | POLLHUP))) break;
        ssize_t got = ::read(fd, buffer, sizeof buffer);
        if (got <= 0) {
            eof = true;
            break;
        }
        pending.append(buffer, static_cast<size_t>(got));
    }
    size_t start = 0, end;
    while ((end = pending.find('\n', start)) != std::string::npos) {
        std::string line = pending.substr(start, end - start);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
        start = end + 1;
    }
    pending.erase(0, start);
    // The last line of a closed input counts even without its line end.
    if (eof && !pending.empty()) lines.push_back(pending), pending.clear();
    return lines;
}
