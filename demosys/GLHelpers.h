#pragma once
// Small drawing helpers that effects and engine classes share.
class GLHelpers {
public:
    static constexpr double pi = 3.14159265358979323846;
    // The same value in float arithmetic, for code that stays in float.
    static constexpr float piFloat = 3.14159265f;

    // Pushes projection and modelview and loads identity into both; leaves modelview current.
    static void pushIdentityMatrices();
    // Pops what pushIdentityMatrices pushed; leaves modelview current.
    static void popMatrices();
    // A textured rectangle centred on the origin, texture (0,0) at its lower left and
    // (repeat, repeat) at its upper right.
    static void drawRect(float halfWidth, float halfHeight, float repeat = 1.0f);
};
