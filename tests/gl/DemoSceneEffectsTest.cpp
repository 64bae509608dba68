// The intro's own effects on a real window: raster bars where the wave puts them and
// stars behind them; the logo mesh lit and flown by its camera path, or nothing at all
// when the script names a mesh that is not loaded.
#include <cmath>

#include "TextEffectsGL.h"
#include "demo/IntroLogoEffect.h"
#include "demo/RasterEffect.h"
#include "demosys/Animation.h"
#include "demosys/DataAnimationPool.h"
#include "demosys/DataObjectPool.h"
#include "demosys/Keyframe.h"
#include "demosys/QLNSceneLoader.h"

using namespace texttest;

namespace {

class SceneEffectsTest : public EffectFixture {};

int litRows(int column) {
    int rows = 0;
    for (int y = 0; y < windowHeight(); ++y) {
        Rgb p = pixel(column, y);
        if (p[0] + p[1] + p[2] > 200) ++rows;
    }
    return rows;
}

TEST_F(SceneEffectsTest, RasterBarsFollowTheirWaveAndAddUpToAColumnOfLight) {
    RasterEffect prototype;
    start(prototype, {{"stars", "0"}, {"bars", "1"}, {"barheight", "0.1"}});
    frame(0, Rgb{0, 0, 0});
    // Bar 0 at t = 0 sits on the middle line, copper coloured.
    Rgb centre = pixelAt(0.0f, 0.0f);
    EXPECT_GT(centre[0], 150);
    EXPECT_GT(centre[0], centre[2]);
    EXPECT_TRUE(near(pixelAt(0.0f, 0.5f), Rgb{0, 0, 0}));
    // Half a second later it has swung up by 0.72 * sin(0.85).
    frame(500, Rgb{0, 0, 0});
    float y = 0.72f * std::sin(0.5f * 1.7f);
    EXPECT_GT(pixelAt(0.3f, y)[0], 150);
    EXPECT_TRUE(near(pixelAt(0.3f, 0.0f), Rgb{0, 0, 0}));

    call(500, "setBars", {"4"});
    frame(500, Rgb{0, 0, 0});
    EXPECT_GT(litRows(windowWidth() / 2), 4 * 5) << "four bars light up more rows than one";
}

TEST_F(SceneEffectsTest, StarsAreTheSameOnEveryRunAndDrift) {
    RasterEffect prototype;
    start(prototype, {{"stars", "400"}, {"bars", "0"}});
    frame(1000, Rgb{0, 0, 0});
    std::vector<uint8_t> first(windowWidth() * windowHeight() * 3);
    glReadPixels(0, 0, windowWidth(), windowHeight(), GL_RGB, GL_UNSIGNED_BYTE, first.data());
    int lit = 0;
    for (size_t i = 0; i < first.size(); i += 3) lit += first[i] > 60;
    EXPECT_GT(lit, 300);

    RasterEffect again;
    Effect* second = again.getInstance();
    second->setParameters(&params);
    second->init();
    resetGL();
    glClear(GL_COLOR_BUFFER_BIT);
    second->draw(1000);
    std::vector<uint8_t> repeat(first.size());
    glReadPixels(0, 0, windowWidth(), windowHeight(), GL_RGB, GL_UNSIGNED_BYTE, repeat.data());
    EXPECT_EQ(first, repeat) << "a fresh instance draws the same sky at the same time";
    resetGL();
    glClear(GL_COLOR_BUFFER_BIT);
    second->draw(3000);
    glReadPixels(0, 0, windowWidth(), windowHeight(), GL_RGB, GL_UNSIGNED_BYTE, repeat.data());
    EXPECT_NE(first, repeat) << "the stars drift";
    delete second;
}

TEST_F(SceneEffectsTest, BadScriptValuesFallBackInsteadOfBreaking) {
    RasterEffect prototype;
    start(prototype, {{"stars", "-5"}, {"bars", "many"}});
    call(0, "setBars", {});
    call(0, "setSpeed", {});
    frame(0, Rgb{0, 0, 0});
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

class IntroLogoTest : public EffectFixture {
protected:
    void SetUp() override {
        EffectFixture::SetUp();
        objects = new DataObjectPool();
        animations = new DataAnimationPool();
        data->addData("objectPool", objects);
        data->addData("animationPool", animations);
        QLNDemosys::objectPool = objects;
        QLNDemosys::animationPool = animations;
    }
    void TearDown() override {
        QLNDemosys::objectPool = nullptr;
        QLNDemosys::animationPool = nullptr;
        EffectFixture::TearDown();
    }
    void loadBundledCube() {
        QLNSceneLoader loader(testsupport::sourceDir() + "/resources/objects/cube.qlo");
        QLNScene* scene = loader.loadScene();
        ASSERT_TRUE(loader.isValid()) << loader.getErrorMessage();
        objects->addObject("cube", scene);
    }
    // A straight flight from z = 6 to z = 3 along the view axis.
    void addPath() {
        Animation* path = new Animation();
        for (int i = 0; i < 5; ++i)
            path->addKeyframe(new Keyframe(Vector<float, 3>(0.0f, 0.0f, 6.0f - 0.75f * i), 0.0f, 0.0f));
        animations->addAnimation("path", path);
    }
    int coveredPixels() {
        int covered = 0;
        for (int y = 0; y < windowHeight(); y += 4)
            for (int x = 0; x < windowWidth(); x += 4)
                if (!near(pixel(x, y), Rgb{0, 0, 0}, 2)) ++covered;
        return covered;
    }
    void perspective() {
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glFrustum(-0.6667, 0.6667, -0.5, 0.5, 1.0, 100.0);
        glMatrixMode(GL_MODELVIEW);
    }
    DataObjectPool* objects = nullptr;
    DataAnimationPool* animations = nullptr;
};

TEST_F(IntroLogoTest, AMeshThatIsNotLoadedDrawsNothing) {
    IntroLogoEffect prototype;
    start(prototype, {{"object", "nothing"}, {"path", "none"}});
    frame(100, Rgb{0, 0, 0});
    EXPECT_EQ(coveredPixels(), 0);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(IntroLogoTest, TheCameraFliesCloserAlongItsPathAndTheMeshGrows) {
    loadBundledCube();
    addPath();
    IntroLogoEffect prototype;
    start(prototype, {{"object", "cube"}, {"path", "path"}, {"spin", "0"}});
    call(0, "fly", {"00:01:000"});
    QLNDemosys::light.setPos(0.0f, 0.0f, 10.0f);

    resetGL();
    perspective();
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    effect->draw(0);
    int far = coveredPixels();
    EXPECT_GT(far, 0) << "the lit cube is on screen";
    // The spline starts at the second keyframe.
    EXPECT_NEAR(QLNDemosys::camera.getPosition()[2], 5.25f, 0.01f);

    resetGL();
    perspective();
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    effect->draw(900);
    EXPECT_LT(QLNDemosys::camera.getPosition()[2], 4.0f);
    EXPECT_GT(coveredPixels(), far) << "closer, the cube covers more of the screen";
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

}  // namespace
