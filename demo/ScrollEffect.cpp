#include "demo/ScrollEffect.h"

#include <GL/glew.h>

#include <cmath>
#include <iostream>

#include "demo/Textwriter.h"
#include "demosys/DataFBOPool.h"
#include "demosys/DataTexturePool.h"
#include "demosys/FrameBufferObject.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/QLNDemosys.h"
#include "demosys/Texture.h"

namespace {

using Read = ParameterReader;

// The font image holds 17 x 4 glyphs; the text is one row of 64 cells.
const int fontColumns = 17;
const int fontRows = 4;
const int textCells = 64;

}  // namespace

ScrollEffect::ScrollEffect()
    : font(nullptr), writer(nullptr), buffer(nullptr), phase(0.0f), amplitude(0.1f), scroll(0.0f) {}

ScrollEffect::~ScrollEffect() { delete writer; }

void ScrollEffect::init() {
    reset();
    phase = 0.0f;
    amplitude = 0.1f;

    font = Read::texture(parameters, "font");
    text = Read::text(parameters, "text");
    buffer = nullptr;
    if (QLNDemosys::fboPool && Read::has(parameters, "fontbuffer"))
        buffer = QLNDemosys::fboPool->getFBO(Read::text(parameters, "fontbuffer"));

    if (writer) return;  // typed once: a second init keeps the picture
    writer = new Textwriter(font, fontColumns, fontRows);
    writer->setText(text);
    std::cout << "TEXT: " << text << std::endl;
    writer->setBoxSize(2.0f, 2.0f);
    writer->setGridSize(textCells, 1);
    writer->ghostWriter(false);
    writer->background(false);
    if (buffer && buffer->isValid()) {
        buffer->bind();
        writer->write(0);
        buffer->release();
    }
}

void ScrollEffect::reset() { scroll = 0.0f; }

void ScrollEffect::modify(std::string method, ParameterGroup* params) {
    // The picture is not typed again, so a new text does not show.
    if (method == "setText") {
        if (Read::has(params, "p2")) text = Read::text(params, "p2");
    } else if (method == "reset") {
        reset();
    }
}

void ScrollEffect::draw(unsigned int time) {
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_ALPHA_TEST);
    glAlphaFunc(GL_GREATER, 0.0f);
    glLoadIdentity();

    drawBand(-1.0f, 1.0f, 0.1f, 0.05f);

    phase += getFrameTime(time) * 0.001;
    scroll += getFrameTime(time) * 0.00007;

    glDisable(GL_BLEND);
    glDisable(GL_ALPHA_TEST);
}

void ScrollEffect::drawBand(float x0, float x1, float h, float w) {
    if (!buffer || !buffer->getColorBuffer()) return;  // nothing typed, nothing to show
    Texture* picture = buffer->getColorBuffer();

    float n = (x1 - x0) / w;
    float du = (1.0f / n) * 0.25f;  // the screen shows a quarter of the picture's width
    float u = scroll;

    picture->bind();
    glColor3f(1.0f, 1.0f, 1.0f);
    glTranslatef(0.0f, -0.1f, 0.0f);
    glBegin(GL_QUADS);
    for (float x = x0; x < x1; x += w) {
        // The sine of a sine flattens the crests.
        float y0 = amplitude * std::sin(std::sin(6.0f * x + phase));
        float y1 = amplitude * std::sin(std::sin(6.0f * (x + w) + phase));
        glTexCoord2f(u, 1.0f);
        glVertex3f(x, y0 + h, -1.0f);
        glTexCoord2f(u, 0.0f);
        glVertex3f(x, y0 - h, -1.0f);
        u += du;
        glTexCoord2f(u, 0.0f);
        glVertex3f(x + w, y1 - h, -1.0f);
        glTexCoord2f(u, 1.0f);
        glVertex3f(x + w, y1 + h, -1.0f);
    }
    glEnd();
    picture->release();
}

Effect* ScrollEffect::getInstance() { return new ScrollEffect(); }
