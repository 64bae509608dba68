#include "demosys/FadeEffect.h"

#include <GL/glew.h>
#include <algorithm>

#include "demosys/GLHelpers.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/QLNTime.h"
#include "qlnutils/QLNUtils.h"

namespace {

// A missing argument reads as empty text: a zero time or a zero number.
using Read = ParameterReader;

}  // namespace

FadeEffect::FadeEffect()
    : Effect(),
      progress(1.0),
      spareProgress(1.0),
      start(new QLNTime()),
      end(new QLNTime()),
      colour(Vector<float, 4>(0, 0, 0, 0)),
      fromColour(Vector<float, 4>(0, 0, 0, 0)),
      toColour(Vector<float, 4>(0, 0, 0, 0)) {}

FadeEffect::~FadeEffect() {
    delete start;
    delete end;
}

Effect* FadeEffect::getInstance() { return new FadeEffect(); }

void FadeEffect::init() { reset(); }

void FadeEffect::reset() {
    progress = 1.0;
    spareProgress = 1.0;
}

void FadeEffect::modify(std::string method, ParameterGroup* params) {
    if (method != "fade") return;
    progress = 0;
    start->setTimeAsString(Read::text(params, "p1"));
    end->setTimeAsString(Read::text(params, "p2"));
    fromColour = Vector<float, 4>(Read::number(params, "p3"), Read::number(params, "p4"),
                                  Read::number(params, "p5"), Read::number(params, "p6"));
    toColour = Vector<float, 4>(Read::number(params, "p7"), Read::number(params, "p8"),
                                Read::number(params, "p9"), Read::number(params, "p10"));
}

void FadeEffect::musicEvent() {
    // Only the millisecond part is set: minutes and seconds of an earlier fade stay.
    progress = 0;
    start->setMilliseconds(static_cast<int>(lastCalled));
    end->setMilliseconds(static_cast<int>(lastCalled + 500));
    fromColour = Vector<float, 4>(0.75f, 0.75f, 0.75f, 0.75f);
    toColour = Vector<float, 4>(0, 0, 0, 0);
}

void FadeEffect::draw(unsigned int time) {
    if (progress != 1.0) {
        double t = (static_cast<double>(time) - start->getTicksAsDouble()) /
                   (end->getTicksAsDouble() - start->getTicksAsDouble());
        t = std::min(t, 1.0);
        progress = t;
        colour = fromColour.linearInterpolate(toColour, static_cast<float>(t));
    }

    GLHelpers::pushIdentityMatrices();

    glDisable(GL_LIGHTING);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_ALPHA_TEST);
    glDisable(GL_TEXTURE_2D);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_COLOR_MATERIAL);

    // The quad reaches past the viewport on every side.
    glPushMatrix();
    glColor4fv(colour.data());
    GLHelpers::drawRect(2, 2);
    glPopMatrix();

    glDisable(GL_BLEND);
    glDisable(GL_ALPHA_TEST);
    glDisable(GL_COLOR_MATERIAL);
    GLHelpers::popMatrices();
}
