#include "demosys/Overlay.h"

#include <GL/glew.h>

#include <algorithm>

#include "demosys/OverlayFont.h"

namespace {
void quad(float x0, float y0, float x1, float y1) {
    glVertex2f(x0, y0);
    glVertex2f(x0, y1);
    glVertex2f(x1, y1);
    glVertex2f(x1, y0);
}
}  // namespace

void Overlay::draw(const std::vector<std::string>& lines, int width, int height) const {
    if (lines.empty()) return;
    const int cellW = (OverlayFont::width + 1) * scale, cellH = (OverlayFont::height + 2) * scale;
    size_t longest = 0;
    for (const std::string& line : lines) longest = std::max(longest, line.size());

    glPushAttrib(GL_ALL_ATTRIB_BITS);
    GLint program = 0;
    glGetIntegerv(GL_CURRENT_PROGRAM, &program);
    glUseProgram(0);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_CULL_FACE);
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_1D);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_FOG);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glViewport(0, 0, width, height);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glOrtho(0, width, height, 0, -1, 1);  // y grows downwards, like the text
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();

    glBegin(GL_QUADS);
    glColor4f(0.0f, 0.0f, 0.0f, 0.6f);
    quad(0, 0, static_cast<float>(longest * cellW + 2 * scale), static_cast<float>(lines.size() * cellH + scale));
    glColor4f(1.0f, 1.0f, 0.6f, 1.0f);
    for (size_t row = 0; row < lines.size(); ++row) {
        for (size_t column = 0; column < lines[row].size(); ++column) {
            const unsigned char* glyph = OverlayFont::glyph(lines[row][column]);
            float left = static_cast<float>(scale + column * cellW), top = static_cast<float>(scale + row * cellH);
            if (left >= width || top >= height) continue;
            for (int y = 0; y < OverlayFont::height; ++y)
                for (int x = 0; x < OverlayFont::width; ++x)
                    if (glyph[y] & (0x10 >> x))
                        quad(left + x * scale, top + y * scale, left + (x + 1) * scale, top + (y + 1) * scale);
        }
    }
    glEnd();

    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glUseProgram(static_cast<GLuint>(program));
    glPopAttrib();
}
