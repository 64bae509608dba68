#include "demo/DemoEffects.h"

#include "demosys/Demo.h"

void registerDemoEffects(Demo& demo) {
    (void)demo;
}
