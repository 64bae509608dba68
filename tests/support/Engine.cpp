#include "support/Engine.h"

#include "demosys/ActionPool.h"
#include "demosys/DataEffectPool.h"
#include "demosys/ProgressBar.h"
#include "demosys/QLNDemosys.h"
#include "demosys/SyncPlayer.h"
#include "demosys/Timeline.h"
#include "support/TestSupport.h"

Engine::Engine(const std::string& scriptPath) : loader(scriptPath), demo(nullptr) {
    log = testsupport::captureStdout([&] { demo = new Demo(0, nullptr); });
    QLNDemosys::startTime = 0;
    QLNDemosys::currentTime = 0;
    QLNDemosys::pause = false;
}

Engine::~Engine() {
    testsupport::captureStdout([&] {
        loader.dispose();
        delete demo;
    });
}

bool Engine::load(bool withData) {
    bool ok = true;
    log += testsupport::captureStdout([&] {
        ok = loader.parseConfig();
        if (!withData) {
            // Without data files there is no window, and no loading bar to draw into it.
            delete QLNDemosys::pBar;
            QLNDemosys::pBar = nullptr;
        }
        ok = ok && (!withData || loader.loadDataFiles()) && loader.createEffectObjects() && loader.createTimeline();
    });
    return ok;
}

Effect* Engine::effect(const std::string& name) { return QLNDemosys::effectPool->getEffect(name); }

void Engine::frame(unsigned int ticks) {
    log += testsupport::captureStdout([ticks] {
        QLNDemosys::updateTime(ticks);
        QLNDemosys::timeline->watch();
        if (QLNDemosys::sync) QLNDemosys::sync->update(QLNDemosys::getMillisecondsElapsed());
        QLNDemosys::action->execute(QLNDemosys::getMillisecondsElapsed());
    });
}
