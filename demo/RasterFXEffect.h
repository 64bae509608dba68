#pragma once
// A flight over a landscape of heights: a rotating, tiled picture is painted into a
// 512 x 512 feedback texture each frame, and a 100 x 75 grid of quads, raised and
// shaded by a height map that scrolls row by row, is drawn with it. Takes no scripted
// methods.
#include "demosys/Effect.h"

class Binary;
class Texture;

class RasterFXEffect : public Effect {
public:
    RasterFXEffect();
    virtual ~RasterFXEffect();

    virtual void draw(unsigned int time);
    virtual void init();
    virtual void reset();
    virtual Effect* getInstance();

private:
    void drawPicture(float frameTime);
    void drawPictureQuad();
    void drawGrid();
    void emitCorner(int index, float texU, float texV, float gridX, float gridY);

    Binary* heightMap;  // not owned
    Texture* picture;   // not owned
    float angle;
    float textureU, textureV;
    float gridX, gridY;
    float spare;
    float textureStep;
    float gridStep;
    float height;
    int cellIndex;
    float rowOffset;
    float shade;
    int startTicks, endTicks;
    float drawTime;  // for inspection only
    unsigned int feedbackTexture;
    int screenWidth, screenHeight;
};
