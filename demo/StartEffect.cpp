#include "demo/StartEffect.h"

#include <GL/glew.h>

#include <cmath>

#include "demosys/GLHelpers.h"
#include "demosys/QLNDemosys.h"

StartEffect::StartEffect() : angle(90.0f), speed(0.0f), offset(0.0f), divisor(1.0f) {}

void StartEffect::init() {
    reset();
    angle = 90.0f;
    divisor = 1.0f;
}

void StartEffect::reset() {
    angle = 90.0f;
    speed = 0.0f;
    divisor = 1.0f;
}

void StartEffect::draw(unsigned int time) {
    QLNDemosys::cameraActive = false;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();

    offset = static_cast<float>(std::sin(angle * GLHelpers::pi / 180.0) / divisor);
    float step = getFrameTime(time);

    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_LIGHTING);

    glPushMatrix();
    glLoadIdentity();
    glTranslatef(0.0f, offset, 0.0f);
    glBegin(GL_QUADS);
    glColor3f(1.0f, 1.0f, 1.0f);
    glColor3f(0.5976f, 0.8632f, 0.7929f);
    glVertex2f(1.0f, 1.1f);
    glVertex2f(-1.0f, 1.1f);
    glVertex2f(-1.0f, 0.0f);
    glVertex2f(1.0f, 0.0f);
    glEnd();
    glPopMatrix();

    glPushMatrix();
    glLoadIdentity();
    glTranslatef(0.0f, -offset, 0.0f);
    glBegin(GL_QUADS);
    glColor3f(0.1914f, 0.5742f, 0.4726f);
    glVertex2f(1.0f, 0.0f);
    glVertex2f(-1.0f, 0.0f);
    glVertex2f(-1.0f, -1.1f);
    glVertex2f(1.0f, -1.1f);
    glEnd();
    glPopMatrix();

    if (angle >= 180.0f) {
        angle = 0.0f;
        divisor = divisor * 2.0f;
    }
    angle += step * 0.1 + speed;
    speed += 0.1f;
}

Effect* StartEffect::getInstance() { return new StartEffect(); }
