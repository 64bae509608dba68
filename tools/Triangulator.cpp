#include "tools/Triangulator.h"

#include <cmath>

namespace qlntools {

namespace {

struct Flat {
    double x, y;
};

double cross(const Flat& o, const Flat& a, const Flat& b) {
    return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
}

}  // namespace

Triangulator::Point Triangulator::normal(const std::vector<Point>& c) {
    Point n = {0, 0, 0};
    for (size_t i = 0; i < c.size(); ++i) {
        const Point& a = c[i];
        const Point& b = c[(i + 1) % c.size()];
        n[0] += (a[1] - b[1]) * (a[2] + b[2]);
        n[1] += (a[2] - b[2]) * (a[0] + b[0]);
        n[2] += (a[0] - b[0]) * (a[1] + b[1]);
    }
    return n;
}

std::vector<Triangulator::Triangle> Triangulator::fan(const std::vector<int>& ring) {
    std::vector<Triangle> out;
    for (size_t i = 1; i + 1 < ring.size(); ++i) out.push_back({ring[0], ring[i], ring[i + 1]});
    return out;
}

std::vector<Triangulator::Triangle> Triangulator::triangulate(const std::vector<Point>& corners) {
    const size_t n = corners.size();
    std::vector<int> ring(n);
    for (size_t i = 0; i < n; ++i) ring[i] = int(i);
    if (n < 3) return {};
    if (n == 3 || n > maxEarClippingCorners) return fan(ring);

    // Project onto the plane where the polygon is widest: drop the normal's largest axis.
    Point nrm = normal(corners);
    double ax = std::fabs(nrm[0]), ay = std::fabs(nrm[1]), az = std::fabs(nrm[2]);
    if (!(ax + ay + az > 0) || !std::isfinite(ax + ay + az)) return fan(ring);
    int u = 0, v = 1;
    if (ax >= ay && ax >= az) u = 1, v = 2;
    else if (ay >= az) u = 2, v = 0;
    std::vector<Flat> flat(n);
    for (size_t i = 0; i < n; ++i) flat[i] = {corners[i][u], corners[i][v]};
    double area = 0;
    for (size_t i = 0; i < n; ++i) area += cross({0, 0}, flat[i], flat[(i + 1) % n]);
    const double orientation = area >= 0 ? 1.0 : -1.0;
    const double epsilon = std::fabs(area) * 1e-12;

    std::vector<Triangle> out;
    while (ring.size() > 3) {
        const size_t m = ring.size();
        bool clipped = false;
        for (size_t i = 0; i < m && !clipped; ++i) {
            int p = ring[(i + m - 1) % m], c = ring[i], q = ring[(i + 1) % m];
            if (cross(flat[p], flat[c], flat[q]) * orientation <= epsilon) continue;  // reflex or flat
            bool empty = true;
            for (int r : ring) {
                if (r == p || r == c || r == q) continue;
                const Flat& t = flat[r];
                if ((t.x == flat[p].x && t.y == flat[p].y) || (t.x == flat[c].x && t.y == flat[c].y) ||
                    (t.x == flat[q].x && t.y == flat[q].y))
                    continue;
                if (cross(flat[p], flat[c], t) * orientation >= 0 && cross(flat[c], flat[q], t) * orientation >= 0 &&
                    cross(flat[q], flat[p], t) * orientation >= 0) {
                    empty = false;
                    break;
                }
            }
            if (!empty) continue;
            out.push_back({p, c, q});
            ring.erase(ring.begin() + long(i));
            clipped = true;
        }
        if (!clipped) {  // self-intersecting or collinear leftovers: fan what remains
            for (const Triangle& t : fan(ring)) out.push_back(t);
            return out;
        }
    }
    out.push_back({ring[0], ring[1], ring[2]});
    return out;
}

}  // namespace qlntools
