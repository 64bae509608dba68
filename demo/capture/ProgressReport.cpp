#include "demo/capture/ProgressReport.h"

#include <unistd.h>

#include <cstdio>
#include <string>

ProgressReport::ProgressReport(int64_t total)
    : total(total), interactive(isatty(STDERR_FILENO)), started(std::chrono::steady_clock::now()),
      lastDrawn(started) {}

void ProgressReport::frameDone() {
    auto now = std::chrono::steady_clock::now();
    // The rate counts from the first written frame: frames drawn before the range are not its cost.
    if (done++ == 0) started = lastDrawn = now;
    // A terminal gets a live line; a log file gets a line every few seconds.
    auto every = interactive ? std::chrono::milliseconds(200) : std::chrono::milliseconds(5000);
    if (now - lastDrawn >= every) {
        lastDrawn = now;
        draw(false);
    }
}

void ProgressReport::finish() { draw(true); }

static std::string clock(double seconds) {
    long s = static_cast<long>(seconds + 0.5);
    char text[32];
    std::snprintf(text, sizeof text, "%02ld:%02ld:%02ld", s / 3600, s / 60 % 60, s % 60);
    return text;
}

void ProgressReport::draw(bool final) {
    double elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
    double rate = elapsed > 0 && done > 1 ? (done - 1) / elapsed : 0;
    const int width = 30;
    std::string bar;
    std::string counts = std::to_string(done);
    std::string left = "--:--:--";
    if (total > 0) {
        int filled = static_cast<int>(width * std::min<int64_t>(done, total) / total);
        bar = "[" + std::string(filled, '#') + std::string(width - filled, '-') + "] ";
        counts += "/" + std::to_string(total);
        if (rate > 0) left = clock((total - done) / rate);
    }
    std::fprintf(stderr, "%s%s%s frames  %.1f fps  left %s  elapsed %s%s", interactive ? "\r" : "", bar.c_str(),
                 counts.c_str(), rate, final ? "00:00:00" : left.c_str(), clock(elapsed).c_str(),
                 interactive && !final ? "" : "\n");
    std::fflush(stderr);
}
