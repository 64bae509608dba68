#include "tools/ModelMaker.h"

#include <cmath>
#include <cstdio>
#include <map>
#include <tuple>
#include <vector>

#include "tools/BitmapFont.h"

namespace qlntools {

namespace {

std::string number(double v) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4f", v + 0.0);  // + 0.0 turns -0 into 0
    std::string s = text;
    return s == "-0.0000" ? "0.0000" : s;
}

// Collects OBJ statements, numbering each distinct position once.
class ObjText {
public:
    int vertex(double x, double y, double z) {
        auto key = std::make_tuple(number(x), number(y), number(z));
        auto found = ids.find(key);
        if (found != ids.end()) return found->second;
        int id = int(ids.size()) + 1;
        ids.emplace(key, id);
        vertices += "v " + std::get<0>(key) + " " + std::get<1>(key) + " " + std::get<2>(key) + "\n";
        return id;
    }
    int uv(double u, double v) {
        auto key = std::make_pair(number(u), number(v));
        auto found = uvIds.find(key);
        if (found != uvIds.end()) return found->second;
        int id = int(uvIds.size()) + 1;
        uvIds.emplace(key, id);
        uvs += "vt " + key.first + " " + key.second + "\n";
        return id;
    }
    void line(const std::string& text) { faces += text + "\n"; }
    std::string text(const std::string& header) const { return header + vertices + uvs + faces; }

private:
    std::map<std::tuple<std::string, std::string, std::string>, int> ids;
    std::map<std::pair<std::string, std::string>, int> uvIds;
    std::string vertices, uvs, faces;
};

}  // namespace

std::string ModelMaker::logoObj() {
    const std::string letters = "QLN";
    const char* const materials[3] = {"gold", "chrome", "ruby"};
    const double s = 0.25, depth = 0.5;
    const int columns = int(letters.size()) * BitmapFont::size - 1, rows = 7;
    const double width = columns * s, height = rows * s;
    ObjText obj;
    obj.line("mtllib logo.mtl");
    auto filled = [&](int gx, int gy) {
        if (gx < 0 || gx >= int(letters.size()) * BitmapFont::size) return false;
        return BitmapFont::pixel(letters[size_t(gx / BitmapFont::size)], gx % BitmapFont::size, gy);
    };
    for (size_t l = 0; l < letters.size(); ++l) {
        obj.line(std::string("o letter_") + char(letters[l] - 'A' + 'a'));
        obj.line(std::string("usemtl ") + materials[l]);
        for (int gy = 0; gy < rows; ++gy)
            for (int lx = 0; lx < BitmapFont::size; ++lx) {
                int gx = int(l) * BitmapFont::size + lx;
                if (!filled(gx, gy)) continue;
                double x0 = gx * s - width / 2, x1 = x0 + s;
                double y1 = height / 2 - gy * s, y0 = y1 - s;
                double z0 = -depth / 2, z1 = depth / 2;
                // Texture coordinates map the front view of the whole logo onto 0..1.
                auto corner = [&](double x, double y, double z) {
                    int v = obj.vertex(x, y, z);
                    int t = obj.uv((x + width / 2) / width, (y + height / 2) / height);
                    return std::to_string(v) + "/" + std::to_string(t);
                };
                auto quad = [&](double ax, double ay, double az, double bx, double by, double bz, double cx, double cy,
                                double cz, double dx, double dy, double dz) {
                    obj.line("f " + corner(ax, ay, az) + " " + corner(bx, by, bz) + " " + corner(cx, cy, cz) + " " +
                             corner(dx, dy, dz));
                };
                quad(x0, y0, z1, x1, y0, z1, x1, y1, z1, x0, y1, z1);  // front
                quad(x1, y0, z0, x0, y0, z0, x0, y1, z0, x1, y1, z0);  // back
                if (!filled(gx - 1, gy)) quad(x0, y0, z0, x0, y0, z1, x0, y1, z1, x0, y1, z0);
                if (!filled(gx + 1, gy)) quad(x1, y0, z1, x1, y0, z0, x1, y1, z0, x1, y1, z1);
                if (!filled(gx, gy - 1)) quad(x0, y1, z1, x1, y1, z1, x1, y1, z0, x0, y1, z0);
                if (!filled(gx, gy + 1)) quad(x0, y0, z0, x1, y0, z0, x1, y0, z1, x0, y0, z1);
            }
    }
    return obj.text("# The letters QLN as blocks of the demo's bitmap font; made by makemodels.\n");
}

std::string ModelMaker::logoMtl() {
    return "# Materials of logo.obj; made by makemodels.\n"
           "newmtl gold\nKa 0.25 0.18 0.05\nKd 1.0 0.78 0.25\nKe 0.3 0.2 0.0\n\n"
           "newmtl chrome\nKa 0.2 0.2 0.25\nKd 0.8 0.85 0.95\nKe 0.1 0.15 0.3\n\n"
           "newmtl ruby\nKa 0.2 0.02 0.05\nKd 0.9 0.1 0.25\nKe 0.35 0.0 0.1\n";
}

std::string ModelMaker::starObj() {
    const double pi = 3.14159265358979323846, outer = 1.0, inner = 0.45, half = 0.2;
    ObjText obj;
    obj.line("o star");
    std::vector<int> front, back;
    for (int k = 0; k < 10; ++k) {
        double a = pi / 2 + k * pi / 5, r = k % 2 ? inner : outer;
        front.push_back(obj.vertex(r * std::cos(a), r * std::sin(a), half));
        back.push_back(obj.vertex(r * std::cos(a), r * std::sin(a), -half));
    }
    std::string cap = "f", base = "f";
    for (int k = 0; k < 10; ++k) cap += " " + std::to_string(front[size_t(k)]);        // counter-clockwise from +z
    for (int k = 9; k >= 0; --k) base += " " + std::to_string(back[size_t(k)]);        // reversed: faces -z
    obj.line(cap);
    obj.line(base);
    for (int k = 0; k < 10; ++k) {
        int n = (k + 1) % 10;
        obj.line("f " + std::to_string(front[size_t(k)]) + " " + std::to_string(back[size_t(k)]) + " " +
                 std::to_string(back[size_t(n)]) + " " + std::to_string(front[size_t(n)]));
    }
    return obj.text("# A five-pointed star prism with concave caps; made by makemodels.\n");
}

}  // namespace qlntools
