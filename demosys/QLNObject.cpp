#include "demosys/QLNObject.h"

#include <GL/glew.h>

#include "demosys/QLNMaterial.h"
#include "demosys/VBO.h"

QLNObject::QLNObject() : vbo(nullptr), material(nullptr), visible(true) {}

QLNObject::~QLNObject() { delete vbo; }

void QLNObject::setVBO(VBO* buffer) {
    if (vbo != buffer) delete vbo;
    vbo = buffer;
}
VBO* QLNObject::getVBO() { return vbo; }
void QLNObject::setMaterial(QLNMaterial* value) { material = value; }
QLNMaterial* QLNObject::getMaterial() { return material; }
void QLNObject::setName(std::string value) { name = value; }
std::string QLNObject::getName() { return name; }
void QLNObject::setVisible(bool value) { visible = value; }
bool QLNObject::isVisible() { return visible; }
void QLNObject::setTranslation(Vector<float, 3> value) { translation = value; }
Vector<float, 3> QLNObject::getTranslation() { return translation; }
void QLNObject::setBBoxMin(Vector<float, 3> value) { bboxMin = value; }
void QLNObject::setBBoxMax(Vector<float, 3> value) { bboxMax = value; }

void QLNObject::draw(QLNMaterial* fallback) {
    QLNMaterial* chosen = material ? material : fallback;
    if (chosen) chosen->use();
    if (vbo) vbo->draw();
}

static void segment(float x0, float y0, float z0, float x1, float y1, float z1) {
    glVertex3f(x0, y0, z0);
    glVertex3f(x1, y1, z1);
}

void QLNObject::drawBBox() {
    const float lx = bboxMin[0], ly = bboxMin[1], lz = bboxMin[2];
    const float hx = bboxMax[0], hy = bboxMax[1], hz = bboxMax[2];
    glEnable(GL_COLOR_MATERIAL);
    glColor3f(1.0f, 0.0f, 0.0f);
    glLineWidth(3.0f);
    glBegin(GL_LINES);
    segment(lx, ly, lz, lx, ly, hz);
    segment(lx, ly, lz, lx, hy, lz);
    segment(lx, ly, lz, hx, ly, lz);
    segment(hx, hy, hz, hx, hy, lz);
    segment(hx, hy, hz, hx, ly, hz);
    segment(hx, hy, hz, lx, hy, hz);
    segment(lx, hy, lz, lx, hy, hz);
    segment(lx, hy, lz, hx, hy, lz);
    segment(hx, ly, hz, hx, ly, lz);
    segment(hx, ly, hz, lx, ly, hz);
    segment(hx, ly, lz, hx, hy, lz);
    // The ninth edge again, and (lx,ly,hz)-(lx,hy,hz) left out: the box has always looked so.
    segment(hx, ly, hz, hx, ly, lz);
    glEnd();
    glLineWidth(1.0f);
    glDisable(GL_COLOR_MATERIAL);
}

void QLNObject::drawTranslation() {
    glEnable(GL_COLOR_MATERIAL);
    glColor3f(1.0f, 0.0f, 0.0f);
    glLineWidth(3.0f);
    glBegin(GL_LINES);
    segment(0.0f, 0.0f, 0.0f, translation[0], translation[1], translation[2]);
    glEnd();
    glLineWidth(1.0f);
    glDisable(GL_COLOR_MATERIAL);
    glPopMatrix();
}
