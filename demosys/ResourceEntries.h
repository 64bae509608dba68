#pragma once
// The options of a "framebuffers" or "graphics" entry read as text, with the loader's own
// messages, so that they are checked the same way with or without an OpenGL context.
#include <string>
#include <vector>

namespace ResourceEntries {

// The value cut at "," with each field trimmed.
std::vector<std::string> fields(const std::string& value);

struct FramebufferOptions {
    int width = 0;
    int height = 0;
    bool depth = false;
    bool stencil = false;
};
// "width, height, COLOR_BUFFER [,DEPTH_BUFFER][,STENCIL_BUFFER]"; the words width and
// height stand for the screen's size. False with the loader's message in error.
bool framebuffer(const std::string& alias, const std::string& value, int screenWidth, int screenHeight,
                 FramebufferOptions& options, std::string& error);

struct TextureOptions {
    std::string file;
    unsigned int target = 0;  // GL_TEXTURE_2D unless another target is named
    bool mipmap = false;
};
// "file [,GL_TEXTURE_1D|2D|3D [,GEN_MIPMAP]]". False with the loader's message in error.
bool texture(const std::string& alias, const std::string& value, TextureOptions& options, std::string& error);

}  // namespace ResourceEntries
