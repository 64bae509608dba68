#include "demosys/Texture.h"

#include <GL/glew.h>
#include <sstream>

#include "demosys/GLHelpers.h"

Texture::Texture(std::string filename, unsigned int id)
    : id(id),
      filename(filename),
      width(0),
      height(0),
      bpp(32),
      fileSize(0),
      type(GL_TEXTURE_2D),
      interpolation(GL_LINEAR),
      mipmapped(false),
      wrap(GL_REPEAT) {}

Texture::Texture(int width, int height, unsigned int format, unsigned char* data) : Texture("", 0) {
    create(width, height, GL_RGBA, format, data);
}

Texture::Texture(int width, int height, int internalFormat, unsigned int format) : Texture("", 0) {
    create(width, height, internalFormat, format, nullptr);
}

void Texture::create(int w, int h, int internalFormat, unsigned int format, unsigned char* data) {
    width = w;
    height = h;
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexImage2D(GL_TEXTURE_2D, 0, internalFormat, w, h, 0, format, GL_UNSIGNED_BYTE, data);
    glBindTexture(GL_TEXTURE_2D, 0);
}

Texture::~Texture() {
    if (id != 0) glDeleteTextures(1, &id);
}

void Texture::updateTexture(int w, int h, unsigned int format, unsigned char* data) {
    width = w;
    height = h;
    fileSize = 0;
    type = GL_TEXTURE_2D;
    interpolation = GL_LINEAR;
    mipmapped = false;
    bpp = 32;
    glBindTexture(GL_TEXTURE_2D, id);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, w, h, 0, format, GL_UNSIGNED_BYTE, data);
    glBindTexture(GL_TEXTURE_2D, 0);
}

void Texture::bind() {
    glEnable(type);
    glBindTexture(type, id);
    // Wrapping always goes to the 2D target, whatever this texture's type is.
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, wrap);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    if (mipmapped) {
        glTexParameteri(type, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
        glTexParameteri(type, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    } else {
        glTexParameteri(type, GL_TEXTURE_MIN_FILTER, interpolation);
        glTexParameteri(type, GL_TEXTURE_MAG_FILTER, interpolation);
    }
}

void Texture::release() {
    glBindTexture(type, 0);
    glDisable(type);
}

namespace {

struct Corner {
    float s, t, x, y;
};

void drawQuad(const Corner (&corners)[4]) {
    glBegin(GL_QUADS);
    for (const Corner& c : corners) {
        glTexCoord2f(c.s, c.t);
        glVertex2f(c.x, c.y);
    }
    glEnd();
}

const Corner fullScreen[4] = {{0, 1, -1, 1}, {1, 1, 1, 1}, {1, 0, 1, -1}, {0, 0, -1, -1}};
const Corner fullScreenFlipped[4] = {{0, 1, -1, -1}, {1, 1, 1, -1}, {1, 0, 1, 1}, {0, 0, -1, 1}};

}  // namespace

void Texture::drawQuadFS() {
    GLHelpers::pushIdentityMatrices();
    drawQuad(fullScreen);
    GLHelpers::popMatrices();
}

void Texture::drawQuadFS_Flip() {
    GLHelpers::pushIdentityMatrices();
    drawQuad(fullScreenFlipped);
    GLHelpers::popMatrices();
}

// Alpha testing is left on afterwards; later effects expect it.
void Texture::drawQuadBlendFS(unsigned int sourceFactor, unsigned int destinationFactor) {
    glEnable(GL_BLEND);
    glBlendFunc(sourceFactor, destinationFactor);
    glEnable(GL_ALPHA_TEST);
    glAlphaFunc(GL_GREATER, 0.0f);
    glDisable(GL_DEPTH_TEST);
    GLHelpers::pushIdentityMatrices();
    drawQuad(fullScreenFlipped);
    GLHelpers::popMatrices();
    glEnable(GL_DEPTH_TEST);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_BLEND);
}

void Texture::drawQuadScaled(Vector<float, 2> scale) {
    float sx = 0.5f * scale[0];
    float sy = 0.5f * scale[1];
    const Corner corners[4] = {{0, 1, -sx, -sy}, {1, 1, sx, -sy}, {1, 0, sx, sy}, {0, 0, -sx, sy}};
    drawQuad(corners);
}

std::string Texture::toString() const {
    std::ostringstream out;
    out << "Texture {" << "file='" << filename << "',id=" << id << "',size='" << width << "," << height
        << "',bpp='" << bpp << "'";
    if (mipmapped) out << " mipmapped ";
    out << "dimtype=";
    if (type == GL_TEXTURE_1D)
        out << "GL_TEXTURE_1D ";
    else if (type == GL_TEXTURE_2D)
        out << "GL_TEXTURE_2D ";
    else if (type == GL_TEXTURE_3D)
        out << "GL_TEXTURE_3D ";
    out << "}\n";
    return out.str();
}
