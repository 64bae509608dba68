#include "demosys/VBO.h"

#include <GL/glew.h>
#include <cstdint>

namespace {

const GLvoid* offset(int bytes) { return reinterpret_cast<const GLvoid*>(static_cast<intptr_t>(bytes)); }

}  // namespace

VBO::VBO()
    : vertexBuffer(0),
      indexBuffer(0),
      vertexCount(0),
      triangleCount(0),
      positionComponents(0),
      normalComponents(0),
      texCoordComponents(0),
      stride(0) {}

VBO::~VBO() {
    if (vertexBuffer != 0) glDeleteBuffers(1, &vertexBuffer);
    if (indexBuffer != 0) glDeleteBuffers(1, &indexBuffer);
}

void VBO::setVertexBuffer(int count, int positions, int normals, int texCoords, float* data) {
    vertexCount = count;
    positionComponents = positions;
    normalComponents = normals;
    texCoordComponents = texCoords;
    stride = (positions + normals + texCoords) * 4;
    if (vertexBuffer == 0) glGenBuffers(1, &vertexBuffer);
    glBindBuffer(GL_ARRAY_BUFFER, vertexBuffer);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(count) * stride, data, GL_STATIC_DRAW);
    validateBuffer(GL_ARRAY_BUFFER, vertexBuffer);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void VBO::setElementBuffer(int count, unsigned int* indices) {
    triangleCount = count;
    if (indexBuffer == 0) glGenBuffers(1, &indexBuffer);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, indexBuffer);
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, static_cast<GLsizeiptr>(count) * 12, indices, GL_STATIC_DRAW);
    validateBuffer(GL_ELEMENT_ARRAY_BUFFER, indexBuffer);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
}

// The size is only read back, as a hook for debugging uploads.
bool VBO::validateBuffer(unsigned int target, unsigned int) {
    GLint size = 0;
    glGetBufferParameteriv(target, GL_BUFFER_SIZE, &size);
    return true;
}

void VBO::draw() {
    // Without both buffers the pointers would be client memory at address 0.
    if (vertexBuffer == 0 || indexBuffer == 0) return;
    glBindBuffer(GL_ARRAY_BUFFER, vertexBuffer);
    glVertexPointer(positionComponents, GL_FLOAT, stride, offset(0));
    glEnableClientState(GL_VERTEX_ARRAY);
    if (normalComponents > 0) {
        glEnableClientState(GL_NORMAL_ARRAY);
        glNormalPointer(GL_FLOAT, stride, offset(getNormalOffset()));
    }
    if (texCoordComponents > 0) {
        glClientActiveTexture(GL_TEXTURE0);
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        glTexCoordPointer(texCoordComponents, GL_FLOAT, stride, offset(getTexCoordOffset()));
    }
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, indexBuffer);
    glDrawElements(GL_TRIANGLES, triangleCount * 3, GL_UNSIGNED_INT, offset(0));

    if (texCoordComponents > 0) glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    if (normalComponents > 0) glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}
