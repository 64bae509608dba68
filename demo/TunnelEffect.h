#pragma once
// A flight through two nested wobbling tubes: a textured inner tube blended over an
// outer one. Takes no scripted methods.
#include "demosys/Effect.h"

class Texture;
class Tunnel;

class TunnelEffect : public Effect {
public:
    TunnelEffect();
    virtual ~TunnelEffect();

    virtual void draw(unsigned int time);
    virtual void init();
    virtual void reset();
    virtual Effect* getInstance();

private:
    Texture* outerTexture;  // not owned
    Texture* innerTexture;  // not owned
    Tunnel* innerTunnel;
    Tunnel* outerTunnel;
};
