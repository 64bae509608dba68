#pragma once
// The bundled demo loaded once per test binary by the real stages, from the repository root.
#include <gtest/gtest.h>
#include <unistd.h>

#include <memory>

#include "demo/DemoEffects.h"
#include "support/Engine.h"
#include "support/TestSupport.h"

inline Engine& bundledDemo() {
    static std::unique_ptr<Engine> engine;
    if (!engine) {
        EXPECT_EQ(chdir(testsupport::sourceDir().c_str()), 0);
        engine.reset(new Engine("resources/scripts/demoscript.txt"));
        registerDemoEffects(engine->driver());
        EXPECT_TRUE(engine->load(true)) << engine->error();
    }
    return *engine;
}
