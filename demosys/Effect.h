#pragma once
// Base class of every visual effect. The demo registers one prototype per effect class;
// every scripted instance is cloned from it with getInstance().
#include <string>

class ParameterGroup;
class FrameBufferObject;

class Effect {
public:
    Effect();
    virtual ~Effect();
    // Effects are cloned through getInstance(), never copied: many own GL objects.
    Effect(const Effect&) = delete;
    Effect& operator=(const Effect&) = delete;

    virtual void draw(unsigned int time);
    virtual void init();
    virtual void reset();
    virtual void modify(std::string method, ParameterGroup* parameters);
    virtual void musicEvent();
    // The prototype's factory: a new, default-constructed object of the same class.
    virtual Effect* getInstance();

    // Inline: the running-effects set calls these for every effect every frame.
    void setParameters(ParameterGroup* value) { parameters = value; }
    void setRenderTarget(FrameBufferObject* target) { renderTarget = target; }
    FrameBufferObject* getRenderTarget() { return renderTarget; }
    void setStartTime(unsigned int time) { startTime = time; }
    void setModifyTime(unsigned int time) { modifyTime = time; }
    void setLastCalled(unsigned int time) { lastCalled = time; }

    // Step since the previous frame; 16 ms stands in for a first call or a jump.
    unsigned int getFrameTicks(unsigned int now);
    float getFrameTime(unsigned int now);
    // Time since the last modify event (unsigned, may wrap).
    unsigned int getModifyTicks(unsigned int now);
    float getModifyTime(unsigned int now);

    // True while nothing drawn reaches a pixel (frame capture runs the frames before its
    // range so): an effect may then skip geometry that only makes pixels, as long as its
    // fields and the OpenGL state it leaves behind come out as after a real draw.
    static bool pixelsDiscarded();

protected:
    ParameterGroup* parameters;  // not owned
    unsigned int startTime;
    unsigned int modifyTime;
    unsigned int lastCalled;
    FrameBufferObject* renderTarget;  // null draws to the screen; not owned
};
