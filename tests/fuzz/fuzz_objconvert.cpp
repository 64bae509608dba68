// Feeds arbitrary text to the OBJ converter (the same text doubles as the material
// library) and arbitrary bytes to the object file reader. Converted meshes must
// survive the object file round trip with every index inside its mesh.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tools/MeshFile.h"
#include "tools/ObjConverter.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    qlntools::ObjConverter converter([&](const std::string&, std::string& content) {
        content = text;
        return true;
    });
    std::vector<qlntools::MeshData> meshes;
    if (converter.convert(text, meshes)) {
        std::vector<qlntools::MeshData> back;
        std::string error;
        if (!qlntools::MeshFile::decode(qlntools::MeshFile::encode(meshes), back, error)) __builtin_trap();
        if (back.size() != meshes.size()) __builtin_trap();
        for (const qlntools::MeshData& m : back) {
            if (m.indices.size() % 3 != 0) __builtin_trap();
            for (int32_t index : m.indices)
                if (index < 0 || index >= m.vertexCount()) __builtin_trap();
        }
    } else if (converter.errorMessage().empty()) {
        __builtin_trap();  // every refusal says why
    }
    std::vector<qlntools::MeshData> raw;
    std::string error;
    qlntools::MeshFile::decode(text, raw, error);
    return 0;
}
