#pragma once
// Splits one planar polygon (convex or not) into triangles by ear clipping, keeping
// the polygon's winding. Very large or degenerate polygons fall back to a fan.
#include <array>
#include <cstddef>
#include <vector>

namespace qlntools {

class Triangulator {
public:
    using Point = std::array<double, 3>;
    using Triangle = std::array<int, 3>;

    // Polygons with more corners than this are fanned: ear clipping is cubic in the worst case.
    static constexpr size_t maxEarClippingCorners = 256;

    // Triangles as indices into the corner list; n corners give n - 2 triangles.
    static std::vector<Triangle> triangulate(const std::vector<Point>& corners);
    // The polygon's area-weighted normal (Newell's method); zero for degenerate polygons.
    static Point normal(const std::vector<Point>& corners);

private:
    static std::vector<Triangle> fan(const std::vector<int>& ring);
};

}  // namespace qlntools
