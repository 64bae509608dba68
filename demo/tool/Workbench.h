#pragma once
// The workbench around the demo driver: starts anywhere, pauses, seeks by beat, bar or
// checkpoint, loops a range, reloads what was saved, and draws an overlay. Keys and
// control lines lead to the same actions; the music always follows the picture.
#include <SDL/SDL.h>

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "demo/tool/ControlInput.h"
#include "demo/tool/LiveReload.h"
#include "demo/tool/WorkbenchOptions.h"

class Demo;
class SyncEditorClient;
class SyncPlayer;

class Workbench {
public:
    Workbench(Demo& demo, const WorkbenchOptions& options);
    ~Workbench();
    // Hooks for the driver's frame loop.
    void frameStart();
    void event(const SDL_Event& event);
    void frameDrawn();

    // One control line; the answer starts with "ok" or "error" ("" while it waits for a frame).
    std::string command(const std::string& line);

private:
    unsigned int now() const;
    void seek(long long ms);
    void pause(bool on);
    void stepBeats(int direction, bool bar);
    bool jumpCheckpoint(int direction);
    std::string reload(std::vector<std::string> changed);
    std::vector<std::string> overlayLines() const;
    void followEditor();
    bool writeShot(const std::string& file) const;

    Demo& demo;
    WorkbenchOptions options;
    LiveReload live;
    ControlInput input;
    bool overlayOn;
    bool paused = false;
    bool started = false;
    bool userQuit = false;
    long long loopStart, loopEnd;
    double beatMs = 0;
    std::string lastError;
    std::string pendingShot;      // written after the next frame is drawn
    std::deque<std::string> queued;  // control lines not yet carried out
    unsigned int lastPoll = 0;
    unsigned int fpsSince = 0, fpsFrames = 0;
    float fps = 0;
    std::unique_ptr<SyncEditorClient> editor;
    SyncPlayer* editorTracks = nullptr;  // the tracks the editor link asked for
};
