#include "demo/tool/Workbench.h"

#include <GL/glew.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <sstream>

#include "demosys/ActionPool.h"
#include "demosys/DataEffectPool.h"
#include "demosys/DataFBOPool.h"
#include "demosys/Demo.h"
#include "demosys/Effect.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"
#include "demosys/Overlay.h"
#include "demosys/ScreenMetrics.h"
#include "demosys/SyncEditorClient.h"
#include "demosys/SyncPlayer.h"
#include "demosys/Timeline.h"
#include "qlnutils/QLNUtils.h"
#include "qlnutils/StringUtils.h"

using std::string;

namespace {

const unsigned int watchEveryMs = 50;  // a save is taken after two polls agree

string clockText(long long ms) {
    char text[32];
    std::snprintf(text, sizeof text, "%02lld:%02lld:%03lld", ms / 60000, ms / 1000 % 60, ms % 1000);
    return text;
}

ParameterGroup* systemGroup(const string& name) {
    return QLNDemosys::parameters ? QLNDemosys::parameters->getGroup(name) : nullptr;
}

// The script's stop time, as the driver reads it; after a reload it may have moved.
void readStopTime() {
    ParameterGroup* system = systemGroup("system");
    QLNDemosys::stopTime = system && system->exist("stop") ? QLNTime(system->getParameter("stop")) : QLNTime(30, 0, 0);
}

string oneLine(string text) {
    while (!text.empty() && text.back() == '\n') text.pop_back();
    for (char& c : text)
        if (c == '\n') c = ' ';
    return text;
}

}  // namespace

Workbench::Workbench(Demo& demo, const WorkbenchOptions& options)
    : demo(demo), options(options), live(demo, demo.getScriptPath()), overlayOn(options.overlay),
      loopStart(options.loopStart), loopEnd(options.loopEnd) {}

Workbench::~Workbench() = default;

unsigned int Workbench::now() const { return QLNDemosys::getMillisecondsElapsed(); }

void Workbench::seek(long long ms) {
    ms = std::max(0LL, std::min(ms, static_cast<long long>(QLNDemosys::stopTime.getTicks())));
    QLNDemosys::updateTime(QLNDemosys::getTicks());
    QLNDemosys::startTime = QLNDemosys::pauseTime = QLNDemosys::currentTime;
    QLNDemosys::frames = 0;
    // The running set is rebuilt from nothing: every event up to ms is replayed on fresh effects.
    QLNDemosys::action->removeAll();
    live.loader().resetAllEffects();
    QLNDemosys::timeline->moveTo(static_cast<unsigned int>(ms));
    if (!paused && QLNDemosys::sound) QLNDemosys::soundPlay(static_cast<unsigned int>(ms));
}

void Workbench::pause(bool on) {
    if (on == paused) return;
    paused = on;
    if (on)
        QLNDemosys::stopTimer();
    else if (QLNDemosys::sound)
        QLNDemosys::startTimer();
    else
        QLNDemosys::pause = false;
}

void Workbench::stepBeats(int direction, bool bar) {
    double t = now(), target;
    if (beatMs > 0) {
        double step = bar ? beatMs * 4 : beatMs;
        double index = direction > 0 ? std::floor(t / step + 1e-6) + 1 : std::ceil(t / step - 1e-6) - 1;
        target = index * step;
    } else {
        target = t + direction * (bar ? 10000.0 : 1000.0);
    }
    seek(static_cast<long long>(std::llround(std::max(0.0, target))));
}

bool Workbench::jumpCheckpoint(int direction) {
    Timeline* timeline = QLNDemosys::timeline;
    long long t = now(), target = -1;
    for (int i = 0; i < timeline->countCheckpoints(); ++i) {
        long long at = timeline->getCheckpoint(i)->getTicks();
        // Backwards skips a checkpoint just passed, so that pressing again keeps going back.
        if (direction < 0 && at < t - 300) target = at;
        if (direction > 0 && at > t) {
            target = at;
            break;
        }
    }
    if (target >= 0) seek(target);
    return target >= 0;
}

string Workbench::reload(std::vector<string> changed) {
    auto began = std::chrono::steady_clock::now();
    unsigned int at = now();
    string names;
    for (const string& file : changed) names += (names.empty() ? "" : ", ") + file;
    if (names.empty()) names = demo.getScriptPath();
    if (!live.reload(changed)) {
        lastError = live.error();
        std::cout << "Reload failed: " << lastError << std::endl;
        return "error Reload failed: " + oneLine(lastError);
    }
    lastError.clear();
    readStopTime();
    seek(at);
    long long ms =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - began).count();
    std::cout << "Reloaded " << names << " in " << ms << " ms" << std::endl;
    return "ok reloaded " + names + " in " + std::to_string(ms) + " ms" + (live.lastWasFast() ? " (timeline)" : "");
}

void Workbench::frameStart() {
    if (!started) {
        started = true;
        ParameterGroup* system = systemGroup("system");
        beatMs = options.bpm > 0 ? 60000.0 / options.bpm
                 : system && system->exist("bpm") ? 60000.0 / std::max(1.0f, QLNUtils::string2Float(system->getParameter("bpm")))
                                                  : 0;
        long long start = options.start;
        if (options.checkpoint > 0 && QLNDemosys::timeline->getCheckpoint(options.checkpoint - 1))
            start = QLNDemosys::timeline->getCheckpoint(options.checkpoint - 1)->getTicks();
        else if (options.checkpoint > 0)
            std::cout << "No checkpoint " << options.checkpoint << ": the script has "
                      << QLNDemosys::timeline->countCheckpoints() << std::endl;
        if (start < 0 && loopStart >= 0) start = loopStart;
        if (start >= 0) seek(start);
        live.watchScriptFiles();
        fpsSince = QLNDemosys::getTicks();
    }
    // The driver ends the demo at its stop time; here the picture waits there instead.
    if (QLNDemosys::checkQuit() && !userQuit) {
        QLNDemosys::setQuit(false);
        if (loopEnd > loopStart && loopStart >= 0) {
            seek(loopStart);
        } else {
            pause(true);
            seek(QLNDemosys::stopTime.getTicks());
        }
    }
    if (loopStart >= 0 && loopEnd > loopStart && now() >= loopEnd) seek(loopStart);

    unsigned int ticks = QLNDemosys::getTicks();
    if (ticks - lastPoll >= watchEveryMs) {
        lastPoll = ticks;
        std::vector<string> changed = live.changedFiles(true);
        if (!changed.empty()) reload(changed);
    }
    if (options.sync) followEditor();
    if (options.control) {
        for (const string& line : input.poll()) queued.push_back(line);
        // Answers keep the order of the lines: a shot holds the rest back until it is written.
        while (!queued.empty() && pendingShot.empty()) {
            string answer = command(queued.front());
            queued.pop_front();
            if (!answer.empty()) std::cout << answer << std::endl;
        }
    }
}

// A rebuild brings new tracks: a new link asks the editor for them again.
void Workbench::followEditor() {
    SyncPlayer* tracks = QLNDemosys::sync;
    if (tracks == nullptr) return;
    if (!editor || editorTracks != tracks) {
        string host;
        unsigned short port;
        SyncEditorClient::parseAddress(options.syncAddress, host, port);
        editor = std::make_unique<SyncEditorClient>(*tracks, host, port);
        editorTracks = tracks;
        editor->onSeek = [this](unsigned int row) { seek(QLNDemosys::sync->getMilliseconds(row)); };
        editor->onPause = [this](bool on) { pause(on); };
    }
    editor->update(QLNDemosys::getTicks(), tracks->getRow(now()), !paused);
}

string Workbench::command(const string& line) {
    std::istringstream words(line);
    string verb, argument;
    words >> verb >> argument;
    if (verb == "pause" || verb == "play") {
        pause(verb == "pause");
        return "ok " + verb + " " + clockText(now());
    }
    if (verb == "seek") {
        long long t = WorkbenchOptions::parseTime(argument);
        if (t < 0) return "error seek takes mm:ss:mmm, not '" + argument + "'";
        seek(t);
        return "ok seek " + clockText(now());
    }
    if (verb == "checkpoint") {
        int n = StringUtils::isInt(argument) ? QLNUtils::string2Int(argument) : 0;
        QLNTime* at = n > 0 ? QLNDemosys::timeline->getCheckpoint(n - 1) : nullptr;
        if (!at)
            return "error no checkpoint '" + argument + "': the script has " +
                   std::to_string(QLNDemosys::timeline->countCheckpoints());
        seek(at->getTicks());
        return "ok checkpoint " + argument + " " + clockText(now());
    }
    if (verb == "loop") {
        long long from, to;
        if (argument == "off") {
            loopStart = loopEnd = -1;
            return "ok loop off";
        }
        if (!WorkbenchOptions::parseRange(argument, from, to))
            return "error loop takes mm:ss:mmm-mm:ss:mmm with the start first, not '" + argument + "'";
        loopStart = from;
        loopEnd = to;
        seek(from);
        return "ok loop " + clockText(from) + "-" + clockText(to);
    }
    if (verb == "reload") return reload(live.changedFiles(false));
    if (verb == "quit") {
        userQuit = true;
        QLNDemosys::setQuit(true);
        return "ok quit";
    }
    if (verb == "time") return "ok time " + clockText(now()) + (paused ? " paused" : " playing");
    if (verb == "overlay" && (argument == "on" || argument == "off")) {
        overlayOn = argument == "on";
        return "ok overlay " + argument;
    }
    if (verb == "shot" && !argument.empty()) {
        pendingShot = argument;
        return "";
    }
    return "error unknown command '" + line + "'";
}

void Workbench::event(const SDL_Event& e) {
    if (e.type != SDL_KEYDOWN) return;
    bool shift = (e.key.keysym.mod & KMOD_SHIFT) != 0;
    switch (e.key.keysym.sym) {
        case SDLK_ESCAPE: userQuit = true; break;
        case SDLK_SPACE: pause(!paused); break;
        case SDLK_LEFT: stepBeats(-1, shift); break;
        case SDLK_RIGHT: stepBeats(1, shift); break;
        case SDLK_PAGEUP: jumpCheckpoint(-1); break;
        case SDLK_PAGEDOWN: jumpCheckpoint(1); break;
        case SDLK_HOME: seek(0); break;
        case SDLK_LEFTBRACKET: loopStart = now(); break;
        case SDLK_RIGHTBRACKET: loopEnd = now(); break;
        case SDLK_BACKSPACE: loopStart = loopEnd = -1; break;
        case SDLK_r: reload(live.changedFiles(false)); break;
        case SDLK_o: overlayOn = !overlayOn; break;
        default: break;
    }
}

std::vector<string> Workbench::overlayLines() const {
    std::vector<string> lines;
    char head[96];
    std::snprintf(head, sizeof head, "%s  %.1f fps%s", clockText(now()).c_str(), fps, paused ? "  paused" : "");
    lines.push_back(head);
    if (beatMs > 0) {
        long long beat = static_cast<long long>(now() / beatMs);
        char grid[96];
        std::snprintf(grid, sizeof grid, "bar %lld beat %lld  (%.1f bpm)", beat / 4 + 1, beat % 4 + 1, 60000.0 / beatMs);
        lines.push_back(grid);
    } else {
        lines.push_back("no beat grid: seconds");
    }
    if (QLNDemosys::sync)
        lines.push_back("sync row " + std::to_string(static_cast<long long>(QLNDemosys::sync->getRow(now()))) +
                        (!options.sync ? "" : editor && editor->isConnected() ? "  editor connected" : "  no editor"));
    if (loopStart >= 0 || loopEnd >= 0)
        lines.push_back("loop " + (loopStart >= 0 ? clockText(loopStart) : string("--:--:---")) + "-" +
                        (loopEnd >= 0 ? clockText(loopEnd) : string("--:--:---")));
    // The running effects in drawing order, as the pool lists them ("    005_logo - Effect").
    ParameterGroup* framebuffers = systemGroup("framebuffers");
    std::istringstream pool(QLNDemosys::action->toString());
    string entry;
    bool inEffects = false;
    while (std::getline(pool, entry)) {
        if (entry == "    Effects:") inEffects = true;
        else if (entry == "    AliasTable:") break;
        else if (inEffects && entry.size() > 18 && entry.find(" - Effect") != string::npos) {
            string key = entry.substr(8, entry.size() - 8 - 9);
            string name = key.substr(key.find('_') + 1);
            Effect* effect = QLNDemosys::effectPool ? QLNDemosys::effectPool->getEffect(name) : nullptr;
            FrameBufferObject* target = effect ? effect->getRenderTarget() : nullptr;
            string where = target ? "fbo" : "screen";
            for (int i = 0; target && framebuffers && i < framebuffers->size(); ++i)
                if (QLNDemosys::fboPool->getFBO(framebuffers->getKey(i)) == target) where = framebuffers->getKey(i);
            lines.push_back(key.substr(0, key.find('_')) + " " + name + " -> " + where);
        }
    }
    if (!lastError.empty()) {
        std::istringstream error("Reload failed: " + lastError);
        for (int i = 0; i < 6 && std::getline(error, entry); ++i) lines.push_back(entry);
    }
    return lines;
}

bool Workbench::writeShot(const string& file) const {
    int w = QLNDemosys::screenMetrics->getWidth(), h = QLNDemosys::screenMetrics->getHeight();
    std::vector<unsigned char> rgb(static_cast<size_t>(w) * h * 3);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadBuffer(GL_BACK);
    glReadPixels(0, 0, w, h, GL_RGB, GL_UNSIGNED_BYTE, rgb.data());
    std::FILE* out = std::fopen(file.c_str(), "wb");
    if (!out) return false;
    std::fprintf(out, "P6\n%d %d\n255\n", w, h);
    bool written = true;
    for (int y = h - 1; y >= 0; --y)  // OpenGL's rows run bottom up
        written = std::fwrite(&rgb[static_cast<size_t>(y) * w * 3], 1, static_cast<size_t>(w) * 3, out) ==
                  static_cast<size_t>(w) * 3 && written;
    return std::fclose(out) == 0 && written;
}

void Workbench::frameDrawn() {
    ++fpsFrames;
    unsigned int ticks = QLNDemosys::getTicks();
    if (ticks - fpsSince >= 500) {
        fps = fpsFrames * 1000.0f / static_cast<float>(ticks - fpsSince);
        fpsSince = ticks;
        fpsFrames = 0;
    }
    if (overlayOn) {
        int width = QLNDemosys::screenMetrics->getWidth();
        Overlay(width < 960 ? 1 : 2).draw(overlayLines(), width, QLNDemosys::screenMetrics->getHeight());
    }
    // A shot is what the window shows, overlay included when it is on.
    if (!pendingShot.empty()) {
        std::cout << (writeShot(pendingShot) ? "ok shot " : "error cannot write ") << pendingShot << std::endl;
        pendingShot.clear();
    }
}
