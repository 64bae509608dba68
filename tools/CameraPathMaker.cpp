#include "tools/CameraPathMaker.h"

#include <cmath>
#include <cstdio>


namespace qlntools {

namespace {

// Four decimals; values that round to zero are written without a minus sign.
std::string number(double v) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4f", v);
    std::string s = text;
    return s == "-0.0000" ? "0.0000" : s;
}

}  // namespace

std::string CameraPathMaker::text() {
    const double pi = 3.14159265358979323846;
    const int count = loopKeyframes + 3;
    std::string out = "QLNANI1\nkeyframes " + std::to_string(count) + "\n";
    for (int k = 0; k < count; ++k) {
        double angle = (k - 1) * 360.0 / loopKeyframes;
        double a = angle * pi / 180.0;
        double radius = 7.0 + 1.5 * std::sin(2 * a);
        double x = radius * std::sin(a), z = radius * std::cos(a);
        double y = 1.5 + 1.0 * std::sin(3 * a);
        // Heading turns with the circle (kept continuous, no jump at 180 degrees);
        // a positive pitch looks down towards the origin.
        double heading = -angle;
        double pitch = std::atan2(y, radius) * 180.0 / pi;
        out += "position " + number(x) + " " + number(y) + " " + number(z) + "\n";
        out += "angles " + number(pitch) + " " + number(heading) + "\n";
    }
    return out;
}

}  // namespace qlntools
