#include "demo/IntroLogoEffect.h"

#include <GL/glew.h>

#include "demosys/Animation.h"
#include "demosys/DataAnimationPool.h"
#include "demosys/DataObjectPool.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNScene.h"
#include "demosys/QLNTime.h"
#include "qlnutils/QLNUtils.h"
#include "qlnutils/StringUtils.h"

namespace {
const int catmullRom = 1;
}

IntroLogoEffect::IntroLogoEffect()
    : object(nullptr), path(nullptr), flightSet(false), flightStart(0), flightEnd(0), duration(7680), spin(20.0f) {}

void IntroLogoEffect::init() {
    std::string name = ParameterReader::text(parameters, "object");
    object = QLNDemosys::objectPool && QLNDemosys::objectPool->exists(name) ? QLNDemosys::objectPool->getObject(name)
                                                                           : nullptr;
    name = ParameterReader::text(parameters, "path");
    path = QLNDemosys::animationPool ? QLNDemosys::animationPool->getAnimation(name) : nullptr;
    // A Catmull-Rom flight needs four keyframes; fewer fly in straight lines.
    if (path) path->setInterpolationType(path->countKeyFrames() >= 4 ? catmullRom : 0);
    flight.setAnimation(path);
    std::string value = ParameterReader::text(parameters, "duration");
    if (StringUtils::isInt(value) && QLNUtils::string2Int(value) > 0) duration = QLNUtils::string2Int(value);
    value = ParameterReader::text(parameters, "spin");
    if (StringUtils::isFloat(value)) spin = QLNUtils::string2Float(value);
    reset();
}

void IntroLogoEffect::reset() { flightSet = false; }

void IntroLogoEffect::modify(std::string method, ParameterGroup* parameters) {
    if (method != "fly" || !parameters || !parameters->exist("p1") || !parameters->exist("p2")) return;
    QLNTime from(parameters->getParameter("p1"));
    QLNTime to(parameters->getParameter("p2"));
    if (!from.isValid() || !to.isValid() || to.getTicks() <= from.getTicks()) return;
    flightStart = from.getTicks();
    flightEnd = to.getTicks();
    flightSet = true;
}

void IntroLogoEffect::draw(unsigned int time) {
    if (!object) return;
    if (!flightSet) {
        flightStart = startTime;
        flightEnd = startTime + duration;
    }
    flight.setStartTime(flightStart);
    flight.setEndTime(flightEnd);
    // The spline's last segment ends just before the end time: the camera holds its last pose after it.
    if (time < flightEnd) flight.animate(time);

    glPushAttrib(GL_ENABLE_BIT | GL_LIGHTING_BIT | GL_CURRENT_BIT);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_CULL_FACE);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_NORMALIZE);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_BLEND);
    glClear(GL_DEPTH_BUFFER_BIT);

    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    if (path) QLNDemosys::camera.setGLMatrixes();
    QLNDemosys::light.update();
    glRotatef(spin * (time - startTime) / 1000.0f, 0.0f, 1.0f, 0.0f);
    object->draw();
    glPopMatrix();
    glPopAttrib();
}

Effect* IntroLogoEffect::getInstance() { return new IntroLogoEffect(); }
