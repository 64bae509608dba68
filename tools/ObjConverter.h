#pragma once
// Converts Wavefront OBJ text into the meshes of the engine's object file.
// Reads v, vt, vn and f (v, v/t, v//n, v/t/n, negative indices counting back);
// polygons are split into triangles; "o" and "g" name the meshes (faces before any
// name go to "default", a repeated name adds to its mesh); "usemtl" picks a colour
// from the libraries named by "mtllib" (faces of one name in another material become
// the mesh "name:material"). Faces without normals get their face normal (flat shading).
// Errors name the line: "line 12: vertex index 9 out of range (8 vertices so far)".
#include <functional>
#include <string>
#include <vector>

#include "tools/MeshData.h"

namespace qlntools {

class ObjConverter {
public:
    // Loads the text of a material library by the name given after "mtllib".
    using FileLoader = std::function<bool(const std::string& name, std::string& text)>;

    explicit ObjConverter(FileLoader materialLoader = FileLoader());

    bool convert(const std::string& objText, std::vector<MeshData>& meshes);
    const std::string& errorMessage() const { return error; }
    // Things that did not stop the conversion (missing material library, unknown material).
    const std::vector<std::string>& warnings() const { return notes; }

    // Reads an OBJ file (material libraries beside it), writes the object file.
    static bool convertFile(const std::string& objPath, const std::string& outPath, std::string& error,
                            std::vector<std::string>* warnings = nullptr);

private:
    FileLoader loader;
    std::string error;
    std::vector<std::string> notes;
};

}  // namespace qlntools
