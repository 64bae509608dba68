#include "tools/SpacePainter.h"

#include <cmath>

#include "tools/Noise.h"
#include "tools/Random.h"

namespace qlntools {

Picture SpacePainter::background() {
    const int width = 512, height = 384;
    Picture picture(width, height);
    Noise clouds(42, 4);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            float t = float(y) / float(height - 1);
            Color sky = Color(0.01f, 0.01f, 0.06f).mix(Color(0.10f, 0.02f, 0.18f), t);
            double n = clouds.fractal(x / double(width), y / double(width), 5);
            double nebula = std::pow(std::max(0.0, n - 0.45) / 0.55, 1.6);
            double tint = clouds.fractal(x / double(width) + 0.37, y / double(width) + 0.11, 2);
            Color gas = Color(0.55f, 0.10f, 0.45f).mix(Color(0.10f, 0.35f, 0.65f), float(tint));
            picture.set(x, y, (sky + gas * float(nebula * 1.3)).clamped());
        }
    Random random(2024);
    for (int i = 0; i < 420; ++i) {
        int sx = random.below(width), sy = random.below(height);
        float brightness = float(random.range(0.3, 1.0));
        bool big = random.uniform() < 0.06;
        Color tint = Color(0.8f, 0.85f, 1.0f).mix(Color(1.0f, 0.9f, 0.7f), float(random.uniform()));
        int radius = big ? 3 : 1;
        for (int dy = -radius; dy <= radius; ++dy)
            for (int dx = -radius; dx <= radius; ++dx) {
                double d = std::hypot(dx, dy);
                float fall = float(std::exp(-d * d / (big ? 1.6 : 0.35)));
                picture.add(sx + dx, sy + dy, tint.withAlpha(brightness * fall));
            }
        if (big)  // a small cross flare
            for (int k = 4; k <= 7; ++k) {
                float f = brightness * 0.5f / float(k - 2);
                picture.add(sx + k, sy, tint.withAlpha(f));
                picture.add(sx - k, sy, tint.withAlpha(f));
                picture.add(sx, sy + k, tint.withAlpha(f));
                picture.add(sx, sy - k, tint.withAlpha(f));
            }
    }
    return picture;
}

}  // namespace qlntools
