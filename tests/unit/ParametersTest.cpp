#include <gtest/gtest.h>

#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"

namespace {

ParameterGroup* groupWith(const std::string& key, const std::string& value) {
    auto* group = new ParameterGroup("unnamed");
    group->addParameter(key, value);
    return group;
}

TEST(ParametersTest, StoresGroupsUnderTheirNewName) {
    Parameters parameters;
    EXPECT_EQ(parameters.size(), 0);
    ParameterGroup* screen = groupWith("width", "640");
    parameters.addGroup("screen", screen);
    EXPECT_EQ(screen->getGroupName(), "screen");
    EXPECT_TRUE(parameters.exist("screen"));
    EXPECT_FALSE(parameters.exist("sound"));
    EXPECT_EQ(parameters.getGroup("screen"), screen);
    EXPECT_EQ(parameters.getGroup("sound"), nullptr);
    EXPECT_EQ(parameters.size(), 1);  // looking up inserts nothing
}

TEST(ParametersTest, WalksGroupsInNameOrder) {
    Parameters parameters;
    parameters.addGroup("system", groupWith("stop", "01:00:000"));
    parameters.addGroup("paths", groupWith("definition", "defs/"));
    parameters.addGroup("screen", groupWith("width", "640"));
    EXPECT_EQ(parameters.getKey(0), "paths");
    EXPECT_EQ(parameters.getKey(2), "system");
    EXPECT_EQ(parameters.getValue(1)->getParameter("width"), "640");
    EXPECT_EQ(parameters.getKey(3), "");
    EXPECT_EQ(parameters.getValue(3), nullptr);
    EXPECT_EQ(parameters.getValue(-1), nullptr);
    EXPECT_EQ(parameters.toString(),
              "paths {\n    definition = defs/;\n}\n"
              "screen {\n    width = 640;\n}\n"
              "system {\n    stop = 01:00:000;\n}\n");
}

TEST(ParametersTest, ReplacingAGroupLeavesTheOldOneToItsOwner) {
    Parameters parameters;
    ParameterGroup* first = groupWith("a", "1");
    parameters.addGroup("g", first);
    parameters.addGroup("g", groupWith("b", "2"));
    EXPECT_EQ(parameters.size(), 1);
    EXPECT_EQ(parameters.getGroup("g")->getParameter("b"), "2");
    EXPECT_EQ(first->getParameter("a"), "1");  // still alive: not deleted by the replacement
    delete first;
}

TEST(ParametersTest, EmptyCollectionPrintsNothing) {
    EXPECT_EQ(Parameters().toString(), "");
    Parameters parameters;
    parameters.addGroup("blank", new ParameterGroup());
    EXPECT_EQ(parameters.toString(), "ParameterGroup{ EMPTY }\n");
}

}  // namespace
