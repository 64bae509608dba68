#pragma once
// One interleaved vertex buffer (position, normal, texture coordinates) and one
// triangle index buffer in GPU memory, drawn with the fixed-function client arrays.
class VBO {
public:
    VBO();
    ~VBO();
    VBO(const VBO&) = delete;
    VBO& operator=(const VBO&) = delete;

    // vertexCount * (position + normal + texCoord components) floats.
    void setVertexBuffer(int vertexCount, int positionComponents, int normalComponents, int texCoordComponents,
                         float* data);
    // triangleCount * 3 indices.
    void setElementBuffer(int triangleCount, unsigned int* indices);
    bool validateBuffer(unsigned int target, unsigned int buffer);
    void draw();
    // Both buffers set, a layout OpenGL takes, and every index inside the vertex buffer.
    bool isDrawable() const;

    unsigned int getVertexBufferName() const { return vertexBuffer; }
    unsigned int getIndexBufferName() const { return indexBuffer; }
    int getVertexCount() const { return vertexCount; }
    int getTriangleCount() const { return triangleCount; }
    int getStride() const { return stride; }
    int getNormalOffset() const { return positionComponents * 4; }
    int getTexCoordOffset() const { return (positionComponents + normalComponents) * 4; }

private:
    unsigned int vertexBuffer;
    unsigned int indexBuffer;
    int vertexCount;
    int triangleCount;
    int positionComponents;
    int normalComponents;
    int texCoordComponents;
    int stride;
    unsigned int highestIndex;  // of the uploaded indices
};
