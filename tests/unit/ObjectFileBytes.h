#pragma once
// Builds object files byte by byte for the scene tests (little-endian, no padding).
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace testsupport {

class ObjectFileBytes {
public:
    ObjectFileBytes& i32(int32_t value) {
        uint32_t word = (uint32_t)value;
        for (int i = 0; i < 4; ++i) bytes.push_back((char)(word >> (8 * i)));
        return *this;
    }
    ObjectFileBytes& f32(float value) {
        int32_t word;
        std::memcpy(&word, &value, 4);
        return i32(word);
    }
    ObjectFileBytes& i8(int value) {
        bytes.push_back((char)value);
        return *this;
    }
    ObjectFileBytes& name(const std::string& text) {
        bytes += text;
        bytes.push_back('\0');
        return *this;
    }
    ObjectFileBytes& floats(const std::vector<float>& values) {
        for (float v : values) f32(v);
        return *this;
    }
    ObjectFileBytes& ints(const std::vector<int32_t>& values) {
        for (int32_t v : values) i32(v);
        return *this;
    }

    // One whole mesh record: material (9 floats, or none when empty), translation and
    // bounding box of zeros unless given, then the vertex and triangle data.
    ObjectFileBytes& mesh(const std::string& meshName, const std::vector<float>& material, int vertexSize,
                          int normalSize, int uvSize, const std::vector<float>& vertices,
                          const std::vector<int32_t>& indices) {
        name(meshName);
        i32(material.empty() ? 0 : 1);
        floats(material);
        floats({0, 0, 0, -1, -1, -1, 1, 1, 1});
        int perVertex = vertexSize + normalSize + uvSize;
        i32(perVertex ? (int32_t)(vertices.size() / perVertex) : 0);
        i8(vertexSize).i8(normalSize).i8(uvSize);
        floats(vertices);
        i32((int32_t)(indices.size() / 3));
        return ints(indices);
    }

    std::string bytes;
};

// A square from (x0,y0) to (x1,y1) at depth z facing +z: positions, normals and UVs
// (3 + 3 + 2 floats per vertex), and its two triangles.
inline std::vector<float> squareVertices(float x0, float y0, float x1, float y1, float z) {
    return {x0, y0, z, 0, 0, 1, 0, 0, x1, y0, z, 0, 0, 1, 1, 0,
            x1, y1, z, 0, 0, 1, 1, 1, x0, y1, z, 0, 0, 1, 0, 1};
}
inline std::vector<int32_t> squareIndices() { return {0, 1, 2, 0, 2, 3}; }

}  // namespace testsupport
