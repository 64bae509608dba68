#include <gtest/gtest.h>

#include <memory>

#include "demosys/EffectDefinition.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"

namespace {

ParameterGroup* attributes(const std::string& type, const std::string& defaultValue) {
    auto* group = new ParameterGroup();
    group->addParameter("type", type);
    group->addParameter("default", defaultValue);
    return group;
}

// A definition like the one a fade effect's file declares.
std::unique_ptr<EffectDefinition> fadeDefinition() {
    auto definition = std::make_unique<EffectDefinition>("FadeEffect");
    auto* parameters = new Parameters();
    parameters->addGroup("speed", attributes("float", "1.0"));
    parameters->addGroup("color", attributes("string", "black"));
    definition->setParameters(parameters);
    auto* methods = new Parameters();
    auto* fadeUp = new ParameterGroup();
    fadeUp->addParameter("p2", "int");
    methods->addGroup("fadeUp", fadeUp);
    definition->setMethods(methods);
    return definition;
}

TEST(EffectDefinitionTest, StartsWithoutSections) {
    EffectDefinition definition("Tunnel");
    EXPECT_EQ(definition.getName(), "Tunnel");
    EXPECT_FALSE(definition.hasParameters());
    EXPECT_FALSE(definition.hasMethods());
    EXPECT_FALSE(definition.hasParameter("speed"));
    EXPECT_FALSE(definition.hasMethod("fadeUp"));
    EXPECT_EQ(definition.getParameter("speed"), nullptr);
    EXPECT_EQ(definition.getMethod("fadeUp"), nullptr);
    EXPECT_EQ(definition.getMethods(), nullptr);
    EXPECT_EQ(EffectDefinition().getName(), "");
}

TEST(EffectDefinitionTest, AnswersForDeclaredParametersAndMethods) {
    auto definition = fadeDefinition();
    EXPECT_TRUE(definition->hasParameter("speed"));
    EXPECT_FALSE(definition->hasParameter("fadeUp"));
    EXPECT_TRUE(definition->hasMethod("fadeUp"));
    EXPECT_FALSE(definition->hasMethod("speed"));
    EXPECT_EQ(definition->getParameter("color")->getParameter("default"), "black");
    EXPECT_EQ(definition->getMethod("fadeUp")->getParameter("p2"), "int");
    EXPECT_EQ(definition->getMethod("fadeDown"), nullptr);
    EXPECT_EQ(definition->getMethods()->size(), 1);
}

TEST(EffectDefinitionTest, DefaultsMapEachParameterToItsDefault) {
    auto definition = fadeDefinition();
    std::unique_ptr<ParameterGroup> defaults(definition->getDefaults());
    EXPECT_EQ(defaults->getGroupName(), "parameters");
    EXPECT_EQ(defaults->toString(), "parameters {\n    color = black;\n    speed = 1.0;\n}\n");

    std::unique_ptr<ParameterGroup> again(definition->getDefaults());
    EXPECT_NE(again.get(), defaults.get());  // a new group on every call
}

TEST(EffectDefinitionTest, EmptyOrMissingParametersGiveEmptyDefaults) {
    EffectDefinition empty("Empty");
    empty.setParameters(new Parameters());
    std::unique_ptr<ParameterGroup> defaults(empty.getDefaults());
    EXPECT_EQ(defaults->getGroupName(), "parameters");
    EXPECT_EQ(defaults->toString(), "ParameterGroup{ EMPTY }\n");

    EffectDefinition none("None");
    std::unique_ptr<ParameterGroup> nothing(none.getDefaults());
    EXPECT_EQ(nothing->size(), 0);
}

TEST(EffectDefinitionTest, PrintsBothSectionsOrTheirAbsence) {
    EXPECT_EQ(EffectDefinition("Bare").toString(),
              "EffectDefinition {\neffect = Bare\nNo Parameters\nNo methods\n}\n");
    EXPECT_EQ(fadeDefinition()->toString(),
              "EffectDefinition {\n"
              "effect = FadeEffect\n"
              "color {\n    default = black;\n    type = string;\n}\n"
              "speed {\n    default = 1.0;\n    type = float;\n}\n"
              "\n"
              "fadeUp {\n    p2 = int;\n}\n"
              "\n"
              "}\n");
}

TEST(EffectDefinitionTest, SettingASectionAgainReplacesIt) {
    auto definition = fadeDefinition();
    auto* other = new Parameters();
    other->addGroup("size", attributes("int", "4"));
    definition->setParameters(other);
    EXPECT_FALSE(definition->hasParameter("speed"));
    EXPECT_TRUE(definition->hasParameter("size"));
}

}  // namespace
