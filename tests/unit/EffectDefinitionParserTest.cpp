// The .def reader on real files: what it stores for each declaration, and its two errors.
#include <gtest/gtest.h>

#include <memory>

#include "demosys/EffectDefinition.h"
#include "demosys/EffectDefinitionParser.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "support/TestSupport.h"

namespace {

using testsupport::TempDir;

struct Result {
    std::unique_ptr<EffectDefinition> definition;
    bool valid;
    std::string error;
};

Result parseFile(const std::string& path) {
    EffectDefinitionParser parser(path);
    Result result{std::unique_ptr<EffectDefinition>(parser.parse()), parser.isValid(), parser.getErrorMessage()};
    return result;
}

Result parseText(const TempDir& dir, const std::string& text) { return parseFile(dir.write("Test.def", text)); }

std::string group(Parameters* collection, const std::string& name) {
    ParameterGroup* found = collection ? collection->getGroup(name) : nullptr;
    return found ? found->toString() : "<missing>";
}

const char* exampleLines[] = {
    "parameters {",
    "texture [type=string][default=logo][values=<string>];",
    "speed [type=float][default=1.0];",
    "mode [type=string][default=normal][values=normal,additive];",
    "}",
    "methods {",
    "setSpeed(<event>, <float>);",
    "fadeTo(<event>, <float>, <time>);",
    "}",
};

TEST(EffectDefinitionParser, ReadsTheExampleDefinitionInEveryLineEnding) {
    TempDir dir;
    for (std::string ending : {"\n", "\r\n", "\r"}) {
        std::string text;
        for (const char* line : exampleLines) text += line + ending;
        Result result = parseText(dir, text);
        ASSERT_TRUE(result.definition) << result.error;
        EXPECT_TRUE(result.valid);
        EffectDefinition& definition = *result.definition;
        EXPECT_EQ(definition.getName(), "");
        ASSERT_TRUE(definition.hasParameters());
        ASSERT_TRUE(definition.hasMethods());
        EXPECT_EQ(definition.getParameters()->size(), 3);
        EXPECT_EQ(group(definition.getParameters(), "texture"),
                  "texture {\n    default = logo;\n    type = string;\n    values = <string>;\n}\n");
        // Only two attributes: the missing third is stored with an empty key and value.
        EXPECT_EQ(group(definition.getParameters(), "speed"),
                  "speed {\n     = ;\n    default = 1.0;\n    type = float;\n}\n");
        EXPECT_EQ(group(definition.getParameters(), "mode"),
                  "mode {\n    default = normal;\n    type = string;\n    values = normal,additive;\n}\n");
        EXPECT_EQ(definition.getMethods()->size(), 2);
        EXPECT_EQ(group(definition.getMethods(), "setSpeed"), "setSpeed {\n    00 = <event>;\n    01 = <float>;\n}\n");
        EXPECT_EQ(group(definition.getMethods(), "fadeTo"),
                  "fadeTo {\n    00 = <event>;\n    01 = <float>;\n    02 = <time>;\n}\n");
        std::unique_ptr<ParameterGroup> defaults(definition.getDefaults());
        EXPECT_EQ(defaults->toString(), "parameters {\n    mode = normal;\n    speed = 1.0;\n    texture = logo;\n}\n");
    }
}

TEST(EffectDefinitionParser, ReportsAMissingFileAndInvalidBlockNames) {
    TempDir dir;
    std::string missing = dir.file("Nothing.def");
    struct Case {
        std::string text;  // empty: no file at all
        std::string error;
    };
    std::string path = dir.file("Test.def");
    Case cases[] = {
        {"", "EffectDefinitionParser : '" + missing + "' not found!"},
        {"Parameters { a [type=int][default=1]; }",
         "EffectDefinitionParser : Invalid block name!\nFile : " + path +
             "'\nblock name 'Parameters' is not valid\nValid blocks : parameters, methods\n"},
        {"parameters { a [type=int][default=1]; }\nsettings { b; }",
         "EffectDefinitionParser : Invalid block name!\nFile : " + path +
             "'\nblock name 'settings' is not valid\nValid blocks : parameters, methods\n"},
        // An empty block leaves no body, so the next block's name becomes the body and the
        // pairing shifts onto the statements.
        {"parameters { }\nmethods { go(<event>); }",
         "EffectDefinitionParser : Invalid block name!\nFile : " + path +
             "'\nblock name 'go(<event>);' is not valid\nValid blocks : parameters, methods\n"},
    };
    for (const Case& c : cases) {
        Result result = c.text.empty() ? parseFile(missing) : parseText(dir, c.text);
        EXPECT_EQ(result.definition, nullptr) << c.text;
        EXPECT_FALSE(result.valid) << c.text;
        EXPECT_EQ(result.error, c.error);
    }
    // A folder is no definition file either.
    dir.write("Folder.def/inside", "");
    Result folder = parseFile(dir.file("Folder.def"));
    EXPECT_EQ(folder.definition, nullptr);
    EXPECT_EQ(folder.error, "EffectDefinitionParser : '" + dir.file("Folder.def") + "' not found!");
}

TEST(EffectDefinitionParser, EitherSectionMayBeMissing) {
    TempDir dir;
    Result methodsOnly = parseText(dir, "methods { go(<event>); }");
    ASSERT_TRUE(methodsOnly.definition);
    EXPECT_FALSE(methodsOnly.definition->hasParameters());
    EXPECT_TRUE(methodsOnly.definition->hasMethod("go"));

    Result parametersOnly = parseText(dir, "parameters { a [type=int][default=1] }");
    ASSERT_TRUE(parametersOnly.definition);
    EXPECT_TRUE(parametersOnly.definition->hasParameter("a"));
    EXPECT_FALSE(parametersOnly.definition->hasMethods());

    Result empty = parseText(dir, " \r\n\t");
    ASSERT_TRUE(empty.definition);
    EXPECT_TRUE(empty.valid);
    EXPECT_FALSE(empty.definition->hasParameters());
    EXPECT_FALSE(empty.definition->hasMethods());
}

TEST(EffectDefinitionParser, AttributesAreTakenAsWritten) {
    TempDir dir;
    Result result = parseText(dir,
                              "parameters {\n"
                              "spaced [type = float][default=1.0];\n"   // blanks become part of key and value
                              "cut [type=string][default=a=b][values=<string>];\n"  // a second "=" ends the value
                              "bare [type][default=2][values=x][extra=ignored];\n"  // no "=", and a fourth attribute
                              "plain;\n"                                            // no attributes at all
                              "[type=int];\n"                                       // no name: the first piece is the name
                              "[];\n"                                               // nothing at all: empty name
                              "twice [type=int][default=1];\n"
                              "twice [type=float][default=2.0]\n"                   // last ";" left out; replaces
                              "}");
    ASSERT_TRUE(result.definition) << result.error;
    Parameters* parameters = result.definition->getParameters();
    EXPECT_EQ(group(parameters, "spaced"), "spaced {\n     = ;\n    default = 1.0;\n    type  =  float;\n}\n");
    EXPECT_FALSE(parameters->getGroup("spaced")->exist("type"));
    EXPECT_EQ(parameters->getGroup("spaced")->getParameter("type "), " float");
    EXPECT_EQ(group(parameters, "cut"), "cut {\n    default = a;\n    type = string;\n    values = <string>;\n}\n");
    EXPECT_EQ(group(parameters, "bare"), "bare {\n    default = 2;\n    type = ;\n    values = x;\n}\n");
    EXPECT_EQ(group(parameters, "plain"), "plain {\n     = ;\n}\n");
    EXPECT_EQ(group(parameters, "type=int"), "type=int {\n     = ;\n}\n");
    EXPECT_EQ(group(parameters, ""), " {\n     = ;\n}\n");
    EXPECT_EQ(group(parameters, "twice"), "twice {\n     = ;\n    default = 2.0;\n    type = float;\n}\n");
    EXPECT_EQ(parameters->size(), 7);
}

TEST(EffectDefinitionParser, MethodArgumentsAreKeyedByTwoDigitPosition) {
    TempDir dir;
    Result result = parseText(dir,
                              "methods {\n"
                              "many(<event>,<float>,<integer>,<bool>,<time>,<string>,<a>,<b>,<c>,<d>,<e>);\n"
                              "none();\n"
                              "blank( );\n"
                              "  spaced ( <event> ,  <float> ) ;\n"
                              "}\n"
                              "methods { again(<event>); }\n");  // a second block replaces the first
    ASSERT_TRUE(result.definition) << result.error;
    EXPECT_FALSE(result.definition->hasMethod("many"));
    EXPECT_EQ(group(result.definition->getMethods(), "again"), "again {\n    00 = <event>;\n}\n");

    result = parseText(dir,
                       "methods {\n"
                       "many(<event>,<float>,<integer>,<bool>,<time>,<string>,<a>,<b>,<c>,<d>,<e>);\n"
                       "none();\n"
                       "blank( );\n"
                       "  spaced ( <event> ,  <float> ) ;\n"
                       "}\n");
    ASSERT_TRUE(result.definition);
    ParameterGroup* many = result.definition->getMethod("many");
    ASSERT_NE(many, nullptr);
    ASSERT_EQ(many->size(), 11);
    const char* types[] = {"<event>", "<float>", "<integer>", "<bool>", "<time>", "<string>",
                           "<a>", "<b>", "<c>", "<d>", "<e>"};
    for (int i = 0; i < 11; ++i) {
        EXPECT_EQ(many->getKey(i), (i < 10 ? "0" : "") + std::to_string(i));
        EXPECT_EQ(many->getValue(i), types[i]);
    }
    EXPECT_EQ(result.definition->getMethod("none")->size(), 0);
    EXPECT_EQ(result.definition->getMethod("blank")->size(), 0);
    EXPECT_EQ(group(result.definition->getMethods(), "spaced"), "spaced {\n    00 = <event>;\n    01 = <float>;\n}\n");
}

TEST(EffectDefinitionParser, StepsCanBeUsedOnTheirOwn) {
    EffectDefinitionParser parser("unused.def");
    EXPECT_TRUE(parser.isValid());
    EXPECT_EQ(parser.getName("type=float"), "type");
    EXPECT_EQ(parser.getValue("type=float"), "float");
    EXPECT_EQ(parser.getName("default=a=b"), "default");
    EXPECT_EQ(parser.getValue("default=a=b"), "a");
    EXPECT_EQ(parser.getName("default="), "default");
    EXPECT_EQ(parser.getValue("default="), "");
    EXPECT_EQ(parser.getName("=x"), "");
    EXPECT_EQ(parser.getValue("=x"), "x");
    EXPECT_EQ(parser.getName("plain"), "plain");
    EXPECT_EQ(parser.getValue("plain"), "");
    EXPECT_EQ(parser.getName(""), "");
    EXPECT_EQ(parser.getValue(""), "");

    std::unique_ptr<Parameters> methods(parser.parseMethods("a(<event>); b(<time>,<float>)"));
    EXPECT_EQ(methods->toString(), "a {\n    00 = <event>;\n}\nb {\n    00 = <time>;\n    01 = <float>;\n}\n");
    EXPECT_FALSE(parser.loadFile("no/such/file.def"));
    EXPECT_FALSE(parser.isValid());
    EXPECT_EQ(parser.getErrorMessage(), "EffectDefinitionParser : 'no/such/file.def' not found!");
}

}  // namespace
