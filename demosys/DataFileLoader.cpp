#include "demosys/DataFileLoader.h"

#include <GL/glew.h>
#include <iostream>
#include <vector>

#include "demosys/Animation.h"
#include "demosys/AnimationParser.h"
#include "demosys/Binary.h"
#include "demosys/DataAnimationPool.h"
#include "demosys/DataBinaryPool.h"
#include "demosys/DataFBOPool.h"
#include "demosys/DataObjectPool.h"
#include "demosys/DataShaderPool.h"
#include "demosys/DataTexturePool.h"
#include "demosys/FrameBufferObject.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/Parameters.h"
#include "demosys/ProgressBar.h"
#include "demosys/QLNDemosys.h"
#include "demosys/ResourceEntries.h"
#include "demosys/QLNScene.h"
#include "demosys/QLNSceneLoader.h"
#include "demosys/ScreenMetrics.h"
#include "demosys/Shader.h"
#include "demosys/Texture.h"
#include "qlnutils/File.h"
#include "qlnutils/QLNUtils.h"
#include "qlnutils/StringTokenizer.h"
#include "qlnutils/StringUtils.h"

using std::cout;
using std::endl;
using std::string;

const DataFileLoader::Stage DataFileLoader::stages[] = {
    {"[Loading Shaders]", "shaders", "No shaders to load", "shaders", "Shader path = ", &DataFileLoader::loadShader},
    {"[Creating FramebufferObjects]", "framebuffers", "No framebuffers to create", "", nullptr,
     &DataFileLoader::createFramebuffer},
    {"[Loading Graphics]", "graphics", "No image data", "gfx", nullptr, &DataFileLoader::loadImage},
    {"[Loading Binary Data]", "binary", "No binary data", "misc", nullptr, &DataFileLoader::loadBlob},
    {"[Loading 3D Objects]", "objects", "No objects", "object", nullptr, &DataFileLoader::loadObject},
    {"[Loading Animation Data]", "animation", "No animation data", "misc", nullptr, &DataFileLoader::loadAnimation},
};

namespace {

ParameterGroup* systemGroup(const string& name) {
    return QLNDemosys::parameters ? QLNDemosys::parameters->getGroup(name) : nullptr;
}

void tick() {
    if (QLNDemosys::pBar) QLNDemosys::pBar->tick();
}

// Compiles and links name.vert and name.frag; "" on success, else what went wrong.
string buildShader(Shader& shader, const string& dir, const string& name) {
    File vertex(dir + name + ".vert", 0);
    if (!vertex.exists()) return "Vertex shader '" + name + ".vert' not found";
    if (!shader.setVertexSource(vertex.getAsString()))
        return "Error while compiling vertex shader\nShader: " + name + ".vert\n" + shader.getErrorMessage();
    File fragment(dir + name + ".frag", 0);
    if (!fragment.exists()) return "Fragement shader '" + name + ".frag' not found";
    if (!shader.setFragmentSource(fragment.getAsString()))
        return "Error while compiling fragment shader\nShader: " + name + ".frag\n" + shader.getErrorMessage();
    if (!shader.link()) return "Error while linking shader pair\nShader: " + name + "\n" + shader.getErrorMessage();
    return "";
}

}  // namespace

bool DataFileLoader::load() {
    for (const Stage& stage : stages) {
        cout << stage.banner << endl;
        ParameterGroup* group = systemGroup(stage.block);
        if (!group) {
            cout << stage.whenMissing << endl;
            continue;
        }
        string dir = ParameterReader::text(systemGroup("paths"), stage.pathKey);
        if (stage.pathLine) cout << stage.pathLine << dir << endl;
        for (int i = 0; i < group->size(); ++i)
            if (!(this->*stage.loadEntry)(dir, group->getKey(i), group->getValue(i))) return false;
    }
    return true;
}

bool DataFileLoader::fail(const string& message) {
    errorMessage = message;
    return false;
}

bool DataFileLoader::loadShader(const string& dir, const string& alias, const string& name) {
    cout << "Loading shader " << alias << " = " << name << endl;
    Shader* shader = new Shader();
    string problem = buildShader(*shader, dir, name);
    if (!problem.empty()) {
        delete shader;
        return fail(problem);
    }
    QLNDemosys::shaderPool->addShader(alias, shader);
    cout << "Adding shader '" << alias << "' = " << shader->toString() << endl;
    shader->use();
    shader->release();
    return true;
}

bool DataFileLoader::createFramebuffer(const string&, const string& alias, const string& value) {
    ScreenMetrics* screen = QLNDemosys::screenMetrics;
    ResourceEntries::FramebufferOptions options;
    string error;
    if (!ResourceEntries::framebuffer(alias, value, screen ? screen->getWidth() : 0, screen ? screen->getHeight() : 0,
                                      options, error))
        return fail(error);
    FrameBufferObject* fbo = new FrameBufferObject(options.width, options.height, options.depth, options.stencil);
    cout << "Created '" << alias << "' with options '" << value << "' : object -> " << fbo->toString() << endl;
    fbo->bind();
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    fbo->release();
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    QLNDemosys::fboPool->addFBO(alias, fbo);
    return true;
}

bool DataFileLoader::loadImage(const string& dir, const string& alias, const string& value) {
    ResourceEntries::TextureOptions options;
    string error;
    if (!ResourceEntries::texture(alias, value, options, error)) return fail(error);
    const string& file = options.file;
    if (QLNDemosys::texturePool->isFileInPool(file)) return true;
    cout << "Load : " << file << endl;
    Texture* texture = QLNDemosys::loadTexture(dir + file, options.target, options.mipmap);
    if (!texture) return fail("Failed to load texture!\nFile : '" + dir + file + "'");
    texture->setFilename(file);
    QLNDemosys::texturePool->addTexture(alias, texture);
    tick();
    return true;
}

bool DataFileLoader::loadBlob(const string& dir, const string& alias, const string& file) {
    cout << "Loading binary : '" << file << endl;
    Binary* blob = QLNDemosys::loadBinary(dir + file);
    if (!blob) return fail("Failed to binary data!\nFile : '" + file + "'");
    QLNDemosys::binaryPool->addData(alias, blob);
    return true;
}

bool DataFileLoader::loadObject(const string& dir, const string& alias, const string& file) {
    cout << "Loading : '" << file << "'" << endl;
    QLNSceneLoader loader(dir + file);
    QLNScene* scene = loader.loadScene();
    if (!loader.isValid()) return fail(loader.getErrorMessage());
    QLNDemosys::objectPool->addObject(alias, scene);
    tick();
    return true;
}

bool DataFileLoader::loadAnimation(const string& dir, const string& alias, const string& file) {
    AnimationParser parser(dir + file);
    Animation* result = parser.parse();
    if (!parser.isValid()) return fail(parser.getErrorMessage());
    QLNDemosys::animationPool->addAnimation(alias, result);
    cout << "Loaded '" << file << "' using alias " << alias << endl;
    tick();
    return true;
}
