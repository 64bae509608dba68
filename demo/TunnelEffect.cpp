#include "demo/TunnelEffect.h"

#include <GL/glew.h>

#include "demo/Tunnel.h"
#include "demosys/DataTexturePool.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/QLNDemosys.h"
#include "demosys/Texture.h"

namespace {

// A tube without its texture is left out of the picture.
void drawTextured(Tunnel* tunnel, Texture* texture, float speed, float frameTime) {
    if (tunnel == nullptr || texture == nullptr) return;
    texture->bind();
    tunnel->draw(speed, 0, frameTime);
    texture->release();
}

}  // namespace

TunnelEffect::TunnelEffect()
    : Effect(), outerTexture(nullptr), innerTexture(nullptr), innerTunnel(nullptr), outerTunnel(nullptr) {}

TunnelEffect::~TunnelEffect() {
    delete innerTunnel;
    delete outerTunnel;
}

Effect* TunnelEffect::getInstance() { return new TunnelEffect(); }

void TunnelEffect::init() {
    innerTexture = ParameterReader::texture(parameters, "tunnelTex");
    outerTexture = ParameterReader::texture(parameters, "tunnelTex2");
    if (innerTunnel == nullptr) innerTunnel = new Tunnel(2.0f, 40.0f, 36, 80);
    if (outerTunnel == nullptr) outerTunnel = new Tunnel(3.0f, 40.0f, 36, 80);
}

void TunnelEffect::reset() {
    if (innerTunnel != nullptr) innerTunnel->reset();
    if (outerTunnel != nullptr) outerTunnel->reset();
}

void TunnelEffect::draw(unsigned int time) {
    const float frameTime = getFrameTime(time);

    glClearColor(0, 0, 0, 0);
    glDisable(GL_LIGHTING);
    glEnable(GL_CULL_FACE);
    // The walls are seen from inside, where they face away.
    glCullFace(GL_FRONT);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glRotatef(0, 0, 0, 1);
    glEnable(GL_COLOR_MATERIAL);
    glColor3f(1, 1, 1);

    drawTextured(outerTunnel, outerTexture, 0.00054166664f, frameTime);

    glDisable(GL_DEPTH_TEST);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_BLEND);

    drawTextured(innerTunnel, innerTexture, 0.00070833333f, frameTime);

    glDisable(GL_BLEND);
    glDisable(GL_COLOR_MATERIAL);
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}
