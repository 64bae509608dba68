// The program's entry: build the screen description and the driver, register one
// prototype of every effect class of the demo under its class name, then play.
#include "demo/DemoEffects.h"
#include "demosys/Demo.h"
#include "demosys/ScreenMetrics.h"

int SDL_main(int argc, char** argv) {
    ScreenMetrics screenMetrics;
    Demo* demo = new Demo(argc, argv);
    registerDemoEffects(*demo);
    demo->load(&screenMetrics);
    demo->init();
    demo->run();
    demo->dispose();
    delete demo;
    return 0;
}

int main(int argc, char** argv) { return SDL_main(argc, argv); }
