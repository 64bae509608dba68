#include "demo/tool/EngineState.h"

#include "demosys/ActionPool.h"
#include "demosys/Data.h"
#include "demosys/Parameters.h"
#include "demosys/ProgressBar.h"
#include "demosys/QLNDemosys.h"
#include "demosys/SyncPlayer.h"
#include "demosys/Timeline.h"

EngineState EngineState::current() {
    EngineState s;
    s.parameters = QLNDemosys::parameters;
    s.effects = QLNDemosys::effects;
    s.data = QLNDemosys::data;
    s.effectTemplatePool = QLNDemosys::effectTemplatePool;
    s.effectPool = QLNDemosys::effectPool;
    s.eventPool = QLNDemosys::eventPool;
    s.objectPool = QLNDemosys::objectPool;
    s.texturePool = QLNDemosys::texturePool;
    s.animationPool = QLNDemosys::animationPool;
    s.binaryPool = QLNDemosys::binaryPool;
    s.shaderPool = QLNDemosys::shaderPool;
    s.fboPool = QLNDemosys::fboPool;
    s.timeline = QLNDemosys::timeline;
    s.sync = QLNDemosys::sync;
    s.action = QLNDemosys::action;
    s.pBar = QLNDemosys::pBar;
    return s;
}

void EngineState::install() const {
    QLNDemosys::parameters = parameters;
    QLNDemosys::effects = effects;
    QLNDemosys::data = data;
    QLNDemosys::effectTemplatePool = effectTemplatePool;
    QLNDemosys::effectPool = effectPool;
    QLNDemosys::eventPool = eventPool;
    QLNDemosys::objectPool = objectPool;
    QLNDemosys::texturePool = texturePool;
    QLNDemosys::animationPool = animationPool;
    QLNDemosys::binaryPool = binaryPool;
    QLNDemosys::shaderPool = shaderPool;
    QLNDemosys::fboPool = fboPool;
    QLNDemosys::timeline = timeline;
    QLNDemosys::sync = sync;
    QLNDemosys::action = action;
    QLNDemosys::pBar = pBar;
}

void EngineState::release() const {
    // Installed first: resources may look at the shared state while they are freed.
    install();
    delete sync;
    QLNDemosys::sync = nullptr;
    delete timeline;
    QLNDemosys::timeline = nullptr;
    delete action;
    QLNDemosys::action = nullptr;
    delete data;  // every pool, resource and effect
    delete parameters;
    delete effects;
    delete pBar;
    EngineState().install();
}
