#include <gtest/gtest.h>

#include <stdexcept>

#include "demosys/ParameterGroup.h"

namespace {

TEST(ParameterGroupTest, NamesTheGroup) {
    EXPECT_EQ(ParameterGroup().getGroupName(), "parameters");
    ParameterGroup group("screen");
    EXPECT_EQ(group.getGroupName(), "screen");
    group.setGroupName("sound");
    EXPECT_EQ(group.getGroupName(), "sound");
    EXPECT_EQ(group.size(), 0);
}

TEST(ParameterGroupTest, KeepsEntriesInKeyOrder) {
    ParameterGroup group("g");
    group.addParameter("b", "2");
    group.addParameter("a", "1");
    group.addParameter("B", "upper");
    EXPECT_EQ(group.size(), 3);
    EXPECT_EQ(group.getKey(0), "B");  // byte order: capitals first
    EXPECT_EQ(group.getKey(1), "a");
    EXPECT_EQ(group.getValue(1), "1");
    EXPECT_EQ(group.getKey(2), "b");
    EXPECT_EQ(group.getValue(2), "2");
    EXPECT_EQ(group.toString(), "g {\n    B = upper;\n    a = 1;\n    b = 2;\n}\n");
}

TEST(ParameterGroupTest, LastWriteWins) {
    ParameterGroup group;
    group.addParameter("width", "640");
    group.addParameter("width", "800");
    EXPECT_EQ(group.size(), 1);
    EXPECT_EQ(group.getParameter("width"), "800");
    EXPECT_TRUE(group.exist("width"));
    EXPECT_FALSE(group.exist("Width"));
}

TEST(ParameterGroupTest, ValuesAreKeptAsWritten) {
    ParameterGroup group;
    group.addParameter("text", " padded value ");
    group.addParameter("", "empty key");
    EXPECT_EQ(group.getParameter("text"), " padded value ");
    EXPECT_TRUE(group.exist(""));
    EXPECT_EQ(group.getParameter(""), "empty key");
}

TEST(ParameterGroupTest, MissingKeyThrowsALogicError) {
    ParameterGroup group;
    group.addParameter("present", "yes");
    EXPECT_THROW(group.getParameter("absent"), std::logic_error);
    EXPECT_EQ(group.size(), 1);  // asking inserts nothing
}

TEST(ParameterGroupTest, IndexOutsideTheEntriesGivesEmptyText) {
    ParameterGroup group;
    group.addParameter("only", "1");
    EXPECT_EQ(group.getKey(1), "");
    EXPECT_EQ(group.getValue(-1), "");
    EXPECT_EQ(ParameterGroup().getKey(0), "");
}

TEST(ParameterGroupTest, EmptyGroupPrintsEmptyMarker) {
    EXPECT_EQ(ParameterGroup("named").toString(), "ParameterGroup{ EMPTY }\n");
}

}  // namespace
