// The asset tools through their real outputs: every generated resource is made again
// into a temporary folder and compared byte for byte with the committed file; the OBJ
// converter runs on real OBJ text and its object files are read back; pictures are
// decoded with libpng, the music is loaded by libopenmpt.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <libopenmpt/libopenmpt.hpp>
#include <memory>
#include <png.h>
#include <set>
#include <sstream>

#include "demosys/Animation.h"
#include "demosys/AnimationParser.h"
#include "demosys/Keyframe.h"
#include "qlnutils/File.h"
#include "qlnutils/Image.h"
#include "support/TestSupport.h"
#include "tools/AssetCatalog.h"
#include "tools/BitmapFont.h"
#include "tools/FontImageMaker.h"
#include "tools/HeightMapMaker.h"
#include "tools/MeshFile.h"
#include "tools/MusicComposer.h"
#include "tools/ObjConverter.h"

using namespace qlntools;
using testsupport::readFile;
using testsupport::sourceDir;
using testsupport::TempDir;

namespace {

std::string resources() {
    return sourceDir() + "/resources";
}

struct Rgba {
    int width = 0, height = 0;
    std::vector<uint8_t> pixels;  // RGBA, top row first
    const uint8_t* at(int x, int y) const { return &pixels[(size_t(y) * width + x) * 4]; }
};

// Decodes any PNG to RGBA; the colour type of the file is returned too.
bool decodePng(const std::string& path, Rgba& out, int* colorType = nullptr) {
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str())) return false;
    if (colorType) *colorType = (image.format & PNG_FORMAT_FLAG_ALPHA) ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB;
    image.format = PNG_FORMAT_RGBA;
    out.width = int(image.width);
    out.height = int(image.height);
    out.pixels.resize(PNG_IMAGE_SIZE(image));
    bool ok = png_image_finish_read(&image, nullptr, out.pixels.data(), 0, nullptr) != 0;
    png_image_free(&image);
    return ok;
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

std::array<float, 3> normal(const MeshData& m, int vertex) {
    const float* v = &m.vertices[size_t(vertex) * m.floatsPerVertex() + m.vertexSize];
    return {v[0], v[1], v[2]};
}

// Twice the signed area of a triangle in the xy plane.
double area2(const MeshData& m, int t) {
    auto a = position(m, m.indices[size_t(t) * 3]), b = position(m, m.indices[size_t(t) * 3 + 1]),
         c = position(m, m.indices[size_t(t) * 3 + 2]);
    return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
}

uint32_t le32(const std::string& bytes, size_t at) {
    uint32_t v = 0;
    for (int i = 0; i < 4; ++i) v |= uint32_t(uint8_t(bytes[at + size_t(i)])) << (8 * i);
    return v;
}

float leFloat(const std::string& bytes, size_t at) {
    uint32_t u = le32(bytes, at);
    float f;
    std::memcpy(&f, &u, 4);
    return f;
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

TEST(AssetTools, EveryFileOfTheGeneratedFoldersComesFromTheToolsAndTheTreeStaysSmall) {
    std::set<std::string> known;
    for (const AssetCatalog::Asset& asset : AssetCatalog::assets()) known.insert(asset.path);
    known.insert("models/cube.obj");  // written by hand, converted by the tools
    uintmax_t total = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(resources())) {
        if (!entry.is_regular_file()) continue;
        total += entry.file_size();
        std::string relative = std::filesystem::relative(entry.path(), resources()).generic_string();
        std::string folder = relative.substr(0, relative.find('/'));
        if (folder == "gfx" || folder == "misc" || folder == "objects" || folder == "music" || folder == "models") {
            EXPECT_TRUE(known.count(relative)) << relative << " is not made by the asset tools";
        }
    }
    EXPECT_LT(total, 2u * 1024 * 1024);
}

TEST(AssetTools, TexturesDecodeWithTheirSizesAndTransparency) {
    struct Expected {
        const char* file;
        int width, height;
        bool alpha;
    };
    const Expected expected[] = {
        {"font.png", 544, 128, true},         {"logo.png", 512, 128, true},
        {"title1.png", 512, 384, false},      {"title2.png", 512, 384, false},
        {"title3.png", 512, 384, false},      {"tunnel_outer.png", 256, 256, false},
        {"tunnel_inner.png", 256, 256, true}, {"plasma.png", 256, 256, false},
        {"cubes.png", 256, 256, false},       {"background.png", 512, 384, false},
    };
    for (const Expected& e : expected) {
        SCOPED_TRACE(e.file);
        Rgba image;
        int type = 0;
        ASSERT_TRUE(decodePng(resources() + "/gfx/" + e.file, image, &type));
        EXPECT_EQ(image.width, e.width);
        EXPECT_EQ(image.height, e.height);
        EXPECT_EQ(type, e.alpha ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB);
        // The engine's own reader takes 8-bit RGB and RGBA only.
        Image engine(resources() + "/gfx/" + e.file);
        ASSERT_TRUE(engine.exists());
        EXPECT_EQ(engine.getWidth(), e.width);
        EXPECT_EQ(engine.getHeight(), e.height);
        EXPECT_EQ(engine.getBpp(), e.alpha ? 32 : 24);
        ASSERT_NE(engine.getData(), nullptr);
    }
    Rgba logo;
    ASSERT_TRUE(decodePng(resources() + "/gfx/logo.png", logo));
    EXPECT_EQ(logo.at(0, 0)[3], 0) << "the logo's corners are transparent";
    EXPECT_EQ(logo.at(511, 127)[3], 0);
    int opaque = 0;
    for (int x = 0; x < logo.width; ++x) opaque += logo.at(x, 40)[3] == 255;
    EXPECT_GT(opaque, 150) << "the big letters cross the logo's upper half";
}

TEST(AssetTools, TilingTexturesHaveNoSeamAtTheirEdges) {
    // Across the wrap the step between neighbouring pixels is no larger than inside the picture.
    for (const char* file : {"tunnel_outer.png", "tunnel_inner.png", "plasma.png"}) {
        SCOPED_TRACE(file);
        Rgba image;
        ASSERT_TRUE(decodePng(resources() + "/gfx/" + file, image));
        auto step = [&](int x0, int y0, int x1, int y1) {
            int d = 0;
            for (int c = 0; c < 4; ++c) d = std::max(d, std::abs(image.at(x0, y0)[c] - image.at(x1, y1)[c]));
            return d;
        };
        int inside = 0, across = 0;
        const int w = image.width, h = image.height;
        for (int i = 0; i < h; ++i) {
            for (int x = 0; x + 1 < w; ++x) inside = std::max(inside, step(x, i, x + 1, i));
            across = std::max(across, step(w - 1, i, 0, i));
        }
        for (int i = 0; i < w; ++i) {
            for (int y = 0; y + 1 < h; ++y) inside = std::max(inside, step(i, y, i, y + 1));
            across = std::max(across, step(i, h - 1, i, 0));
        }
        EXPECT_LE(across, inside);
    }
}

TEST(AssetTools, FontCellsFollowTheTextWritersGlyphTable) {
    // The writer's table: a-z -> 0-25; blank 28; 0 -> 42; 1 -> 8 (shares i); 2-9 -> 34-41;
    // "." and "-" -> 43; "!" -> 44; "+" -> 52; "'" -> 53; "*" and "@" -> 54.
    std::vector<std::pair<char, int>> table;
    for (char c = 'a'; c <= 'z'; ++c) table.push_back({c, c - 'a'});
    for (char c = '2'; c <= '9'; ++c) table.push_back({c, c - '0' + 32});
    table.insert(table.end(), {{'0', 42}, {'.', 43}, {'!', 44}, {'+', 52}, {'\'', 53}, {'*', 54}});
    Rgba font;
    ASSERT_TRUE(decodePng(resources() + "/gfx/font.png", font));
    ASSERT_EQ(font.width, FontImageMaker::columns * FontImageMaker::cellSize);
    ASSERT_EQ(font.height, FontImageMaker::rows * FontImageMaker::cellSize);
    for (auto [c, cell] : table) {
        SCOPED_TRACE(std::string("glyph '") + c + "'");
        EXPECT_EQ(std::tolower(FontImageMaker::cellCharacter(cell)), c);
        const int left = (cell % 17) * 32, top = (cell / 17) * 32;
        // Each font pixel is a 4 × 4 block one image pixel in from the cell's corner:
        // its centre is an opaque glyph colour exactly where the bitmap font has the pixel.
        for (int gy = 0; gy < 7; ++gy)
            for (int gx = 0; gx < 7; ++gx) {
                const uint8_t* p = font.at(left + 1 + gx * 4 + 2, top + 1 + gy * 4 + 2);
                bool lit = p[3] == 255 && p[0] > 180;  // glyph fill is bright; outline and shadow are dark
                EXPECT_EQ(lit, BitmapFont::pixel(c, gx, gy)) << "font pixel " << gx << "," << gy;
            }
    }
    // The blank is empty, so text boxes show their background through it.
    for (int y = 32; y < 64; ++y)
        for (int x = 11 * 32; x < 12 * 32; ++x) ASSERT_EQ(font.at(x, y)[3], 0) << x << "," << y;
}

TEST(AssetTools, HeightMapCoversEveryReadAndRepeatsAfter99Rows) {
    const std::string map = readFile(resources() + "/misc/heightmap.bin");
    ASSERT_GE(map.size(), 17501u);
    EXPECT_EQ(map.size() % 100, 0u);
    for (size_t i = 0; i + 99 * 100 < map.size(); ++i) ASSERT_EQ(map[i], map[i + 99 * 100]) << "byte " << i;
    uint8_t low = 255, high = 0;
    for (char c : map) low = std::min(low, uint8_t(c)), high = std::max(high, uint8_t(c));
    EXPECT_EQ(low, 0);
    EXPECT_EQ(high, 255);
}

TEST(AssetTools, CameraPathLooksAtTheOriginAlongAContinuousLoop) {
    std::istringstream in(readFile(resources() + "/misc/camera.ani"));
    std::string magic, label;
    int count = 0;
    std::getline(in, magic);
    ASSERT_EQ(magic, "QLNANI1");
    in >> label >> count;
    ASSERT_GE(count, 4) << "Catmull-Rom playback needs four keyframes";
    const double pi = 3.14159265358979323846;
    AnimationParser parser(resources() + "/misc/camera.ani");
    std::unique_ptr<Animation> animation(parser.parse());
    ASSERT_TRUE(animation) << parser.getErrorMessage();
    ASSERT_EQ(animation->countKeyFrames(), count);
    double previousHeading = 0;
    for (int k = 0; k < count; ++k) {
        double x, y, z, pitch, heading;
        std::string positionLabel, angleLabel;
        ASSERT_TRUE(in >> positionLabel >> x >> y >> z >> angleLabel >> pitch >> heading) << "keyframe " << k;
        Keyframe* engine = animation->getKeyFrame(k);
        EXPECT_FLOAT_EQ(engine->getPosition()[0], float(x)) << "the engine reads keyframe " << k << " alike";
        EXPECT_FLOAT_EQ(engine->getPosition()[2], float(z));
        EXPECT_FLOAT_EQ(engine->getHeading(), float(heading));
        // The view direction of the engine's camera for this pitch and heading.
        double h = heading * pi / 180, p = pitch * pi / 180;
        double dx = std::sin(h) * std::cos(p), dy = -std::sin(p), dz = -std::cos(h) * std::cos(p);
        double length = std::sqrt(x * x + y * y + z * z);
        EXPECT_GT(-(dx * x + dy * y + dz * z) / length, 0.999) << "keyframe " << k << " looks past the origin";
        if (k > 0) {
            EXPECT_LE(std::fabs(heading - previousHeading), 22.5 + 1e-6);
        }
        previousHeading = heading;
    }
    std::string rest;
    EXPECT_FALSE(in >> rest) << "lines after the last keyframe";
}

TEST(AssetTools, MusicPlaysAtTheDocumentedTempoForItsFullLength) {
    std::istringstream file(readFile(resources() + "/music/quillon.mod"));
    openmpt::module module(file);
    EXPECT_EQ(module.get_num_channels(), 4);
    EXPECT_EQ(module.get_num_orders(), 10);
    EXPECT_NEAR(module.get_duration_seconds(), 76.8, 0.01);
    EXPECT_EQ(module.get_current_speed(), MusicComposer::speed);
    EXPECT_NEAR(module.get_current_tempo(), MusicComposer::bpm, 1e-9);
    // A row is 120 ms: order 2 (the first theme) starts after 128 rows, at 15.36 s.
    EXPECT_NEAR(module.set_position_order_row(2, 0), 15.36, 1e-6);
    EXPECT_NEAR(module.set_position_order_row(2, 4), 15.36 + 0.48, 1e-6) << "a beat is four rows";
    // It is music, not silence: the theme has a healthy level and does not clip.
    std::vector<float> left(48000), right(48000);
    size_t frames = module.read(48000, left.size(), left.data(), right.data());
    ASSERT_EQ(frames, left.size());
    double sum = 0, peak = 0;
    for (float v : left) sum += v * v, peak = std::max(peak, double(std::fabs(v)));
    EXPECT_GT(std::sqrt(sum / frames), 0.05);
    EXPECT_LT(peak, 1.0);
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

TEST(ObjConverter, NamesGroupFacesIntoMeshes) {
    auto meshes = convert(
        "v 0 0 0\nv 1 0 0\nv 0 1 0\n"
        "f 1 2 3\n"        // before any name
        "o body\nf 1 2 3\n"
        "g wheel\nf 1 2 3\nf 3 2 1\n"
        "o body\nf 1 2 3\n"  // the name again adds to its mesh
        "o empty\n");
    ASSERT_EQ(meshes.size(), 3u);
    EXPECT_EQ(meshes[0].name, "default");
    EXPECT_EQ(meshes[1].name, "body");
    EXPECT_EQ(meshes[1].triangleCount(), 2);
    EXPECT_EQ(meshes[2].name, "wheel");
    EXPECT_EQ(meshes[2].triangleCount(), 2);
}

TEST(ObjConverter, NormalsAreKeptOrComputedFromTheWinding) {
    // Given normals are used as written; faces without them get their unit face normal.
    auto meshes = convert(
        "v 0 0 0\nv 2 0 0\nv 0 2 0\nvn 0.6 0 0.8\n"
        "o given\nf 1//1 2//1 3//1\n"
        "o front\nf 1 2 3\n"
        "o back\nf 3 2 1\n");
    ASSERT_EQ(meshes.size(), 3u);
    for (int v = 0; v < 3; ++v) {
        EXPECT_EQ(normal(meshes[0], v), (std::array<float, 3>{0.6f, 0.0f, 0.8f}));
        EXPECT_EQ(normal(meshes[1], v), (std::array<float, 3>{0.0f, 0.0f, 1.0f}));
        EXPECT_EQ(normal(meshes[2], v), (std::array<float, 3>{0.0f, 0.0f, -1.0f}));
    }
    // A cube without normals is flat shaded: its 8 corners become 24 vertices, 4 per face.
    auto cube = convert(
        "v -1 -1 1\nv 1 -1 1\nv 1 1 1\nv -1 1 1\nv -1 -1 -1\nv 1 -1 -1\nv 1 1 -1\nv -1 1 -1\n"
        "f 1 2 3 4\nf 6 5 8 7\nf 2 6 7 3\nf 5 1 4 8\nf 4 3 7 8\nf 5 6 2 1\n");
    ASSERT_EQ(cube.size(), 1u);
    EXPECT_EQ(cube[0].vertexCount(), 24);
    EXPECT_EQ(cube[0].triangleCount(), 12);
    for (int v = 0; v < 24; ++v) {
        auto p = position(cube[0], v);
        auto n = normal(cube[0], v);
        EXPECT_FLOAT_EQ(p[0] * n[0] + p[1] * n[1] + p[2] * n[2], 1.0f) << "normal points out of its face";
    }
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(cube[0].boundsMin[i], -1.0f);
        EXPECT_EQ(cube[0].boundsMax[i], 1.0f);
    }
}

TEST(ObjConverter, TextureCoordinatesAndRelativeIndicesAreResolved) {
    auto meshes = convert(
        "v 0 0 0\nv 1 0 0\nv 1 1 0\nvt 0.25 0.5\nvt 0.75 0.5 0\nvt 1 1\n"
        "f -3/-3 -2/-2 -1/-1\n");
    ASSERT_EQ(meshes.size(), 1u);
    const MeshData& m = meshes[0];
    ASSERT_EQ(m.uvSize, 2);
    ASSERT_EQ(m.floatsPerVertex(), 8);
    EXPECT_EQ(position(m, 1), (std::array<float, 3>{1, 0, 0}));
    EXPECT_EQ(m.vertices[6], 0.25f);
    EXPECT_EQ(m.vertices[7], 0.5f);
    EXPECT_EQ(m.vertices[8 + 6], 0.75f);
    // Without any vt the mesh carries no texture coordinates at all.
    EXPECT_EQ(convert("v 0 0 0\nv 1 0 0\nv 1 1 0\nf 1 2 3\n")[0].uvSize, 0);
}

TEST(ObjConverter, MaterialsComeFromTheLibraryBesideTheModel) {
    TempDir dir;
    dir.write("paint.mtl", "newmtl red\nKa 0.1 0 0\nKd 0.9 0.1 0.1\nKe 0.2 0 0\n");
    const std::string obj = dir.write("model.obj",
                                      "mtllib paint.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\n"
                                      "o box\nusemtl red\nf 1 2 3\nusemtl blue\nf 1 2 3\n");
    std::string error;
    std::vector<std::string> warnings;
    ASSERT_TRUE(ObjConverter::convertFile(obj, dir.file("model.qlo"), error, &warnings)) << error;
    std::vector<MeshData> meshes;
    ASSERT_TRUE(MeshFile::decode(readFile(dir.file("model.qlo")), meshes, error)) << error;
    ASSERT_EQ(meshes.size(), 2u);
    EXPECT_EQ(meshes[0].name, "box");
    ASSERT_TRUE(meshes[0].hasMaterial);
    EXPECT_EQ(meshes[0].diffuse[0], 0.9f);
    EXPECT_EQ(meshes[0].emissive[0], 0.2f);
    EXPECT_EQ(meshes[1].name, "box:blue");
    EXPECT_FALSE(meshes[1].hasMaterial) << "blue is not in the library";
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_NE(warnings[0].find("blue"), std::string::npos);
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

TEST(ObjConverter, ObjectFileHasTheEnginesByteLayout) {
    // One textured triangle, read back field by field without the tools' own reader.
    TempDir dir;
    const std::string obj = dir.write("tri.obj", "o tri\nv 0 0 0\nv 2 0 0\nv 0 1 0\nvt 0 0\nvt 1 0\nvt 0 1\n"
                                                 "f 1/1 2/2 3/3\n");
    std::string error;
    ASSERT_TRUE(ObjConverter::convertFile(obj, dir.file("tri.qlo"), error)) << error;
    const std::string b = readFile(dir.file("tri.qlo"));
    const size_t floatsPerVertex = 3 + 3 + 2;
    ASSERT_EQ(b.size(), 4 + 4 + 4 + 9 * 4 + 4 + 3 + 3 * floatsPerVertex * 4 + 4 + 3 * 4);
    EXPECT_EQ(le32(b, 0), 1u);                      // mesh count
    EXPECT_EQ(b.substr(4, 4), std::string("tri\0", 4));  // name with its NUL
    EXPECT_EQ(le32(b, 8), 0u);                      // no material
    EXPECT_EQ(leFloat(b, 12 + 12 + 0), 0.0f);       // bounding box minimum x
    EXPECT_EQ(leFloat(b, 12 + 24 + 0), 2.0f);       // bounding box maximum x
    EXPECT_EQ(leFloat(b, 12 + 24 + 4), 1.0f);       // bounding box maximum y
    EXPECT_EQ(le32(b, 48), 3u);                     // vertex count
    EXPECT_EQ(b[52], 3);
    EXPECT_EQ(b[53], 3);
    EXPECT_EQ(b[54], 2);
    const size_t vertex1 = 55 + floatsPerVertex * 4;
    EXPECT_EQ(leFloat(b, vertex1), 2.0f);           // x of the second vertex
    EXPECT_EQ(leFloat(b, vertex1 + 5 * 4), 1.0f);   // its normal's z
    EXPECT_EQ(leFloat(b, vertex1 + 6 * 4), 1.0f);   // its u
    const size_t triangles = 55 + 3 * floatsPerVertex * 4;
    EXPECT_EQ(le32(b, triangles), 1u);
    EXPECT_EQ(le32(b, triangles + 4), 0u);
    EXPECT_EQ(le32(b, triangles + 8), 1u);
    EXPECT_EQ(le32(b, triangles + 12), 2u);
}

TEST(ObjConverter, BundledObjectFilesWalkCleanlyWithTheEnginesFileReaders) {
    // The reading order of the engine's scene loader, on its own little-endian readers:
    // every count must land exactly on the end of the file.
    const std::pair<const char*, std::vector<std::string>> files[] = {
        {"cube.qlo", {"cube"}}, {"logo.qlo", {"letter_q", "letter_l", "letter_n"}}, {"star.qlo", {"star"}}};
    for (const auto& [name, meshNames] : files) {
        SCOPED_TRACE(name);
        File file(resources() + "/objects/" + name, 0);
        ASSERT_TRUE(file.exists());
        const int meshes = file.readInt();
        ASSERT_EQ(meshes, int(meshNames.size()));
        for (int k = 0; k < meshes; ++k) {
            EXPECT_EQ(file.readString(), meshNames[size_t(k)]);
            if (file.readInt() > 0) {
                for (int i = 0; i < 9; ++i) EXPECT_GE(file.readFloat(), 0.0f) << "material colour";
            }
            float box[9];
            for (float& f : box) f = file.readFloat();
            for (int i = 0; i < 3; ++i) EXPECT_LE(box[3 + i], box[6 + i]) << "bounding box axis " << i;
            const int vertices = file.readInt();
            const int vertexSize = file.readChar(), normalSize = file.readChar(), uvSize = file.readChar();
            EXPECT_EQ(vertexSize, 3);
            EXPECT_EQ(normalSize, 3);
            for (int v = 0; v < vertices; ++v) {
                float p[3], n[3];
                for (float& f : p) f = file.readFloat();
                for (float& f : n) f = file.readFloat();
                for (int i = 0; i < 3; ++i) {
                    EXPECT_GE(p[i], box[3 + i]);
                    EXPECT_LE(p[i], box[6 + i]);
                }
                EXPECT_NEAR(n[0] * n[0] + n[1] * n[1] + n[2] * n[2], 1.0f, 1e-5f) << "unit normals";
                for (int i = 0; i < uvSize; ++i) file.readFloat();
            }
            const int triangles = file.readInt();
            EXPECT_GT(triangles, 0);
            for (int i = 0; i < triangles * 3; ++i) {
                int index = file.readInt();
                ASSERT_TRUE(index >= 0 && index < vertices) << "index " << index;
            }
        }
        EXPECT_EQ(file.getReadPosition(), file.getFileSize());
    }
}
