// The pool registry and the effect, event and binary pools: lookups, reports and what
// their disposal says and frees.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "demosys/Binary.h"
#include "demosys/Data.h"
#include "demosys/DataBinaryPool.h"
#include "demosys/DataEffectPool.h"
#include "demosys/DataEventPool.h"
#include "demosys/DataPool.h"
#include "demosys/EventModifyEffect.h"
#include "demosys/EventStartEffect.h"
#include "demosys/EventStopEffect.h"
#include "support/TestSupport.h"
#include "unit/RecordingEffect.h"

using testsupport::captureStdout;

// Tells the test when the registry deletes it.
class WatchedPool : public DataPool {
public:
    WatchedPool(std::vector<std::string>* deaths, std::string name) : deaths(deaths), name(name) {}
    ~WatchedPool() override { deaths->push_back(name); }
    std::string toString() override { return name + "\n"; }
    std::vector<std::string>* deaths;
    std::string name;
};

TEST(Data, RegistryFindsPoolsByNameAndDeletesThemInNameOrder) {
    std::vector<std::string> deaths;
    Data* data = new Data();
    data->addData("texturePool", new WatchedPool(&deaths, "textures"));
    data->addData("binaryPool", new WatchedPool(&deaths, "blobs"));
    DataPool* plain = new DataPool();
    data->addData("base", plain);
    EXPECT_TRUE(data->exist("binaryPool"));
    EXPECT_EQ(nullptr, data->getData("fboPool"));
    EXPECT_FALSE(data->exist("fboPool"));  // asking inserted nothing
    EXPECT_EQ(plain, data->getData("base"));
    EXPECT_EQ("DataPool { size = 0 }\n", plain->toString());
    EXPECT_EQ(0, plain->size());
    EXPECT_EQ("DataPool { size = 0 }\nblobs\ntextures\n", data->toString());
    delete data;
    EXPECT_EQ((std::vector<std::string>{"blobs", "textures"}), deaths);
}

TEST(DataEffectPool, LookupOfAnUnknownNameEntersItWithNoEffect) {
    DataEffectPool* pool = new DataEffectPool();
    pool->addEffect("zoom", new RecordingEffect());
    pool->addEffect("intro", new RecordingEffect());
    EXPECT_EQ(2, pool->size());
    EXPECT_EQ("intro", pool->getKey(0));
    EXPECT_EQ("zoom", pool->getKey(1));
    EXPECT_EQ("", pool->getKey(2));

    EXPECT_FALSE(pool->exist("ghost"));
    EXPECT_EQ(nullptr, pool->getEffect("ghost"));
    EXPECT_TRUE(pool->exist("ghost"));
    EXPECT_EQ(3, pool->size());
    EXPECT_EQ("EffectPool {\n    ghost = Effect\n    intro = Effect\n    zoom = Effect\n}\n", pool->toString());

    Effect* zoom = pool->getEffect("zoom");
    pool->removeEffect("zoom");
    pool->removeEffect("never");
    EXPECT_EQ(2, pool->size());
    delete zoom;  // the pool let go of it without deleting it

    EXPECT_EQ("[Dispose effectPool]\n -> delete ghost\n -> delete intro\n", captureStdout([&] { delete pool; }));
}

TEST(DataEventPool, ReportsItsPrototypesAndNothingWhenEmpty) {
    DataEventPool* pool = new DataEventPool();
    EXPECT_EQ("EventPool { EMPTY }\n", pool->toString());
    pool->addEvent("start", new EventStartEffect());
    pool->addEvent("stop", new EventStopEffect());
    pool->addEvent("modify", new EventModifyEffect());
    EXPECT_EQ(3, pool->size());
    EXPECT_EQ(nullptr, pool->getEvent("pause"));
    EXPECT_FALSE(pool->exist("pause"));
    EXPECT_TRUE(pool->exist("stop"));
    EXPECT_EQ(
        "EventPool {\n"
        "    modify = EventModifyEffect {  }\n"
        "    start = EventStartEffect {  }\n"
        "    stop = EventStopEffect {  }\n"
        "}\n",
        pool->toString());
    Event* clone = pool->getEvent("start")->getInstance();
    EXPECT_NE(nullptr, dynamic_cast<EventStartEffect*>(clone));
    delete clone;
    EXPECT_EQ("[Dispose eventPool]\n -> delete modify\n -> delete start\n -> delete stop\n",
              captureStdout([&] { delete pool; }));
}

TEST(DataBinaryPool, KeysInByteOrderAndCountsEveryAdd) {
    DataBinaryPool* pool = new DataBinaryPool();
    Binary* first = new Binary({1, 2, 3});
    pool->addData("noise", first);
    pool->addData("Music", new Binary({9}));
    pool->addData("noise", new Binary({4, 5}));  // name taken again; the first stays the caller's
    EXPECT_EQ(3, pool->size());
    EXPECT_EQ(1u, pool->getData(0)->size());  // "Music" sorts before "noise"
    EXPECT_EQ(2u, pool->getData(1)->size());
    EXPECT_EQ(nullptr, pool->getData(2));
    EXPECT_EQ(nullptr, pool->getData(-1));
    EXPECT_EQ(nullptr, pool->getData("silence"));
    EXPECT_TRUE(pool->exist("Music"));
    EXPECT_EQ(
        "DataBinaryPool {\n"
        "    num3dObjects = 3\n"
        "    Music = Binary { size = 1 }\n"
        "    noise = Binary { size = 2 }\n"
        "}\n",
        pool->toString());
    EXPECT_EQ("[Dispose binaryPool]\n -> delete Music\n -> delete noise\n", captureStdout([&] { delete pool; }));
    delete first;
}
