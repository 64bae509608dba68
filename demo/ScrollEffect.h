#pragma once
// A sine scroller: the text is typed once, at start-up, into a framebuffer object, and every
// frame a band of that picture is drawn across the screen, bent by a wave and scrolled sideways.
#include <string>

#include "demosys/Effect.h"

class Texture;
class Textwriter;
class FrameBufferObject;

class ScrollEffect : public Effect {
public:
    ScrollEffect();
    ~ScrollEffect() override;

    void draw(unsigned int time) override;
    // Reads "font" (texture alias), "text" and "fontbuffer" (framebuffer name).
    void init() override;
    void reset() override;
    void modify(std::string method, ParameterGroup* parameters) override;
    Effect* getInstance() override;

private:
    void drawBand(float x0, float x1, float halfHeight, float segmentWidth);

    Texture* font;              // not owned
    Textwriter* writer;         // owned
    FrameBufferObject* buffer;  // not owned
    std::string text;
    float phase;
    float amplitude;
    float scroll;
};
