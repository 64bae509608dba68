#include "demo/TitleEffect.h"

#include <GL/glew.h>

#include "demosys/DataTexturePool.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/QLNDemosys.h"
#include "demosys/Texture.h"

TitleEffect::TitleEffect() : picture1(nullptr), picture2(nullptr), picture3(nullptr) {}

void TitleEffect::init() {
    picture1 = ParameterReader::texture(parameters, "brovell1");
    picture2 = ParameterReader::texture(parameters, "brovell2");
    picture3 = ParameterReader::texture(parameters, "brovell3");
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
