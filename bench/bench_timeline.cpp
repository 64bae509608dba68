// Per-frame costs of the timeline runtime: watching a script with nothing due, and drawing
// the running effects, next to a plain walk of a map of the same size.
#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "demosys/ActionPool.h"
#include "demosys/Effect.h"
#include "demosys/EventStopEffect.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"
#include "demosys/Timeline.h"

namespace {

class IdleEffect : public Effect {
public:
    void draw(unsigned int) override {}
};

// A timeline of n events that all lie after the frames being watched; built once per size.
Timeline* farAwayScript(int n) {
    static std::map<int, std::unique_ptr<Timeline>> built;
    std::unique_ptr<Timeline>& timeline = built[n];
    if (!timeline) {
        timeline.reset(new Timeline());
        for (int i = 0; i < n; ++i) {
            unsigned int ticks = 1000000u + static_cast<unsigned int>(i);
            timeline->addEvent(ticks, new EventStopEffect(new QLNTime(ticks)));
        }
        timeline->init();
    }
    return timeline.get();
}

void BM_TimelineWatchNothingDue(benchmark::State& state) {
    Timeline* timeline = farAwayScript(static_cast<int>(state.range(0)));
    QLNDemosys::timeline = timeline;
    QLNDemosys::startTime = 0;
    QLNDemosys::pause = false;
    unsigned int now = 0;
    for (auto _ : state) {
        QLNDemosys::updateTime(now);
        timeline->watch();
        now = (now + 16) % 900000u;
    }
    QLNDemosys::timeline = nullptr;
    state.SetLabel(std::to_string(state.range(0)) + " events");
}
BENCHMARK(BM_TimelineWatchNothingDue)->Arg(10)->Arg(1000000);

std::string layeredName(int i) { return "effect" + std::to_string(i); }

void BM_ActionPoolExecute(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    std::vector<IdleEffect> effects(n);
    ActionPool pool;
    for (int i = 0; i < n; ++i) pool.addEffect(layeredName(i), &effects[i], i % 101);
    unsigned int time = 0;
    for (auto _ : state) {
        pool.execute(time);
        time += 16;
    }
    state.SetItemsProcessed(state.iterations() * n);
}
BENCHMARK(BM_ActionPoolExecute)->Arg(1000);

// The floor: visiting the same number of entries of an ordered map and calling draw.
void BM_PlainMapWalk(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    std::vector<IdleEffect> effects(n);
    std::map<std::string, Effect*> map;
    for (int i = 0; i < n; ++i) map["050_" + layeredName(i)] = &effects[i];
    unsigned int time = 0;
    for (auto _ : state) {
        for (auto& entry : map) {
            Effect* effect = entry.second;
            benchmark::DoNotOptimize(effect);
            effect->draw(time);
        }
        time += 16;
    }
    state.SetItemsProcessed(state.iterations() * n);
}
BENCHMARK(BM_PlainMapWalk)->Arg(1000);

}  // namespace
