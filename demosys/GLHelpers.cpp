#include "demosys/GLHelpers.h"

#include <GL/glew.h>

void GLHelpers::pushIdentityMatrices() {
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
}

void GLHelpers::popMatrices() {
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}

void GLHelpers::drawRect(float halfWidth, float halfHeight, float repeat) {
    glBegin(GL_QUADS);
    glTexCoord2f(0, 0);
    glVertex2f(-halfWidth, -halfHeight);
    glTexCoord2f(repeat, 0);
    glVertex2f(halfWidth, -halfHeight);
    glTexCoord2f(repeat, repeat);
    glVertex2f(halfWidth, halfHeight);
    glTexCoord2f(0, repeat);
    glVertex2f(-halfWidth, halfHeight);
    glEnd();
}
