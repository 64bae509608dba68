#pragma once
// A loading bar that draws nothing: a rebuild beside the running demo must not put a
// loading screen (or any frame at all) on the window.
#include "demosys/ProgressBar.h"

class SilentProgressBar : public ProgressBar {
public:
    void draw() override {}
};
