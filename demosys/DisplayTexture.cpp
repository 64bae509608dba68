#include "demosys/DisplayTexture.h"

#include <GL/glew.h>
#include <algorithm>

#include "demosys/Data.h"
#include "demosys/DataFBOPool.h"
#include "demosys/DataTexturePool.h"
#include "demosys/FrameBufferObject.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/QLNDemosys.h"
#include "demosys/Texture.h"
#include "qlnutils/QLNUtils.h"

namespace {

// A missing argument reads as empty text: a zero time, a zero number, no such alias.
using Read = ParameterReader;

DataTexturePool* namedTexturePool() {
    if (QLNDemosys::data == nullptr) return nullptr;
    return dynamic_cast<DataTexturePool*>(QLNDemosys::data->getData("texturePool"));
}

DataFBOPool* namedFBOPool() {
    if (QLNDemosys::data == nullptr) return nullptr;
    return dynamic_cast<DataFBOPool*>(QLNDemosys::data->getData("fboPool"));
}

}  // namespace

DisplayTexture::DisplayTexture()
    : Effect(),
      xRotSpeed(0), yRotSpeed(0), zRotSpeed(0),
      xRotRate(0), yRotRate(0), zRotRate(0),
      xAngle(0), yAngle(0), zAngle(0),
      xPos(0), yPos(0), zPos(0),
      xScale(0), yScale(0),
      scrolling(false),
      uOffset(0), uSpeed(0), vOffset(0), vSpeed(0),
      texture(nullptr),
      alphaBlend(false),
      alpha(1.0f),
      fadeInProgress(1.0), fadeOutProgress(1.0),
      moveProgress(1.0),
      moveFrom(Vector<float, 3>(0, 0, 0)),
      moveTo(Vector<float, 3>(0, 0, 0)) {}

DisplayTexture::~DisplayTexture() {}

Effect* DisplayTexture::getInstance() { return new DisplayTexture(); }

void DisplayTexture::reset() {
    fadeInProgress = 1.0;
    fadeOutProgress = 1.0;
    moveProgress = 1.0;
    xAngle = yAngle = zAngle = 0;
    scrolling = false;
    uOffset = vOffset = 0;
}

void DisplayTexture::init() {
    reset();
    ParameterGroup* p = parameters;
    if (p != nullptr) {
        // Keys the script does not give keep their previous values.
        xPos = Read::number(p, "xpos", xPos);
        yPos = Read::number(p, "ypos", yPos);
        zPos = Read::number(p, "zpos", zPos);
        xRotSpeed = Read::number(p, "xrot", xRotSpeed);
        yRotSpeed = Read::number(p, "yrot", yRotSpeed);
        zRotSpeed = Read::number(p, "zrot", zRotSpeed);
        if (p->exist("texture")) texture = Read::texture(p, "texture");
        xScale = Read::number(p, "xscale", xScale);
        yScale = Read::number(p, "yscale", yScale);
        if (p->exist("alphablend")) {
            std::string blend = p->getParameter("alphablend");
            alphaBlend = blend == "1" || blend == "true";
        }
    }
    alpha = 1.0f;
}

void DisplayTexture::modify(std::string method, ParameterGroup* params) {
    if (method == "setRenderTarget") {
        DataFBOPool* pool = namedFBOPool();
        std::string name = Read::text(params, "p2");
        setRenderTarget(pool != nullptr && pool->exists(name) ? pool->getFBO(name) : nullptr);
    } else if (method == "fadeUp") {
        fadeInProgress = 0;
        fadeOutProgress = 1.0;
        alpha = 0;
        fadeStart = Read::time(params, "p1");
        fadeEnd = Read::time(params, "p2");
    } else if (method == "fadeDown") {
        alpha = 1.0f;
        fadeInProgress = 1.0;
        fadeOutProgress = 0;
        fadeStart = Read::time(params, "p1");
        fadeEnd = Read::time(params, "p2");
    } else if (method == "moveTo") {
        moveProgress = 0;
        moveFrom = Vector<float, 3>(xPos, yPos, zPos);
        moveStart = Read::time(params, "p1");
        moveEnd = Read::time(params, "p2");
        moveTo = Vector<float, 3>(Read::number(params, "p3"), Read::number(params, "p4"), Read::number(params, "p5"));
    } else if (method == "easeIn" || method == "easeOut") {
        moveStart = Read::time(params, "p1");
        moveEnd = Read::time(params, "p2");
        moveFrom = Vector<float, 3>(xPos, yPos, zPos);
        moveTo = Vector<float, 3>(Read::number(params, "p3"), Read::number(params, "p4"), Read::number(params, "p5"));
        Interpolate& ease = method == "easeIn" ? easeInInterpolator : easeOutInterpolator;
        ease.setTime(moveStart, moveEnd);
        ease.setVectors(moveFrom, moveTo);
    } else if (method == "setScaleValue") {
        xScale = Read::number(params, "p2");
        yScale = Read::number(params, "p3");
    } else if (method == "setTexture") {
        DataTexturePool* pool = namedTexturePool();
        texture = pool != nullptr ? pool->getTexture(Read::text(params, "p2")) : nullptr;
    } else if (method == "setRotation") {
        xRotSpeed = Read::number(params, "p2");
        yRotSpeed = Read::number(params, "p3");
        zRotSpeed = Read::number(params, "p4");
    } else if (method == "rotate") {
        rotateStart = Read::time(params, "p1");
        rotateEnd = Read::time(params, "p2");
        xRotRate = Read::number(params, "p3");
        yRotRate = Read::number(params, "p4");
        zRotRate = Read::number(params, "p5");
    } else if (method == "setPosition") {
        xPos = Read::number(params, "p2");
        yPos = Read::number(params, "p3");
        zPos = Read::number(params, "p4");
    } else if (method == "setTransparency") {
        alpha = Read::number(params, "p2");
    } else if (method == "scrollTexture") {
        scrolling = true;
        uSpeed = Read::number(params, "p2");
        vSpeed = Read::number(params, "p3");
    }
}

void DisplayTexture::updateFades(double now) {
    double span = fadeEnd.getTicksAsDouble() - fadeStart.getTicksAsDouble();
    if (fadeInProgress != 1.0) {
        double t = std::min((now - fadeStart.getTicksAsDouble()) / span, 1.0);
        fadeInProgress = t;
        alpha = static_cast<float>(t);
    }
    if (fadeOutProgress != 1.0) {
        // The start goes through a float first, as it always has.
        float start = static_cast<float>(fadeStart.getTicksAsDouble());
        double t = (now - start) / span;
        fadeOutProgress = std::min(t, 1.0);
        alpha = static_cast<float>(1.0 - fadeOutProgress);
    }
}

void DisplayTexture::updateMoves(unsigned int time, double now) {
    if (moveProgress != 1.0) {
        double t = std::min((now - moveStart.getTicksAsDouble()) /
                                (moveEnd.getTicksAsDouble() - moveStart.getTicksAsDouble()),
                            1.0);
        moveProgress = t;
        Vector<float, 3> p = moveFrom.linearInterpolate(moveTo, static_cast<float>(t));
        xPos = p[0];
        yPos = p[1];
        zPos = p[2];
    }
    if (easeInInterpolator.validTime(time)) {
        Vector<float, 3> p = easeInInterpolator.cosInterpolateVector(time, true);
        xPos = p[0];
        yPos = p[1];
        zPos = p[2];
    }
    if (easeOutInterpolator.validTime(time)) {
        Vector<float, 3> p = easeOutInterpolator.cosInterpolateVector(time, false);
        xPos = p[0];
        yPos = p[1];
        zPos = p[2];
    }
}

void DisplayTexture::setUpState() {
    texture->setTextureWrap(scrolling ? GL_REPEAT : GL_CLAMP_TO_EDGE);

    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_BLEND);
    glDisable(GL_CULL_FACE);
    glDisable(GL_ALPHA_TEST);
    glDisable(GL_LIGHTING);
    if (alphaBlend) {
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glEnable(GL_BLEND);
        glAlphaFunc(GL_GREATER, 0.1f);
        glEnable(GL_ALPHA_TEST);
    }
}

void DisplayTexture::drawQuad() {
    texture->bind();
    glPushMatrix();
    glTranslatef(xPos, yPos, zPos);
    glRotatef(xAngle, 1, 0, 0);
    glRotatef(yAngle, 0, 1, 0);
    glRotatef(zAngle, 0, 0, 1);

    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, alpha < 1.0f ? GL_MODULATE : GL_REPLACE);
    glColor4f(1, 1, 1, alpha);
    glBegin(GL_QUADS);
    glTexCoord2f(0 + uOffset, 1 + vOffset);
    glVertex2f(-xScale, yScale);
    glTexCoord2f(1 + uOffset, 1 + vOffset);
    glVertex2f(xScale, yScale);
    glTexCoord2f(1 + uOffset, 0 + vOffset);
    glVertex2f(xScale, -yScale);
    glTexCoord2f(0 + uOffset, 0 + vOffset);
    glVertex2f(-xScale, -yScale);
    glEnd();
    glPopMatrix();
}

void DisplayTexture::advance(float frame) {
    // Spin speeds are degrees per 20 ms; scroll speeds are per millisecond.
    xAngle += (frame / 20) * xRotSpeed;
    yAngle += (frame / 20) * yRotSpeed;
    zAngle += (frame / 20) * zRotSpeed;
    if (scrolling) {
        uOffset += frame * uSpeed;
        vOffset += frame * vSpeed;
    }
}

void DisplayTexture::restoreState() {
    glDisable(GL_BLEND);
    glDisable(GL_ALPHA_TEST);
    texture->release();
    glDisable(GL_COLOR_MATERIAL);
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}

void DisplayTexture::draw(unsigned int time) {
    float frame = getFrameTime(time);
    double now = static_cast<double>(time);
    updateFades(now);
    updateMoves(time, now);

    // Without a texture there is no quad, but fades, moves and spin keep their pace.
    if (texture != nullptr) {
        setUpState();
        drawQuad();
    }
    advance(frame);
    if (texture != nullptr) restoreState();
}
