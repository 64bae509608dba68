#pragma once
// One mesh record of the engine's binary object file: a named, optionally coloured
// triangle mesh with interleaved vertex data (position, normal, texture coordinate).
#include <cstdint>
#include <string>
#include <vector>

namespace qlntools {

struct MeshData {
    std::string name;
    bool hasMaterial = false;
    float ambient[3] = {0, 0, 0};
    float diffuse[3] = {0, 0, 0};
    float emissive[3] = {0, 0, 0};
    float translation[3] = {0, 0, 0};
    float boundsMin[3] = {0, 0, 0};
    float boundsMax[3] = {0, 0, 0};
    int vertexSize = 3;  // floats per position
    int normalSize = 3;  // floats per normal
    int uvSize = 0;      // floats per texture coordinate
    std::vector<float> vertices;   // interleaved, floatsPerVertex() per vertex
    std::vector<int32_t> indices;  // three per triangle

    int floatsPerVertex() const { return vertexSize + normalSize + uvSize; }
    int vertexCount() const { return floatsPerVertex() > 0 ? int(vertices.size()) / floatsPerVertex() : 0; }
    int triangleCount() const { return int(indices.size()) / 3; }
};

}  // namespace qlntools
