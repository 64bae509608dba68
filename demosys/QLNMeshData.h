#pragma once
// One mesh record of an object file as read, before any GL buffer exists.
#include <string>
#include <vector>

class QLNMeshData {
public:
    QLNMeshData();

    // Whether GL can draw the vertex layout: 2 to 4 position floats, 0 or 3 normal
    // floats, 0 to 4 texture floats.
    bool hasDrawableLayout() const;
    int floatsPerVertex() const;
    // Vertices and triangles that are both in the file and safe to hand to GL.
    int usableVertexCount() const;
    int usableTriangleCount() const;

    std::string name;
    bool hasMaterial;
    float material[9];  // ambient, diffuse, emissive triples as stored
    float translation[3];
    float bboxMin[3];
    float bboxMax[3];
    int vertexCount;  // as stated by the file
    int vertexSize;
    int normalSize;
    int uvSize;
    int polygonCount;  // as stated by the file
    std::vector<float> vertices;        // whole vertices only
    std::vector<unsigned int> indices;  // whole triangles whose indices name a vertex read
};
