#include "demosys/EventModifyEffect.h"

#include "demosys/Data.h"
#include "demosys/DataEffectPool.h"
#include "demosys/Effect.h"
#include "demosys/ParameterGroup.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"

static const char* const unsetMethod = "<method>";

EventModifyEffect::EventModifyEffect() : parameters(nullptr), time(nullptr), method(unsetMethod), effect(nullptr) {}

EventModifyEffect::EventModifyEffect(QLNTime* time)
    : parameters(nullptr), time(time), method(unsetMethod), effect(nullptr) {}

EventModifyEffect::EventModifyEffect(QLNTime* time, ParameterGroup* parameters)
    : parameters(parameters), time(time), method(unsetMethod), effect(nullptr) {
    init();
}

EventModifyEffect::~EventModifyEffect() {
    delete parameters;
    delete time;
}

void EventModifyEffect::init() {
    effect = nullptr;
    if (!parameters) return;
    if (parameters->exist("method")) method = parameters->getParameter("method");
    std::string object = parameters->exist("object") ? parameters->getParameter("object") : "";
    DataEffectPool* pool = QLNDemosys::data ? dynamic_cast<DataEffectPool*>(QLNDemosys::data->getData("effectPool")) : nullptr;
    if (pool && parameters->exist("object")) effect = pool->getEffect(object);
}

void EventModifyEffect::execute() {
    // Unknown names are rejected by the script checker; without an effect there is nothing to call.
    if (!effect) return;
    if (time) effect->setModifyTime(time->getTicks());
    effect->modify(method, parameters);
}

void EventModifyEffect::setParameters(ParameterGroup* value) {
    if (value != parameters) delete parameters;
    parameters = value;
    init();
}

ParameterGroup* EventModifyEffect::getParameters() { return parameters; }

void EventModifyEffect::setTime(QLNTime* value) {
    if (value != time) delete time;
    time = value;
}

QLNTime* EventModifyEffect::getTime() { return time; }

Event* EventModifyEffect::getInstance() { return new EventModifyEffect(); }

std::string EventModifyEffect::getMethod() { return method; }

std::string EventModifyEffect::toString() {
    if (!parameters) return "EventModifyEffect {  }\n";
    return "EventModifyEffect {\n" + parameters->toString() + "}\n";
}
