// demotool: the workbench for demo makers. Plays a demoscript through the same driver,
// loader, timeline and effects as the demo program, and lets its maker start anywhere,
// pause, seek, loop and reload on save. See WorkbenchOptions::usage() and the README.
#include <iostream>
#include <string>
#include <vector>

#include "demo/DemoEffects.h"
#include "demo/tool/Workbench.h"
#include "demo/tool/WorkbenchOptions.h"
#include "demosys/Demo.h"
#include "demosys/ScreenMetrics.h"

int main(int argc, char** argv) {
    WorkbenchOptions options;
    std::string error;
    if (!options.parse(argc, argv, error)) {
        std::cerr << "demotool: " << error << "\n" << WorkbenchOptions::usage();
        return 2;
    }
    if (options.help) {
        std::cout << WorkbenchOptions::usage();
        return 0;
    }
    ScreenMetrics metrics;
    metrics.setFullscreen(false);
    metrics.setFullscreenOverride(true);  // a workbench sits beside the editor

    std::vector<char*> demoArgs = {argv[0], options.script.data(), nullptr};
    Demo demo(options.script.empty() ? 1 : 2, demoArgs.data());
    registerDemoEffects(demo);
    demo.setWindowTitle("Quillon Demosystem - workbench");
    demo.load(&metrics);
    demo.init();
    Workbench bench(demo, options);
    demo.setFrameStartHook([&bench] { bench.frameStart(); });
    demo.setEventObserver([&bench](const SDL_Event& event) { bench.event(event); });
    demo.setFrameObserver([&bench] { bench.frameDrawn(); });
    demo.run();
    demo.dispose();
    return demo.isValid() ? 0 : 1;
}
