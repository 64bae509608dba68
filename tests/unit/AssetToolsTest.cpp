// The asset tools through their real outputs: every generated resource is made again
// into a temporary folder and compared byte for byte with the committed file, and the OBJ
// converter runs on real OBJ text, its object files read back.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "support/TestSupport.h"
#include "tools/AssetCatalog.h"
#include "tools/MeshFile.h"
#include "tools/ObjConverter.h"

using namespace qlntools;
using testsupport::readFile;
using testsupport::sourceDir;
using testsupport::TempDir;

namespace {

std::string resources() {
    return sourceDir() + "/resources";
}

std::vector<MeshData> convert(const std::string& obj, std::string* error = nullptr) {
    ObjConverter converter;
    std::vector<MeshData> meshes;
    bool ok = converter.convert(obj, meshes);
    if (error) *error = converter.errorMessage();
    if (!ok) return {};
    // Every result goes through the file format and back.
    std::vector<MeshData> read;
    std::string decodeError;
    EXPECT_TRUE(MeshFile::decode(MeshFile::encode(meshes), read, decodeError)) << decodeError;
    return read;
}

std::array<float, 3> position(const MeshData& m, int vertex) {
    const float* v = &m.vertices[size_t(vertex) * m.floatsPerVertex()];
    return {v[0], v[1], v[2]};
}

// Twice the signed area of a triangle in the xy plane.
double area2(const MeshData& m, int t) {
    auto a = position(m, m.indices[size_t(t) * 3]), b = position(m, m.indices[size_t(t) * 3 + 1]),
         c = position(m, m.indices[size_t(t) * 3 + 2]);
    return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
}

}  // namespace

TEST(AssetTools, EveryGeneratedResourceIsReproducedByteForByte) {
    TempDir dir;
    for (const AssetCatalog::Asset& asset : AssetCatalog::assets()) {
        SCOPED_TRACE(asset.path);
        std::string error;
        const std::string out = dir.file(asset.path);
        ASSERT_TRUE(asset.make(resources(), out, error)) << error;
        const std::string committed = readFile(resources() + "/" + asset.path);
        ASSERT_FALSE(committed.empty()) << "not committed; run tools/make-assets.sh";
        EXPECT_TRUE(readFile(out) == committed) << "differs from the tools' output; run tools/make-assets.sh";
    }
}

TEST(ObjConverter, PolygonsBecomeTrianglesThatCoverThemExactly) {
    // A square, an L-shaped hexagon (concave) and a pentagon, all counter-clockwise in the xy plane.
    auto meshes = convert(
        "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\n"
        "v 3 0 0\nv 5 0 0\nv 5 1 0\nv 4 1 0\nv 4 3 0\nv 3 3 0\n"
        "v 6 0 0\nv 7 0 0\nv 7.5 1 0\nv 6.5 2 0\nv 5.5 1 0\n"
        "o square\nf 1 2 3 4\no ell\nf 5 6 7 8 9 10\no pentagon\nf 11 12 13 14 15\n");
    ASSERT_EQ(meshes.size(), 3u);
    const double expectedArea[3] = {1.0, 4.0, 2.5};
    for (size_t k = 0; k < 3; ++k) {
        SCOPED_TRACE(meshes[k].name);
        const MeshData& m = meshes[k];
        EXPECT_EQ(m.triangleCount(), m.vertexCount() - 2);
        double sum = 0;
        for (int t = 0; t < m.triangleCount(); ++t) {
            double a = area2(m, t);
            EXPECT_GT(a, 0) << "triangle " << t << " is flipped or flat";
            sum += a / 2;
        }
        EXPECT_NEAR(sum, expectedArea[k], 1e-6) << "triangles overlap or leave a gap";
    }
    // In the L the reflex corner (4, 1) must not see a fan: no triangle may contain (4.5, 2).
    const MeshData& ell = meshes[1];
    for (int t = 0; t < ell.triangleCount(); ++t) {
        auto a = position(ell, ell.indices[size_t(t) * 3]), b = position(ell, ell.indices[size_t(t) * 3 + 1]),
             c = position(ell, ell.indices[size_t(t) * 3 + 2]);
        auto side = [](std::array<float, 3> p, std::array<float, 3> q, double x, double y) {
            return (q[0] - p[0]) * (y - p[1]) - (q[1] - p[1]) * (x - p[0]);
        };
        bool inside = side(a, b, 4.5, 2) > 0 && side(b, c, 4.5, 2) > 0 && side(c, a, 4.5, 2) > 0;
        EXPECT_FALSE(inside) << "triangle " << t << " covers a point outside the L";
    }
}

TEST(ObjConverter, MalformedModelsGiveAnErrorNamingTheLine) {
    using namespace std::string_literals;
    struct Case {
        std::string obj;
        const char* message;
    };
    const Case cases[] = {
        {"v 0 0 0\nv 1 0 0\nf 1 2\n", "line 3: a face needs at least 3 vertices"},
        {"v 0 0 0\nv 1 0 0\nv 1 1 0\n# comment\nf 1 2 4\n", "line 5: vertex index '4' out of range (3 vertices so far)"},
        {"v 0 0 0\nv 1 0 0\nv 1 1 0\nf 1 2 -4\n", "line 4: vertex index '-4' out of range"},
        {"v 0 0 0\nv 1 0 0\nv 1 1 0\nf 0 1 2\n", "line 4: vertex index '0' out of range"},
        {"v 0 0 zero\n", "line 1: 'zero' is not a number"},
        {"v 0 0 nan\n", "line 1: 'nan' is not a number"},
        {"v 1 2\n", "line 1: 'v' needs 3 numbers"},
        {"v 0 0 0\nv 1 0 0\nv 1 1 0\nf 1/1 2/1 3/1\n", "line 4: texture coordinate index '1' out of range (0 so far)"},
        {"v 0 0 0\nv 1 0 0\nv 1 1 0\nf 1//2 2//2 3//2\n", "line 4: normal index '2' out of range (0 so far)"},
        {"v 0 0 0\nv 1 0 0\nv 1 1 0\nf 1/1/1/1 2 3\n", "line 4: bad face vertex '1/1/1/1'"},
        {"v 0 0 0 \\\n\nv 1 0 0\nf 1 2 x\n", "line 4: vertex index 'x' out of range"},
        {"v 0 0 0\nv 1 0 0\nv 1 1 0\no na\0me\nf 1 2 3\n"s, "line 4: NUL byte in the text"},
        {"v 0 0 0\nv 1 0 0\nv 1 1 0\n", "no faces found"},
        {"", "no faces found"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.obj);
        std::string error;
        EXPECT_TRUE(convert(c.obj, &error).empty());
        EXPECT_EQ(error.rfind(c.message, 0), 0u) << "got: " << error;
    }
    // The program reports the file as well.
    TempDir dir;
    std::string error;
    EXPECT_FALSE(ObjConverter::convertFile(dir.write("bad.obj", "f 1 2 3\n"), dir.file("bad.qlo"), error));
    EXPECT_NE(error.find("bad.obj: line 1: vertex index '1' out of range"), std::string::npos) << error;
    EXPECT_FALSE(std::filesystem::exists(dir.file("bad.qlo")));
}
