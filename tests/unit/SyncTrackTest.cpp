// Track values for every key kind and edge; .track files written, read back, refused when lying.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "demosys/SyncTrack.h"
#include "demosys/SyncTrackFile.h"
#include "support/TestSupport.h"

namespace {

// Little-endian bytes as a track file holds them.
std::string word(uint32_t v) { return {char(v), char(v >> 8), char(v >> 16), char(v >> 24)}; }
std::string key(int row, float value, char type) {
    uint32_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    return word(static_cast<uint32_t>(row)) + word(bits) + type;
}

TEST(SyncTrack, InterpolatesEveryKindBetweenKeysAndHoldsAtTheEdges) {
    // Keys 1.0 at row 10 and 3.0 at row 20: t = 0.25 at row 12.5, 0.5 at row 15, 0.99 at row 19.9.
    struct Case { unsigned char type; double row, expected; } cases[] = {
        {SyncTrack::STEP, 12.5, 1.0},     {SyncTrack::STEP, 19.9, 1.0},
        {SyncTrack::LINEAR, 12.5, 1.5},   {SyncTrack::LINEAR, 15.0, 2.0},  {SyncTrack::LINEAR, 19.9, 2.98},
        {SyncTrack::SMOOTH, 12.5, 1.3125}, {SyncTrack::SMOOTH, 15.0, 2.0}, {SyncTrack::SMOOTH, 17.5, 2.6875},
        {SyncTrack::RAMP, 12.5, 1.125},   {SyncTrack::RAMP, 15.0, 1.5},    {SyncTrack::RAMP, 17.5, 2.125},
        // Edges, whatever the kind: the first value before the first key, the last after.
        {SyncTrack::RAMP, 0.0, 1.0},      {SyncTrack::LINEAR, 9.99, 1.0},  {SyncTrack::LINEAR, 10.0, 1.0},
        {SyncTrack::LINEAR, 20.0, 3.0},   {SyncTrack::SMOOTH, 1e12, 3.0},  {SyncTrack::STEP, -4.0, 1.0},
    };
    for (const Case& c : cases) {
        SyncTrack track("t");
        track.setKey(20, 3.0f, SyncTrack::STEP);
        track.setKey(10, 1.0f, c.type);
        EXPECT_NEAR(track.getValue(c.row), c.expected, 1e-9) << "kind " << int(c.type) << " row " << c.row;
    }
    EXPECT_EQ(SyncTrack("empty").getValue(5.0), 0.0);
}

TEST(SyncTrackFile, WritesEscapedNamesAndReadsThemBack) {
    EXPECT_EQ(SyncTrackFile::fileName("resources/sync/demo", "logo:x"), "resources/sync/demo_logo-3Ax.track");
    EXPECT_EQ(SyncTrackFile::escapeName("cam pos/y.1_2-#"), "cam-20pos/y.1_2-2D-23");
    EXPECT_EQ(SyncTrackFile::escapeName("\xc3\xa9"), "-C3-A9");

    testsupport::TempDir dir;
    SyncTrack track("logo:x");
    track.setKey(32, -0.5f, SyncTrack::RAMP);
    track.setKey(0, 1.25f, SyncTrack::SMOOTH);
    std::string path = SyncTrackFile::fileName(dir.path() + "/demo", track.getName());
    ASSERT_TRUE(SyncTrackFile::write(path, track));
    EXPECT_EQ(testsupport::readFile(dir.file("demo_logo-3Ax.track")),
              word(2) + key(0, 1.25f, 2) + key(32, -0.5f, 3));

    SyncTrack back("logo:x");
    std::string error;
    ASSERT_TRUE(SyncTrackFile::read(path, back, error)) << error;
    ASSERT_EQ(back.getKeys().size(), 2u);
    EXPECT_EQ(back.getKeys().at(0).value, 1.25f);
    EXPECT_EQ(back.getKeys().at(32).type, SyncTrack::RAMP);
}

TEST(SyncTrackFile, RefusesFilesThatAreShortLyingOrDamaged) {
    struct Case { std::string bytes, error; } cases[] = {
        {"", "File too short for a key count (0 bytes)"},
        {word(1).substr(0, 3), "File too short for a key count (3 bytes)"},
        {word(2) + key(0, 1.0f, 0), "Key count 2 does not fit the file (13 bytes)"},
        {word(1) + key(0, 1.0f, 0).substr(0, 8), "Key count 1 does not fit the file (12 bytes)"},
        {word(1) + key(0, 1.0f, 0) + "x", "Key count 1 does not fit the file (14 bytes)"},
        {word(0x7fffffff) + key(0, 1.0f, 0), "Key count 2147483647 does not fit the file (13 bytes)"},
        {word(0xffffffff), "Key count -1 does not fit the file (4 bytes)"},
        {word(1) + key(0, 1.0f, 4), "Key 0 is corrupt (row 0, kind 4)"},
        {word(2) + key(0, 1.0f, 1) + key(-8, 1.0f, 1), "Key 1 is corrupt (row -8, kind 1)"},
    };
    testsupport::TempDir dir;
    for (const Case& c : cases) {
        SyncTrack track("t");
        std::string error;
        EXPECT_FALSE(SyncTrackFile::read(dir.write("t.track", c.bytes), track, error));
        EXPECT_EQ(error, c.error);
    }
}

}  // namespace
