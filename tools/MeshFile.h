#pragma once
// The engine's binary object file: an int32 mesh count, then per mesh its name
// (NUL-terminated), an int32 material flag with 9 floats (ambient, diffuse, emissive)
// when set, translation and bounding box (3 floats each), int32 vertex count, three
// int8 component counts, the interleaved vertex floats, an int32 triangle count and
// three int32 indices per triangle. Everything little-endian, no header or padding.
#include <string>
#include <vector>

#include "tools/MeshData.h"

namespace qlntools {

class MeshFile {
public:
    static std::string encode(const std::vector<MeshData>& meshes);
    // Reads a whole file back, checking every count against the bytes that remain.
    static bool decode(const std::string& bytes, std::vector<MeshData>& meshes, std::string& error);
    static bool write(const std::string& path, const std::vector<MeshData>& meshes, std::string& error);
};

}  // namespace qlntools
