#pragma once
// The value types a .def file declares, under their two spellings: "float", "int", "bool" and
// "string" for block parameters; "<float>", "<integer>", "<bool>", "<string>", "<time>" and
// "<event>" for method arguments. Both script readers check values through here.
#include <string>

class ValueType {
public:
    enum Kind { Float, Integer, Bool, String, Time, Unknown };

    static Kind ofParameter(const std::string& word);
    static Kind ofArgument(const std::string& word);
    // Whether the text is a value of the kind. Strings are resolved by the readers and
    // unknown kinds are their business, so both pass here.
    static bool accepts(Kind kind, const std::string& text);
    // How the readers' messages name a kind: "a float", "an int" / "an integer", ...
    static std::string parameterNoun(Kind kind);
    static std::string argumentNoun(Kind kind);
};
