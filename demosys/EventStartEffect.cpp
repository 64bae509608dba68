#include "demosys/EventStartEffect.h"

#include "demosys/ActionPool.h"
#include "demosys/Data.h"
#include "demosys/DataFBOPool.h"
#include "demosys/Effect.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"
#include "qlnutils/QLNUtils.h"

static const int defaultLayer = 50;

EventStartEffect::EventStartEffect() : EventStartEffect(nullptr) {}

EventStartEffect::EventStartEffect(QLNTime* time)
    : TimedEvent(time, nullptr), layer(defaultLayer), effect(nullptr) {}

EventStartEffect::EventStartEffect(QLNTime* time, ParameterGroup* parameters)
    : TimedEvent(time, parameters), layer(defaultLayer), effect(nullptr) {
    init();
}

void EventStartEffect::init() {
    std::string p2 = ParameterReader::text(parameters, "p2");
    layer = StringUtils::isInt(p2) ? QLNUtils::string2Int(p2) : defaultLayer;
    object = ParameterReader::text(parameters, "object");
    effect = objectEffect();
}

void EventStartEffect::execute() {
    // Unknown names are rejected by the script checker; without an effect there is nothing to start.
    if (!effect || !QLNDemosys::action) return;
    if (time) effect->setStartTime(time->getTicks());
    FrameBufferObject* target = nullptr;
    if (parameters && parameters->exist("p3") && QLNDemosys::data) {
        DataFBOPool* fbos = dynamic_cast<DataFBOPool*>(QLNDemosys::data->getData("fboPool"));
        std::string name = parameters->getParameter("p3");
        if (fbos && fbos->exists(name)) target = fbos->getFBO(name);
    }
    effect->setRenderTarget(target);
    QLNDemosys::action->addEffect(object, effect, layer);
}

Event* EventStartEffect::getInstance() { return new EventStartEffect(); }

std::string EventStartEffect::toString() {
    if (!parameters) return "EventStartEffect {  }\n";
    return "EventStartEffect {\n" + parameters->toString() + "}\n";
}
