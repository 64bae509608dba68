#pragma once
// Lines of text drawn over the finished frame in the engine's built-in font, on a dark
// band, leaving every piece of OpenGL state as it found it.
#include <string>
#include <vector>

class Overlay {
public:
    explicit Overlay(int scale = 2) : scale(scale) {}
    // Top left of a width x height window; lines longer than the window are cut off.
    void draw(const std::vector<std::string>& lines, int width, int height) const;

private:
    int scale;
};
