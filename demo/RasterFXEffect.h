#pragma once
// A flight over a landscape of heights: a rotating, tiled picture is painted into a
// 512 x 512 feedback texture each frame, and a 100 x 75 grid of quads, raised and
// shaded by a height map that scrolls row by row, is drawn with it. Takes no scripted
// methods.
#include <vector>

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
    struct Corner {
        float s, t, r, g, b, x, y, z;  // the GL_T2F_C3F_V3F layout
    };
    void drawPicture(float frameTime);
    void drawPictureQuad();
    void buildGrid();
    void addCorner(int index, float texU, float texV, float gridX, float gridY);
    void drawCorners();

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
    std::vector<Corner> corners;  // this frame's grid
};
