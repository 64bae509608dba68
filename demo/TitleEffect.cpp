#include "demo/TitleEffect.h"

#include <GL/glew.h>

#include "demosys/DataTexturePool.h"
#include "demosys/ParameterGroup.h"
#include "demosys/QLNDemosys.h"
#include "demosys/Texture.h"

namespace {

// Null for a missing key, an unknown alias or a missing pool.
Texture* pictureOf(ParameterGroup* group, const char* key) {
    if (!group || !group->exist(key) || !QLNDemosys::texturePool) return nullptr;
    return QLNDemosys::texturePool->getTexture(group->getParameter(key));
}

}  // namespace

TitleEffect::TitleEffect() : picture1(nullptr), picture2(nullptr), picture3(nullptr) {}

void TitleEffect::init() {
    picture1 = pictureOf(parameters, "brovell1");
    picture2 = pictureOf(parameters, "brovell2");
    picture3 = pictureOf(parameters, "brovell3");
}

void TitleEffect::draw(unsigned int time) {
    glClearColor(0.0f, 0.0f, 0.0f, 0.0f);
    glEnable(GL_COLOR_MATERIAL);
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);

    unsigned int k = time % 300;
    Texture* picture = k <= 99 ? picture1 : (k <= 199 ? picture2 : picture3);
    // A picture that was not found leaves the frame as it is.
    if (picture) {
        picture->bind();
        picture->drawQuadFS();
        picture->release();
    }
    glDisable(GL_COLOR_MATERIAL);
}

Effect* TitleEffect::getInstance() { return new TitleEffect(); }
