#include "demosys/EventStartEffect.h"

#include "demosys/ActionPool.h"
#include "demosys/Data.h"
#include "demosys/DataEffectPool.h"
#include "demosys/DataFBOPool.h"
#include "demosys/Effect.h"
#include "demosys/ParameterGroup.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"
#include "qlnutils/QLNUtils.h"

static const int defaultLayer = 50;

EventStartEffect::EventStartEffect()
    : parameters(nullptr), time(nullptr), layer(defaultLayer), effect(nullptr) {}

EventStartEffect::EventStartEffect(QLNTime* time)
    : parameters(nullptr), time(time), layer(defaultLayer), effect(nullptr) {}

EventStartEffect::EventStartEffect(QLNTime* time, ParameterGroup* parameters)
    : parameters(parameters), time(time), layer(defaultLayer), effect(nullptr) {
    init();
}

EventStartEffect::~EventStartEffect() {
    delete parameters;
    delete time;
}

void EventStartEffect::init() {
    layer = defaultLayer;
    object.clear();
    effect = nullptr;
    if (!parameters) return;
    if (parameters->exist("p2") && StringUtils::isInt(parameters->getParameter("p2")))
        layer = QLNUtils::string2Int(parameters->getParameter("p2"));
    if (parameters->exist("object")) object = parameters->getParameter("object");
    DataEffectPool* pool = QLNDemosys::data ? dynamic_cast<DataEffectPool*>(QLNDemosys::data->getData("effectPool")) : nullptr;
    if (pool && parameters->exist("object")) effect = pool->getEffect(object);
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

void EventStartEffect::setParameters(ParameterGroup* value) {
    if (value != parameters) delete parameters;
    parameters = value;
    init();
}

ParameterGroup* EventStartEffect::getParameters() { return parameters; }

void EventStartEffect::setTime(QLNTime* value) {
    if (value != time) delete time;
    time = value;
}

QLNTime* EventStartEffect::getTime() { return time; }

Event* EventStartEffect::getInstance() { return new EventStartEffect(); }

std::string EventStartEffect::toString() {
    if (!parameters) return "EventStartEffect {  }\n";
    return "EventStartEffect {\n" + parameters->toString() + "}\n";
}
