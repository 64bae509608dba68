#pragma once
// Registers the demo's own effect classes with the driver, in their fixed order.
class Demo;
void registerDemoEffects(Demo& demo);
