#include "demosys/QLNDemosys.h"

#include <GL/glew.h>
#include <GL/glu.h>

#include <iostream>

#include "demosys/ActionPool.h"
#include "demosys/Binary.h"
#include "demosys/Texture.h"
#include "demosys/Timeline.h"
#include "qlnutils/File.h"
#include "qlnutils/Image.h"

// The music members (music, soundsystem, sound, soundchannel) live with the sound services.
Parameters* QLNDemosys::parameters = nullptr;
Parameters* QLNDemosys::effects = nullptr;
Data* QLNDemosys::data = nullptr;
DataEffectPool* QLNDemosys::effectTemplatePool = nullptr;
DataEffectPool* QLNDemosys::effectPool = nullptr;
DataEventPool* QLNDemosys::eventPool = nullptr;
DataObjectPool* QLNDemosys::objectPool = nullptr;
DataTexturePool* QLNDemosys::texturePool = nullptr;
DataAnimationPool* QLNDemosys::animationPool = nullptr;
DataBinaryPool* QLNDemosys::binaryPool = nullptr;
DataShaderPool* QLNDemosys::shaderPool = nullptr;
DataFBOPool* QLNDemosys::fboPool = nullptr;
Timeline* QLNDemosys::timeline = nullptr;
ActionPool* QLNDemosys::action = nullptr;
SyncPlayer* QLNDemosys::sync = nullptr;

Camera QLNDemosys::camera;
Lightsource QLNDemosys::light;
GLExtensions* QLNDemosys::glExtensions = nullptr;
ScreenMetrics* QLNDemosys::screenMetrics = nullptr;
SDL_Surface* QLNDemosys::screen = nullptr;
ProgressBar* QLNDemosys::pBar = nullptr;

QLNTime QLNDemosys::stopTime;
unsigned int QLNDemosys::startTime = 0;
unsigned int QLNDemosys::currentTime = 0;
unsigned int QLNDemosys::pauseTime = 0;
bool QLNDemosys::pause = false;
unsigned int QLNDemosys::frames = 0;
unsigned int QLNDemosys::offset = 0;
bool QLNDemosys::quit = false;
bool QLNDemosys::cameraActive = false;
bool QLNDemosys::system_error = false;

std::string QLNDemosys::message;
SDL_Event QLNDemosys::keyPressed;

QLNDemosys::TickSource QLNDemosys::tickSource = nullptr;

void QLNDemosys::setTickSource(TickSource source) { tickSource = source; }

unsigned int QLNDemosys::getTicks() { return tickSource ? tickSource() : SDL_GetTicks(); }

void QLNDemosys::setQuit(bool value) { quit = value; }
bool QLNDemosys::checkQuit() { return quit; }
void QLNDemosys::setProgressBar(ProgressBar* bar) { pBar = bar; }
unsigned int QLNDemosys::getStartTime() { return startTime; }

// Callers pass a value of their own; demo time 0 is always "now".
void QLNDemosys::setStartTime(unsigned int) { startTime = getTicks(); }

static unsigned int timelineOffset() { return QLNDemosys::timeline ? QLNDemosys::timeline->getOffset() : 0; }

void QLNDemosys::updateTime(unsigned int now) {
    currentTime = now;
    if (pause) {
        // Shift the start along so that elapsed time stands still while paused.
        startTime = startTime - pauseTime + now;
        pauseTime = now;
    }
}

unsigned int QLNDemosys::getMillisecondsElapsed() {
    if (startTime > startTime + timelineOffset()) currentTime = startTime;
    return (currentTime - startTime) + timelineOffset();
}

bool QLNDemosys::stopTimer() {
    pause = true;
    pauseTime = currentTime;
    return soundStop();
}

bool QLNDemosys::startTimer() {
    pause = false;
    return soundPlay(getMillisecondsElapsed());
}

float QLNDemosys::getFPS() {
    unsigned int elapsed = getMillisecondsElapsed();
    unsigned int seek = timelineOffset();
    if (elapsed == seek) return 0.0f;
    // Wall time since the loop began: the seek offset is not time spent drawing.
    float seconds = static_cast<float>(static_cast<double>(elapsed - seek) / 1000.0);
    return static_cast<float>(frames) / seconds;
}

void QLNDemosys::showMessage(std::string text) { std::cout << text << std::endl; }

void QLNDemosys::showMessage() {}

std::string QLNDemosys::getMessage() { return message; }

bool QLNDemosys::checkKeyPress(int key) {
    while (SDL_PollEvent(&keyPressed)) {
        if (keyPressed.type == SDL_KEYDOWN && keyPressed.key.keysym.sym == key) return true;
    }
    return false;
}

bool QLNDemosys::glErrPrint(std::string location) {
    bool clean = true;
    GLenum code = glGetError();
    while (code != GL_NO_ERROR) {
        std::cout << "[GL_ERROR LOCATION = '" << location << "']" << std::endl;
        const GLubyte* text = gluErrorString(code);
        if (text)
            std::cout << "[GL_ERROR CODE " << code << "] '" << text << "' in ->" << std::endl;
        else
            std::cout << "[GL_ERROR CODE UNKNOWN]" << std::endl;
        code = glGetError();
        // Show what was running when the error happened.
        if (code == GL_NO_ERROR && action) std::cout << action->toString();
        system_error = true;
        clean = false;
    }
    return clean;
}

static const char* errorText(GLenum code) {
    const GLubyte* text = gluErrorString(code);
    return text ? reinterpret_cast<const char*>(text) : "";
}

static void uploadTexture1D(Image& image) {
    glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    if (!image.getData()) return;  // not decoded: nothing to upload
    int length = image.getWidth() > image.getHeight() ? image.getWidth() : image.getHeight();
    if (image.getBpp() == 32)
        glTexImage1D(GL_TEXTURE_1D, 0, GL_RGBA, length, 0, GL_RGBA, GL_UNSIGNED_BYTE, image.getData());
    else if (image.getBpp() == 24)
        glTexImage1D(GL_TEXTURE_1D, 0, GL_RGB, length, 0, GL_RGB, GL_UNSIGNED_BYTE, image.getData());
}

static void uploadTexture2D(Image& image, bool mipmap) {
    if (mipmap) {
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
        // Not a magnification filter: OpenGL rejects it, and the check below reports it.
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR_MIPMAP_LINEAR);
    } else {
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    }
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    if (!image.getData()) return;  // not decoded: nothing to upload
    int width = image.getWidth();
    int height = image.getHeight();
    if (image.getBpp() == 32) {
        if (mipmap)
            gluBuild2DMipmaps(GL_TEXTURE_2D, 4, width, height, GL_RGBA, GL_UNSIGNED_BYTE, image.getData());
        else
            glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, image.getData());
    } else if (image.getBpp() == 24) {
        if (mipmap)
            gluBuild2DMipmaps(GL_TEXTURE_2D, 3, width, height, GL_RGB, GL_UNSIGNED_BYTE, image.getData());
        else
            glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, width, height, 0, GL_RGB, GL_UNSIGNED_BYTE, image.getData());
    }
}

Texture* QLNDemosys::loadTexture(std::string filename, unsigned int target, bool mipmap) {
    Image image(filename);
    if (!image.exists()) return nullptr;
    // Such a picture draws as a white square; say so where the log is not disturbed.
    std::string format = image.unsupportedFormat();
    if (!format.empty())
        std::cerr << "Warning: '" << filename << "' is a " << format
                  << " PNG; only 8-bit RGB and RGBA pictures load as textures" << std::endl;
    GLuint id = 0;
    glGenTextures(1, &id);
    if (target == GL_TEXTURE_1D || target == GL_TEXTURE_2D) {
        glBindTexture(target, id);
        // Decoded rows are packed tight: a 24-bit picture of odd width has no row padding.
        glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
        glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
        if (target == GL_TEXTURE_1D)
            uploadTexture1D(image);
        else
            uploadTexture2D(image, mipmap);
        glPopClientAttrib();
        for (GLenum code = glGetError(); code != GL_NO_ERROR; code = glGetError())
            std::cout << "[GL_ERROR] '" << errorText(code) << "' in ->" << filename << std::endl;
    }
    Texture* texture = new Texture(filename, id);
    texture->setSize(image.getWidth(), image.getHeight());
    texture->setBPP(image.getBpp());
    texture->setFileSize(image.getFileSize());
    texture->setType(target);
    texture->isMipmapped(mipmap);
    return texture;
}

Binary* QLNDemosys::loadBinary(std::string filename) {
    File file(filename, File::READ);
    if (!file.exists()) return nullptr;
    return new Binary(file.getUnsigned());
}

void QLNDemosys::shutDown() {
    if (music) soundShutdown();
    SDL_Quit();
}
