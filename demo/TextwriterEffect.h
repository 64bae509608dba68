#pragma once
// A text box over the picture, driven from the script: the writer is built once from the
// parameters "texture", "cols" and "rows", and the scripted methods map onto its setters.
#include <string>

#include "demosys/Effect.h"

class Textwriter;

class TextwriterEffect : public Effect {
public:
    TextwriterEffect();
    ~TextwriterEffect() override;

    // Time runs from the last modify event, so every scripted call restarts the ghost writer.
    void draw(unsigned int time) override;
    void init() override;
    void reset() override;
    void modify(std::string method, ParameterGroup* parameters) override;
    Effect* getInstance() override;

private:
    Textwriter* writer;  // owned; null until init
    std::string text;
};
