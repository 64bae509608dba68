#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "demosys/Binary.h"

namespace {

TEST(BinaryTest, HoldsTheBytesInFileOrder) {
    Binary blob({10, 20, 30});
    EXPECT_EQ(blob.size(), 3u);
    EXPECT_EQ(blob.getData(0), 10);
    EXPECT_EQ(blob.getData(2), 30);
    EXPECT_EQ(blob.getString(0, 3), "");
    EXPECT_EQ(blob.toString(), "Binary { size = 3 }\n");
    EXPECT_EQ(Binary({}).toString(), "Binary { size = 0 }\n");
}

TEST(BinaryTest, ScalesBytesIntoFloatsBelowOne) {
    Binary blob({0, 128, 255, 64, 1});
    float* all = blob.getFloatData();
    EXPECT_EQ(all[0], 0.0f);
    EXPECT_EQ(all[1], 0.5f);
    EXPECT_EQ(all[2], 0.99609375f);
    EXPECT_EQ(all[3], 0.25f);
    EXPECT_EQ(all[4], 0.00390625f);
    EXPECT_EQ(blob.getFloatData(), all);  // built once, kept by the blob
}

TEST(BinaryTest, RangeBeyondTheBlobReadsZero) {
    Binary blob({128, 64});
    std::unique_ptr<float[]> tail(blob.getFloatData(1, 4));
    EXPECT_EQ(tail[0], 0.25f);
    EXPECT_EQ(tail[1], 0.0f);
    EXPECT_EQ(tail[3], 0.0f);
    std::unique_ptr<float[]> before(blob.getFloatData(-1, 2));
    EXPECT_EQ(before[0], 0.0f);
    EXPECT_EQ(before[1], 0.5f);
    std::unique_ptr<float[]> far(blob.getFloatData(2147483647, 2));
    EXPECT_EQ(far[1], 0.0f);
    std::unique_ptr<float[]> none(blob.getFloatData(0, -3));  // no elements, no crash
}

}  // namespace
