#pragma once
// A small real effect for the tests: it records what the engine asks of it, in order, in
// a log shared by all its instances.
#include <string>
#include <vector>

#include "demosys/Effect.h"
#include "demosys/ParameterGroup.h"
#include "qlnutils/QLNUtils.h"

class RecordingEffect : public Effect {
public:
    explicit RecordingEffect(std::vector<std::string>* log = nullptr, std::string name = "effect")
        : log(log), name(name) {}

    void draw(unsigned int time) override {
        // The step is taken before the pool writes lastCalled, as an effect would.
        lastStep = getFrameTicks(time);
        record("draw " + name + " " + QLNUtils::uint2string(time));
    }
    void modify(std::string method, ParameterGroup* group) override {
        lastModifyGroup = group;
        record("modify " + name + " " + method + " " + QLNUtils::uint2string(modifyTime));
    }
    Effect* getInstance() override { return new RecordingEffect(log, name); }

    unsigned int startedAt() const { return startTime; }
    FrameBufferObject* target() const { return renderTarget; }

    std::vector<std::string>* log;
    std::string name;
    unsigned int lastStep = 0;
    ParameterGroup* lastModifyGroup = nullptr;

private:
    void record(const std::string& line) {
        if (log) log->push_back(line);
    }
};
