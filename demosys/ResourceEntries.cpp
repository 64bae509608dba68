#include "demosys/ResourceEntries.h"

#include <GL/gl.h>

#include "qlnutils/QLNUtils.h"
#include "qlnutils/StringTokenizer.h"
#include "qlnutils/StringUtils.h"

namespace ResourceEntries {

std::vector<std::string> fields(const std::string& value) {
    std::vector<std::string> result;
    StringTokenizer tokens(value, ",");
    while (tokens.hasMoreTokens()) result.push_back(StringUtils::trim(tokens.getNext()));
    return result;
}

// A framebuffer size field: the screen's own size by name, or a whole number.
static bool sizeField(const std::string& field, const char* word, int screenSize, int& size) {
    if (field == word) {
        size = screenSize;
        return true;
    }
    if (!StringUtils::isInt(field)) return false;
    size = QLNUtils::string2Int(field);
    return true;
}

bool framebuffer(const std::string& alias, const std::string& value, int screenWidth, int screenHeight,
                 FramebufferOptions& options, std::string& error) {
    std::vector<std::string> f = fields(value);
    if (f.size() < 3 || f.size() > 5) {
        error = "Wrong number of parameters in framebuffer block\nFramebuffer: " + alias + "\ndefined as : " + value +
                "\nValid syntax: width, height, COLOR_BUFFER [,DEPTH_BUFFER][,STENCIL_BUFFER]";
        return false;
    }
    if (!sizeField(f[0], "width", screenWidth, options.width)) {
        error = "Frambuffer width is not an int\nFBO: " + alias + "\nvalue : " + f[0] +
                "\nValid syntax: 'width' or unsinged integer";
        return false;
    }
    if (!sizeField(f[1], "height", screenHeight, options.height)) {
        error = "Frambuffer height is not an int\nFBO: " + alias + "\nvalue : " + f[1] +
                "\nValid syntax: 'height' or unsinged integer";
        return false;
    }
    const char* expected[] = {"COLOR_BUFFER", "DEPTH_BUFFER", "STENCIL_BUFFER"};
    for (size_t k = 2; k < f.size(); ++k) {
        if (f[k] != expected[k - 2]) {
            error = "Wrong parameter for framebuffer '" + alias + "value: '" + f[k] + "expected : '" + expected[k - 2] +
                    "'\n";
            return false;
        }
    }
    options.depth = f.size() >= 4;
    options.stencil = f.size() == 5;
    return true;
}

bool texture(const std::string& alias, const std::string& value, TextureOptions& options, std::string& error) {
    std::vector<std::string> f = fields(value);
    options.file = f.empty() ? std::string() : f[0];
    options.target = GL_TEXTURE_2D;
    options.mipmap = false;
    if (f.size() >= 2) {
        if (f[1] == "GL_TEXTURE_1D") {
            options.target = GL_TEXTURE_1D;
        } else if (f[1] == "GL_TEXTURE_2D") {
            options.target = GL_TEXTURE_2D;
        } else if (f[1] == "GL_TEXTURE_3D") {
            options.target = GL_TEXTURE_3D;
        } else {
            error = "TexturePool: '" + alias + "' using wrong texture parameter '" + f[1] +
                    "\nOptions : GL_TEXTURE_1D/2D/3D";
            return false;
        }
    }
    if (f.size() == 3) {
        if (f[2] != "GEN_MIPMAP") {
            error = "TexturePool: '" + alias + "' using wrong mipmap parameter " + f[2] + "\nOptions : GEN_MIPMAPS";
            return false;
        }
        options.mipmap = true;
    }
    return true;
}

}  // namespace ResourceEntries
