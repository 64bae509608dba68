// The hand-written part of the resource tree against the rules of the script language:
// definition files for every class the engine and the demo register, well-formed
// parameters, and a starter script whose files exist and whose timeline calls match
// the methods of their classes.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>

#include "qlnutils/StringTokenizer.h"
#include "qlnutils/StringUtils.h"
#include "support/TestSupport.h"

namespace {

std::string resources() {
    return testsupport::sourceDir() + "/resources";
}

std::vector<std::string> split(const std::string& text, const std::string& delimiters) {
    StringTokenizer tokens(text, delimiters);
    std::vector<std::string> out;
    while (tokens.hasMoreTokens()) out.push_back(StringUtils::trim(tokens.getNext()));
    return out;
}

struct Definition {
    std::map<std::string, std::map<std::string, std::string>> parameters;  // name -> attributes
    std::map<std::string, std::vector<std::string>> methods;               // name -> argument types
};

Definition readDefinition(const std::string& name) {
    Definition d;
    const std::string text = testsupport::readFile(resources() + "/definitions/" + name + ".def");
    EXPECT_FALSE(text.empty()) << name << ".def is missing";
    std::vector<std::string> pieces = split(text, "{}");
    EXPECT_EQ(pieces.size() % 2, 0u) << name << ".def: an empty block shifts the pairing of names and bodies";
    for (size_t i = 0; i + 1 < pieces.size(); i += 2) {
        const std::string& block = pieces[i];
        EXPECT_TRUE(block == "parameters" || block == "methods") << name << ".def: block '" << block << "'";
        for (const std::string& statement : split(pieces[i + 1], ";")) {
            if (block == "parameters") {
                std::vector<std::string> parts = split(statement, "[]");
                auto& attributes = d.parameters[parts[0]];
                for (size_t k = 1; k < parts.size(); ++k) {
                    size_t eq = parts[k].find('=');
                    attributes[parts[k].substr(0, eq)] = eq == std::string::npos ? "" : parts[k].substr(eq + 1);
                }
            } else {
                std::vector<std::string> parts = split(statement, "()");
                d.methods[parts[0]] = parts.size() > 1 ? split(parts[1], ",") : std::vector<std::string>();
            }
        }
    }
    return d;
}

// Every class the program registers, then the settings blocks.
const char* const definitionNames[] = {
    "DisplayTexture", "FadeEffect", "StartEffect", "RasterEffect", "ScrollEffect", "CubeChaos",
    "TextwriterEffect", "TunnelEffect", "RasterFXEffect", "IntroLogoEffect", "FlipTransitionEffect",
    "ScrollWipe", "BouncingCubeEffect", "BounceWipe", "TitleEffect", "system", "screen", "sound"};

}  // namespace

TEST(ResourceTree, EveryDefinitionDeclaresTypedParametersWithValidDefaults) {
    for (const char* name : definitionNames) {
        SCOPED_TRACE(name);
        Definition d = readDefinition(name);
        EXPECT_FALSE(d.parameters.empty()) << "a block of this class needs a parameter to name";
        for (const auto& [parameter, attributes] : d.parameters) {
            SCOPED_TRACE(parameter);
            ASSERT_TRUE(attributes.count("type") && attributes.count("default")) << "written without blanks?";
            const std::string& type = attributes.at("type");
            const std::string& value = attributes.at("default");
            if (type == "float") {
                EXPECT_TRUE(StringUtils::isFloat(value));
            } else if (type == "int") {
                EXPECT_TRUE(StringUtils::isInt(value));
            } else if (type == "bool") {
                EXPECT_TRUE(StringUtils::isBool(value));
            } else if (type == "string") {
                ASSERT_TRUE(attributes.count("values"));
                const std::string& values = attributes.at("values");
                if (values != "<string>") {
                    std::vector<std::string> options = split(values, ",");
                    EXPECT_NE(std::find(options.begin(), options.end(), value), options.end());
                }
            } else {
                ADD_FAILURE() << "type '" << type << "'";
            }
        }
        const std::set<std::string> argumentTypes = {"<event>", "<time>", "<integer>", "<bool>", "<float>", "<string>"};
        for (const auto& [method, arguments] : d.methods) {
            ASSERT_FALSE(arguments.empty()) << method << ": the first argument is the event time";
            EXPECT_EQ(arguments[0], "<event>") << method;
            for (const std::string& a : arguments) EXPECT_TRUE(argumentTypes.count(a)) << method << ": " << a;
        }
    }
}

TEST(ResourceTree, StarterScriptNamesExistingFilesAndDeclaredMethods) {
    std::string text = testsupport::readFile(resources() + "/scripts/demoscript.txt");
    ASSERT_EQ(text.rfind("{QLNDS1}\n", 0), 0u);
    text = std::regex_replace(text.substr(9), std::regex("//[^\n]*"), "");
    std::vector<std::string> pieces = split(text, "{}");
    ASSERT_EQ(pieces.size() % 2, 0u);
    ASSERT_EQ(pieces[0], "paths") << "paths must come first: the definitions load after it";
    std::map<std::string, std::map<std::string, std::string>> blocks;
    std::map<std::string, std::string> classes;  // effect instance -> class
    std::string timeline;
    for (size_t i = 0; i < pieces.size(); i += 2) {
        const std::string& name = pieces[i];
        if (name == "timeline") {
            timeline = pieces[i + 1];
            continue;
        }
        std::map<std::string, std::string> entries;
        for (const std::string& statement : split(pieces[i + 1], ";")) {
            std::vector<std::string> kv = split(statement, "=");
            ASSERT_EQ(kv.size(), 2u) << name << ": " << statement;
            entries[kv[0]] = kv[1];
        }
        if (name.find('*') != std::string::npos) {
            std::vector<std::string> parts = split(name, "*");
            classes[parts[0]] = parts[1];
            Definition d = readDefinition(parts[1]);
            for (const auto& [key, value] : entries) {
                ASSERT_TRUE(d.parameters.count(key)) << parts[0] << "." << key;
                const std::string& type = d.parameters[key]["type"];
                if (type == "float") {
                    EXPECT_TRUE(StringUtils::isFloat(value)) << parts[0] << "." << key;
                }
                std::smatch ref;
                if (std::regex_match(value, ref, std::regex(R"((\w+)\[(\w+)\])"))) {
                    EXPECT_TRUE(blocks[ref[1]].count(ref[2])) << value << " names no resource";
                }
            }
        } else {
            blocks[name] = entries;
        }
    }
    auto& paths = blocks["paths"];
    auto exists = [](const std::string& path) { return std::filesystem::exists(testsupport::sourceDir() + "/" + path); };
    for (const auto& [alias, file] : blocks["graphics"])
        EXPECT_TRUE(exists(paths["gfx"] + split(file, ",")[0])) << alias;
    for (const auto& [alias, file] : blocks["binary"]) EXPECT_TRUE(exists(paths["misc"] + file)) << alias;
    for (const auto& [alias, file] : blocks["animation"]) EXPECT_TRUE(exists(paths["misc"] + file)) << alias;
    for (const auto& [alias, file] : blocks["objects"]) EXPECT_TRUE(exists(paths["object"] + file)) << alias;
    for (const auto& [alias, base] : blocks["shaders"]) {
        EXPECT_TRUE(exists(paths["shaders"] + base + ".vert")) << alias;
        EXPECT_TRUE(exists(paths["shaders"] + base + ".frag")) << alias;
    }
    EXPECT_TRUE(exists(paths["sound"] + blocks["sound"]["file"]));
    EXPECT_TRUE(exists(paths["definition"] + "system.def"));

    int calls = 0, checkpoints = 0;
    const std::regex time(R"(\d\d:\d\d:\d\d\d)");
    for (const std::string& declaration : split(timeline, ";")) {
        SCOPED_TRACE(declaration);
        if (declaration.rfind("Checkpoint ", 0) == 0) {
            EXPECT_TRUE(std::regex_match(declaration.substr(11), time));
            ++checkpoints;
            continue;
        }
        std::smatch call;
        ASSERT_TRUE(std::regex_match(declaration, call, std::regex(R"((\w+)\.(\w+)\((.*)\))")));
        ASSERT_TRUE(classes.count(call[1])) << "no effect block for " << call[1];
        std::vector<std::string> arguments = split(call[3], ",");
        ASSERT_FALSE(arguments.empty());
        EXPECT_TRUE(std::regex_match(arguments[0], time));
        ++calls;
        if (call[2] == "start" || call[2] == "stop") continue;
        Definition d = readDefinition(classes[call[1]]);
        ASSERT_TRUE(d.methods.count(call[2])) << classes[call[1]] << " has no method " << call[2];
        const std::vector<std::string>& types = d.methods[call[2]];
        ASSERT_EQ(arguments.size(), types.size());
        for (size_t k = 0; k < types.size(); ++k) {
            if (types[k] == "<float>") {
                EXPECT_TRUE(StringUtils::isFloat(arguments[k])) << arguments[k];
            }
            if (types[k] == "<time>" || types[k] == "<event>") {
                EXPECT_TRUE(std::regex_match(arguments[k], time)) << arguments[k];
            }
        }
    }
    EXPECT_GT(calls, 10);
    EXPECT_EQ(checkpoints, 3);
}
