#include "demo/BouncingCubeEffect.h"

#include <GL/glew.h>
#include <iostream>

BouncingCubeEffect::BouncingCubeEffect() : Effect(), bounce(0) {
    std::cout << "BouncingCubeEffect" << std::endl;
}

BouncingCubeEffect::~BouncingCubeEffect() {}

Effect* BouncingCubeEffect::getInstance() { return new BouncingCubeEffect(); }

void BouncingCubeEffect::init() { reset(); }

void BouncingCubeEffect::reset() { bounce = 0; }

void BouncingCubeEffect::draw(unsigned int time) {
    (void)time;
    glDisable(GL_CULL_FACE);
    // On the current matrix and never undone: later effects of the frame inherit it.
    glTranslatef(0, 0, -4.0f);
    glRotatef(45.0f, 0, 1, 0);
    glColor4f(1, 1, 1, 1);
    static const float corners[24][3] = {
        {-1, -1, 1},  {1, -1, 1},  {1, 1, 1},   {-1, 1, 1},
        {-1, -1, -1}, {1, -1, -1}, {1, 1, -1},  {-1, 1, -1},
        {-1, -1, 1},  {-1, -1, -1}, {-1, 1, -1}, {-1, 1, 1},
        {1, -1, 1},   {1, -1, -1}, {1, 1, -1},  {1, 1, 1},
        {-1, -1, 1},  {1, -1, 1},  {1, -1, -1}, {-1, -1, -1},
        {-1, 1, 1},   {1, 1, 1},   {1, 1, -1},  {-1, 1, -1},
    };
    glBegin(GL_QUADS);
    for (const float* corner : corners) glVertex3fv(corner);
    glEnd();
    glEnable(GL_CULL_FACE);
}
