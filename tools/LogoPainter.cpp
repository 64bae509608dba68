#include "tools/LogoPainter.h"

#include <cmath>
#include <string>

#include "tools/Mask.h"
#include "tools/Random.h"

namespace qlntools {

namespace {

// Chrome: sky above the horizon line, a bright rim, dark earth below it fading to gold.
Color chrome(float t) {
    const Color sky0(0.20f, 0.35f, 0.85f), sky1(0.85f, 0.95f, 1.0f);
    const Color earth0(0.25f, 0.12f, 0.05f), earth1(1.0f, 0.80f, 0.35f);
    if (t < 0.5f) return sky0.mix(sky1, t / 0.5f);
    if (t < 0.54f) return Color(1, 1, 1);
    return earth0.mix(earth1, (t - 0.54f) / 0.46f);
}

struct Lettering {
    Mask fill, outline, glow;
};

// Rounded, soft-edged letters: the blocky font is blurred and cut again at half coverage.
Lettering letter(int width, int height, const std::string& text, int left, int top, int scale, int outlineWidth,
                 int glowRadius) {
    Mask raw(width, height);
    raw.drawText(text, left, top, scale);
    int round = scale / 3 > 0 ? scale / 3 : 1;
    Lettering l{raw.blurred(round).thresholded(0.5f, 0.12f), Mask(0, 0), Mask(0, 0)};
    l.outline = raw.dilated(outlineWidth).blurred(1).thresholded(0.5f, 0.25f);
    l.glow = raw.dilated(outlineWidth).blurred(glowRadius);
    return l;
}

void paintLettering(Picture& picture, const Lettering& l, int top, int height, const Color& glowColor,
                    float glowStrength, Color (*shade)(float)) {
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            float glow = l.glow.at(x, y) * glowStrength;
            if (glow > 0) picture.blend(x, y, glowColor.withAlpha(std::min(1.0f, glow)));
            float edge = l.outline.at(x, y);
            if (edge > 0) picture.blend(x, y, Color(0.02f, 0.02f, 0.08f, edge));
            float body = l.fill.at(x, y);
            if (body > 0) {
                float t = std::min(1.0f, std::max(0.0f, float(y - top) / float(height)));
                // A diagonal sheen across the letters.
                float sheen = 0.5f + 0.5f * std::sin(float(x + y) * 0.045f);
                Color c = shade(t).mix(Color(1, 1, 1), 0.15f * sheen);
                picture.blend(x, y, c.withAlpha(body));
            }
        }
}

Color steel(float t) {
    return Color(0.75f, 0.8f, 0.9f).mix(Color(0.35f, 0.4f, 0.55f), t);
}

}  // namespace

Picture LogoPainter::logo() {
    const int width = 512, height = 128;
    Picture picture(width, height, Color(0, 0, 0, 0));
    const std::string name = "QUILLON", sub = "DEMOSYSTEM";
    const int scale = 8, subScale = 3;
    const int nameTop = 12, subTop = 88;
    Lettering big = letter(width, height, name, (width - Mask::textWidth(name, scale)) / 2, nameTop, scale, 3, 5);
    paintLettering(picture, big, nameTop, 7 * scale, Color(0.2f, 0.9f, 1.0f), 0.9f, chrome);
    Lettering small =
        letter(width, height, sub, (width - Mask::textWidth(sub, subScale)) / 2, subTop, subScale, 2, 3);
    paintLettering(picture, small, subTop, 7 * subScale, Color(1.0f, 0.3f, 0.8f), 0.8f, steel);
    return picture;
}

Picture LogoPainter::title(int variant) {
    const int width = 512, height = 384;
    // Each variant has its own colour scheme; flickered at 10 Hz they read as one pulsing screen.
    const Color backTop[3] = {Color(0.10f, 0.0f, 0.20f), Color(0.0f, 0.10f, 0.22f), Color(0.22f, 0.05f, 0.0f)};
    const Color backBottom[3] = {Color(0.55f, 0.05f, 0.35f), Color(0.0f, 0.45f, 0.55f), Color(0.70f, 0.45f, 0.0f)};
    const Color glow[3] = {Color(1.0f, 0.3f, 0.8f), Color(0.3f, 1.0f, 0.9f), Color(1.0f, 0.85f, 0.2f)};
    variant = ((variant % 3) + 3) % 3;
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        float t = float(y) / float(height - 1);
        Color line = backTop[variant].mix(backBottom[variant], t * t);
        if (y % 4 >= 2) line = line * 0.75f;  // scan lines
        for (int x = 0; x < width; ++x) picture.set(x, y, line);
    }
    // A horizon grid in the lower half, drawn in perspective.
    for (int y = height / 2 + 40; y < height; ++y) {
        float depth = float(y - height / 2 - 30) / float(height / 2);
        for (int x = 0; x < width; ++x) {
            float u = (float(x) - width / 2.0f) / (depth * 40.0f) + variant * 0.33f;
            float v = 1.0f / depth * 6.0f;
            float gu = std::fabs(u - std::round(u)), gv = std::fabs(v - std::round(v));
            float line = std::max(gu < 0.04f ? 1.0f : 0.0f, gv < 0.05f * depth * 3 ? 1.0f : 0.0f);
            if (line > 0) picture.blend(x, y, glow[variant].withAlpha(0.6f * std::min(1.0f, depth * 1.5f)));
        }
    }
    const std::string name = "QUILLON";
    const int scale = 8, top = 116;
    Lettering big = letter(width, height, name, (width - Mask::textWidth(name, scale)) / 2, top, scale, 4, 7);
    paintLettering(picture, big, top, 7 * scale, glow[variant], 1.0f, chrome);
    // Glitch: a few bands of the picture slide sideways, different in each variant.
    Random random(1000u + uint32_t(variant));
    Picture copy = picture;
    for (int band = 0; band < 3 + variant; ++band) {
        int y0 = random.below(height - 12), bandHeight = 2 + random.below(10), shift = random.below(41) - 20;
        for (int y = y0; y < y0 + bandHeight && y < height; ++y)
            for (int x = 0; x < width; ++x) picture.set(x, y, copy.getWrapped(x - shift, y));
    }
    return picture;
}

}  // namespace qlntools
