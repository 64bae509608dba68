#pragma once
// The colours of a Wavefront material library (.mtl): ambient (Ka), diffuse (Kd) and
// emissive (Ke) per material; everything else in the file is ignored.
#include <map>
#include <string>

namespace qlntools {

struct MaterialColors {
    float ambient[3] = {0.2f, 0.2f, 0.2f};
    float diffuse[3] = {0.8f, 0.8f, 0.8f};
    float emissive[3] = {0, 0, 0};
};

class MaterialLibrary {
public:
    // Adds the materials of one .mtl text; later definitions replace earlier ones.
    void parse(const std::string& text);
    bool has(const std::string& name) const { return materials.count(name) > 0; }
    const MaterialColors& get(const std::string& name) const { return materials.at(name); }
    size_t size() const { return materials.size(); }

private:
    std::map<std::string, MaterialColors> materials;
};

}  // namespace qlntools
