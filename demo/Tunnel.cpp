#include "demo/Tunnel.h"

#include <GL/glew.h>
#include <cmath>

#include "demosys/Effect.h"
#include "demosys/GLHelpers.h"

namespace {

float sinDegrees(float degrees) { return std::sin(degrees * GLHelpers::piFloat / 180.0f); }
float cosDegrees(float degrees) { return std::cos(degrees * GLHelpers::piFloat / 180.0f); }

}  // namespace

Tunnel::Tunnel(float radius, float length, int segments, int rings)
    : radius(radius),
      length(length),
      segments(segments),
      rings(rings),
      xOffset(0),
      yOffset(0),
      phaseA(0),
      angleA(0),
      phaseB(45.0f),
      angleB(0),
      brightness(0),
      amplitudeA(0),
      amplitudeB(0),
      textureScroll(0) {
    generateTube();
}

void Tunnel::generateTube() {
    if (segments <= 0 || rings <= 0) return;
    const float ringStep = length / rings;
    const float angleStep = 360.0f / segments;
    const float uvStep = 1.0f / segments;
    float texV = 0;
    for (float depth = 0; depth < length; depth += ringStep) {
        float texU = 0;
        for (float a = 0; a < 360.0f; a += angleStep) {
            x.push_back(radius * sinDegrees(a));
            y.push_back(radius * cosDegrees(a));
            z.push_back(-0.5f - depth);
            distortedX.push_back(0);
            distortedY.push_back(0);
            distortedZ.push_back(0);
            u.push_back(texU);
            v.push_back(texV);
            texU += uvStep;
        }
        // Along the tube v grows by the same step as u around it.
        texV += uvStep;
    }
}

void Tunnel::distort(float frameTime) {
    phaseA = 0;
    phaseB = 0;
    brightness = 1.0f;
    angleA += frameTime * 0.11f;
    angleB += frameTime * 0.09f;
    amplitudeA = 2.0f * cosDegrees(angleA);
    amplitudeB = 2.0f * sinDegrees(angleB);
    const size_t count = x.size();
    for (int r = 0; r < rings; ++r) {
        yOffset = 2.0f * amplitudeA * sinDegrees(phaseA);
        phaseA += 90.0f / (rings * 0.5f);
        xOffset = amplitudeB * sinDegrees(phaseB);
        phaseB += 90.0f / segments;
        for (int s = 0; s < segments; ++s) {
            const size_t i = size_t(r) * segments + s;
            if (i >= count) return;
            distortedX[i] = x[i] + xOffset + amplitudeA / 3.0f;
            distortedY[i] = y[i] + yOffset - amplitudeB / 3.0f;
            distortedZ[i] = z[i];
        }
    }
}

bool Tunnel::ringPairStored(int r) const {
    return segments > 0 && (size_t(r) + 2) * size_t(segments) <= x.size();
}

void Tunnel::addCorner(int index, float texU, float texV, float shade) {
    corners.push_back({texU, texV, shade, shade, shade, shade, distortedX[index], distortedY[index], distortedZ[index]});
}

void Tunnel::addRing(int r, float shade) {
    const int n = segments;
    int i = r * n;
    for (int j = 0; j < n - 1; ++j, ++i) {
        addCorner(i, u[i], v[i], shade);
        addCorner(i + 1, u[i + 1], v[i + 1], shade);
        addCorner(i + n + 1, u[i + n + 1], v[i + n + 1], shade);
        addCorner(i + n, u[i + n], v[i + n], shade);
    }
    // The seam: the ring's first vertex again, at the right edge of the texture.
    addCorner(i, u[i], v[i], shade);
    addCorner(i - n + 1, 1.0f, v[i], shade);
    addCorner(i + 1, 1.0f, v[i + n], shade);
    addCorner(i + n, u[i], v[i + n], shade);
}

void Tunnel::draw(float speed, float spare, float frameTime) {
    (void)spare;
    distort(frameTime);
    glMatrixMode(GL_TEXTURE);
    glPushMatrix();
    glLoadIdentity();
    glTranslatef(textureScroll / 6.0f, textureScroll, 0);
    brightness = 1.0f;
    textureScroll += frameTime * speed;

    // Each ring is a shade darker than the one before. The quads go out as one array draw,
    // which leaves the driver's immediate-mode vertex stream as it was: frame capture can
    // then leave them out before its range (nothing is rasterised there) and every later
    // frame stays the same to the bit, which quads skipped one by one would not guarantee.
    const bool submit = !Effect::pixelsDiscarded();
    corners.clear();
    int lastRing = -1;
    float lastShade = 0;
    for (int r = 0; r < rings - 1 && ringPairStored(r); ++r) {
        if (submit) addRing(r, brightness);
        lastRing = r;
        lastShade = brightness;
        brightness -= 1.0f / rings;
    }
    if (!corners.empty()) {
        glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
        const GLsizei stride = sizeof(Corner);
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        glEnableClientState(GL_COLOR_ARRAY);
        glEnableClientState(GL_VERTEX_ARRAY);
        glTexCoordPointer(2, GL_FLOAT, stride, &corners[0].s);
        glColorPointer(4, GL_FLOAT, stride, &corners[0].r);
        glVertexPointer(3, GL_FLOAT, stride, &corners[0].x);
        glDrawArrays(GL_QUADS, 0, GLsizei(corners.size()));
        glPopClientAttrib();
    }
    // The far ring's shade and the last corner's texture position stay current, as after
    // sending corner by corner; with colour material on, the shade is also the material.
    if (lastRing >= 0) {
        glColor4f(lastShade, lastShade, lastShade, lastShade);
        const int i = lastRing * segments + segments - 1;
        glTexCoord2f(u[i], v[i + segments]);
    }
    glPopMatrix();
}

void Tunnel::reset() {
    xOffset = 0;
    yOffset = 0;
    phaseA = 0;
    angleA = 0;
    phaseB = 45.0f;
    angleB = 0;
    brightness = 0;
    amplitudeA = 0;
    amplitudeB = 0;
}
