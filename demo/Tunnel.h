#pragma once
// A textured tube of rings along -z that wobbles with two slowly turning sine offsets
// and darkens ring by ring towards its far end.
#include <vector>

class Tunnel {
public:
    Tunnel(float radius, float length, int segments, int rings);

    void generateTube();
    // Advances the wobble by the frame time (ms) and bends the tube for this frame.
    void distort(float frameTime);
    // Draws with the texture scrolling by speed per millisecond. Leaves the texture
    // matrix selected. spare has no effect.
    void draw(float speed, float spare, float frameTime);
    // Stops the wobble; the tube and the texture scroll stay.
    void reset();

private:
    // Whether ring r and the ring after it lie inside the vertex arrays.
    bool ringPairStored(int r) const;
    void addCorner(int index, float u, float v, float shade);
    void addRing(int r, float shade);

    struct Corner {
        float s, t, r, g, b, a, x, y, z;
    };

    float radius;
    float length;
    int segments;
    int rings;
    std::vector<float> x, y, z;
    std::vector<float> distortedX, distortedY, distortedZ;
    std::vector<float> u, v;
    float xOffset, yOffset;
    float phaseA;
    float angleA;
    float phaseB;
    float angleB;
    float brightness;
    float amplitudeA, amplitudeB;
    float textureScroll;
    std::vector<Corner> corners;  // this frame's quads
};
