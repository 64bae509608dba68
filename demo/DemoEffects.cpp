#include "demo/DemoEffects.h"

#include "demo/BounceWipe.h"
#include "demo/BouncingCubeEffect.h"
#include "demo/CubeChaos.h"
#include "demo/FlipTransitionEffect.h"
#include "demo/IntroLogoEffect.h"
#include "demo/RasterEffect.h"
#include "demo/RasterFXEffect.h"
#include "demo/ScrollEffect.h"
#include "demo/ScrollWipe.h"
#include "demo/StartEffect.h"
#include "demo/TextwriterEffect.h"
#include "demo/TitleEffect.h"
#include "demo/TunnelEffect.h"
#include "demosys/Demo.h"

void registerDemoEffects(Demo& demo) {
    // The names are the class names the demoscripts use; the order is the demo's own.
    demo.addEffect("StartEffect", new StartEffect());
    demo.addEffect("RasterEffect", new RasterEffect());
    demo.addEffect("ScrollEffect", new ScrollEffect());
    demo.addEffect("CubeChaos", new CubeChaos());
    demo.addEffect("TextwriterEffect", new TextwriterEffect());
    demo.addEffect("TunnelEffect", new TunnelEffect());
    demo.addEffect("RasterFXEffect", new RasterFXEffect());
    demo.addEffect("IntroLogoEffect", new IntroLogoEffect());
    demo.addEffect("FlipTransitionEffect", new FlipTransitionEffect());
    demo.addEffect("ScrollWipe", new ScrollWipe());
    demo.addEffect("BouncingCubeEffect", new BouncingCubeEffect());
    demo.addEffect("BounceWipe", new BounceWipe());
    demo.addEffect("TitleEffect", new TitleEffect());
}
