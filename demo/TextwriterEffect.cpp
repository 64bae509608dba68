#include "demo/TextwriterEffect.h"

#include "demo/Textwriter.h"
#include "demosys/DataTexturePool.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/QLNDemosys.h"
#include "qlnutils/QLNUtils.h"

namespace {

// A missing key reads as empty text, which converts to 0.
using Read = ParameterReader;

bool isTrue(const std::string& text) { return text == "1" || text == "true"; }

}  // namespace

TextwriterEffect::TextwriterEffect() : writer(nullptr) {}

TextwriterEffect::~TextwriterEffect() { delete writer; }

void TextwriterEffect::draw(unsigned int time) {
    if (writer) writer->write(getModifyTicks(time));
}

void TextwriterEffect::init() {
    int columns = Read::integer(parameters, "cols");
    int rows = Read::integer(parameters, "rows");
    Texture* font = Read::texture(parameters, "texture");
    if (!writer) writer = new Textwriter(font, columns, rows);
}

void TextwriterEffect::reset() {}

void TextwriterEffect::modify(std::string method, ParameterGroup* params) {
    // A call without the arguments it needs changes nothing.
    bool one = Read::has(params, "p2");
    bool two = one && Read::has(params, "p3");
    std::string p2 = Read::text(params, "p2");
    std::string p3 = Read::text(params, "p3");

    if (method == "setText") {
        if (!one) return;
        text = p2;
        if (writer) writer->setText(text);
        return;
    }
    if (!writer) return;
    if (method == "setPosition") {
        if (two) writer->setPosition(QLNUtils::string2Float(p2), QLNUtils::string2Float(p3));
    } else if (method == "setBoxSize") {
        if (two) writer->setBoxSize(QLNUtils::string2Float(p2), QLNUtils::string2Float(p3));
    } else if (method == "setGridSize") {
        if (two) writer->setGridSize(QLNUtils::string2Int(p2), QLNUtils::string2Int(p3));
    } else if (method == "setLetterSpacing") {
        if (one) writer->setLetterSpacing(QLNUtils::string2Float(p2));
    } else if (method == "ghostWriter") {
        if (one) writer->ghostWriter(isTrue(p2));
    } else if (method == "setWriteSpeed") {
        if (one) writer->setWriteSpeed(QLNUtils::string2Int(p2));
    } else if (method == "setBorderSize") {
        if (one) writer->setBorderSize(QLNUtils::string2Float(p2));
    } else if (method == "setBlinkSpeed") {
        if (one) writer->setBlinkSpeed(QLNUtils::string2Int(p2));
    } else if (method == "showBackground") {
        if (one) writer->background(isTrue(p2));
    }
}

Effect* TextwriterEffect::getInstance() { return new TextwriterEffect(); }
