#pragma once
// The engine as the entry point builds it: the driver creates the pools and templates,
// prototypes are registered by class name, then the loader's own stages run on a real
// script. Frames run on a clock the test drives. Everything the engine prints is kept in log.
#include <string>

#include "demosys/Demo.h"
#include "demosys/ResourceLoader.h"

class Effect;

class Engine {
public:
    explicit Engine(const std::string& scriptPath);
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    Demo& driver() { return *demo; }
    // parseConfig, then (withData, needs the window) loadDataFiles, then createEffectObjects and
    // createTimeline.
    bool load(bool withData = false);
    std::string error() { return loader.getErrorMessage(); }
    Effect* effect(const std::string& name);
    // One frame of the loop: clock, due events, drawing of the running effects.
    void frame(unsigned int ticks);

    ResourceLoader loader;
    std::string log;

private:
    Demo* demo;
};
