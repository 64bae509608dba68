#include <gtest/gtest.h>

#include <memory>

#include "demosys/EffectDefinition.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "demosys/ScriptDefaults.h"

namespace {

EffectDefinition* definitionWithDefault(const std::string& name, const std::string& parameter,
                                        const std::string& value) {
    auto* definition = new EffectDefinition(name);
    auto* parameters = new Parameters();
    auto* attributes = new ParameterGroup();
    attributes->addParameter("default", value);
    parameters->addGroup(parameter, attributes);
    definition->setParameters(parameters);
    return definition;
}

TEST(ScriptDefaultsTest, FindsDefinitionsByName) {
    ScriptDefaults defaults;
    EffectDefinition* tunnel = definitionWithDefault("Tunnel", "speed", "2.0");
    defaults.addEffectDefinition("Tunnel", tunnel);
    EXPECT_EQ(defaults.size(), 1);
    EXPECT_TRUE(defaults.exists("Tunnel"));
    EXPECT_FALSE(defaults.exists("tunnel"));
    EXPECT_EQ(defaults.getEffectDefinition("Tunnel"), tunnel);

    std::unique_ptr<ParameterGroup> values(defaults.getDefaults("Tunnel"));
    ASSERT_NE(values, nullptr);
    EXPECT_EQ(values->getParameter("speed"), "2.0");
}

TEST(ScriptDefaultsTest, UnknownNamesGiveNull) {
    ScriptDefaults defaults;
    EXPECT_EQ(defaults.getDefaults("Missing"), nullptr);
    EXPECT_FALSE(defaults.exists("Missing"));  // getDefaults does not insert
}

TEST(ScriptDefaultsTest, LookingUpAnUnknownDefinitionLeavesAnEntryBehind) {
    ScriptDefaults defaults;
    EXPECT_EQ(defaults.getEffectDefinition("Ghost"), nullptr);
    EXPECT_TRUE(defaults.exists("Ghost"));
    EXPECT_EQ(defaults.size(), 1);
    EXPECT_EQ(defaults.getDefaults("Ghost"), nullptr);
    EXPECT_EQ(defaults.toString(), "ScriptDefaults {\nDefinition : Ghost\n\n}\n");
}

TEST(ScriptDefaultsTest, PrintsEveryDefinitionInNameOrder) {
    ScriptDefaults defaults;
    defaults.addEffectDefinition("b", new EffectDefinition("B"));
    defaults.addEffectDefinition("a", new EffectDefinition("A"));
    EXPECT_EQ(defaults.toString(),
              "ScriptDefaults {\n"
              "Definition : a\nEffectDefinition {\neffect = A\nNo Parameters\nNo methods\n}\n\n"
              "Definition : b\nEffectDefinition {\neffect = B\nNo Parameters\nNo methods\n}\n\n"
              "}\n");
    EXPECT_EQ(ScriptDefaults().toString(), "ScriptDefaults {\n}\n");
}

TEST(ScriptDefaultsTest, ReplacingADefinitionLeavesTheOldOneToItsOwner) {
    ScriptDefaults defaults;
    std::unique_ptr<EffectDefinition> first(new EffectDefinition("first"));
    defaults.addEffectDefinition("x", first.get());
    defaults.addEffectDefinition("x", new EffectDefinition("second"));
    EXPECT_EQ(defaults.getEffectDefinition("x")->getName(), "second");
    EXPECT_EQ(first->getName(), "first");
}

}  // namespace
