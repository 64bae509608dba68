#pragma once
// One OpenGL texture object and what the engine knows about it; draws itself as a
// full-screen or scaled quad (the caller binds first).
#include <string>

#include "demosys/Vector.h"

class Texture {
public:
    // Records a texture name that already exists; makes no OpenGL call.
    Texture(std::string filename, unsigned int id);
    // New GL_RGBA texture from pixel data in the given format (GL_UNSIGNED_BYTE).
    Texture(int width, int height, unsigned int format, unsigned char* data);
    // Storage only, for render targets.
    Texture(int width, int height, int internalFormat, unsigned int format);
    ~Texture();
    Texture(const Texture&) = delete;
    Texture& operator=(const Texture&) = delete;

    void updateTexture(int width, int height, unsigned int format, unsigned char* data);

    unsigned int getID() const { return id; }
    void setType(unsigned int value) { type = value; }
    unsigned int getType() const { return type; }
    void isMipmapped(bool value) { mipmapped = value; }
    bool isMipmapped() const { return mipmapped; }
    void setSize(int w, int h) { width = w; height = h; }
    int getWidth() const { return width; }
    int getHeight() const { return height; }
    void setBPP(int value) { bpp = value; }
    int getBPP() const { return bpp; }
    void setFileSize(int value) { fileSize = value; }
    int getFileSize() const { return fileSize; }
    void setInterpolation(unsigned int value) { interpolation = value; }
    unsigned int getInterpolation() const { return interpolation; }
    void setTextureWrap(unsigned int value) { wrap = value; }
    unsigned int getTextureWrap() const { return wrap; }
    void setFilename(std::string value) { filename = value; }
    std::string getFilename() const { return filename; }
    int getMemorySize() const { return width * height * bpp / 8; }

    void init() {}
    void bind();
    void release();

    void drawQuadFS();
    void drawQuadFS_Flip();
    void drawQuadBlendFS(unsigned int sourceFactor, unsigned int destinationFactor);
    void drawQuadScaled(Vector<float, 2> scale);

    std::string toString() const;

private:
    void create(int width, int height, int internalFormat, unsigned int format, unsigned char* data);

    unsigned int id;
    std::string filename;
    int width;
    int height;
    int bpp;
    int fileSize;
    unsigned int type;
    unsigned int interpolation;
    bool mipmapped;
    unsigned int wrap;
};
