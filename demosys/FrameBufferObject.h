#pragma once
// An off-screen render target: one colour texture and an optional depth renderbuffer.
// Binding nests through one process-wide stack, so releasing an inner target returns
// rendering to the outer one and releasing the last returns it to the screen.
#include <deque>
#include <string>

class Texture;

class FrameBufferObject {
public:
    FrameBufferObject(int width, int height, bool depth, bool stencil);
    ~FrameBufferObject();
    FrameBufferObject(const FrameBufferObject&) = delete;
    FrameBufferObject& operator=(const FrameBufferObject&) = delete;

    void fboStatus();
    void bind();
    void release();
    void draw(float s);
    void draw();
    void clear();
    void clearColorBuffer();
    void clearRenderBuffer();
    void bindColorBuffer();
    void setDebug(bool on) { debug = on; }

    Texture* getColorBuffer() { return colorBuffer; }
    bool isValid() const { return valid; }
    int getWidth() const { return width; }
    int getHeight() const { return height; }
    unsigned int getId() const { return framebuffer; }
    std::string getStatusMessage() const { return statusMessage; }
    std::string toString() const;

    static std::deque<FrameBufferObject*> fboStack;

private:
    Texture* colorBuffer;
    unsigned int renderbuffer;
    unsigned int framebuffer;
    bool depth;
    bool stencil;
    bool debug;
    int width;
    int height;
    std::string statusMessage;
    bool valid;
};
