// Every registered effect class through the same checks, on the bundled demo's own
// resources loaded by the real loader stages: a default draw leaves a sane picture and
// balanced GL state, and unknown methods, missing arguments and missing resources are
// survived without errors.
#include <memory>

#include "gl/BundledDemo.h"
#include "demosys/DataEffectPool.h"
#include "demosys/Effect.h"
#include "demosys/EffectDefinition.h"
#include "demosys/EffectDefinitionParser.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"
#include "demosys/ScreenMetrics.h"
#include "support/GLHarness.h"
#include "support/TestSupport.h"

namespace {

struct Contract {
    const char* className;
    const char* instance;   // its block in the bundled demoscript
    unsigned int drawAt;    // a time at which it shows something
    bool drawsOnItsOwn;     // a fresh one changes the picture without a modify call first
};

std::ostream& operator<<(std::ostream& out, const Contract& c) { return out << c.className; }

const Contract contracts[] = {
    {"StartEffect", "doors", 100, false},          {"TitleEffect", "title", 500, true},
    {"RasterEffect", "stars", 1000, true},         {"IntroLogoEffect", "intro", 3000, true},
    {"DisplayTexture", "sky", 1000, true},         {"FadeEffect", "flash", 1000, false},
    {"TunnelEffect", "tunnel", 1000, true},        {"TextwriterEffect", "greetings", 4000, true},
    {"RasterFXEffect", "landscape", 1000, true},   {"ScrollEffect", "scroller", 2000, true},
    {"CubeChaos", "wall", 1000, false},            {"BouncingCubeEffect", "spinner", 1000, true},
    {"FlipTransitionEffect", "flip", 1000, false}, {"BounceWipe", "bounce", 1000, false},
    {"ScrollWipe", "slide", 1000, false},
};

struct GLStateSnapshot {
    GLint modelviewDepth, projectionDepth, framebuffer, program;
    bool operator==(const GLStateSnapshot& o) const {
        return modelviewDepth == o.modelviewDepth && projectionDepth == o.projectionDepth &&
               framebuffer == o.framebuffer && program == o.program;
    }
};

GLStateSnapshot snapshot() {
    return {gl::integer(GL_MODELVIEW_STACK_DEPTH), gl::integer(GL_PROJECTION_STACK_DEPTH),
            gl::integer(GL_FRAMEBUFFER_BINDING_EXT), gl::integer(GL_CURRENT_PROGRAM)};
}

class EffectContract : public GLTest, public ::testing::WithParamInterface<Contract> {
protected:
    void SetUp() override {
        GLTest::SetUp();
        bundledDemo();
    }
    Effect* instance() { return bundledDemo().effect(GetParam().instance); }
    Effect* prototype() { return QLNDemosys::effectTemplatePool->getEffect(GetParam().className); }
    // A new instance of the class on the given parameters (the scripted block by default).
    std::unique_ptr<Effect> fresh(ParameterGroup* group = nullptr) {
        std::unique_ptr<Effect> effect(prototype()->getInstance());
        effect->setParameters(group ? group : QLNDemosys::effects->getGroup(GetParam().instance));
        testsupport::captureStdout([&] { effect->init(); });
        return effect;
    }
    // A fresh frame as the loop starts it: the screen's projection, a grey clear.
    static void beginFrame() {
        gl::reset();
        QLNDemosys::screenMetrics->setView();
        glClearColor(0.25f, 0.25f, 0.25f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    }
    std::vector<uint8_t> drawn(Effect* effect, unsigned int time) {
        beginFrame();
        effect->setStartTime(0);
        effect->setLastCalled(time - 16);
        effect->draw(time);
        EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR)) << GetParam();
        return gl::frame();
    }
    ParameterGroup timeOnly(unsigned int time) {
        ParameterGroup group;
        group.addParameter("p1", QLNTime(time).toString());
        return group;
    }
};

TEST_P(EffectContract, IsRegisteredAndScriptedUnderItsClassName) {
    ASSERT_NE(prototype(), nullptr);
    ASSERT_NE(instance(), nullptr);
    std::unique_ptr<Effect> copy(prototype()->getInstance());
    EXPECT_EQ(typeid(*copy), typeid(*instance()));
}

TEST_P(EffectContract, DefaultDrawShowsItselfAndLeavesStacksAndBindingsAsFound) {
    beginFrame();
    std::vector<uint8_t> empty = gl::frame();
    GLStateSnapshot before = snapshot();
    std::vector<uint8_t> picture = drawn(fresh().get(), GetParam().drawAt);
    GLStateSnapshot after = snapshot();
    EXPECT_TRUE(before == after) << "matrix stacks " << after.modelviewDepth << "/" << after.projectionDepth
                                 << ", framebuffer " << after.framebuffer << ", program " << after.program;
    if (GetParam().drawsOnItsOwn)
        EXPECT_GT(gl::differing(picture, empty), picture.size() / 200) << "the effect drew next to nothing";
    else
        EXPECT_EQ(gl::differing(picture, empty), 0u) << "nothing to show before it is told what";
}

TEST_P(EffectContract, UnknownMethodsChangeNothing) {
    unsigned int t = GetParam().drawAt;
    std::vector<uint8_t> plain = drawn(fresh().get(), t);
    std::unique_ptr<Effect> told = fresh();
    ParameterGroup group = timeOnly(t);
    told->setModifyTime(t);
    told->modify("noSuchMethod", &group);
    EXPECT_LT(gl::differing(drawn(told.get(), t), plain), plain.size() / 10000);
}

TEST_P(EffectContract, EveryDeclaredMethodSurvivesMissingArguments) {
    EffectDefinitionParser reader("resources/definitions/" + std::string(GetParam().className) + ".def");
    std::unique_ptr<EffectDefinition> definition(reader.parse());
    ASSERT_TRUE(definition) << reader.getErrorMessage();
    std::unique_ptr<Effect> effect = fresh();
    Parameters* methods = definition->getMethods();
    for (int i = 0; methods && i < methods->size(); ++i) {
        ParameterGroup none;
        ParameterGroup group = timeOnly(500);
        effect->setModifyTime(500);
        effect->modify(methods->getKey(i), &none);
        effect->modify(methods->getKey(i), &group);
        drawn(effect.get(), 1000);
    }
}

TEST_P(EffectContract, MissingResourcesDrawNothingBrokenAndNoErrors) {
    EffectDefinitionParser reader("resources/definitions/" + std::string(GetParam().className) + ".def");
    std::unique_ptr<EffectDefinition> definition(reader.parse());
    ASSERT_TRUE(definition) << reader.getErrorMessage();
    // Every entry the script could give names something that was never loaded.
    std::unique_ptr<ParameterGroup> missing(definition->getDefaults());
    missing->setGroupName(GetParam().instance);
    missing->addParameter("class", GetParam().className);
    Parameters* declared = definition->getParameters();
    for (int i = 0; declared && i < declared->size(); ++i) {
        ParameterGroup* p = declared->getValue(i);
        if (p->exist("type") && p->getParameter("type") == "string") missing->addParameter(declared->getKey(i), "nothing");
    }
    std::unique_ptr<Effect> effect = fresh(missing.get());
    GLStateSnapshot before = snapshot();
    testsupport::captureStdout([&] { drawn(effect.get(), GetParam().drawAt); });
    EXPECT_TRUE(before == snapshot());
}

INSTANTIATE_TEST_SUITE_P(AllRegistered, EffectContract, ::testing::ValuesIn(contracts),
                         [](const ::testing::TestParamInfo<Contract>& info) { return info.param.className; });


}  // namespace
