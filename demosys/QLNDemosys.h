#pragma once
// The engine's shared state and services: one static facade that every part of the
// engine reaches without being handed a pointer. Single-threaded by design.
#include <SDL/SDL.h>
#include <string>

#include "demosys/Camera.h"
#include "demosys/Lightsource.h"
#include "demosys/QLNTime.h"

class Parameters;
class GLExtensions;
class Data;
class DataEffectPool;
class DataEventPool;
class DataObjectPool;
class DataTexturePool;
class DataAnimationPool;
class DataBinaryPool;
class DataShaderPool;
class DataFBOPool;
class Timeline;
class SyncPlayer;
class ActionPool;
class ScreenMetrics;
class ProgressBar;
class Texture;
class Binary;
class SoundSystem;
class Sound;
class SoundChannel;

class QLNDemosys {
public:
    // Script configuration and resources.
    static Parameters* parameters;
    static Parameters* effects;
    static Data* data;
    static DataEffectPool* effectTemplatePool;
    static DataEffectPool* effectPool;
    static DataEventPool* eventPool;
    static DataObjectPool* objectPool;
    static DataTexturePool* texturePool;
    static DataAnimationPool* animationPool;
    static DataBinaryPool* binaryPool;
    static DataShaderPool* shaderPool;
    static DataFBOPool* fboPool;
    static Timeline* timeline;
    static ActionPool* action;
    static SyncPlayer* sync;  // null unless the script has a sync block

    static Camera camera;
    static Lightsource light;
    static GLExtensions* glExtensions;  // created when the screen opens, deleted at dispose
    static ScreenMetrics* screenMetrics;
    static SDL_Surface* screen;
    static ProgressBar* pBar;

    // The clock (milliseconds).
    static QLNTime stopTime;
    static unsigned int startTime;
    static unsigned int currentTime;
    static unsigned int pauseTime;
    static bool pause;
    static unsigned int frames;
    static unsigned int offset;
    static bool quit;
    static bool cameraActive;
    static bool system_error;

    // Music.
    static bool music;
    static SoundSystem* soundsystem;
    static Sound* sound;
    static SoundChannel* soundchannel;

    static std::string message;
    static SDL_Event keyPressed;

    // Where the frame loop reads its ticks: SDL's millisecond counter unless a test or
    // a capture tool drives demo time itself.
    typedef unsigned int (*TickSource)();
    static TickSource tickSource;
    static void setTickSource(TickSource source);  // null restores SDL's counter
    static unsigned int getTicks();

    static void setQuit(bool value);
    static bool checkQuit();
    static void setProgressBar(ProgressBar* bar);
    static unsigned int getStartTime();
    static void setStartTime(unsigned int ignored);
    static void updateTime(unsigned int now);
    static unsigned int getMillisecondsElapsed();
    static bool startTimer();
    static bool stopTimer();
    static float getFPS();

    static void showMessage(std::string text);
    static void showMessage();
    static std::string getMessage();
    static bool checkKeyPress(int key);
    static bool glErrPrint(std::string location);
    static Texture* loadTexture(std::string filename, unsigned int target, bool mipmap);
    static Binary* loadBinary(std::string filename);
    static void shutDown();

    // Window and screen.
    static bool screenOpen(ScreenMetrics* metrics);
    static bool windowOpen(ScreenMetrics* metrics, const char* title, char* icon);

    // Music playback: the whole file is decoded at load and mixed by SDL's audio output.
    static bool soundInit(const char* file);
    static bool soundInitPlay(const char* file);
    static bool soundPlay();
    static bool soundPlay(unsigned int ms);
    static bool soundStop();
    static bool soundShutdown();
    static void soundUpdate();  // once per frame, in the frame loop
};
