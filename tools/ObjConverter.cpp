#include "tools/ObjConverter.h"

#include <cmath>
#include <cstring>
#include <filesystem>
#include <map>
#include <tuple>

#include "tools/FileWriter.h"
#include "tools/MaterialLibrary.h"
#include "tools/MeshFile.h"
#include "tools/TextNumbers.h"
#include "tools/Triangulator.h"

namespace qlntools {

namespace {

struct Corner {
    int position = -1, uv = -1, normal = -1;  // 0-based; -1 = not given
};

struct Group {
    std::string name, material;
    std::vector<std::vector<Corner>> polygons;
};

std::vector<std::string_view> words(std::string_view line) {
    std::vector<std::string_view> out;
    size_t i = 0;
    while (i < line.size()) {
        while (i < line.size() && (line[i] == ' ' || line[i] == '\t' || line[i] == '\v' || line[i] == '\f')) ++i;
        size_t start = i;
        while (i < line.size() && !(line[i] == ' ' || line[i] == '\t' || line[i] == '\v' || line[i] == '\f')) ++i;
        if (i > start) out.push_back(line.substr(start, i - start));
    }
    return out;
}

std::string restOf(std::string_view line, std::string_view keyword) {
    size_t at = line.find(keyword);
    std::string_view rest = at == std::string_view::npos ? std::string_view() : line.substr(at + keyword.size());
    size_t b = rest.find_first_not_of(" \t");
    if (b == std::string_view::npos) return "";
    size_t e = rest.find_last_not_of(" \t");
    return std::string(rest.substr(b, e - b + 1));
}

// Resolves a 1-based (or negative, counting back) OBJ index against the count so far.
bool resolveIndex(std::string_view word, size_t count, int& index) {
    long long value = 0;
    if (!TextNumbers::parseInteger(word, value) || value == 0) return false;
    long long resolved = value > 0 ? value - 1 : (long long)count + value;
    if (resolved < 0 || resolved >= (long long)count) return false;
    index = int(resolved);
    return true;
}

struct Builder {
    const std::vector<std::array<double, 3>>& positions;
    const std::vector<std::array<double, 2>>& uvs;
    const std::vector<std::array<double, 3>>& normals;

    MeshData build(const Group& group) const {
        MeshData mesh;
        mesh.name = group.name;
        bool anyUv = false;
        for (const auto& polygon : group.polygons)
            for (const Corner& c : polygon) anyUv = anyUv || c.uv >= 0;
        mesh.uvSize = anyUv ? 2 : 0;
        // A vertex is shared where position, texture coordinate and normal all agree.
        std::map<std::tuple<int, int, int, uint32_t, uint32_t, uint32_t>, int32_t> shared;
        for (const auto& polygon : group.polygons) {
            std::vector<Triangulator::Point> points;
            for (const Corner& c : polygon) points.push_back(positions[size_t(c.position)]);
            Triangulator::Point n = Triangulator::normal(points);
            double length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
            float face[3] = {0, 0, 1};
            if (length > 0 && std::isfinite(length))
                for (int i = 0; i < 3; ++i) face[i] = float(n[i] / length);
            std::vector<int32_t> ids;
            for (const Corner& c : polygon) {
                float normal[3];
                for (int i = 0; i < 3; ++i) normal[i] = c.normal >= 0 ? float(normals[size_t(c.normal)][i]) : face[i];
                uint32_t bits[3] = {0, 0, 0};
                if (c.normal < 0) std::memcpy(bits, normal, sizeof bits);
                auto key = std::make_tuple(c.position, c.uv, c.normal, bits[0], bits[1], bits[2]);
                auto found = shared.find(key);
                if (found != shared.end()) {
                    ids.push_back(found->second);
                    continue;
                }
                int32_t id = mesh.vertexCount();
                shared.emplace(key, id);
                ids.push_back(id);
                for (double p : positions[size_t(c.position)]) mesh.vertices.push_back(float(p));
                for (float f : normal) mesh.vertices.push_back(f);
                if (anyUv) {
                    mesh.vertices.push_back(c.uv >= 0 ? float(uvs[size_t(c.uv)][0]) : 0.0f);
                    mesh.vertices.push_back(c.uv >= 0 ? float(uvs[size_t(c.uv)][1]) : 0.0f);
                }
            }
            for (const auto& t : Triangulator::triangulate(points))
                for (int k : t) mesh.indices.push_back(ids[size_t(k)]);
        }
        for (int i = 0; i < 3; ++i) {
            mesh.boundsMin[i] = mesh.boundsMax[i] = mesh.vertices.empty() ? 0.0f : mesh.vertices[size_t(i)];
        }
        const int stride = mesh.floatsPerVertex();
        for (size_t v = 0; v < mesh.vertices.size(); v += size_t(stride))
            for (int i = 0; i < 3; ++i) {
                mesh.boundsMin[i] = std::min(mesh.boundsMin[i], mesh.vertices[v + size_t(i)]);
                mesh.boundsMax[i] = std::max(mesh.boundsMax[i], mesh.vertices[v + size_t(i)]);
            }
        return mesh;
    }
};

}  // namespace

ObjConverter::ObjConverter(FileLoader materialLoader) : loader(std::move(materialLoader)) {}

bool ObjConverter::convert(const std::string& text, std::vector<MeshData>& meshes) {
    meshes.clear();
    error.clear();
    notes.clear();
    std::vector<std::array<double, 3>> positions, normals;
    std::vector<std::array<double, 2>> uvs;
    std::vector<Group> groups;
    std::map<std::pair<std::string, std::string>, size_t> groupIndex;
    std::map<std::string, bool> nameUsed;
    MaterialLibrary library;
    std::string currentName = "default", currentMaterial;
    size_t lineNumber = 0, lineStart = 0;

    auto fail = [&](size_t line, const std::string& message) {
        error = "line " + std::to_string(line) + ": " + message;
        return false;
    };

    while (lineStart < text.size()) {
        // One logical line; a backslash at the end of a physical line continues it.
        std::string line;
        size_t firstLine = lineNumber + 1;
        while (lineStart < text.size()) {
            size_t end = text.find('\n', lineStart);
            if (end == std::string::npos) end = text.size();
            std::string_view part(text.data() + lineStart, end - lineStart);
            lineStart = end + 1;
            ++lineNumber;
            if (!part.empty() && part.back() == '\r') part.remove_suffix(1);
            if (!part.empty() && part.back() == '\\') {
                line.append(part.substr(0, part.size() - 1)).push_back(' ');
                continue;
            }
            line.append(part);
            break;
        }
        // Names end at a NUL in the object file, so a NUL in the text would shift everything after it.
        if (line.find('\0') != std::string::npos) return fail(firstLine, "NUL byte in the text");
        size_t hash = line.find('#');
        if (hash != std::string::npos) line.erase(hash);
        std::vector<std::string_view> w = words(line);
        if (w.empty()) continue;
        const std::string_view keyword = w[0];

        auto numbers = [&](size_t needed, size_t most, double* out) -> bool {
            if (w.size() - 1 < needed) {
                fail(firstLine, "'" + std::string(keyword) + "' needs " + std::to_string(needed) + " numbers");
                return false;
            }
            for (size_t i = 1; i < w.size() && i <= most; ++i)
                if (!TextNumbers::parseDouble(w[i], out[i - 1])) {
                    fail(firstLine, "'" + std::string(w[i]) + "' is not a number");
                    return false;
                }
            return true;
        };

        if (keyword == "v") {
            double p[3];
            if (!numbers(3, 3, p)) return false;
            positions.push_back({p[0], p[1], p[2]});
        } else if (keyword == "vt") {
            double t[2] = {0, 0};
            if (!numbers(1, 2, t)) return false;
            uvs.push_back({t[0], t[1]});
        } else if (keyword == "vn") {
            double n[3];
            if (!numbers(3, 3, n)) return false;
            normals.push_back({n[0], n[1], n[2]});
        } else if (keyword == "f") {
            if (w.size() < 4) return fail(firstLine, "a face needs at least 3 vertices");
            std::vector<Corner> polygon;
            for (size_t i = 1; i < w.size(); ++i) {
                std::string_view ref = w[i];
                std::string_view parts[3];
                size_t count = 0, start = 0;
                while (true) {
                    size_t slash = ref.find('/', start);
                    if (count == 3) return fail(firstLine, "bad face vertex '" + std::string(ref) + "'");
                    parts[count++] = ref.substr(start, slash == std::string_view::npos ? ref.npos : slash - start);
                    if (slash == std::string_view::npos) break;
                    start = slash + 1;
                }
                Corner c;
                if (!resolveIndex(parts[0], positions.size(), c.position))
                    return fail(firstLine, "vertex index '" + std::string(parts[0]) + "' out of range (" +
                                               std::to_string(positions.size()) + " vertices so far)");
                if (count > 1 && !parts[1].empty() && !resolveIndex(parts[1], uvs.size(), c.uv))
                    return fail(firstLine, "texture coordinate index '" + std::string(parts[1]) + "' out of range (" +
                                               std::to_string(uvs.size()) + " so far)");
                if (count > 2 && !resolveIndex(parts[2], normals.size(), c.normal))
                    return fail(firstLine, "normal index '" + std::string(parts[2]) + "' out of range (" +
                                               std::to_string(normals.size()) + " so far)");
                polygon.push_back(c);
            }
            auto key = std::make_pair(currentName, currentMaterial);
            auto found = groupIndex.find(key);
            if (found == groupIndex.end()) {
                Group g;
                g.name = nameUsed[currentName] ? currentName + ":" + currentMaterial : currentName;
                g.material = currentMaterial;
                nameUsed[currentName] = true;
                found = groupIndex.emplace(key, groups.size()).first;
                groups.push_back(std::move(g));
            }
            groups[found->second].polygons.push_back(std::move(polygon));
        } else if (keyword == "o" || keyword == "g") {
            currentName = restOf(line, keyword);
            if (currentName.empty()) currentName = "default";
        } else if (keyword == "usemtl") {
            currentMaterial = restOf(line, keyword);
        } else if (keyword == "mtllib") {
            for (size_t i = 1; i < w.size(); ++i) {
                std::string name(w[i]), content;
                if (loader && loader(name, content)) library.parse(content);
                else notes.push_back("line " + std::to_string(firstLine) + ": material library '" + name + "' not found");
            }
        }
        // Other statements (s, l, p, curves) do not describe triangles and are skipped.
    }
    if (groups.empty()) {
        error = "no faces found";
        return false;
    }
    Builder builder{positions, uvs, normals};
    for (const Group& g : groups) {
        MeshData mesh = builder.build(g);
        if (!g.material.empty()) {
            if (library.has(g.material)) {
                const MaterialColors& m = library.get(g.material);
                mesh.hasMaterial = true;
                for (int i = 0; i < 3; ++i) {
                    mesh.ambient[i] = m.ambient[i];
                    mesh.diffuse[i] = m.diffuse[i];
                    mesh.emissive[i] = m.emissive[i];
                }
            } else {
                notes.push_back("material '" + g.material + "' is not defined; mesh '" + g.name + "' has none");
            }
        }
        meshes.push_back(std::move(mesh));
    }
    return true;
}

bool ObjConverter::convertFile(const std::string& objPath, const std::string& outPath, std::string& error,
                               std::vector<std::string>* warnings) {
    std::string text;
    if (!FileWriter::read(objPath, text, error)) return false;
    const std::filesystem::path folder = std::filesystem::path(objPath).parent_path();
    ObjConverter converter([&](const std::string& name, std::string& content) {
        std::string ignored;
        return FileWriter::read((folder / name).string(), content, ignored);
    });
    std::vector<MeshData> meshes;
    if (!converter.convert(text, meshes)) {
        error = objPath + ": " + converter.errorMessage();
        return false;
    }
    if (warnings) *warnings = converter.warnings();
    return MeshFile::write(outPath, meshes, error);
}

}  // namespace qlntools
