#pragma once
// The demo driver: load, init, run and dispose, around one single-threaded frame loop.
#include <SDL/SDL.h>
#include <functional>
#include <string>

class Animation;
class Effect;
class ResourceLoader;
class ScreenMetrics;

class Demo {
public:
    Demo(int argc, char** argv);
    ~Demo();
    Demo(const Demo&) = delete;
    Demo& operator=(const Demo&) = delete;

    void addEffect(std::string name, Effect* prototype);
    bool isValid();
    Demo& debug(bool on);
    void setWindowTitle(std::string title);
    // Called once per frame after the frame is drawn and before the buffers swap, while the
    // finished picture is still in the back buffer (frame capture reads it there).
    void setFrameObserver(std::function<void()> observer);
    // Tools that steer the demo: every polled window event is passed on after the driver's
    // own handling, and the frame-start hook runs after the events, before the timeline fires.
    void setEventObserver(std::function<void(const SDL_Event&)> observer);
    void setFrameStartHook(std::function<void()> hook);
    std::string getScriptPath() const { return scriptPath + scriptName; }
    // Asked at the start of every frame, before anything is drawn, whether the frame is
    // shown. A frame that is not still runs its events and effects (their state moves on)
    // but is neither finished nor swapped: frame capture skips to a range this way.
    void setFrameFilter(std::function<bool()> filter);

    bool load(ScreenMetrics* screenMetrics);
    void init();
    void run();
    void keyEvents();
    bool dispose();

private:
    SDL_Event event;
    [[maybe_unused]] int created;  // written once by the constructor, read by nothing
    int frameMarker;   // reset at the start of every frame
    int initMarker;    // written by init
    Animation* animation;
    ResourceLoader* loader;
    std::string scriptName;
    std::string scriptPath;
    std::string message;
    std::string windowTitle;
    bool error;
    bool debugMode;
    float cameraSpeed;
    // Free-camera steering. No key sets these: the camera branch of the loop stays inert.
    bool pitchUp, pitchDown, headingLeft, headingRight, moveBack, moveForward;
    std::function<void()> frameObserver;
    std::function<void(const SDL_Event&)> eventObserver;
    std::function<void()> frameStartHook;
    std::function<bool()> frameFilter;

    void clearCameraFlags();
    // Runs one loader stage, keeping its message; false once the demo has failed.
    bool stage(bool result);
};
