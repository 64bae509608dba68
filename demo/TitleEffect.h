#pragma once
// The title screen: three full-screen pictures flicker in turn, 100 ms each.
#include "demosys/Effect.h"

class Texture;

class TitleEffect : public Effect {
public:
    TitleEffect();

    void draw(unsigned int time) override;
    // Reads the texture aliases "brovell1", "brovell2" and "brovell3".
    void init() override;
    Effect* getInstance() override;

private:
    Texture* picture1;  // not owned
    Texture* picture2;
    Texture* picture3;
};
