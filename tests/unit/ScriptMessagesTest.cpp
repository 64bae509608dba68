// Every message of the three script readers (.def files, the demoscript, the timeline
// language), each from the smallest real script that produces it, as the loader hands it
// to the driver. "@" in a table entry stands for the test's folder.
#include <gtest/gtest.h>

#include <cstdio>

#include "unit/ScriptTest.h"

namespace {

using namespace scripttest;

const std::string demo = "Error while parsing demoscript!\n";
const std::string intro = demo + "Block : 'intro' (Effect Definition)\n";
const std::string brackets = "Error parsing demoscript!\nBlock have mismatching brackets\nBlock : ";
const std::string noDefaults = "' not found!\nPossible Cause :\n- There is no .def file for the block\n"
                               "- Block name have a spelling error?\n- paths { } is not the first block in the demoscript?\n";
const std::string invalidBlock = "EffectDefinitionParser : Invalid block name!\nFile : @/defs/screen.def'\nblock name '";
const std::string validBlocks = "' is not valid\nValid blocks : parameters, methods\n";
const std::string semicolon = "Probable cause: Semocolon forgotten or misplaced";
const std::string timeline = "Error while parsing Timeline!\nobject : ";
const std::string spelling = "Probable Cause : Spelling error?";
const std::string effects = "graphics {\n    logo = logo.png;\n    font = font.png;\n}\n"
                            "intro * SpinEffect {\n    texture = graphics[logo];\n    speed = 2.5;\n}\n"
                            "scroller * ScrollerEffect {\n    text = graphics[font];\n    lines = 3;\n}\n";

struct Case {
    std::string definition;  // "file=text" written over the standard definitions, "file=" removes one
    std::string script;      // after the header and paths block; a leading "!" replaces the whole file
    std::string message;
};

std::string tl(const std::string& body) { return effects + "timeline {\n" + body + "\n}\n"; }

const Case cases[] = {
    // The .def reader.
    {"ScrollerEffect.def=", "", "EffectDefinitionParser : '@/defs/ScrollerEffect.def' not found!"},
    {"screen.def=parameters { width [type=int][default=640]; }\nextras { }\nmore { }\n", "",
     invalidBlock + "extras" + validBlocks},
    {"screen.def=Parameters { a [type=int][default=1]; }", "", invalidBlock + "Parameters" + validBlocks},
    // An empty block leaves no body: the next block's name becomes the body.
    {"screen.def=parameters { }\nmethods { go(<event>); }", "", invalidBlock + "go(<event>);" + validBlocks},
    {"SpinEffect.def=parameters { speed [type = float][default=1.0]; }", "intro * SpinEffect { speed = 1.5; }",
     intro + "Parameter :  'speed'\nValue :  '1.5'\nParam type : \nError : Parameter type is not supported!"},
    {"SpinEffect.def=parameters { texture [type=string][values=<string>]; speed [type=float][default=1.0]; }",
     "intro * SpinEffect { speed = 2.0; }", intro + "Parameter :  'texture'\nValue :  ''\nError : Reverse lookup failed\n"},
    {"SpinEffect.def=methods { go(<event>); }", "intro * SpinEffect { speed = 1.0; }",
     intro + "Parameter :  'speed'\nError :  Not defined as a valid parameter for SpinEffect\n"},
    // The demoscript reader.
    {"", "!{ QLNDS1 }\npaths { definition = x/; }\n", demo + "Invalid Script Header\nHeader : '{ QLNDS1 }'\n"},
    {"", "!paths { definition = x/; }\n", demo + "Invalid Script Header\nHeader : 'paths { definition = x/; '\n"},
    {"", "!", demo + "Invalid Script Header\nHeader : ''\n"},
    {"", "!{QLNDS1}\nintro * SpinEffect { speed = 2.5; }\npaths { definition = @/defs/; }\n",
     "Error parsing demoscript!\nDefaults for block 'SpinEffect" + noDefaults},
    {"", "intro * SpinEffect { speed 2.5; }",
     demo + "Block : 'intro * SpinEffect'\nError: Parameter 'speed 2.5' is not a single word.\n" + semicolon},
    {"", "misc { a b = 1; }", demo + "Block : 'misc'\nError: Parameter 'a b' is not a single word.\n" + semicolon},
    {"", "misc { x = 1 = 2; }", demo + "Block : 'misc'\nError: Parameter 'x' have too many tokens.\nValue : '1'\n" + semicolon},
    {"", "misc { speed = ; }",
     demo + "Block : 'misc'\nError: Parameter 'speed' dont seem to have a value\n"
            "Probable cause: Semocolon misplaced or no assigned value ('speed = ;')"},
    {"", "misc speed = 1;", brackets + "'misc speed = 1;'\n"},
    {"", "misc { a = 1;", brackets + "'misc'\n"},
    {"", "misc { inner { a = 1; } }", brackets + "'misc'\n"},
    {"", "intro * Unknown { a = 1; }", "Error parsing demoscript!\nDefaults for block 'Unknown" + noDefaults},
    {"", "intro * screen { width = 1; }",
     intro + "Error : Effect template 'screen' do not exist!\n"
             "Probable cause : Spelling error or your effect template is not added to the Demosys.\n"},
    {"", "intro * SpinEffect { speed = 2.5; }\nintro * ScrollerEffect { lines = 2; }",
     intro + "Error : Redefinition of scriptobject 'intro'\n"
             "Probable cause : You have two or more effects with identical names\nEffect names must be unique!\n"},
    {"", "intro * SpinEffect { sped = 2.5; }",
     intro + "Parameter :  'sped'\nError :  Not defined as a valid parameter for SpinEffect\n"},
    {"", "intro * SpinEffect { speed = 3; }",
     intro + "Parameter :  'speed'\nValue :  '3'\nError :  value is not a float as defined in SpinEffect.def\n"},
    {"", "intro * ScrollerEffect { lines = 1.5; }",
     intro + "Parameter :  'lines'\nValue :  '1.5'\nError :  value is not an int as defined in ScrollerEffect.def\n"},
    {"", "intro * ScrollerEffect { loop = True; }",
     intro + "Parameter :  'loop'\nValue :  'True'\nError :  value is not a bool as defined in ScrollerEffect.def\n"},
    {"", "intro * SpinEffect { mode = subtract; }",
     intro + "Parameter :  'mode'\nValue :  'subtract'\nError :  value is not a valid option\n"
             "Defined options are : normal,additive\n"},
    {"", "intro * SpinEffect { texture = graphics[missing]; }",
     intro + "Parameter :  'texture'\nValue :  'graphics[missing]'\nError : Reverse lookup failed\n"},
    // The timeline language.
    {"", tl("intro.start()"), "Timeline : Error near ''intro.start()\nPossible reason : Missing parameter(s)"},
    {"", tl("intro.start( , )"), "Timeline : Error near ''intro.start( , )\nPossible reason : Missing parameter(s)"},
    {"", tl("ghost.start(00:01:000)"), "Error Pasing Timeline!\nScript object 'ghost' not found\n" + spelling},
    {"", tl("a < b < intro.start(00:01:000)"),
     "Error Pasing Timeline!\nScript object 'a < b < intro' not found\n" + spelling},
    {"", tl("intro.spin(00:01:000)"), "Timeline : method 'spin' don't exist!"},
    {"", tl("intro.setSpeed(00:12:000)"), timeline + "intro\nmethod : setSpeed\nCause : Wrong number of arguments (1)\n"},
    {"", tl("intro.setSpeed(00:12:000, 2.5, 3)"),
     timeline + "intro\nmethod : setSpeed\nCause : Wrong number of arguments (3)\n"},
    {"", tl("intro.setSpeed(12:000, 2.5)"),
     timeline + "intro\nmethod : setSpeed\nparameter : 12:000\n (0)\n"
                "Parameter is not a valid (mm:ss:mmm) timestamp as defined in SpinEffect.def\n"},
    {"", tl("intro.fadeTo(00:01:000, 1.0, soon)"),
     timeline + "intro\nmethod : fadeTo\nparameter : soon\n (2)\n"
                "Parameter is not a valid (mm:ss:mmm) timestamp as defined in SpinEffect.def\n"},
    {"", tl("intro.setSpeed(00:01:000, 2)"),
     timeline + "intro\nmethod : setSpeed\nparameter : 2\n (1)\nParameter is not a float as defined in SpinEffect.def\n"},
    {"", tl("scroller.jump(00:01:000, x, true)"),
     timeline + "scroller\nmethod : jump\nparameter : x\n (1)\nParameter is not an integer as defined in ScrollerEffect.def\n"},
    {"", tl("scroller.jump(00:01:000, 1, yes)"),
     timeline + "scroller\nmethod : jump\nparameter : yes\n (2)\nParameter is not a boolean as defined in ScrollerEffect.def\n"},
    {"", tl("scroller.setText(00:01:000, graphics[none])"),
     timeline + "scroller\nmethod : setText\nparameter : graphics[none]\n (1)\nReverse lookup failed\n"},
    {"", tl("Checkpoint 1:2"), "Error while parsing Timeline!\nobject : Checkpoint\nparameter : 1:2\nParameter is not a valid (mm:ss:mmm)\n"},
    {"", tl("intro"), "Error Pasing Timeline!\nDeclaration 'intro' invalid\n" + spelling},
    {"", tl("Checkpoint"), "Error Pasing Timeline!\nDeclaration 'Checkpoint' invalid\n" + spelling},
};

std::string here(std::string text, const std::string& dir) {
    for (size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at + dir.size())) text.replace(at, 1, dir);
    return text;
}

TEST(ScriptMessages, EveryReaderMessageReachesTheDriverWordForWord) {
    int index = 0;
    for (const Case& c : cases) {
        testsupport::TempDir dir;
        writeDefinitions(dir);
        if (!c.definition.empty()) {
            std::string file = "defs/" + c.definition.substr(0, c.definition.find('='));
            std::string text = here(c.definition.substr(c.definition.find('=') + 1), dir.path());
            if (text.empty()) std::remove(dir.file(file).c_str());
            else dir.write(file, text);
        }
        std::string script = c.script[0] == '!' ? here(c.script.substr(1), dir.path()) : scriptText(dir, c.script);
        auto engine = engineFor(dir, script, "case" + std::to_string(index++) + ".txt");
        testing::internal::CaptureStderr();
        EXPECT_FALSE(engine->load()) << c.script;
        testing::internal::GetCapturedStderr();
        EXPECT_EQ(engine->error(), here(c.message, dir.path())) << c.script;
        EXPECT_TRUE(calls().empty());
    }
}

TEST(ScriptMessages, AMissingScriptIsNamed) {
    testsupport::TempDir dir;
    for (std::string path : {dir.file("absent.txt"), dir.path()}) {
        Engine engine(path);
        EXPECT_FALSE(engine.load());
        EXPECT_EQ(engine.error(), "DemoScriptParser : '" + path + "' not found!");
    }
}

}  // namespace
