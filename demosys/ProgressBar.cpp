#include "demosys/ProgressBar.h"

#include <GL/glew.h>
#include <SDL/SDL.h>

ProgressBar::ProgressBar() : ProgressBar(0.125f, 1.8f, -0.9f, 1) {}

ProgressBar::ProgressBar(int ticks) : ProgressBar(0.125f, 1.8f, -0.9f, ticks) {}

ProgressBar::ProgressBar(float height, float width, float y, int ticks)
    : height(height), width(width), y(y), progress(0.0f), ticks(ticks), current(0) {}

ProgressBar::~ProgressBar() {}

void ProgressBar::loadData() {}

void ProgressBar::setTicks(int value) { ticks = value; }

void ProgressBar::tick() {
    if (current == ticks) return;
    // The value before the step: the first tick shows an empty bar, the last never a full one.
    progress = (float)current / (float)ticks;
    current += 1;
    draw();
}

static void quad(float left, float bottom, float right, float top) {
    glBegin(GL_QUADS);
    glVertex3f(left, bottom, 0.0f);
    glVertex3f(right, bottom, 0.0f);
    glVertex3f(right, top, 0.0f);
    glVertex3f(left, top, 0.0f);
    glEnd();
}

void ProgressBar::draw() {
    float w = width;
    float h = height;
    glClearColor(0.0f, 0.0f, 0.0f, 0.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    glColor3f(1.0f, 1.0f, 1.0f);
    quad(-0.5f * w, -0.5f * h + y, 0.5f * w, 0.5f * h + y);
    glColor3f(0.0f, 0.0f, 0.0f);
    quad(-0.5f * w + 0.01f, -0.5f * h + y + 0.012f, 0.5f * w - 0.01f, 0.5f * h + y - 0.012f);
    glColor3f(1.0f, 1.0f, 1.0f);
    quad(-0.5f * w + 0.015f, -0.5f * h + y + 0.019f, -0.5f * w + 0.015f + (w - 0.03f) * progress,
         0.5f * h + y - 0.019f);
    SDL_GL_SwapBuffers();
}
