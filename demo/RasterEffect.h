#pragma once
// Raster bars over a star field: glowing horizontal bars swinging on sine waves in front
// of three layers of stars drifting at different speeds. Everything is a function of the
// demo time, so a seek shows the same picture as playing up to that time.
#include <vector>

#include "demosys/Effect.h"

class RasterEffect : public Effect {
public:
    RasterEffect();

    void draw(unsigned int time) override;
    void init() override;
    void reset() override;
    void modify(std::string method, ParameterGroup* parameters) override;
    void musicEvent() override;
    Effect* getInstance() override;

private:
    struct Star {
        float x, y;  // start position, -1..1
        int layer;   // 1 (far, slow, dim) to 3 (near, fast, bright)
    };
    void drawStars(float seconds);
    void drawBars(float seconds);
    int readInt(const char* key, int fallback, int low, int high);

    std::vector<Star> stars;
    int bars;
    float speed;      // wave speed of the bars
    float drift;      // star speed
    float barHeight;  // half height of a bar, in screen units (-1..1)
    float glow;       // extra brightness after a music event, fades out
    unsigned int glowStart;
};
