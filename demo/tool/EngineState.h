#pragma once
// Everything a loader builds into the shared system state, held aside so that a second,
// complete build can be made beside the running one and either take over or be thrown away.
// The window, the OpenGL capabilities and the music are not part of it.
#include "demosys/QLNDemosys.h"

class EngineState {
public:
    static EngineState current();
    // Makes this state the shared one (the previous one is only forgotten).
    void install() const;
    // Installs and then frees this state, leaving the shared state empty.
    void release() const;

    Parameters* parameters = nullptr;
    Parameters* effects = nullptr;
    Data* data = nullptr;
    DataEffectPool* effectTemplatePool = nullptr;
    DataEffectPool* effectPool = nullptr;
    DataEventPool* eventPool = nullptr;
    DataObjectPool* objectPool = nullptr;
    DataTexturePool* texturePool = nullptr;
    DataAnimationPool* animationPool = nullptr;
    DataBinaryPool* binaryPool = nullptr;
    DataShaderPool* shaderPool = nullptr;
    DataFBOPool* fboPool = nullptr;
    Timeline* timeline = nullptr;
    SyncPlayer* sync = nullptr;
    ActionPool* action = nullptr;
    ProgressBar* pBar = nullptr;
};
