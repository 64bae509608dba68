#include "demo/Textwriter.h"

#include <GL/glew.h>

#include <algorithm>

#include "demosys/GLHelpers.h"
#include "demosys/Texture.h"

namespace {
const int glyphTableSize = 128;
const int noGlyph = -1;
const double cellInset = 0.03;  // share of a cell left free on each side of a letter
}  // namespace

Textwriter::Textwriter(Texture* fontTexture, int columns, int rows)
    : font(fontTexture),
      fontRows(rows),
      fontColumns(columns),
      glyphTable(glyphTableSize, noGlyph),
      positionX(-1.0f),
      positionY(0.9f),
      boxWidth(2.0f),
      boxHeight(2.0f),
      gridColumns(20),
      gridRows(20),
      letterSpacing(0.03f),
      borderSize(0.0f),
      showBackground(true),
      glyphUStep(1.0f / columns),
      glyphVStep(1.0f / rows),
      cursorX(-1.0f),
      cursorY(0.9f),
      column(0.0f),
      row(0.0f),
      ghost(false),
      writeSpeed(200),
      blinkSpeed(100),
      ghostCounter(0) {
    // The assignments follow the font image's layout; later lines overwrite earlier ones.
    for (int c = 'a'; c <= 'z'; ++c) glyphTable[c] = c - 'a';
    for (int c = '0'; c <= '9'; ++c) glyphTable[c] = c - 16;
    glyphTable['0'] = 42;
    glyphTable['1'] = 8;  // the digit one shares the glyph of "i"
    glyphTable['*'] = 54;
    glyphTable['@'] = 54;
    glyphTable[' '] = 28;
    glyphTable['\n'] = 28;
    glyphTable['\r'] = 28;
    glyphTable['\''] = 53;
    glyphTable['.'] = 43;
    glyphTable['!'] = 44;
    glyphTable['-'] = 43;
    glyphTable['+'] = 52;
}

void Textwriter::setBoxSize(float width, float height) {
    boxWidth = width;
    boxHeight = height;
}

void Textwriter::setGridSize(int columns, int rows) {
    gridColumns = columns;
    gridRows = rows;
}

void Textwriter::setPosition(float x, float y) {
    positionX = x;
    positionY = y;
    cursorX = x;
    cursorY = y;
}

void Textwriter::setLetterSpacing(float spacing) { letterSpacing = spacing; }

void Textwriter::ghostWriter(bool on) {
    ghost = on;
    ghostCounter = 0;
}

void Textwriter::setBorderSize(float size) { borderSize = size; }
void Textwriter::setWriteSpeed(unsigned int msPerLetter) { writeSpeed = msPerLetter; }
void Textwriter::setBlinkSpeed(unsigned int msPerBlink) { blinkSpeed = msPerBlink; }
void Textwriter::background(bool on) { showBackground = on; }
void Textwriter::setText(std::string value) { text = value; }

int Textwriter::getGlyph(char c) const {
    int index = static_cast<signed char>(c);
    if (index == -1) index = 54;  // the byte 0xFF reads the entry of "6"
    if (index < 0 || index >= glyphTableSize) return noGlyph;
    return glyphTable[index];
}

long long Textwriter::cellCount() const {
    return static_cast<long long>(gridColumns) * static_cast<long long>(gridRows);
}

void Textwriter::write(unsigned int time) {
    column = 0.0f;
    row = 0.0f;

    glDisable(GL_LIGHTING);
    glDisable(GL_DEPTH_TEST);
    GLHelpers::pushIdentityMatrices();
    glEnable(GL_COLOR_MATERIAL);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);

    if (showBackground) {
        float left = positionX - borderSize;
        float right = positionX + boxWidth + borderSize;
        float top = positionY + borderSize;
        float bottom = positionY - boxHeight - borderSize;
        glColor4f(0.0f, 0.0f, 0.0f, 0.5f);
        glBegin(GL_QUADS);
        glVertex2f(left, top);
        glVertex2f(left, bottom);
        glVertex2f(right, bottom);
        glVertex2f(right, top);
        glEnd();
        glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
        glBegin(GL_LINE_LOOP);
        glVertex2f(left, top);
        glVertex2f(left, bottom);
        glVertex2f(right, bottom);
        glVertex2f(right, top);
        glEnd();
    }

    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_ALPHA_TEST);
    glAlphaFunc(GL_GREATER, 0.0f);

    if (ghost)
        writeGhost(time);
    else
        writeAll();

    glDisable(GL_ALPHA_TEST);
    glDisable(GL_BLEND);
    glDisable(GL_COLOR_MATERIAL);
    GLHelpers::popMatrices();
}

void Textwriter::writeAll() {
    long long count = std::min(static_cast<long long>(text.size()), cellCount());
    for (long long i = 0; i < count; ++i) writeLetter(text[i]);
}

void Textwriter::writeGhost(unsigned int time) {
    // A zero speed would divide by zero: it writes everything at once.
    long long typed = writeSpeed ? time / writeSpeed : static_cast<long long>(text.size());
    // The last cell stays free for the cursor.
    long long count = std::min(static_cast<long long>(text.size()), std::min(cellCount() - 1, typed));
    for (long long i = 0; i < count; ++i) writeLetter(text[i]);
    writeCursor(time);
}

Textwriter::Cell Textwriter::currentCell() {
    Cell cell;
    cell.width = boxWidth / gridColumns;
    cell.height = boxHeight / gridRows;
    cursorX = positionX + cell.width * column;
    cursorY = positionY - cell.height * row;
    cell.x = cursorX;
    cell.y = cursorY;
    cell.insetX = static_cast<float>(cell.width * cellInset);
    cell.insetY = static_cast<float>(cell.height * cellInset);
    return cell;
}

void Textwriter::advance() {
    column += 1.0f;
    if (column >= gridColumns) {
        column = 0.0f;
        row += 1.0f;
    }
}

void Textwriter::writeLetter(char c) {
    Cell cell = currentCell();
    if (c == '\\') {
        column = 0.0f;
        row += 1.0f;
        return;
    }
    int index = static_cast<signed char>(c);
    bool inTable = index == -1 || (index >= 0 && index < glyphTableSize);
    // A character without a table entry, or a writer without a usable font, leaves its cell empty.
    if (inTable && font && fontColumns > 0 && fontRows > 0) {
        int glyph = getGlyph(c);
        int glyphColumn = glyph % fontColumns;
        int glyphRow = glyph / fontColumns;
        float u = glyphColumn * glyphUStep;
        float v = 1.0f - glyphRow * glyphVStep;  // glyph rows count from the top of the image
        // The right and bottom edges are pulled in by a thirtieth of a glyph to keep the
        // neighbouring glyph out of the filtered edge.
        float du = glyphUStep / 30.0f;
        float dv = glyphVStep / 30.0f;

        glColor3f(1.0f, 1.0f, 1.0f);
        font->bind();
        glBegin(GL_QUADS);
        glTexCoord2f(u, v);
        glVertex2f(cell.x + cell.insetX, cell.y - cell.insetY);
        glTexCoord2f(u, v - glyphVStep + dv);
        glVertex2f(cell.x + cell.insetX, cell.y + cell.insetY - cell.height);
        glTexCoord2f(u + glyphUStep - du, v - glyphVStep + dv);
        glVertex2f(cell.x - cell.insetX + cell.width, cell.y + cell.insetY - cell.height);
        glTexCoord2f(u + glyphUStep - du, v);
        glVertex2f(cell.x - cell.insetX + cell.width, cell.y - cell.insetY);
        glEnd();
        font->release();
    }
    advance();
}

void Textwriter::writeCursor(unsigned int time) {
    Cell cell = currentCell();
    // A zero blink speed would divide by zero: the cursor then stays on.
    bool visible = blinkSpeed == 0 || time % blinkSpeed >= blinkSpeed / 2;
    if (visible) {
        glDisable(GL_TEXTURE_2D);
        glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
        glBegin(GL_QUADS);
        glVertex2f(cell.x + cell.insetX, cell.y - cell.insetY);
        glVertex2f(cell.x + cell.insetX, cell.y + cell.insetY - cell.height);
        glVertex2f(cell.x - cell.insetX + cell.width, cell.y + cell.insetY - cell.height);
        glVertex2f(cell.x - cell.insetX + cell.width, cell.y - cell.insetY);
        glEnd();
    }
    advance();
}
