#include "demosys/EventStopEffect.h"

#include <iostream>

#include "demosys/ActionPool.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"

EventStopEffect::EventStopEffect() : EventStopEffect(nullptr) {}

EventStopEffect::EventStopEffect(QLNTime* time) : TimedEvent(time, nullptr) {}

EventStopEffect::EventStopEffect(QLNTime* time, ParameterGroup* parameters) : TimedEvent(time, parameters) {
    init();
}

void EventStopEffect::init() { object = ParameterReader::text(parameters, "object"); }

void EventStopEffect::execute() {
    if (!QLNDemosys::action) return;
    if (QLNDemosys::action->removeEffect(object)) return;
    std::cout << "EventStop : failed to remove effect from actionpool : " << (time ? time->toString() : "")
              << " : StopEffect(\n"
              << (parameters ? parameters->toString() : "") << ")" << std::endl;
}

Event* EventStopEffect::getInstance() { return new EventStopEffect(); }

std::string EventStopEffect::toString() { return "EventStopEffect {  }\n"; }
