#include "demo/ViewportWipe.h"

#include <GL/glew.h>

#include <cmath>

#include "demosys/GLHelpers.h"
#include "demosys/QLNDemosys.h"
#include "demosys/ScreenMetrics.h"

void ViewportWipe::modify(std::string method, ParameterGroup*) {
    if (method == "down") {
        direction = 0;
        angle = 90.0f;
    } else if (method == "up") {
        direction = 1;
        angle = 90.0f;
    }
}

void ViewportWipe::draw(unsigned int time) {
    ScreenMetrics* screen = QLNDemosys::screenMetrics;
    if (!screen) return;
    const int width = screen->getWidth();
    const int height = screen->getHeight();
    offset = offsetFor(height, std::sin(angle * GLHelpers::piFloat / 180.0f));
    const int shift = static_cast<int>(offset);
    if (direction == 0)
        glViewport(0, shift, width, height + shift);
    else
        glViewport(0, -shift, width, height - shift);
    advance(time);
}
