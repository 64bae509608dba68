#include "demo/RasterFXEffect.h"

#include <GL/glew.h>
#include <SDL/SDL.h>
#include <cmath>
#include <iostream>

#include "demosys/Binary.h"
#include "demosys/DataBinaryPool.h"
#include "demosys/DataTexturePool.h"
#include "demosys/GLHelpers.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/Parameters.h"
#include "demosys/QLNDemosys.h"
#include "demosys/Texture.h"
#include "qlnutils/QLNUtils.h"

namespace {

const int kColumns = 100;
const int kRows = 75;
const int kFeedbackSize = 512;

}  // namespace

RasterFXEffect::RasterFXEffect()
    : Effect(),
      heightMap(nullptr),
      picture(nullptr),
      angle(0),
      textureU(0),
      textureV(0),
      gridX(0),
      gridY(0),
      spare(0),
      textureStep(0.01f),
      gridStep(0.04f),
      height(1.5f),
      cellIndex(0),
      rowOffset(0),
      shade(0),
      startTicks(0),
      endTicks(0),
      drawTime(0),
      feedbackTexture(0),
      screenWidth(0),
      screenHeight(0) {
    std::cout << "RasterFXEffect" << std::endl;
}

RasterFXEffect::~RasterFXEffect() {
    if (feedbackTexture != 0) glDeleteTextures(1, &feedbackTexture);
}

Effect* RasterFXEffect::getInstance() { return new RasterFXEffect(); }

void RasterFXEffect::reset() {
    angle = 0;
    textureU = textureV = 0;
    gridX = gridY = 0;
    spare = 0;
    textureStep = 0.01f;
    gridStep = 0.04f;
    height = 1.5f;
    cellIndex = 0;
    rowOffset = 0;
    shade = 0;
    startTicks = endTicks = 0;
    drawTime = 0;
}

void RasterFXEffect::init() {
    reset();
    // Every init makes a texture of its own; an earlier one stays with OpenGL.
    feedbackTexture = 0;
    picture = nullptr;
    heightMap = nullptr;
    picture = ParameterReader::texture(parameters, "texture");
    if (parameters != nullptr && parameters->exist("wavemap") && QLNDemosys::binaryPool != nullptr)
        heightMap = QLNDemosys::binaryPool->getData(parameters->getParameter("wavemap"));
    if (feedbackTexture == 0) {
        glGenTextures(1, &feedbackTexture);
        glBindTexture(GL_TEXTURE_2D, feedbackTexture);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    }
    const ParameterGroup* screen =
        QLNDemosys::parameters != nullptr ? QLNDemosys::parameters->getGroup("screen") : nullptr;
    screenWidth = ParameterReader::integer(screen, "width");
    screenHeight = ParameterReader::integer(screen, "height");
}

void RasterFXEffect::draw(unsigned int time) {
    // Without a screen size there is no view to fly through.
    if (screenWidth <= 0 || screenHeight <= 0) return;
    const float frameTime = getFrameTime(time);

    glDisable(GL_DEPTH_TEST);
    glDisable(GL_CULL_FACE);
    glEnable(GL_COLOR_MATERIAL);
    glDisable(GL_LIGHTING);
    glViewport(0, 0, screenWidth, screenHeight);
    // Only the projection changes here: the model-view matrix is left as the frame has it.
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();

    const double frustumHeight = std::tan(GLHelpers::pi / 4.0) * 0.5;
    const double frustumWidth = frustumHeight * (double(screenWidth) / double(screenHeight));

    glClearColor(1, 1, 1, 1);
    glColor3f(1, 1, 1);
    glShadeModel(GL_SMOOTH);
    glEnable(GL_TEXTURE_2D);
    startTicks = int(SDL_GetTicks());
    glClear(GL_COLOR_BUFFER_BIT);

    drawPicture(frameTime);

    glBindTexture(GL_TEXTURE_2D, feedbackTexture);
    // The copy is read in this frame only; with nothing rasterised (frame capture before
    // its range) there is nothing to copy, and the next drawn frame copies afresh.
    if (!pixelsDiscarded()) glCopyTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 0, 0, kFeedbackSize, kFeedbackSize, 0);
    glClear(GL_COLOR_BUFFER_BIT);
    glViewport(0, 0, screenWidth, screenHeight);
    glLoadIdentity();
    glFrustum(-frustumWidth, frustumWidth, -frustumHeight, frustumHeight, 1.0, 80.0);

    glBindTexture(GL_TEXTURE_2D, feedbackTexture);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    glDisable(GL_BLEND);
    glDisable(GL_ALPHA_TEST);
    buildGrid();
    drawCorners();
    rowOffset += frameTime * 0.025f;
    if (rowOffset > 99.0f) rowOffset = 0;

    endTicks = int(SDL_GetTicks());
    drawTime = float(endTicks - startTicks);
}

// The picture tiled 2 x 2 into the feedback area, then once more turned by the angle
// and blended over itself. Without a picture the area stays as cleared.
void RasterFXEffect::drawPicture(float frameTime) {
    glBindTexture(GL_TEXTURE_2D, picture != nullptr ? picture->getID() : 0);
    glLoadIdentity();
    glViewport(0, 0, kFeedbackSize, kFeedbackSize);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_BLEND);
    glAlphaFunc(GL_GREATER, 0);
    glEnable(GL_ALPHA_TEST);
    if (picture != nullptr) drawPictureQuad();
    glLoadIdentity();
    glRotatef(angle, 0, 0, 1);
    angle += frameTime * 0.024f;
    if (picture != nullptr) drawPictureQuad();
}

void RasterFXEffect::drawPictureQuad() {
    GLHelpers::drawRect(1.5f, 1.5f, 2.0f);
}

// 75 rows of 100 quads from the bottom left; each corner takes its height and grey from
// one byte of the map, read as rows of 100 bytes from the current row offset. Bytes past
// the end of a short map read as 0; without a map no grid is drawn. With nothing rasterised
// (frame capture before its range) only the very last corner is built: it is all the grid
// leaves behind.
void RasterFXEffect::buildGrid() {
    corners.clear();
    if (heightMap == nullptr) return;
    const bool wholeGrid = !pixelsDiscarded();
    if (wholeGrid) corners.reserve(size_t(kRows) * kColumns * 4);
    gridY = -1.5f;
    textureV = 0;
    for (int row = 0; row < kRows; ++row) {
        gridX = -2.0f;
        textureU = 0;
        for (int column = 0; column < kColumns; ++column) {
            cellIndex = (int(rowOffset) + row) * kColumns + column;
            const float step = textureStep;
            if (wholeGrid) {
                addCorner(cellIndex, textureU, textureV, gridX, gridY);
                addCorner(cellIndex + 1, textureU + step, textureV, gridX + gridStep, gridY);
                addCorner(cellIndex + kColumns + 1, textureU + step, textureV + step, gridX + gridStep,
                          gridY + gridStep);
            }
            if (wholeGrid || (row == kRows - 1 && column == kColumns - 1))
                addCorner(cellIndex + kColumns, textureU, textureV + step, gridX, gridY + gridStep);
            textureU += textureStep;
            gridX += gridStep;
        }
        textureV += textureStep;
        gridY += gridStep;
    }
}

void RasterFXEffect::addCorner(int index, float texU, float texV, float cornerX, float cornerY) {
    const float h = float(heightMap->getData(index));
    shade = h / 256.0f;
    height = h / 128.0f - 3.0f;
    corners.push_back({texU, texV, shade, shade, shade, cornerX, cornerY, height});
}

// One draw for the whole grid, left out when nothing is rasterised: unlike corners sent one
// by one, an array draw leaves nothing behind in the driver that later frames could see.
void RasterFXEffect::drawCorners() {
    if (corners.empty()) return;
    if (!pixelsDiscarded()) {
        glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
        glInterleavedArrays(GL_T2F_C3F_V3F, 0, corners.data());
        glDrawArrays(GL_QUADS, 0, GLsizei(corners.size()));
        glPopClientAttrib();
    }
    // The last corner's grey and texture corner stay current, as after drawing corner by
    // corner: effects drawn later without their own colour are tinted by it.
    const Corner& last = corners.back();
    glColor3f(last.r, last.g, last.b);
    glTexCoord2f(last.s, last.t);
}
