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

void GLHelpers::drawSquare(float half) {
    glBegin(GL_QUADS);
    glTexCoord2f(0, 0);
    glVertex2f(-half, -half);
    glTexCoord2f(1, 0);
    glVertex2f(half, -half);
    glTexCoord2f(1, 1);
    glVertex2f(half, half);
    glTexCoord2f(0, 1);
    glVertex2f(-half, half);
    glEnd();
}
