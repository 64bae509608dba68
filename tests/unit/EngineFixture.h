#pragma once
// The shared engine state the timeline and its events work on: a registry with an effect
// pool of recording effects, the running-effects set and a timeline, all real, wired into
// QLNDemosys for one test and taken out again afterwards.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "demosys/ActionPool.h"
#include "demosys/Data.h"
#include "demosys/DataEffectPool.h"
#include "demosys/EventModifyEffect.h"
#include "demosys/EventStartEffect.h"
#include "demosys/EventStopEffect.h"
#include "demosys/ParameterGroup.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"
#include "demosys/Timeline.h"
#include "support/TestSupport.h"
#include "unit/RecordingEffect.h"

class EngineFixture : public ::testing::Test {
protected:
    void SetUp() override {
        data = new Data();
        effectPool = new DataEffectPool();
        data->addData("effectPool", effectPool);
        timeline = new Timeline();
        QLNDemosys::data = data;
        QLNDemosys::effectPool = effectPool;
        QLNDemosys::action = &action;
        QLNDemosys::timeline = timeline;
        QLNDemosys::startTime = 0;
        QLNDemosys::currentTime = 0;
        QLNDemosys::pauseTime = 0;
        QLNDemosys::pause = false;
        QLNDemosys::frames = 0;
    }

    void TearDown() override {
        // The pools and the timeline say goodbye on stdout; keep the test output clean.
        testsupport::captureStdout([&] {
            delete timeline;
            delete data;
        });
        QLNDemosys::data = nullptr;
        QLNDemosys::effectPool = nullptr;
        QLNDemosys::action = nullptr;
        QLNDemosys::timeline = nullptr;
    }

    RecordingEffect* addEffect(const std::string& name) {
        RecordingEffect* effect = new RecordingEffect(&log, name);
        effectPool->addEffect(name, effect);
        return effect;
    }

    // A timeline line as the script reader builds it: "object" plus the arguments p1, p2, ...
    static ParameterGroup* group(std::initializer_list<std::pair<const char*, const char*>> entries) {
        ParameterGroup* parameters = new ParameterGroup();
        for (auto& entry : entries) parameters->addParameter(entry.first, entry.second);
        return parameters;
    }

    template <class EventType>
    void schedule(unsigned int ticks, ParameterGroup* parameters) {
        timeline->addEvent(ticks, new EventType(new QLNTime(ticks), parameters));
    }

    // One frame of the driver: clock, events, drawing.
    void frame(unsigned int ticks) {
        QLNDemosys::updateTime(ticks);
        timeline->watch();
        action.execute(QLNDemosys::getMillisecondsElapsed());
    }

    std::vector<std::string> log;
    Data* data = nullptr;
    DataEffectPool* effectPool = nullptr;
    ActionPool action;
    Timeline* timeline = nullptr;
};
