#include "demosys/EventModifyEffect.h"

#include "demosys/Effect.h"
#include "demosys/ParameterGroup.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"

static const char* const unsetMethod = "<method>";

EventModifyEffect::EventModifyEffect() : EventModifyEffect(nullptr) {}

EventModifyEffect::EventModifyEffect(QLNTime* time) : TimedEvent(time, nullptr), method(unsetMethod), effect(nullptr) {}

EventModifyEffect::EventModifyEffect(QLNTime* time, ParameterGroup* parameters)
    : TimedEvent(time, parameters), method(unsetMethod), effect(nullptr) {
    init();
}

void EventModifyEffect::init() {
    // Without a "method" entry the previous name stays.
    if (parameters && parameters->exist("method")) method = parameters->getParameter("method");
    effect = objectEffect();
}

void EventModifyEffect::execute() {
    // Unknown names are rejected by the script checker; without an effect there is nothing to call.
    if (!effect) return;
    if (time) effect->setModifyTime(time->getTicks());
    effect->modify(method, parameters);
}

Event* EventModifyEffect::getInstance() { return new EventModifyEffect(); }

std::string EventModifyEffect::getMethod() { return method; }

std::string EventModifyEffect::toString() {
    if (!parameters) return "EventModifyEffect {  }\n";
    return "EventModifyEffect {\n" + parameters->toString() + "}\n";
}
