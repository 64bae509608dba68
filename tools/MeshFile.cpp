#include "tools/MeshFile.h"

#include <cstring>

#include "tools/FileWriter.h"

namespace qlntools {

namespace {

void putInt(std::string& out, int32_t value) {
    uint32_t u = uint32_t(value);
    for (int i = 0; i < 4; ++i) out.push_back(char((u >> (8 * i)) & 0xFF));
}

void putFloat(std::string& out, float value) {
    uint32_t u;
    std::memcpy(&u, &value, 4);
    putInt(out, int32_t(u));
}

void putFloats(std::string& out, const float* values, int count) {
    for (int i = 0; i < count; ++i) putFloat(out, values[i]);
}

class Reader {
public:
    explicit Reader(const std::string& bytes) : data(bytes) {}
    size_t remaining() const { return data.size() - pos; }
    bool readInt(int32_t& value) {
        if (remaining() < 4) return false;
        uint32_t u = 0;
        for (int i = 0; i < 4; ++i) u |= uint32_t(uint8_t(data[pos + i])) << (8 * i);
        pos += 4;
        value = int32_t(u);
        return true;
    }
    bool readFloat(float& value) {
        int32_t i;
        if (!readInt(i)) return false;
        uint32_t u = uint32_t(i);
        std::memcpy(&value, &u, 4);
        return true;
    }
    bool readFloats(float* values, int count) {
        for (int i = 0; i < count; ++i)
            if (!readFloat(values[i])) return false;
        return true;
    }
    bool readByte(int8_t& value) {
        if (remaining() < 1) return false;
        value = int8_t(data[pos++]);
        return true;
    }
    bool readString(std::string& value) {
        size_t end = data.find('\0', pos);
        if (end == std::string::npos) return false;
        value = data.substr(pos, end - pos);
        pos = end + 1;
        return true;
    }

private:
    const std::string& data;
    size_t pos = 0;
};

}  // namespace

std::string MeshFile::encode(const std::vector<MeshData>& meshes) {
    std::string out;
    putInt(out, int32_t(meshes.size()));
    for (const MeshData& m : meshes) {
        out += m.name;
        out.push_back('\0');
        putInt(out, m.hasMaterial ? 1 : 0);
        if (m.hasMaterial) {
            putFloats(out, m.ambient, 3);
            putFloats(out, m.diffuse, 3);
            putFloats(out, m.emissive, 3);
        }
        putFloats(out, m.translation, 3);
        putFloats(out, m.boundsMin, 3);
        putFloats(out, m.boundsMax, 3);
        putInt(out, m.vertexCount());
        out.push_back(char(int8_t(m.vertexSize)));
        out.push_back(char(int8_t(m.normalSize)));
        out.push_back(char(int8_t(m.uvSize)));
        for (float f : m.vertices) putFloat(out, f);
        putInt(out, m.triangleCount());
        for (int32_t index : m.indices) putInt(out, index);
    }
    return out;
}

bool MeshFile::decode(const std::string& bytes, std::vector<MeshData>& meshes, std::string& error) {
    meshes.clear();
    Reader in(bytes);
    int32_t count = 0;
    if (!in.readInt(count) || count < 0) {
        error = "object file: missing or negative mesh count";
        return false;
    }
    for (int32_t k = 0; k < count; ++k) {
        MeshData m;
        const std::string where = "object file: mesh " + std::to_string(k) + ": ";
        int32_t material = 0, vertexCount = 0, triangleCount = 0;
        int8_t sizes[3] = {0, 0, 0};
        if (!in.readString(m.name) || !in.readInt(material)) {
            error = where + "truncated name or material flag";
            return false;
        }
        m.hasMaterial = material > 0;
        if (m.hasMaterial && !(in.readFloats(m.ambient, 3) && in.readFloats(m.diffuse, 3) && in.readFloats(m.emissive, 3))) {
            error = where + "truncated material";
            return false;
        }
        if (!(in.readFloats(m.translation, 3) && in.readFloats(m.boundsMin, 3) && in.readFloats(m.boundsMax, 3) &&
              in.readInt(vertexCount) && in.readByte(sizes[0]) && in.readByte(sizes[1]) && in.readByte(sizes[2]))) {
            error = where + "truncated header";
            return false;
        }
        m.vertexSize = sizes[0];
        m.normalSize = sizes[1];
        m.uvSize = sizes[2];
        if (vertexCount < 0 || m.vertexSize < 0 || m.normalSize < 0 || m.uvSize < 0) {
            error = where + "negative vertex count or component size";
            return false;
        }
        size_t floats = size_t(vertexCount) * size_t(m.floatsPerVertex());
        if (floats > in.remaining() / 4) {
            error = where + "vertex data runs past the end of the file";
            return false;
        }
        m.vertices.resize(floats);
        in.readFloats(m.vertices.data(), int(floats));
        if (!in.readInt(triangleCount) || triangleCount < 0 || size_t(triangleCount) * 3 > in.remaining() / 4) {
            error = where + "bad or truncated triangle list";
            return false;
        }
        m.indices.resize(size_t(triangleCount) * 3);
        for (int32_t& index : m.indices) in.readInt(index);
        meshes.push_back(std::move(m));
    }
    if (in.remaining() != 0) {
        error = "object file: " + std::to_string(in.remaining()) + " bytes after the last mesh";
        return false;
    }
    return true;
}

bool MeshFile::write(const std::string& path, const std::vector<MeshData>& meshes, std::string& error) {
    return FileWriter::write(path, encode(meshes), error);
}

}  // namespace qlntools
