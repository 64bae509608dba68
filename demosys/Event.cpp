#include "demosys/Event.h"

Event::~Event() {}
void Event::execute() {}
void Event::setParameters(ParameterGroup*) {}
ParameterGroup* Event::getParameters() { return nullptr; }
void Event::setTime(QLNTime*) {}
QLNTime* Event::getTime() { return nullptr; }
Event* Event::getInstance() { return nullptr; }
std::string Event::toString() { return "Event {...}"; }
