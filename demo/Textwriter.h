#pragma once
// A bitmap-font text box in normalised device coordinates: a grid of character cells,
// optionally on a half-transparent background with a white frame, written all at once
// or letter by letter with a blinking block cursor.
#include <string>
#include <vector>

class Texture;

class Textwriter {
public:
    // The font image holds `columns` x `rows` glyph cells, counted from its top-left.
    Textwriter(Texture* font, int columns, int rows);

    void setBoxSize(float width, float height);
    void setGridSize(int columns, int rows);
    // Moves the box and the cursor.
    void setPosition(float x, float y);
    void setLetterSpacing(float spacing);
    void ghostWriter(bool on);
    void setBorderSize(float size);
    void setWriteSpeed(unsigned int msPerLetter);
    void setBlinkSpeed(unsigned int msPerBlink);
    void background(bool on);
    void setText(std::string text);

    // Draws the whole box for one frame; `time` is milliseconds since the text was set.
    void write(unsigned int time);
    void writeAll();
    void writeGhost(unsigned int time);
    void writeLetter(char c);
    void writeCursor(unsigned int time);

    std::string getText() const { return text; }
    // Glyph number for a character; -1 for characters the font has no glyph for.
    int getGlyph(char c) const;

private:
    struct Cell {
        float x, y;          // top-left corner
        float width, height;
        float insetX, insetY;
    };
    Cell currentCell();
    void cellQuad(const Cell& cell);
    void advance();
    long long cellCount() const;

    Texture* font;  // not owned
    int fontRows;
    int fontColumns;
    std::string text;
    std::vector<int> glyphTable;
    float positionX, positionY;
    float boxWidth, boxHeight;
    int gridColumns, gridRows;
    float letterSpacing;  // kept for scripts; the cell inset is fixed
    float borderSize;
    bool showBackground;
    float glyphUStep, glyphVStep;
    float cursorX, cursorY;
    float column, row;
    bool ghost;
    unsigned int writeSpeed;
    unsigned int blinkSpeed;
    int ghostCounter;
};
