#pragma once
// Shared ground for the text, scroller and screen effect tests: real PNG files in a temp
// folder loaded into the real texture pool, frames drawn through the action pool on a
// driven clock, and pixels read back from the window before any swap.
#include <GL/glew.h>
#include <SDL/SDL.h>
#include <gtest/gtest.h>
#include <png.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "demosys/ActionPool.h"
#include "demosys/Data.h"
#include "demosys/DataEffectPool.h"
#include "demosys/DataFBOPool.h"
#include "demosys/DataTexturePool.h"
#include "demosys/Effect.h"
#include "demosys/EffectDefinition.h"
#include "demosys/EffectDefinitionParser.h"
#include "demosys/EventModifyEffect.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"
#include "demosys/Texture.h"
#include "support/GLTestSupport.h"
#include "support/TestSupport.h"

namespace texttest {

using Rgb = std::array<int, 3>;

inline ::testing::AssertionResult near(const Rgb& got, const Rgb& want, int tolerance = 3) {
    for (int i = 0; i < 3; ++i)
        if (std::abs(got[i] - want[i]) > tolerance)
            return ::testing::AssertionFailure() << "pixel (" << got[0] << "," << got[1] << "," << got[2]
                                                 << ") is not near (" << want[0] << "," << want[1] << ","
                                                 << want[2] << ")";
    return ::testing::AssertionSuccess();
}

inline int windowWidth() { return SDL_GetVideoSurface()->w; }
inline int windowHeight() { return SDL_GetVideoSurface()->h; }

// Colour of the window pixel holding the point (x, y) in normalised device coordinates.
inline Rgb pixelAt(float x, float y) {
    int px = static_cast<int>(std::floor((x + 1.0f) * 0.5f * windowWidth()));
    int py = static_cast<int>(std::floor((y + 1.0f) * 0.5f * windowHeight()));
    std::array<uint8_t, 4> p = testsupport::readPixel(px, py);
    return Rgb{p[0], p[1], p[2]};
}

inline Rgb pixel(int x, int y) {
    std::array<uint8_t, 4> p = testsupport::readPixel(x, y);
    return Rgb{p[0], p[1], p[2]};
}

// An 8-bit RGBA PNG; rows top first, as in the file.
inline bool writePNG(const std::string& path, int w, int h, const std::vector<uint8_t>& rgba) {
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    image.width = w;
    image.height = h;
    image.format = PNG_FORMAT_RGBA;
    return png_image_write_to_file(&image, path.c_str(), 0, rgba.data(), 0, nullptr) != 0;
}

inline std::vector<uint8_t> solid(int w, int h, Rgb c) {
    std::vector<uint8_t> px;
    for (int i = 0; i < w * h; ++i) px.insert(px.end(), {uint8_t(c[0]), uint8_t(c[1]), uint8_t(c[2]), 255});
    return px;
}

// The font image: 17 x 4 glyph cells of 8 x 8 pixels, glyph 0 at the top left. Every glyph
// is a solid colour of its own so that a cell on screen tells which glyph it shows; the
// space glyph is transparent like a real font's.
const int fontColumns = 17;
const int fontRows = 4;
const int glyphPixels = 8;
const int spaceGlyph = 28;

inline Rgb glyphColour(int glyph) { return Rgb{20 + 3 * glyph, 235 - 3 * glyph, 40 + 40 * (glyph % 5)}; }

// The glyph whose colour this is, or -1.
inline int glyphOf(const Rgb& c) {
    for (int g = 0; g < fontColumns * fontRows; ++g)
        if (near(c, glyphColour(g), 1)) return g;
    return -1;
}

inline std::vector<uint8_t> fontPixels() {
    int w = fontColumns * glyphPixels, h = fontRows * glyphPixels;
    std::vector<uint8_t> px;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            int glyph = (y / glyphPixels) * fontColumns + x / glyphPixels;
            Rgb c = glyphColour(glyph);
            uint8_t alpha = glyph == spaceGlyph ? 0 : 255;
            px.insert(px.end(), {uint8_t(c[0]), uint8_t(c[1]), uint8_t(c[2]), alpha});
        }
    return px;
}

// Screen framebuffer, full viewport, identity matrices, nothing enabled.
inline void resetGL() {
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
    glBindTexture(GL_TEXTURE_2D, 0);
    for (GLenum cap : {GL_TEXTURE_2D, GL_BLEND, GL_ALPHA_TEST, GL_DEPTH_TEST, GL_LIGHTING, GL_CULL_FACE,
                       GL_COLOR_MATERIAL})
        glDisable(cap);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glViewport(0, 0, windowWidth(), windowHeight());
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glColor4f(1, 1, 1, 1);
    while (glGetError() != GL_NO_ERROR) {
    }
}

inline GLint integer(GLenum name) {
    GLint value = 0;
    glGetIntegerv(name, &value);
    return value;
}

// The real pools, registered where the effects look for them, and one running effect.
class EffectFixture : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(testsupport::ensureGLWindow());
        resetGL();
        data = new Data();
        textures = new DataTexturePool();
        fbos = new DataFBOPool();
        effects = new DataEffectPool();
        data->addData("texturePool", textures);
        data->addData("fboPool", fbos);
        data->addData("effectPool", effects);
        QLNDemosys::data = data;
        QLNDemosys::texturePool = textures;
        QLNDemosys::fboPool = fbos;
    }

    void TearDown() override {
        action.removeAll();
        effect = nullptr;
        QLNDemosys::data = nullptr;
        QLNDemosys::texturePool = nullptr;
        QLNDemosys::fboPool = nullptr;
        testsupport::captureStdout([this] { delete data; });
        resetGL();
    }

    // Writes the picture as a PNG and loads it into the texture pool under the alias.
    void addTexture(const std::string& alias, int w, int h, const std::vector<uint8_t>& rgba) {
        std::string path = dir.file(alias + ".png");
        ASSERT_TRUE(writePNG(path, w, h, rgba)) << path;
        Texture* texture = QLNDemosys::loadTexture(path, GL_TEXTURE_2D, false);
        ASSERT_NE(texture, nullptr) << path;
        textures->addTexture(alias, texture);
    }

    void addFont(const std::string& alias = "font") {
        addTexture(alias, fontColumns * glyphPixels, fontRows * glyphPixels, fontPixels());
    }

    // Cloned from the prototype into the effect pool, given its parameters and initialised
    // as start-up does, then started on layer 50.
    void start(Effect& prototype, std::initializer_list<std::pair<const char*, const char*>> settings) {
        for (const auto& kv : settings) params.addParameter(kv.first, kv.second);
        effect = prototype.getInstance();
        effects->addEffect("fx", effect);
        effect->setParameters(&params);
        effect->init();
        action.addEffect("fx", effect, 50);
    }

    // Started with the defaults its definition file declares.
    void startWithDefaults(Effect& prototype, const EffectDefinition& definition) {
        std::unique_ptr<ParameterGroup> defaults(definition.getDefaults());
        for (int i = 0; i < defaults->size(); ++i) params.addParameter(defaults->getKey(i), defaults->getValue(i));
        start(prototype, {});
    }

    // A scripted call fired by a real modify event at demo time t: p1 is the time, the
    // given arguments follow as p2, p3, ...
    void call(unsigned int t, const std::string& method, std::initializer_list<const char*> args) {
        ParameterGroup* group = new ParameterGroup();
        char time[16];
        std::snprintf(time, sizeof time, "%02u:%02u:%03u", t / 60000, t / 1000 % 60, t % 1000);
        group->addParameter("p1", time);
        int i = 2;
        for (const char* a : args) group->addParameter("p" + std::to_string(i++), a);
        group->addParameter("object", "fx");
        group->addParameter("method", method);
        EventModifyEffect event(new QLNTime(t), group);
        event.execute();
    }

    // One frame at demo time t over a cleared screen.
    void frame(unsigned int t, Rgb clear = Rgb{200, 200, 200}) {
        resetGL();
        glClearColor(clear[0] / 255.0f, clear[1] / 255.0f, clear[2] / 255.0f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        action.execute(t);
    }

    testsupport::TempDir dir;
    Data* data = nullptr;
    DataTexturePool* textures = nullptr;
    DataFBOPool* fbos = nullptr;
    DataEffectPool* effects = nullptr;
    ActionPool action;
    ParameterGroup params;
    Effect* effect = nullptr;  // owned by the effect pool
};

// The definition file of an effect class as the demoscript reader loads it.
inline std::unique_ptr<EffectDefinition> loadDefinition(const std::string& className) {
    EffectDefinitionParser parser(testsupport::sourceDir() + "/resources/definitions/" + className + ".def");
    return std::unique_ptr<EffectDefinition>(parser.parse());
}

}  // namespace texttest
