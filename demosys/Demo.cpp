#include "demosys/Demo.h"

#include <GL/glew.h>
#include <iostream>

#include "demosys/ActionPool.h"
#include "demosys/Animation.h"
#include "demosys/DataEffectPool.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "demosys/QLNDemosys.h"
#include "demosys/ResourceLoader.h"
#include "demosys/ScreenMetrics.h"
#include "demosys/SyncPlayer.h"
#include "demosys/Timeline.h"

using std::cout;
using std::endl;
using std::string;

Demo::Demo(int argc, char** argv)
    : created(0), frameMarker(-1), initMarker(0), animation(nullptr), loader(nullptr),
      scriptName("demoscript.txt"), scriptPath("resources/scripts/"), windowTitle("Quillon Demosystem"),
      error(false), debugMode(false), cameraSpeed(1.0f) {
    if (argc > 1 && argv[1] && argv[1][0] != '\0') scriptName = argv[1];
    if (debugMode) cout << "Script : " << scriptPath << scriptName << endl;
    loader = new ResourceLoader(scriptPath + scriptName);
    if (!error) error = !loader->createDataPools();
    cameraSpeed = 1.0f;
    clearCameraFlags();
}

Demo::~Demo() {
    delete animation;
    delete loader;
}

void Demo::clearCameraFlags() {
    pitchUp = pitchDown = headingLeft = headingRight = moveBack = moveForward = false;
}

void Demo::addEffect(string name, Effect* prototype) {
    QLNDemosys::effectTemplatePool->addEffect(name, prototype);
}

bool Demo::isValid() { return !error; }

Demo& Demo::debug(bool on) {
    debugMode = on;
    return *this;
}

void Demo::setWindowTitle(string title) { windowTitle = title; }

void Demo::setFrameObserver(std::function<void()> observer) { frameObserver = std::move(observer); }

void Demo::setEventObserver(std::function<void(const SDL_Event&)> observer) { eventObserver = std::move(observer); }

void Demo::setFrameStartHook(std::function<void()> hook) { frameStartHook = std::move(hook); }

void Demo::setFrameFilter(std::function<bool()> filter) { frameFilter = std::move(filter); }

bool Demo::stage(bool result) {
    message = loader->getErrorMessage();
    error = !result;
    return result;
}

bool Demo::load(ScreenMetrics* screenMetrics) {
    if (error) return false;
    if (!stage(loader->parseConfig())) return error;
    if (!stage(loader->initScreen(screenMetrics, windowTitle.c_str()))) return error;
    GLenum result = glewInit();
    if (result != GLEW_OK) {
        message = string("Error initializing glew\n") + reinterpret_cast<const char*>(glewGetErrorString(result));
        error = true;
        return error;
    }
    if (!GLEW_VERSION_2_0) {
        message = "No OpenGL 2.0 support found!\nYour graphics card is probably crappy\n"
                  "or you are using drivers from the stoneage.";
        error = true;
        return error;
    }
    if (!stage(loader->loadDataFiles())) return error;
    if (!stage(loader->loadSound())) return error;
    if (!stage(loader->createEffectObjects())) return error;
    stage(loader->createTimeline());
    return error;
}

void Demo::init() {
    if (error) return;
    glClearColor(0, 0, 0, 0);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glEnable(GL_DEPTH_TEST);
    loader->initDemo();
    cameraSpeed = 1.0f;
    clearCameraFlags();
    QLNDemosys::cameraActive = false;
    delete animation;
    animation = new Animation();
    initMarker = 0;
}

void Demo::run() {
    if (error) return;
    glEnable(GL_CULL_FACE);
    glCullFace(GL_BACK);
    glEnable(GL_DEPTH_TEST);
    QLNDemosys::light.enable();
    QLNDemosys::light.update();
    QLNDemosys::startTime = QLNDemosys::getTicks();

    ParameterGroup* system = QLNDemosys::parameters ? QLNDemosys::parameters->getGroup("system") : nullptr;
    if (system && system->exist("stop"))
        QLNDemosys::stopTime.setTimeAsString(system->getParameter("stop"));
    else
        QLNDemosys::stopTime.setMinutes(30);

    while (!QLNDemosys::checkQuit()) {
        QLNDemosys::updateTime(QLNDemosys::getTicks());
        QLNDemosys::soundUpdate();
        if (QLNDemosys::getMillisecondsElapsed() > QLNDemosys::stopTime.getTicks()) QLNDemosys::setQuit(true);
        frameMarker = -1;
        const bool shown = !frameFilter || frameFilter();
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        QLNDemosys::screenMetrics->setView();
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        keyEvents();
        if (frameStartHook) frameStartHook();
        QLNDemosys::timeline->watch();
        if (QLNDemosys::sync) QLNDemosys::sync->update(QLNDemosys::getMillisecondsElapsed());
        if (QLNDemosys::cameraActive) {
            Camera& camera = QLNDemosys::camera;
            if (pitchUp) camera.changePitch(cameraSpeed);
            if (pitchDown) camera.changePitch(-cameraSpeed);
            if (headingLeft) camera.changeHeading(cameraSpeed);
            if (headingRight) camera.changeHeading(-cameraSpeed);
            if (moveForward) camera.changeVelocity(cameraSpeed / 200);
            if (moveBack) camera.changeVelocity(cameraSpeed / -200);
            camera.setGLMatrixes();
        }
        QLNDemosys::action->execute(QLNDemosys::getMillisecondsElapsed());
        if (shown) glFinish();
        if (frameObserver) frameObserver();
        if (shown) SDL_GL_SwapBuffers();
        ++QLNDemosys::frames;
    }
    cout << "Duration : " << QLNTime(QLNDemosys::getMillisecondsElapsed()).toString() << endl;
    cout << "FPS = " << QLNDemosys::getFPS() << endl;
}

void Demo::keyEvents() {
    while (SDL_PollEvent(&event)) {
        if (event.type == SDL_KEYDOWN && event.key.keysym.sym == SDLK_ESCAPE) {
            QLNDemosys::setQuit(true);
        } else if (event.type == SDL_VIDEORESIZE) {
            cout << "Screen resize (" << event.resize.w << "," << event.resize.h << ")" << endl;
            QLNDemosys::screenMetrics->resize(event.resize.w, event.resize.h);
        }
        if (eventObserver) eventObserver(event);
    }
}

bool Demo::dispose() {
    cout << "[Shutting Down]" << endl;
    if (!loader->isValid()) {
        message += "ResourceLoader:\n";
        message += "Message :\n";
        message += loader->getErrorMessage();
        message += "\n";
        cout << message;
    }
    if (error || !loader->isValid()) QLNDemosys::showMessage(message);
    loader->print();
    loader->dispose();
    cout << "QLNDemosys::shutdown()" << endl;
    QLNDemosys::shutDown();
    cout << "[Application End]" << endl;
    return true;
}
