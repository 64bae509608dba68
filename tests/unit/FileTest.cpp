#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "qlnutils/File.h"
#include "support/TestSupport.h"

using testsupport::TempDir;
using testsupport::readFile;

namespace {

std::string bytes(std::initializer_list<int> values) {
    std::string text;
    for (int v : values) text += static_cast<char>(v);
    return text;
}

TEST(FileTest, SplitsLinesAtLineFeedOrCarriageReturnLineFeed) {
    TempDir dir;
    File unix(dir.write("unix.txt", "first\nsecond\n\nfourth\n"), File::READ);
    EXPECT_EQ(unix.getAsLines(), (std::vector<std::string>{"first", "second", "", "fourth"}));

    File dos(dir.write("dos.txt", "first\r\nsecond\r\nlast"), File::READ);
    EXPECT_EQ(dos.getAsLines(), (std::vector<std::string>{"first", "second", "last"}));

    File lone(dir.write("cr.txt", "a\rb\n"), File::READ);
    EXPECT_EQ(lone.getAsLines(), (std::vector<std::string>{"a\rb"}));
}

TEST(FileTest, ReadsLittleEndianValuesInSequence) {
    TempDir dir;
    std::string content = bytes({0x78, 0x56, 0x34, 0x12,   // 0x12345678
                                 0xfe, 0xff, 0xff, 0xff,   // -2
                                 0x00, 0x00, 0xc0, 0x3f,   // 1.5f
                                 0x00, 0x00, 0x80, 0xbf,   // -1.0f
                                 0x80, 'Q'});
    File file(dir.write("values.bin", content), File::READ);
    EXPECT_EQ(file.readInt(), 0x12345678);
    EXPECT_EQ(file.readInt(), -2);
    EXPECT_FLOAT_EQ(file.readFloat(), 1.5f);
    EXPECT_FLOAT_EQ(file.readFloat(), -1.0f);
    EXPECT_EQ(file.readChar(), static_cast<char>(-128));
    EXPECT_EQ(file.readChar(), 'Q');
    EXPECT_EQ(file.getReadPosition(), 18u);
    EXPECT_EQ(file.getAsInt(), (std::vector<int>{0x12345678, -2, 0x3fc00000, static_cast<int>(0xbf800000)}));
}

TEST(FileTest, ReadsNulTerminatedAndFixedLengthStrings) {
    TempDir dir;
    std::string content = std::string("cube", 4) + bytes({0}) + bytes({0}) + "tail" + "rest";
    File file(dir.write("names.bin", content), File::READ);
    EXPECT_EQ(file.readString(), "cube");
    EXPECT_EQ(file.readString(), "Object");  // nameless record
    EXPECT_EQ(file.getReadPosition(), 6u);
    EXPECT_EQ(file.readString(4), "tail");
    EXPECT_EQ(file.readString(0), "");
    EXPECT_EQ(file.readString(), "rest");  // ends at the end of the buffer without a NUL
    EXPECT_EQ(file.getReadPosition(), 14u);
}

TEST(FileTest, ReadsPastTheEndGiveZeroAndEmptyText) {
    TempDir dir;
    File file(dir.write("short.bin", bytes({1, 2, 3})), File::READ);
    EXPECT_EQ(file.readInt(), 0);  // only three bytes left
    EXPECT_EQ(file.getReadPosition(), 3u);
    EXPECT_EQ(file.readChar(), 0);
    EXPECT_FLOAT_EQ(file.readFloat(), 0.0f);
    EXPECT_EQ(file.readString(), "");
    EXPECT_EQ(file.readString(2), "");
    EXPECT_EQ(file.readString(-5), "");
    EXPECT_EQ(file.getReadPosition(), 3u);

    File again(dir.file("short.bin"), File::READ);
    EXPECT_EQ(again.readChar(), 1);
    EXPECT_EQ(again.readString(1000000), "");
    EXPECT_EQ(again.readChar(), 0);

    File empty(dir.write("empty.bin", ""), File::READ);
    EXPECT_TRUE(empty.exists());
    EXPECT_EQ(empty.readInt(), 0);
    EXPECT_EQ(empty.readString(), "");
}

TEST(FileTest, PutAppendsLittleEndianBytesAndWriteStoresThem) {
    TempDir dir;
    std::string path = dir.file("out.bin");
    File file(path, File::WRITE);
    EXPECT_TRUE(file.exists());
    EXPECT_EQ(file.getFileSize(), 0u);
    file.put(0x01020304);
    file.put(-1.0f);
    file.put(static_cast<unsigned char>(0xab));
    file.put(std::string("name"));
    EXPECT_EQ(file.getFileSize(), 13u);
    EXPECT_TRUE(file.write());
    EXPECT_EQ(readFile(path), bytes({4, 3, 2, 1, 0x00, 0x00, 0x80, 0xbf, 0xab}) + "name");

    File back(path, File::READ);
    EXPECT_EQ(back.readInt(), 0x01020304);
    EXPECT_FLOAT_EQ(back.readFloat(), -1.0f);
    EXPECT_EQ(static_cast<unsigned char>(back.readChar()), 0xab);
    EXPECT_EQ(back.readString(4), "name");
}

TEST(FileTest, WriteModesTruncateOrAppend) {
    TempDir dir;
    std::string path = dir.write("log.txt", "old");
    {
        File appending(path, File::APPEND);
        EXPECT_EQ(appending.getFileSize(), 0u);
        appending.put(std::string("+new"));
        EXPECT_TRUE(appending.write());
    }
    EXPECT_EQ(readFile(path), "old+new");
    {
        File truncating(path, File::OVERWRITE);
        EXPECT_EQ(readFile(path), "");
        truncating.put(std::string("fresh"));
        EXPECT_TRUE(truncating.write());
        EXPECT_FALSE(truncating.write());  // the stream was closed by the first write
        // A copy holds what the last write stored, not what was put since.
        truncating.put(std::string("+late"));
        EXPECT_TRUE(truncating.writeAs(dir.file("copy.txt")));
        EXPECT_FALSE(truncating.writeAs(dir.file("no/such/folder.txt")));
    }
    EXPECT_EQ(readFile(path), "fresh");
    EXPECT_EQ(readFile(dir.file("copy.txt")), "fresh");
}

}  // namespace
