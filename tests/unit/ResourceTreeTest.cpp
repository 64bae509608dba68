// The hand-written part of the resource tree against the rules of the script language:
// definition files for every class the engine and the demo register, read with the
// engine's own definition reader; and a starter script whose files exist and whose
// timeline calls match the methods of their classes (the program test plays it).
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <sstream>
#include <set>

#include "demosys/EffectDefinition.h"
#include "demosys/EffectDefinitionParser.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
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

// A definition file as the engine reads it, flattened for the checks below.
Definition readDefinition(const std::string& name) {
    Definition d;
    EffectDefinitionParser parser(resources() + "/definitions/" + name + ".def");
    std::unique_ptr<EffectDefinition> definition(parser.parse());
    EXPECT_TRUE(definition) << parser.getErrorMessage();
    if (!definition) return d;
    if (Parameters* parameters = definition->getParameters())
        for (int i = 0; i < parameters->size(); ++i) {
            ParameterGroup* attributes = parameters->getValue(i);
            for (int k = 0; k < attributes->size(); ++k)
                d.parameters[parameters->getKey(i)][attributes->getKey(k)] = attributes->getValue(k);
        }
    if (Parameters* methods = definition->getMethods())
        for (int i = 0; i < methods->size(); ++i) {
            ParameterGroup* arguments = methods->getValue(i);  // keys "00", "01", ... in argument order
            for (int k = 0; k < arguments->size(); ++k) d.methods[methods->getKey(i)].push_back(arguments->getValue(k));
            d.methods[methods->getKey(i)];  // a method without arguments
        }
    return d;
}

// A time as the timeline writes it: mm:ss:mmm.
bool isTime(const std::string& t) {
    if (t.size() != 9 || t[2] != ':' || t[5] != ':') return false;
    for (size_t i : {0, 1, 3, 4, 6, 7, 8})
        if (!std::isdigit(static_cast<unsigned char>(t[i]))) return false;
    return true;
}

std::string withoutComments(const std::string& text) {
    std::istringstream lines(text);
    std::string line, out;
    while (std::getline(lines, line)) out += line.substr(0, line.find("//")) + "\n";
    return out;
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

// Every file a bundled script names exists, and every call matches its class's definition.
static void checkScript(const std::string& name, int expectedCheckpoints) {
    SCOPED_TRACE(name);
    std::string text = testsupport::readFile(resources() + "/scripts/" + name);
    ASSERT_EQ(text.rfind("{QLNDS1}\n", 0), 0u);
    text = withoutComments(text.substr(9));
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
                size_t open = value.find('[');
                if (open != std::string::npos && value.back() == ']') {
                    const std::string block = value.substr(0, open), key = value.substr(open + 1, value.size() - open - 2);
                    EXPECT_TRUE(blocks[block].count(key)) << value << " names no resource";
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
    for (const std::string& declaration : split(timeline, ";")) {
        SCOPED_TRACE(declaration);
        if (declaration.rfind("Checkpoint ", 0) == 0) {
            EXPECT_TRUE(isTime(declaration.substr(11)));
            ++checkpoints;
            continue;
        }
        const size_t dot = declaration.find('.'), open = declaration.find('(');
        ASSERT_TRUE(dot != std::string::npos && open > dot && declaration.back() == ')');
        const std::string object = declaration.substr(0, dot), method = declaration.substr(dot + 1, open - dot - 1);
        ASSERT_TRUE(classes.count(object)) << "no effect block for " << object;
        std::vector<std::string> arguments = split(declaration.substr(open + 1, declaration.size() - open - 2), ",");
        ASSERT_FALSE(arguments.empty());
        EXPECT_TRUE(isTime(arguments[0]));
        ++calls;
        if (method == "start" || method == "stop" || method == "sync") continue;
        Definition d = readDefinition(classes[object]);
        ASSERT_TRUE(d.methods.count(method)) << classes[object] << " has no method " << method;
        const std::vector<std::string>& types = d.methods[method];
        ASSERT_EQ(arguments.size(), types.size());
        for (size_t k = 0; k < types.size(); ++k) {
            if (types[k] == "<float>") {
                EXPECT_TRUE(StringUtils::isFloat(arguments[k])) << arguments[k];
            }
            if (types[k] == "<time>" || types[k] == "<event>") {
                EXPECT_TRUE(isTime(arguments[k])) << arguments[k];
            }
        }
    }
    EXPECT_GT(calls, 10);
    EXPECT_EQ(checkpoints, expectedCheckpoints);
}

TEST(ResourceTree, StarterScriptNamesExistingFilesAndDeclaredMethods) { checkScript("starter.txt", 3); }

TEST(ResourceTree, BundledDemoNamesExistingFilesAndDeclaredMethods) { checkScript("demoscript.txt", 9); }
