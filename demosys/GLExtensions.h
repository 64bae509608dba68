#pragma once
// The OpenGL extensions the current context offers, a few implementation limits, and
// a checklist of extensions a demo requires.
#include <map>
#include <string>
#include <vector>

class GLExtensions {
public:
    // Reads the extension string and the limits of the current context.
    GLExtensions();
    ~GLExtensions();

    void getImplementationIndependentAPIValues();
    bool isSupported(std::string name);
    void addToChecklist(std::string name);
    // Whether every checklist name is supported; absent ones are added to the missing list.
    bool isSupported();
    std::string getErrorMessage();
    // The supported names, one a line; prints the limits table as a side effect.
    std::string toString();

    static int MAX_VERTEX_ATTRIBS;
    static int MAX_VERTEX_UNIFORM_COMPONENTS;
    static int MAX_VARYING_FLOATS;
    static int MAX_VERTEX_TEXTURE_IMAGE_UNITS;
    static int MAX_COMBINED_TEXTURE_IMAGE_UNITS;
    static int MAX_TEXTURE_COORDS;
    static int MAX_FRAGMENT_UNIFORM_COMPONENTS;
    static int MAX_TEXTURE_SIZE;
    static int MAX_VERTEX_SHADER_INSTRUCTIONS;
    static int MAX_FRAGMENT_LIGHTS;

private:
    std::map<std::string, bool> supported;
    std::vector<std::string> checklist;
    std::vector<std::string> missing;
};
