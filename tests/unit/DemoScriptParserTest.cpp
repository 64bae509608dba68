// The demoscript reader on real scripts and .def files in a temp dir: what lands in the
// two collections, the log, and every error message.
#include <gtest/gtest.h>

#include <cstdio>

#include "ScriptTestState.h"
#include "demosys/EffectDefinition.h"
#include "demosys/ScriptDefaults.h"

namespace {

using scripttest::ParsedScript;
using scripttest::StartUpState;
using scripttest::writeDefinitions;
using scripttest::writeScript;
using testsupport::TempDir;

class DemoScriptReader : public ::testing::Test {
protected:
    DemoScriptReader() { writeDefinitions(dir); }
    StartUpState state;
    TempDir dir;
};

TEST_F(DemoScriptReader, ReadsTheWorkedExample) {
    std::string path = writeScript(dir,
                                   "system {\n    start = 00:00:000;\n    stop = 00:40:000;\n}\n"
                                   "graphics {\n    logo = resources/gfx/logo.png;\n}\n"
                                   "intro * SpinEffect {\n    texture = graphics[logo];\n    speed = 2.5;\n}\n"
                                   "timeline {\n    intro.start(00:10:000);\n    intro.setSpeed(00:12:000, 2.5);\n"
                                   "    Checkpoint 00:20:000;\n    intro.stop(00:30:000);\n}\n");
    ParsedScript script(path);
    ASSERT_TRUE(script.parser.isValid()) << script.parser.getErrorMessage();
    EXPECT_EQ(script.parser.getErrorMessage(), "Unknown error");
    EXPECT_EQ(script.log, "[Parsing .def files]\npath = " + dir.path() +
                              "/defs/\n-> ScrollerEffect\n-> SpinEffect\n");

    EXPECT_EQ(script.system()->size(), 3);
    EXPECT_EQ(script.settings("paths"), "paths {\n    definition = " + dir.path() + "/defs/;\n}\n");
    EXPECT_EQ(script.settings("system"), "system {\n    start = 00:00:000;\n    stop = 00:40:000;\n}\n");
    EXPECT_EQ(script.settings("graphics"), "graphics {\n    logo = resources/gfx/logo.png;\n}\n");
    EXPECT_EQ(script.effects()->size(), 1);
    EXPECT_EQ(script.effect("intro"),
              "intro {\n    class = SpinEffect;\n    mode = normal;\n    speed = 2.5;\n    texture = logo;\n}\n");
    EXPECT_EQ(script.parser.getTimelineText(),
              "intro.start(00:10:000);\rintro.setSpeed(00:12:000, 2.5);\rCheckpoint 00:20:000;\rintro.stop(00:30:000);");

    ScriptDefaults* defaults = script.parser.getScriptDefaults();
    ASSERT_NE(defaults, nullptr);
    EXPECT_EQ(defaults->size(), 5);
    for (const char* name : {"SpinEffect", "ScrollerEffect", "system", "screen", "sound"}) {
        EXPECT_TRUE(defaults->exists(name)) << name;
    }
    EXPECT_TRUE(defaults->getEffectDefinition("SpinEffect")->hasMethod("fadeTo"));
}

TEST_F(DemoScriptReader, StripsCommentsAndReadsAnyLineEnding) {
    std::string body =
        "// only a comment\r\n"
        "intro * SpinEffect { // the block's own comment\r\n"
        "    speed = 2.5; // fast\r\n"
        "    // mode = additive;\r\n"
        "}\r\n"
        "links {\r\n    site = http://example.org;\r\n}\r";
    ParsedScript script(writeScript(dir, body));
    ASSERT_TRUE(script.parser.isValid()) << script.parser.getErrorMessage();
    EXPECT_EQ(script.effect("intro"),
              "intro {\n    class = SpinEffect;\n    mode = normal;\n    speed = 2.5;\n    texture = logo;\n}\n");
    // "//" is cut even inside a value.
    EXPECT_EQ(script.settings("links"), "links {\n    site = http:;\n}\n");
}

TEST_F(DemoScriptReader, MergesSettingsBlocksWithTheirDefaultsUnchecked) {
    ParsedScript script(writeScript(dir,
                                    "screen { width = wide; }\n"           // not validated: only effects are
                                    "sound { }\n"                          // empty: no group at all
                                    "shaders { plain = shaders/plain; }\n" // no definition: stored as it is
                                    "framebuffers { main = 256 , 256 }\n"  // the last ";" may be left out
                                    "scroll * ScrollerEffect { lines = -; text = graphics[logo] }\n"
                                    "graphics { logo = a.png; }\n"));
    // The reverse lookup needs the graphics block before the effect that names it.
    ASSERT_FALSE(script.parser.isValid());
    EXPECT_EQ(script.parser.getErrorMessage(),
              "Error while parsing demoscript!\nBlock : 'scroll' (Effect Definition)\nParameter :  'text'\n"
              "Value :  'graphics[logo]'\nError : Reverse lookup failed\n");
    EXPECT_EQ(script.settings("screen"), "screen {\n    height = 480;\n    width = wide;\n}\n");
    EXPECT_FALSE(script.system()->exist("sound"));
    EXPECT_EQ(script.settings("shaders"), "shaders {\n    plain = shaders/plain;\n}\n");
    EXPECT_EQ(script.settings("framebuffers"), "framebuffers {\n    main = 256 , 256;\n}\n");
    // What was stored before the error stays.
    EXPECT_EQ(script.effects()->size(), 0);
    EXPECT_EQ(script.system()->size(), 4);

    ParsedScript fixed(writeScript(dir,
                                   "graphics { logo = a.png; }\n"
                                   "scroll * ScrollerEffect { lines = -; text = graphics[logo] }\n"
                                   "other * ScrollerEffect { text = free text; loop = true; lines = 12 }\n",
                                   "fixed.txt"));
    ASSERT_TRUE(fixed.parser.isValid()) << fixed.parser.getErrorMessage();
    EXPECT_EQ(fixed.effect("scroll"),
              "scroll {\n    class = ScrollerEffect;\n    lines = -;\n    loop = false;\n    text = logo;\n}\n");
    EXPECT_EQ(fixed.effect("other"),
              "other {\n    class = ScrollerEffect;\n    lines = 12;\n    loop = true;\n    text = free text;\n}\n");
}

TEST_F(DemoScriptReader, WithoutDefaultsBlocksAreStoredAsWritten) {
    ParsedScript script(writeScript(dir, "intro * SpinEffect { speed = fast; extra = 1; }\nscreen { width = 1; }\n"),
                        false);
    ASSERT_TRUE(script.parser.isValid()) << script.parser.getErrorMessage();
    EXPECT_EQ(script.log, "");
    EXPECT_EQ(script.parser.getScriptDefaults(), nullptr);
    EXPECT_EQ(script.effect("intro"), "intro {\n    class = SpinEffect;\n    extra = 1;\n    speed = fast;\n}\n");
    EXPECT_EQ(script.settings("screen"), "screen {\n    width = 1;\n}\n");
}

TEST_F(DemoScriptReader, DebugModeLogsDefinitionsAndSettingsDefaults) {
    ParsedScript script(writeScript(dir, "screen { width = 800; }\n"), true, true);
    ASSERT_TRUE(script.parser.isValid()) << script.parser.getErrorMessage();
    std::string defs = dir.path() + "/defs/";
    EXPECT_NE(script.log.find("Loading definition : '" + defs + "SpinEffect.def\n"), std::string::npos) << script.log;
    EXPECT_NE(script.log.find("Loading definition : '" + defs + "sound.def\n"), std::string::npos);
    EXPECT_NE(script.log.find("block name : screen\nparameters {\n    height = 480;\n    width = 640;\n}\n"),
              std::string::npos)
        << script.log;
}

// Every message of the reader, each from the smallest script that produces it.
TEST_F(DemoScriptReader, ReportsEveryScriptError) {
    const std::string demo = "Error while parsing demoscript!\n";
    const std::string intro = demo + "Block : 'intro' (Effect Definition)\n";
    struct Case {
        std::string body;
        std::string error;
        bool defaults;
    };
    Case cases[] = {
        {"intro * SpinEffect { speed 2.5; }",
         demo + "Block : 'intro * SpinEffect'\nError: Parameter 'speed 2.5' is not a single word.\n"
                "Probable cause: Semocolon forgotten or misplaced", true},
        {"misc { a b = 1; }",
         demo + "Block : 'misc'\nError: Parameter 'a b' is not a single word.\nProbable cause: Semocolon forgotten or misplaced",
         true},
        {"misc { x = 1 = 2; }",
         demo + "Block : 'misc'\nError: Parameter 'x' have too many tokens.\nValue : '1'\n"
                "Probable cause: Semocolon forgotten or misplaced", true},
        {"misc { speed; }",
         demo + "Block : 'misc'\nError: Parameter 'speed' dont seem to have a value\n"
                "Probable cause: Semocolon misplaced or no assigned value ('speed = ;')", true},
        {"misc { speed = ; }",
         demo + "Block : 'misc'\nError: Parameter 'speed' dont seem to have a value\n"
                "Probable cause: Semocolon misplaced or no assigned value ('speed = ;')", true},
        {"misc speed = 1;", "Error parsing demoscript!\nBlock have mismatching brackets\nBlock : 'misc speed = 1;'\n",
         true},
        {"misc { a = 1;", "Error parsing demoscript!\nBlock have mismatching brackets\nBlock : 'misc'\n", true},
        {"misc { inner { a = 1; } }", "Error parsing demoscript!\nBlock have mismatching brackets\nBlock : 'misc'\n",
         true},
        {"intro * Unknown { }\nintro * Unknown { a = 1; }",
         "Error parsing demoscript!\nDefaults for block 'Unknown' not found!\nPossible Cause :\n"
         "- There is no .def file for the block\n- Block name have a spelling error?\n"
         "- paths { } is not the first block in the demoscript?\n", true},
        {"intro * Unknown { a = 1; }",
         intro + "Error : Effect template 'Unknown' do not exist!\n"
                 "Probable cause : Spelling error or your effect template is not added to the Demosys.\n", false},
        // A definition that is not an effect class still needs a registered template.
        {"intro * screen { width = 1; }",
         intro + "Error : Effect template 'screen' do not exist!\n"
                 "Probable cause : Spelling error or your effect template is not added to the Demosys.\n", true},
        {"intro * SpinEffect { speed = 2.5; }\nintro * ScrollerEffect { lines = 2; }",
         intro + "Error : Redefinition of scriptobject 'intro'\n"
                 "Probable cause : You have two or more effects with identical names\nEffect names must be unique!\n",
         true},
        {"intro * SpinEffect { sped = 2.5; }",
         intro + "Parameter :  'sped'\nError :  Not defined as a valid parameter for SpinEffect\n", true},
        {"intro * SpinEffect { speed = 3; }",
         intro + "Parameter :  'speed'\nValue :  '3'\nError :  value is not a float as defined in SpinEffect.def\n",
         true},
        {"intro * ScrollerEffect { lines = 1.5; }",
         intro + "Parameter :  'lines'\nValue :  '1.5'\nError :  value is not an int as defined in ScrollerEffect.def\n",
         true},
        {"intro * ScrollerEffect { loop = True; }",
         intro + "Parameter :  'loop'\nValue :  'True'\nError :  value is not a bool as defined in ScrollerEffect.def\n",
         true},
        {"intro * SpinEffect { mode = subtract; }",
         intro + "Parameter :  'mode'\nValue :  'subtract'\nError :  value is not a valid option\n"
                 "Defined options are : normal,additive\n", true},
        {"intro * SpinEffect { texture = graphics[missing]; }",
         intro + "Parameter :  'texture'\nValue :  'graphics[missing]'\nError : Reverse lookup failed\n", true},
    };
    int index = 0;
    for (const Case& c : cases) {
        std::string name = "case" + std::to_string(index++) + ".txt";
        ParsedScript script(writeScript(dir, c.body, name), c.defaults);
        EXPECT_FALSE(script.parser.isValid()) << c.body;
        EXPECT_EQ(script.parser.getErrorMessage(), c.error) << c.body;
        // Once invalid, nothing more is read.
        EXPECT_FALSE(script.parser.parse());
        EXPECT_EQ(script.parser.parseTimeline(), nullptr);
    }
}

TEST_F(DemoScriptReader, ReportsFileHeaderAndDefinitionErrors) {
    std::string missing = dir.file("absent.txt");
    ParsedScript noFile(missing);
    EXPECT_FALSE(noFile.parser.isValid());
    EXPECT_EQ(noFile.parser.getErrorMessage(), "DemoScriptParser : '" + missing + "' not found!");
    EXPECT_EQ(noFile.system(), nullptr);
    ParsedScript folder(dir.path());
    EXPECT_EQ(folder.parser.getErrorMessage(), "DemoScriptParser : '" + dir.path() + "' not found!");

    ParsedScript spaced(dir.write("spaced.txt", "{ QLNDS1 }\npaths { definition = x/; }\n"));
    EXPECT_EQ(spaced.parser.getErrorMessage(), "Error while parsing demoscript!\nInvalid Script Header\nHeader : '{ QLNDS1 }'\n");
    ParsedScript noHeader(dir.write("noheader.txt", "paths { definition = x/; }\n"));
    EXPECT_EQ(noHeader.parser.getErrorMessage(),
              "Error while parsing demoscript!\nInvalid Script Header\nHeader : 'paths { definition = x/; '\n");
    ParsedScript empty(dir.write("empty.txt", ""));
    EXPECT_EQ(empty.parser.getErrorMessage(), "Error while parsing demoscript!\nInvalid Script Header\nHeader : ''\n");

    // The paths block must come first: effect blocks before it find no definitions.
    ParsedScript late(dir.write("late.txt", "{QLNDS1}\nintro * SpinEffect { speed = 2.5; }\npaths { definition = " +
                                                dir.path() + "/defs/; }\n"));
    EXPECT_EQ(late.parser.getErrorMessage(),
              "Error parsing demoscript!\nDefaults for block 'SpinEffect' not found!\nPossible Cause :\n"
              "- There is no .def file for the block\n- Block name have a spelling error?\n"
              "- paths { } is not the first block in the demoscript?\n");

    // The .def reader's messages come through unchanged.
    dir.write("defs/screen.def", "parameters { width [type=int][default=640]; }\nextras { }\nmore { }\n");
    ParsedScript badDefinition(writeScript(dir, "", "bad.txt"));
    EXPECT_EQ(badDefinition.parser.getErrorMessage(),
              "EffectDefinitionParser : Invalid block name!\nFile : " + dir.path() +
                  "/defs/screen.def'\nblock name 'extras' is not valid\nValid blocks : parameters, methods\n");
    dir.write("defs/screen.def", "");
    std::remove(dir.file("defs/ScrollerEffect.def").c_str());
    ParsedScript missingDefinition(writeScript(dir, "", "missing.txt"));
    EXPECT_EQ(missingDefinition.parser.getErrorMessage(),
              "EffectDefinitionParser : '" + dir.path() + "/defs/ScrollerEffect.def' not found!");
}

// A definition written with "type = float" hides the type, and a parameter without a
// default reads as an empty value: both end in a message, not in a failed lookup.
TEST_F(DemoScriptReader, ReportsBrokenDefinitionsThroughValidation) {
    dir.write("defs/SpinEffect.def", "parameters { speed [type = float][default=1.0]; }");
    testing::internal::CaptureStderr();
    ParsedScript hidden(writeScript(dir, "intro * SpinEffect { speed = 1.5; }\n"));
    std::string standardError = testing::internal::GetCapturedStderr();
    std::string message = "Error while parsing demoscript!\nBlock : 'intro' (Effect Definition)\nParameter :  'speed'\n"
                          "Value :  '1.5'\nParam type : \nError : Parameter type is not supported!";
    EXPECT_EQ(hidden.parser.getErrorMessage(), message);
    EXPECT_EQ(standardError, message + "\n");

    dir.write("defs/SpinEffect.def",
              "parameters { texture [type=string][values=<string>]; speed [type=float][default=1.0]; }");
    ParsedScript noDefault(writeScript(dir, "intro * SpinEffect { speed = 2.0; }\n", "nodefault.txt"));
    EXPECT_EQ(noDefault.parser.getErrorMessage(),
              "Error while parsing demoscript!\nBlock : 'intro' (Effect Definition)\nParameter :  'texture'\n"
              "Value :  ''\nError : Reverse lookup failed\n");

    dir.write("defs/SpinEffect.def", "methods { go(<event>); }");
    ParsedScript methodsOnly(writeScript(dir, "intro * SpinEffect { speed = 1.0; }\n", "methods.txt"));
    EXPECT_EQ(methodsOnly.parser.getErrorMessage(),
              "Error while parsing demoscript!\nBlock : 'intro' (Effect Definition)\nParameter :  'speed'\n"
              "Error :  Not defined as a valid parameter for SpinEffect\n");
}

TEST_F(DemoScriptReader, LaterBlocksReplaceEarlierOnesAndFollowTheTimeline) {
    ParsedScript script(writeScript(dir,
                                    "timeline { Checkpoint 00:01:000; }\n"
                                    "graphics { a = 1.png; }\n"
                                    "graphics { b = 2.png; }\n"
                                    "timeline { Checkpoint 00:02:000; }\n"
                                    "paths { definition = elsewhere/; }\n",
                                    "replace.txt"));
    // The second paths block reloads the definitions from its own directory.
    EXPECT_FALSE(script.parser.isValid());
    EXPECT_EQ(script.parser.getErrorMessage(), "EffectDefinitionParser : 'elsewhere/ScrollerEffect.def' not found!");
    EXPECT_EQ(script.settings("graphics"), "graphics {\n    b = 2.png;\n}\n");
    EXPECT_EQ(script.parser.getTimelineText(), "Checkpoint 00:02:000;");
}

TEST(DemoScriptParserHelpers, NamesLookupsAndPadding) {
    StartUpState state;
    TempDir dir;
    ParsedScript script(dir.write("s.txt", "{QLNDS1}\ngraphics { logo = logo.png; }\n"), false);
    DemoScriptParser& parser = script.parser;
    ASSERT_TRUE(parser.isValid()) << parser.getErrorMessage();
    EXPECT_EQ(DemoScriptParser::header, "{QLNDS1}");
    EXPECT_TRUE(parser.checkHeader("{QLNDS1}"));
    EXPECT_FALSE(parser.checkHeader("{QLNDS1} "));
    EXPECT_TRUE(parser.isEffectDefinition("intro*SpinEffect"));
    EXPECT_FALSE(parser.isEffectDefinition("graphics"));
    EXPECT_EQ(parser.getEffectName(" intro * SpinEffect "), "intro");
    EXPECT_EQ(parser.getEffectClass(" intro * SpinEffect "), "SpinEffect");
    EXPECT_EQ(parser.getEffectClass("a*B*C"), "B");
    EXPECT_EQ(parser.getEffectName("*B"), "");
    EXPECT_EQ(parser.getEffectClass("a*"), "");
    EXPECT_EQ(parser.forceStringLength("7", 3), "007");
    EXPECT_EQ(parser.forceStringLength("1234", 2), "1234");
    EXPECT_EQ(parser.errorStringOMP("o", "m", "p"), "Error while parsing Timeline!\nobject : o\nmethod : m\nparameter : p\n");

    EXPECT_EQ(parser.reverseLookup("plain text"), "plain text");
    EXPECT_EQ(parser.reverseLookup("graphics[logo"), "graphics[logo");
    EXPECT_EQ(parser.reverseLookup("graphics[logo]"), "logo");
    EXPECT_EQ(parser.reverseLookup("graphics[logo]tail"), "logo");
    EXPECT_EQ(parser.reverseLookup("graphics[other]"), "");
    EXPECT_EQ(parser.reverseLookup("nothing[logo]"), "");
    EXPECT_EQ(parser.reverseLookup("[logo]"), "");
    EXPECT_EQ(parser.reverseLookup("graphics]logo["), "");

    Parameters* extra = new Parameters();
    parser.addParameterGroup("extra", extra);
    EXPECT_EQ(parser.getParameterGroup("extra"), extra);
    EXPECT_EQ(parser.getParameterGroup("nothing"), nullptr);
    delete extra;
}

}  // namespace
