#include "demosys/FrameBufferObject.h"

#include <GL/glew.h>
#include <algorithm>
#include <iostream>
#include <sstream>

#include "demosys/GLHelpers.h"
#include "demosys/QLNDemosys.h"
#include "demosys/ScreenMetrics.h"
#include "demosys/Texture.h"

std::deque<FrameBufferObject*> FrameBufferObject::fboStack;

namespace {

// Deeper nesting than any effect chain needs points at binds without releases.
const size_t maxStackDepth = 16;

}  // namespace

FrameBufferObject::FrameBufferObject(int width, int height, bool depth, bool stencil)
    : colorBuffer(nullptr),
      renderbuffer(0),
      framebuffer(0),
      depth(depth),
      stencil(stencil),
      debug(false),
      width(width),
      height(height),
      valid(false) {
    glGenFramebuffersEXT(1, &framebuffer);
    colorBuffer = new Texture(width, height, GL_RGBA, GL_RGBA);
    colorBuffer->setType(GL_TEXTURE_2D);
    if (depth) glGenRenderbuffersEXT(1, &renderbuffer);

    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, framebuffer);
    glFramebufferTexture2DEXT(GL_FRAMEBUFFER_EXT, GL_COLOR_ATTACHMENT0_EXT, GL_TEXTURE_2D, colorBuffer->getID(), 0);
    if (depth) {
        glBindRenderbufferEXT(GL_RENDERBUFFER_EXT, renderbuffer);
        glRenderbufferStorageEXT(GL_RENDERBUFFER_EXT, GL_DEPTH_COMPONENT24, width, height);
        glFramebufferRenderbufferEXT(GL_FRAMEBUFFER_EXT, GL_DEPTH_ATTACHMENT_EXT, GL_RENDERBUFFER_EXT, renderbuffer);
    }
    fboStatus();
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
}

FrameBufferObject::~FrameBufferObject() {
    // A target deleted while still bound must not stay behind on the stack.
    fboStack.erase(std::remove(fboStack.begin(), fboStack.end(), this), fboStack.end());
    delete colorBuffer;
    if (depth && renderbuffer != 0) glDeleteRenderbuffersEXT(1, &renderbuffer);
    if (framebuffer != 0) glDeleteFramebuffersEXT(1, &framebuffer);
}

void FrameBufferObject::fboStatus() {
    GLenum status = glCheckFramebufferStatusEXT(GL_FRAMEBUFFER_EXT);
    switch (status) {
        case GL_FRAMEBUFFER_COMPLETE_EXT:
            statusMessage = "Framebuffer is complete.";
            valid = true;
            return;
        case GL_FRAMEBUFFER_INCOMPLETE_ATTACHMENT_EXT:
            statusMessage = "Framebuffer incomplete attachment";
            break;
        case GL_FRAMEBUFFER_INCOMPLETE_MISSING_ATTACHMENT_EXT:
            statusMessage = "Framebuffer missing attachment";
            break;
        case GL_FRAMEBUFFER_INCOMPLETE_DIMENSIONS_EXT:
            statusMessage = "Framebuffer unsupported dimension.";
            break;
        case GL_FRAMEBUFFER_INCOMPLETE_FORMATS_EXT:
            statusMessage = "Framebuffer incoplete formats.";
            break;
        case GL_FRAMEBUFFER_INCOMPLETE_DRAW_BUFFER_EXT:
            statusMessage = "Framebuffer incomplete draw buffer.";
            break;
        case GL_FRAMEBUFFER_INCOMPLETE_READ_BUFFER_EXT:
            statusMessage = "Framebuffer incomplete read buffer";
            break;
        case GL_FRAMEBUFFER_UNSUPPORTED_EXT:
            statusMessage = "Framebuffer unsupported. Try another format.";
            break;
        default:
            statusMessage = "Unknown framebuffer errror.";
            break;
    }
    std::cout << "FBO " << statusMessage << "(" << status << ")" << " = " << "false" << std::endl;
    valid = false;
}

void FrameBufferObject::bind() {
    if (debug) std::cout << "FBO Bind " << framebuffer << " - " << fboStack.size() << std::endl;
    if (!valid) return;
    fboStack.push_back(this);
    if (fboStack.size() > maxStackDepth) {
        QLNDemosys::system_error = true;
        std::cout << "FBO: Overflow? " << fboStack.size() << " in stack" << std::endl;
    }
    if (debug)
        std::cout << std::string(fboStack.size(), ' ') << "Binding : (" << framebuffer << ") " << toString()
                  << std::endl;
    glViewport(0, 0, width, height);
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, framebuffer);
}

void FrameBufferObject::release() {
    if (fboStack.empty()) {
        QLNDemosys::system_error = true;
        std::cout << "FBO : *** STACK ERROR : Stack is already empty. Possible underflow ***" << std::endl;
        return;
    }
    FrameBufferObject* top = fboStack.back();
    if (top != this) {
        std::cout << "FBO : *** STACK ERROR : " << toString() << " is not " << top->toString() << " ***" << std::endl;
        return;
    }
    fboStack.pop_back();
    if (!fboStack.empty()) {
        FrameBufferObject* outer = fboStack.back();
        glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, outer->framebuffer);
        glViewport(0, 0, outer->width, outer->height);
        return;
    }
    if (debug) std::cout << "Stack is empty, ok!" << std::endl;
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
    if (QLNDemosys::screenMetrics) QLNDemosys::screenMetrics->setView();
}

void FrameBufferObject::draw(float s) {
    if (!valid) return;
    GLint mode = GL_MODELVIEW;
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    GLHelpers::pushIdentityMatrices();

    colorBuffer->bind();
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    GLHelpers::drawRect(s, s);
    colorBuffer->release();

    GLHelpers::popMatrices();
    glMatrixMode(mode);
}

void FrameBufferObject::draw() { draw(1.0f); }

void FrameBufferObject::clear() { glClear(depth ? GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT : GL_COLOR_BUFFER_BIT); }

void FrameBufferObject::clearColorBuffer() { glClear(GL_COLOR_BUFFER_BIT); }

void FrameBufferObject::clearRenderBuffer() { glClear(GL_DEPTH_BUFFER_BIT); }

void FrameBufferObject::bindColorBuffer() { colorBuffer->bind(); }

std::string FrameBufferObject::toString() const {
    std::ostringstream out;
    out << "FrameBufferObject(" << width << "," << height << ",COLOR_BUFFER";
    if (depth) out << ",DEPTH_BUFFER";
    if (stencil) out << ",STENCIL_BUFFER";
    out << ")";
    return out.str();
}
