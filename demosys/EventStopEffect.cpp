#include "demosys/EventStopEffect.h"

#include <iostream>

#include "demosys/ActionPool.h"
#include "demosys/ParameterGroup.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"

EventStopEffect::EventStopEffect() : parameters(nullptr), time(nullptr) {}

EventStopEffect::EventStopEffect(QLNTime* time) : parameters(nullptr), time(time) {}

EventStopEffect::EventStopEffect(QLNTime* time, ParameterGroup* parameters) : parameters(parameters), time(time) {
    init();
}

EventStopEffect::~EventStopEffect() {
    delete parameters;
    delete time;
}

void EventStopEffect::init() {
    object.clear();
    if (parameters && parameters->exist("object")) object = parameters->getParameter("object");
}

void EventStopEffect::execute() {
    if (!QLNDemosys::action) return;
    if (QLNDemosys::action->removeEffect(object)) return;
    std::cout << "EventStop : failed to remove effect from actionpool : " << (time ? time->toString() : "")
              << " : StopEffect(\n"
              << (parameters ? parameters->toString() : "") << ")" << std::endl;
}

void EventStopEffect::setParameters(ParameterGroup* value) {
    if (value != parameters) delete parameters;
    parameters = value;
    init();
}

ParameterGroup* EventStopEffect::getParameters() { return parameters; }

void EventStopEffect::setTime(QLNTime* value) {
    if (value != time) delete time;
    time = value;
}

QLNTime* EventStopEffect::getTime() { return time; }

Event* EventStopEffect::getInstance() { return new EventStopEffect(); }

std::string EventStopEffect::toString() { return "EventStopEffect {  }\n"; }
