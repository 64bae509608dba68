#include "demo/RasterEffect.h"

#include <GL/glew.h>

#include <algorithm>
#include <cmath>

#include "demosys/GLHelpers.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "qlnutils/QLNUtils.h"
#include "qlnutils/StringUtils.h"

namespace {
// A small fixed generator: the same star field on every machine and every run.
unsigned int nextRandom(unsigned int& state) {
    state = state * 1664525u + 1013904223u;
    return state >> 8;
}
float unit(unsigned int& state) { return (nextRandom(state) & 0xFFFF) / 65535.0f; }

// Bar colours: copper, gold, lime, teal, violet, crimson.
const float palette[][3] = {{1.0f, 0.45f, 0.15f}, {1.0f, 0.85f, 0.2f}, {0.45f, 1.0f, 0.25f},
                            {0.2f, 0.9f, 1.0f},   {0.6f, 0.35f, 1.0f}, {1.0f, 0.2f, 0.45f}};
const int paletteSize = sizeof palette / sizeof palette[0];
}  // namespace

RasterEffect::RasterEffect()
    : bars(6), speed(1.0f), drift(1.0f), barHeight(0.06f), glow(0.0f), glowStart(0) {}

int RasterEffect::readInt(const char* key, int fallback, int low, int high) {
    std::string value = ParameterReader::text(parameters, key);
    if (!StringUtils::isInt(value)) return fallback;
    return std::clamp(QLNUtils::string2Int(value), low, high);
}

void RasterEffect::init() {
    int count = readInt("stars", 300, 0, 5000);
    bars = readInt("bars", 6, 0, 64);
    speed = ParameterReader::number(parameters, "speed", 1.0f);
    drift = ParameterReader::number(parameters, "drift", 1.0f);
    barHeight = ParameterReader::number(parameters, "barheight", 0.06f);
    unsigned int seed = 20261121u;
    stars.clear();
    for (int i = 0; i < count; ++i) stars.push_back({unit(seed) * 2 - 1, unit(seed) * 2 - 1, 1 + i % 3});
    reset();
}

void RasterEffect::reset() { glow = 0.0f; }

void RasterEffect::modify(std::string method, ParameterGroup* parameters) {
    if (!parameters || !parameters->exist("p2")) return;
    std::string value = parameters->getParameter("p2");
    if (method == "setSpeed") speed = QLNUtils::string2Float(value);
    else if (method == "setBars" && StringUtils::isInt(value)) bars = std::clamp(QLNUtils::string2Int(value), 0, 64);
}

void RasterEffect::musicEvent() {
    glow = 1.0f;
    glowStart = lastCalled;
}

void RasterEffect::drawStars(float seconds) {
    for (int layer = 1; layer <= 3; ++layer) {
        glPointSize(static_cast<float>(layer));
        float shade = 0.3f + 0.23f * layer;
        glColor3f(shade, shade, shade * 1.1f);
        glBegin(GL_POINTS);
        for (const Star& star : stars) {
            if (star.layer != layer) continue;
            // Wrap the drifting x into -1..1.
            float x = star.x - seconds * drift * 0.08f * layer;
            x = x - 2.0f * std::floor((x + 1.0f) / 2.0f);
            glVertex2f(x, star.y);
        }
        glEnd();
    }
}

void RasterEffect::drawBars(float seconds) {
    for (int i = 0; i < bars; ++i) {
        const float* c = palette[i % paletteSize];
        float y = 0.72f * std::sin(seconds * 1.7f * speed + i * 0.42f);
        float bright = 0.75f + 0.25f * glow;
        float r = c[0] * bright, g = c[1] * bright, b = c[2] * bright;
        // Dark edges, bright centre line: two gradient quads per bar.
        glBegin(GL_QUADS);
        glColor3f(0, 0, 0);
        glVertex2f(-1, y - barHeight);
        glVertex2f(1, y - barHeight);
        glColor3f(r, g, b);
        glVertex2f(1, y);
        glVertex2f(-1, y);
        glVertex2f(-1, y);
        glVertex2f(1, y);
        glColor3f(0, 0, 0);
        glVertex2f(1, y + barHeight);
        glVertex2f(-1, y + barHeight);
        glEnd();
    }
}

void RasterEffect::draw(unsigned int time) {
    float seconds = time / 1000.0f;
    if (glow > 0.0f) glow = std::max(0.0f, 1.0f - (time - glowStart) / 400.0f);

    glPushAttrib(GL_ENABLE_BIT | GL_CURRENT_BIT | GL_POINT_BIT | GL_COLOR_BUFFER_BIT);
    glDisable(GL_LIGHTING);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_CULL_FACE);
    GLHelpers::pushIdentityMatrices();

    drawStars(seconds);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE);  // bars add up where they cross
    drawBars(seconds);

    GLHelpers::popMatrices();
    glPopAttrib();
}

Effect* RasterEffect::getInstance() { return new RasterEffect(); }
