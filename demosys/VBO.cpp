#include "demosys/VBO.h"

#include <GL/glew.h>
#include <algorithm>
#include <cstdint>
#include <vector>

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
      stride(0),
      highestIndex(0) {}

VBO::~VBO() {
    if (vertexBuffer != 0) glDeleteBuffers(1, &vertexBuffer);
    if (indexBuffer != 0) glDeleteBuffers(1, &indexBuffer);
}

void VBO::setVertexBuffer(int count, int positions, int normals, int texCoords, float* data) {
    vertexCount = std::max(count, 0);
    positionComponents = positions;
    normalComponents = normals;
    texCoordComponents = texCoords;
    stride = (positions + normals + texCoords) * 4;
    GLsizeiptr bytes = static_cast<GLsizeiptr>(vertexCount) * stride;
    if (vertexBuffer == 0) glGenBuffers(1, &vertexBuffer);
    glBindBuffer(GL_ARRAY_BUFFER, vertexBuffer);
    glBufferData(GL_ARRAY_BUFFER, bytes > 0 ? bytes : 0, bytes > 0 ? data : nullptr, GL_STATIC_DRAW);
    validateBuffer(GL_ARRAY_BUFFER, vertexBuffer);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

// A triangle that names a vertex the mesh does not have would make the driver read
// past the vertex buffer: it is uploaded as an empty triangle instead. Indices given
// before the vertices are kept, and draw() checks them against the vertex count.
void VBO::setElementBuffer(int count, unsigned int* indices) {
    triangleCount = std::max(count, 0);
    std::vector<unsigned int> safe(static_cast<size_t>(triangleCount) * 3, 0);
    if (indices) std::copy(indices, indices + safe.size(), safe.begin());
    if (vertexBuffer != 0) {
        unsigned int limit = static_cast<unsigned int>(vertexCount);
        for (size_t t = 0; t < safe.size(); t += 3)
            if (safe[t] >= limit || safe[t + 1] >= limit || safe[t + 2] >= limit)
                safe[t] = safe[t + 1] = safe[t + 2] = 0;
    }
    highestIndex = safe.empty() ? 0 : *std::max_element(safe.begin(), safe.end());
    if (indexBuffer == 0) glGenBuffers(1, &indexBuffer);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, indexBuffer);
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, static_cast<GLsizeiptr>(safe.size()) * 4, safe.empty() ? nullptr : safe.data(),
                 GL_STATIC_DRAW);
    validateBuffer(GL_ELEMENT_ARRAY_BUFFER, indexBuffer);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
}

// Layouts the fixed-function arrays cannot take, and indices set before a smaller
// vertex buffer, draw nothing rather than reading outside the buffers.
bool VBO::isDrawable() const {
    if (vertexBuffer == 0 || indexBuffer == 0) return false;
    if (positionComponents < 2 || positionComponents > 4) return false;
    if (normalComponents != 0 && normalComponents != 3) return false;
    if (texCoordComponents < 0 || texCoordComponents > 4) return false;
    return vertexCount > 0 && highestIndex < static_cast<unsigned int>(vertexCount);
}

// The size is only read back, as a hook for debugging uploads.
bool VBO::validateBuffer(unsigned int target, unsigned int) {
    GLint size = 0;
    glGetBufferParameteriv(target, GL_BUFFER_SIZE, &size);
    return true;
}

void VBO::draw() {
    if (!isDrawable()) return;
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
