// The resource pools' shared rules: adding under a key that is present overwrites the
// pointer and leaves the old value to its owner, the counting pools count every add,
// disposal deletes what is held once, and the lookups of a missing key behave per pool.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

#include "demosys/Animation.h"
#include "demosys/Binary.h"
#include "demosys/Data.h"
#include "demosys/DataAnimationPool.h"
#include "demosys/DataBinaryPool.h"
#include "demosys/DataEffectPool.h"
#include "demosys/DataEventPool.h"
#include "demosys/DataFBOPool.h"
#include "demosys/DataObjectPool.h"
#include "demosys/DataShaderPool.h"
#include "demosys/EventStopEffect.h"
#include "demosys/QLNScene.h"
#include "support/TestSupport.h"
#include "unit/ScriptTest.h"

namespace {

using testsupport::captureStdout;

// One pool driven through its own add and lookup, in a child process: a pool that deleted
// the old value on overwrite turns the owner's own delete into a crash, not a passing test.
template <class Pool, class Value>
void overwriteKeepsTheOldValueToItsOwner(const char* disposal, int countAfterTwoAdds,
                                         std::function<void(Pool&, const std::string&, Value*)> add,
                                         std::function<Value*(Pool&, const std::string&)> get) {
    auto scenario = [&] {
        Pool* pool = new Pool();
        Value* first = new Value();
        Value* second = new Value();
        add(*pool, "key", first);
        add(*pool, "key", second);
        if (get(*pool, "key") != second || pool->size() != countAfterTwoAdds) std::abort();
        delete first;
        if (captureStdout([&] { delete pool; }) != std::string(disposal) + "\n -> delete key\n") std::abort();
        std::exit(0);
    };
    EXPECT_EXIT(scenario(), ::testing::ExitedWithCode(0), "") << disposal;
}

struct TestEvent : public EventStopEffect {};
struct TestBinary : public Binary {
    TestBinary() : Binary({1, 2, 3}) {}
};

TEST(Pools, AddingUnderATakenKeyOverwritesWithoutDeletingAndCountingPoolsCountEveryAdd) {
    overwriteKeepsTheOldValueToItsOwner<DataAnimationPool, Animation>(
        "[Dispose animationPool]", 2, [](DataAnimationPool& p, const std::string& k, Animation* v) { p.addAnimation(k, v); },
        [](DataAnimationPool& p, const std::string& k) { return p.getAnimation(k); });
    overwriteKeepsTheOldValueToItsOwner<DataBinaryPool, TestBinary>(
        "[Dispose binaryPool]", 2, [](DataBinaryPool& p, const std::string& k, TestBinary* v) { p.addData(k, v); },
        [](DataBinaryPool& p, const std::string& k) { return static_cast<TestBinary*>(p.getData(k)); });
    overwriteKeepsTheOldValueToItsOwner<DataObjectPool, QLNScene>(
        "[Dispose objectPool]", 2, [](DataObjectPool& p, const std::string& k, QLNScene* v) { p.addObject(k, v); },
        [](DataObjectPool& p, const std::string& k) { return p.getObject(k); });
    overwriteKeepsTheOldValueToItsOwner<DataEventPool, TestEvent>(
        "[Dispose eventPool]", 1, [](DataEventPool& p, const std::string& k, TestEvent* v) { p.addEvent(k, v); },
        [](DataEventPool& p, const std::string& k) { return static_cast<TestEvent*>(p.getEvent(k)); });
    using Recording = scripttest::RecordingEffect;
    struct Effect : Recording {
        Effect() : Recording("Effect") {}
    };
    overwriteKeepsTheOldValueToItsOwner<DataEffectPool, Effect>(
        "[Dispose effectPool]", 1, [](DataEffectPool& p, const std::string& k, Effect* v) { p.addEffect(k, v); },
        [](DataEffectPool& p, const std::string& k) { return static_cast<Effect*>(p.getEffect(k)); });
}

TEST(Pools, MissingKeysAreNullAndOnlyTheEffectAndShaderPoolsEnterThem) {
    DataEffectPool effects;
    EXPECT_EQ(effects.getEffect("ghost"), nullptr);
    EXPECT_TRUE(effects.exist("ghost")) << "deliberately entered by the lookup";
    DataShaderPool shaders;
    EXPECT_EQ(shaders.getShader("ghost"), nullptr);
    EXPECT_TRUE(shaders.exists("ghost"));
    DataFBOPool fbos;
    FrameBufferObject* found = reinterpret_cast<FrameBufferObject*>(1);
    EXPECT_EQ(captureStdout([&] { found = fbos.getFBO("ghost"); }),
              "FrameBufferObject::getFBO(ghost) cannot find the requested VBO\n");
    EXPECT_EQ(found, nullptr);
    EXPECT_FALSE(fbos.exists("ghost"));
    DataAnimationPool animations;
    EXPECT_EQ(animations.getAnimation("ghost"), nullptr);
    EXPECT_FALSE(animations.exist("ghost"));
    DataEventPool events;
    EXPECT_EQ(events.toString(), "EventPool { EMPTY }\n");
}

TEST(Pools, TheRegistryOverwritesWithoutDeletingAndDeletesWhatItHolds) {
    Data* data = new Data();
    DataEventPool* first = new DataEventPool();
    DataEventPool* second = new DataEventPool();
    data->addData("eventPool", first);
    data->addData("eventPool", second);
    EXPECT_EQ(data->getData("eventPool"), second);
    EXPECT_EQ(data->getData("fboPool"), nullptr);
    captureStdout([&] {
        delete first;
        delete data;
    });
}

}  // namespace
