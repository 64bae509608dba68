#include "demo/Tunnel.h"

#include <GL/glew.h>
#include <cmath>

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

void Tunnel::emit(int index, float texU, float texV) const {
    glTexCoord2f(texU, texV);
    glVertex3f(distortedX[index], distortedY[index], distortedZ[index]);
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

    const int n = segments;
    glBegin(GL_QUADS);
    for (int r = 0; r < rings - 1 && ringPairStored(r); ++r) {
        glColor4f(brightness, brightness, brightness, brightness);
        brightness -= 1.0f / rings;
        int i = r * n;
        for (int j = 0; j < n - 1; ++j, ++i) {
            emit(i, u[i], v[i]);
            emit(i + 1, u[i + 1], v[i + 1]);
            emit(i + n + 1, u[i + n + 1], v[i + n + 1]);
            emit(i + n, u[i + n], v[i + n]);
        }
        // The seam: the ring's first vertex again, at the right edge of the texture.
        emit(i, u[i], v[i]);
        emit(i - n + 1, 1.0f, v[i]);
        emit(i + 1, 1.0f, v[i + n]);
        emit(i + n, u[i], v[i + n]);
    }
    glEnd();
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
