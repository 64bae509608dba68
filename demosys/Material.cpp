#include "demosys/Material.h"

#include <GL/glew.h>
#include <sstream>

#include "demosys/Texture.h"

Material::Material()
    : diffuse(0.75f, 0.75f, 0.75f, 1.0f),
      emission(0.0f, 0.0f, 0.0f, 1.0f),
      specular(0.5f, 0.5f, 0.5f, 1.0f),
      ambient(0.75f, 0.75f, 0.75f, 1.0f),
      shininess(10.0f),
      transparency(0.0f),
      texture1(nullptr),
      texture2(nullptr) {}

// The three-float forms keep the colour's alpha.
static void setRGB(Vector<float, 4>& colour, float r, float g, float b) {
    colour[0] = r;
    colour[1] = g;
    colour[2] = b;
}

Material* Material::setDiffuse(Vector<float, 4> rgba) { diffuse = rgba; return this; }
Material* Material::setDiffuse(float r, float g, float b) { setRGB(diffuse, r, g, b); return this; }
Material* Material::setDiffuse(float r, float g, float b, float a) { diffuse = Vector<float, 4>(r, g, b, a); return this; }
Material* Material::setAmbience(Vector<float, 4> rgba) { ambient = rgba; return this; }
Material* Material::setAmbience(float r, float g, float b) { setRGB(ambient, r, g, b); return this; }
Material* Material::setAmbience(float r, float g, float b, float a) { ambient = Vector<float, 4>(r, g, b, a); return this; }
Material* Material::setSpecular(Vector<float, 4> rgba) { specular = rgba; return this; }
Material* Material::setSpecular(float r, float g, float b) { setRGB(specular, r, g, b); return this; }
Material* Material::setSpecular(float r, float g, float b, float a) { specular = Vector<float, 4>(r, g, b, a); return this; }
Material* Material::setEmissive(Vector<float, 4> rgba) { emission = rgba; return this; }
Material* Material::setEmissive(float r, float g, float b) { setRGB(emission, r, g, b); return this; }
Material* Material::setEmissive(float r, float g, float b, float a) { emission = Vector<float, 4>(r, g, b, a); return this; }
Material* Material::setShinyness(int value) { shininess = static_cast<float>(value); return this; }
Material* Material::setTransparency(float value) { transparency = value; return this; }
Material* Material::setTexture1(Texture* texture) { texture1 = texture; return this; }
Material* Material::setTexture2(Texture* texture) { texture2 = texture; return this; }
Material* Material::setName(std::string value) { name = value; return this; }

void Material::drawMaterial() const {
    glMaterialfv(GL_FRONT, GL_AMBIENT, ambient.data());
    glMaterialfv(GL_FRONT, GL_DIFFUSE, diffuse.data());
    glMaterialfv(GL_FRONT, GL_SPECULAR, specular.data());
    glMaterialfv(GL_FRONT, GL_EMISSION, emission.data());
    glMaterialf(GL_FRONT, GL_SHININESS, shininess);
}

static void colourLine(std::ostringstream& out, const char* label, const Vector<float, 4>& c) {
    out << "  " << label << " = " << c[0] << ", " << c[1] << ", " << c[2] << ", " << c[3] << "\n";
}

static void textureLine(std::ostringstream& out, const char* label, const Texture* texture) {
    out << "  " << label << " = ";
    if (texture)
        out << texture->toString();  // ends with its own line break
    else
        out << "none\n";
}

std::string Material::toString() const {
    std::ostringstream out;
    out << "Material {\n";
    colourLine(out, "diffuse", diffuse);
    colourLine(out, "ambient", ambient);
    colourLine(out, "specular", specular);
    colourLine(out, "emission", emission);
    textureLine(out, "texture1", texture1);
    textureLine(out, "texture2", texture2);
    out << "}\n";
    return out.str();
}
