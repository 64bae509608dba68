#include "tools/BitmapFont.h"

namespace qlntools {

namespace {

// One glyph: seven rows of eight pixels, "X" set; the eighth row is always empty.
struct Glyph {
    char code;
    const char* rows[7];
};

// The star code carries a heart, for greetings.
const Glyph glyphs[] = {
    {'A', {".XXXXX..", "XX...XX.", "XX...XX.", "XXXXXXX.", "XX...XX.", "XX...XX.", "XX...XX."}},
    {'B', {"XXXXXX..", "XX...XX.", "XX...XX.", "XXXXXX..", "XX...XX.", "XX...XX.", "XXXXXX.."}},
    {'C', {".XXXXX..", "XX...XX.", "XX......", "XX......", "XX......", "XX...XX.", ".XXXXX.."}},
    {'D', {"XXXXX...", "XX..XX..", "XX...XX.", "XX...XX.", "XX...XX.", "XX..XX..", "XXXXX..."}},
    {'E', {"XXXXXXX.", "XX......", "XX......", "XXXXX...", "XX......", "XX......", "XXXXXXX."}},
    {'F', {"XXXXXXX.", "XX......", "XX......", "XXXXX...", "XX......", "XX......", "XX......"}},
    {'G', {".XXXXX..", "XX...XX.", "XX......", "XX..XXX.", "XX...XX.", "XX...XX.", ".XXXXXX."}},
    {'H', {"XX...XX.", "XX...XX.", "XX...XX.", "XXXXXXX.", "XX...XX.", "XX...XX.", "XX...XX."}},
    {'I', {"XXXXXX..", "..XX....", "..XX....", "..XX....", "..XX....", "..XX....", "XXXXXX.."}},
    {'J', {"....XXX.", ".....XX.", ".....XX.", ".....XX.", "XX...XX.", "XX...XX.", ".XXXXX.."}},
    {'K', {"XX...XX.", "XX..XX..", "XX.XX...", "XXXX....", "XX.XX...", "XX..XX..", "XX...XX."}},
    {'L', {"XX......", "XX......", "XX......", "XX......", "XX......", "XX......", "XXXXXXX."}},
    {'M', {"XX...XX.", "XXX.XXX.", "XXXXXXX.", "XX.X.XX.", "XX...XX.", "XX...XX.", "XX...XX."}},
    {'N', {"XX...XX.", "XXX..XX.", "XXXX.XX.", "XX.XXXX.", "XX..XXX.", "XX...XX.", "XX...XX."}},
    {'O', {".XXXXX..", "XX...XX.", "XX...XX.", "XX...XX.", "XX...XX.", "XX...XX.", ".XXXXX.."}},
    {'P', {"XXXXXX..", "XX...XX.", "XX...XX.", "XXXXXX..", "XX......", "XX......", "XX......"}},
    {'Q', {".XXXXX..", "XX...XX.", "XX...XX.", "XX...XX.", "XX.X.XX.", "XX..XX..", ".XXX.XX."}},
    {'R', {"XXXXXX..", "XX...XX.", "XX...XX.", "XXXXXX..", "XX.XX...", "XX..XX..", "XX...XX."}},
    {'S', {".XXXXX..", "XX...XX.", "XX......", ".XXXXX..", ".....XX.", "XX...XX.", ".XXXXX.."}},
    {'T', {"XXXXXX..", "..XX....", "..XX....", "..XX....", "..XX....", "..XX....", "..XX...."}},
    {'U', {"XX...XX.", "XX...XX.", "XX...XX.", "XX...XX.", "XX...XX.", "XX...XX.", ".XXXXX.."}},
    {'V', {"XX...XX.", "XX...XX.", "XX...XX.", "XX...XX.", ".XX.XX..", "..XXX...", "...X...."}},
    {'W', {"XX...XX.", "XX...XX.", "XX...XX.", "XX.X.XX.", "XXXXXXX.", "XXX.XXX.", "XX...XX."}},
    {'X', {"XX...XX.", "XX...XX.", ".XX.XX..", "..XXX...", ".XX.XX..", "XX...XX.", "XX...XX."}},
    {'Y', {"XX...XX.", "XX...XX.", ".XX.XX..", "..XXX...", "..XXX...", "..XXX...", "..XXX..."}},
    {'Z', {"XXXXXXX.", "....XX..", "...XX...", "..XX....", ".XX.....", "XX......", "XXXXXXX."}},
    {'0', {".XXXXX..", "XX..XXX.", "XX.X.XX.", "XX.X.XX.", "XX.X.XX.", "XXX..XX.", ".XXXXX.."}},
    {'1', {"..XX....", ".XXX....", "XXXX....", "..XX....", "..XX....", "..XX....", "XXXXXX.."}},
    {'2', {".XXXXX..", "XX...XX.", ".....XX.", "...XXX..", ".XXX....", "XX......", "XXXXXXX."}},
    {'3', {".XXXXX..", "XX...XX.", ".....XX.", "..XXXX..", ".....XX.", "XX...XX.", ".XXXXX.."}},
    {'4', {"...XXX..", "..XXXX..", ".XX.XX..", "XX..XX..", "XXXXXXX.", "....XX..", "....XX.."}},
    {'5', {"XXXXXXX.", "XX......", "XXXXXX..", ".....XX.", ".....XX.", "XX...XX.", ".XXXXX.."}},
    {'6', {"..XXXX..", ".XX.....", "XX......", "XXXXXX..", "XX...XX.", "XX...XX.", ".XXXXX.."}},
    {'7', {"XXXXXXX.", ".....XX.", "....XX..", "...XX...", "..XX....", "..XX....", "..XX...."}},
    {'8', {".XXXXX..", "XX...XX.", "XX...XX.", ".XXXXX..", "XX...XX.", "XX...XX.", ".XXXXX.."}},
    {'9', {".XXXXX..", "XX...XX.", "XX...XX.", ".XXXXXX.", ".....XX.", "....XX..", ".XXXX..."}},
    {'.', {"........", "........", "........", "........", "........", "..XX....", "..XX...."}},
    {',', {"........", "........", "........", "........", "..XX....", "..XX....", ".XX....."}},
    {'!', {"..XX....", "..XX....", "..XX....", "..XX....", "..XX....", "........", "..XX...."}},
    {'?', {".XXXXX..", "XX...XX.", "....XX..", "...XX...", "...XX...", "........", "...XX..."}},
    {'\'', {"..XX....", "..XX....", ".XX.....", "........", "........", "........", "........"}},
    {'"', {"XX.XX...", "XX.XX...", ".X..X...", "........", "........", "........", "........"}},
    {'+', {"........", "..XX....", "..XX....", "XXXXXX..", "..XX....", "..XX....", "........"}},
    {'-', {"........", "........", "........", "XXXXXX..", "........", "........", "........"}},
    {'=', {"........", "........", "XXXXXX..", "........", "XXXXXX..", "........", "........"}},
    {':', {"........", "..XX....", "..XX....", "........", "..XX....", "..XX....", "........"}},
    {'(', {"...XX...", "..XX....", ".XX.....", ".XX.....", ".XX.....", "..XX....", "...XX..."}},
    {')', {".XX.....", "..XX....", "...XX...", "...XX...", "...XX...", "..XX....", ".XX....."}},
    {'/', {".....XX.", "....XX..", "...XX...", "..XX....", ".XX.....", "XX......", "........"}},
    {'*', {".XX.XX..", "XXXXXXX.", "XXXXXXX.", "XXXXXXX.", ".XXXXX..", "..XXX...", "...X...."}},
    {'#', {".XX.XX..", ".XX.XX..", "XXXXXXX.", ".XX.XX..", "XXXXXXX.", ".XX.XX..", ".XX.XX.."}},
};

}  // namespace

const char* const* BitmapFont::rows(char c) {
    if (c >= 'a' && c <= 'z') c = char(c - 'a' + 'A');
    for (const Glyph& g : glyphs)
        if (g.code == c) return g.rows;
    return nullptr;
}

bool BitmapFont::has(char c) {
    return c == ' ' || rows(c) != nullptr;
}

bool BitmapFont::pixel(char c, int x, int y) {
    if (x < 0 || y < 0 || x >= size || y >= size - 1) return false;
    const char* const* r = rows(c);
    return r != nullptr && r[y][x] == 'X';
}

}  // namespace qlntools
