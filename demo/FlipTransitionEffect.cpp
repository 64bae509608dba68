#include "demo/FlipTransitionEffect.h"

#include <GL/glew.h>

#include <iostream>

#include "demosys/DataFBOPool.h"
#include "demosys/FrameBufferObject.h"
#include "demosys/GLHelpers.h"
#include "demosys/ParameterGroup.h"
#include "demosys/QLNDemosys.h"
#include "demosys/Texture.h"

FlipTransitionEffect::FlipTransitionEffect() : angle(0.0f), depth(0.0f), buffer(nullptr) {
    std::cout << "FlipTransitionEffect" << std::endl;
}

void FlipTransitionEffect::init() { reset(); }

void FlipTransitionEffect::reset() {
    angle = 0.0f;
    depth = 0.0f;
}

void FlipTransitionEffect::modify(std::string method, ParameterGroup* parameters) {
    if (method != "setBuffer") return;
    if (!parameters || !parameters->exist("p2") || !QLNDemosys::fboPool) return;
    const std::string name = parameters->getParameter("p2");
    buffer = QLNDemosys::fboPool->getFBO(name);
    std::cout << name << " = " << (buffer ? buffer->toString() : std::string("none")) << std::endl;
}

void FlipTransitionEffect::draw(unsigned int time) {
    if (!buffer) return;
    glDisable(GL_CULL_FACE);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_LIGHTING);
    glEnable(GL_COLOR_MATERIAL);
    glColor3f(1.0f, 1.0f, 1.0f);
    Texture* picture = buffer->getColorBuffer();
    picture->bind();

    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glTranslatef(0.0f, 0.0f, depth);
    glTranslatef(0.0f, 0.0f, -2.25f);
    glRotatef(angle / 3.0f, 1.0f, 0.2f, 0.7f);

    const float frame = getFrameTime(time);
    depth -= frame * 0.02f * 0.0625f;
    angle += frame * 5.5f * 0.0625f;

    // A 4:3 card.
    GLHelpers::drawRect(1.5f, 1.125f);

    picture->release();
    buffer->bind();
    buffer->clear();
    buffer->release();

    glEnable(GL_CULL_FACE);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_LIGHTING);
    glDisable(GL_COLOR_MATERIAL);
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}

Effect* FlipTransitionEffect::getInstance() { return new FlipTransitionEffect(); }
