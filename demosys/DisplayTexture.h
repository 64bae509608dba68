#pragma once
// A textured quad in the current projection that the script can fade, move, ease,
// spin, scroll, re-texture and send into a framebuffer object while it runs.
#include <string>

#include "demosys/Effect.h"
#include "demosys/Interpolate.h"
#include "demosys/QLNTime.h"
#include "demosys/Vector.h"

class ParameterGroup;
class Texture;

class DisplayTexture : public Effect {
public:
    DisplayTexture();
    virtual ~DisplayTexture();

    virtual void draw(unsigned int time);
    virtual void init();
    virtual void reset();
    virtual void modify(std::string method, ParameterGroup* params);
    virtual Effect* getInstance();

private:
    void updateFades(double now);
    void updateMoves(unsigned int time, double now);
    void setUpState();
    void drawQuad();
    void restoreState();
    void advance(float frame);

    float xRotSpeed, yRotSpeed, zRotSpeed;
    float xRotRate, yRotRate, zRotRate;  // stored by "rotate" only; drawing ignores them
    float xAngle, yAngle, zAngle;
    float xPos, yPos, zPos;
    float xScale, yScale;
    bool scrolling;
    float uOffset, uSpeed;
    float vOffset, vSpeed;
    Texture* texture;
    bool alphaBlend;
    float alpha;
    double fadeInProgress;
    double fadeOutProgress;
    QLNTime fadeStart, fadeEnd;
    double moveProgress;
    QLNTime moveStart, moveEnd;
    QLNTime rotateStart, rotateEnd;
    Interpolate easeInInterpolator;
    Interpolate easeOutInterpolator;
    Vector<float, 3> moveFrom;
    Vector<float, 3> moveTo;
};
