#include "demosys/TimedEvent.h"

#include "demosys/Data.h"
#include "demosys/DataEffectPool.h"
#include "demosys/ParameterGroup.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"

TimedEvent::~TimedEvent() {
    delete parameters;
    delete time;
}

void TimedEvent::setParameters(ParameterGroup* value) {
    if (value != parameters) delete parameters;
    parameters = value;
    init();
}

ParameterGroup* TimedEvent::getParameters() { return parameters; }

void TimedEvent::setTime(QLNTime* value) {
    if (value != time) delete time;
    time = value;
}

QLNTime* TimedEvent::getTime() { return time; }

Effect* TimedEvent::objectEffect() const {
    if (!parameters || !parameters->exist("object") || !QLNDemosys::data) return nullptr;
    DataEffectPool* pool = dynamic_cast<DataEffectPool*>(QLNDemosys::data->getData("effectPool"));
    return pool ? pool->getEffect(parameters->getParameter("object")) : nullptr;
}
