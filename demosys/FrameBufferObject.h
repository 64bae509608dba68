#pragma once
// Off-screen render target: one colour texture and an optional depth renderbuffer.
// Binding nests through one process-wide stack, so releasing the inner target
// returns rendering to the outer one and releasing the last returns it to the screen.
#include <deque>
#include <string>

class Texture;

class FrameBufferObject {
public:
    FrameBufferObject(int width, int height, bool depth, bool stencil);
    ~FrameBufferObject();
    FrameBufferObject(const FrameBufferObject&) = delete;
    FrameBufferObject& operator=(const FrameBufferObject&) = delete;

    // Checks the bound framebuffer's completeness; sets the status message and valid.
    void fboStatus();
    void bind();
    void release();
    // The colour texture on a quad of half-size s around the centre, in identity matrices.
    void draw(float s);
    void draw();
    void clear();
    void clearColorBuffer();
    void clearRenderBuffer();
    void bindColorBuffer();

    Texture* getColorBuffer() const { return colorBuffer; }
    bool isValid() const { return valid; }
    int getWidth() const { return width; }
    int getHeight() const { return height; }
    unsigned int getId() const { return framebuffer; }
    std::string getStatusMessage() const { return statusMessage; }
    void setDebug(bool value) { debug = value; }
    std::string toString() const;

    static std::deque<FrameBufferObject*> fboStack;

private:
    Texture* colorBuffer;  // owned
    unsigned int renderbuffer;
    unsigned int framebuffer;
    bool depth;
    bool stencil;  // described only: no stencil storage is attached
    bool debug;
    int width;
    int height;
    std::string statusMessage;
    bool valid;
};
