#include "demosys/ScreenMetrics.h"

#include <GL/glew.h>
#include <cmath>

#include "demosys/GLHelpers.h"

ScreenMetrics::ScreenMetrics()
    : height(0), width(0), viewLeft(0), viewRight(0), viewBottom(0), viewTop(0), fullscreen(true),
      fullscreenOverride(false), frustumHalfWidth(0.0f), frustumHalfHeight(0.0f), nearPlane(1.0f),
      farPlane(6000.0f) {}

int ScreenMetrics::getWidth() { return width; }
int ScreenMetrics::getHeight() { return height; }

void ScreenMetrics::setResolution(int newWidth, int newHeight) {
    width = newWidth;
    height = newHeight;
}

float ScreenMetrics::getNear() { return nearPlane; }
float ScreenMetrics::getFar() { return farPlane; }
void ScreenMetrics::setNear(float value) { nearPlane = value; }
void ScreenMetrics::setFar(float value) { farPlane = value; }
bool ScreenMetrics::isFullscreen() { return fullscreen; }
void ScreenMetrics::setFullscreen(bool value) { fullscreen = value; }
bool ScreenMetrics::getFullScreenOverride() { return fullscreenOverride; }

ScreenMetrics* ScreenMetrics::setFullscreenOverride(bool value) {
    fullscreenOverride = value;
    return this;
}

void ScreenMetrics::initView() {
    float aspect = (float)width / (float)height;
    // A 90 degree field of view at half the unit distance.
    frustumHalfHeight = (float)(std::tan(GLHelpers::pi / 4.0) * 0.5);
    frustumHalfWidth = aspect * frustumHalfHeight;
    viewLeft = 0;
    viewRight = width - 1;
    viewBottom = 0;
    viewTop = height - 1;
}

void ScreenMetrics::setView() {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    // Right and top go where GL wants a size: the view is one pixel short on both
    // axes, and every frame has always been composed that way.
    glViewport(viewLeft, viewBottom, viewRight, viewTop);
    glFrustum(-frustumHalfWidth, frustumHalfWidth, -frustumHalfHeight, frustumHalfHeight, nearPlane,
              farPlane);
    glMatrixMode(GL_MODELVIEW);
}

void ScreenMetrics::resize(int newWidth, int newHeight) {
    width = newWidth;
    height = newHeight;
    initView();
}
