#include <gtest/gtest.h>

#include "demosys/Lightsource.h"
#include "demosys/Material.h"
#include "demosys/Texture.h"

using Colour = Vector<float, 4>;

TEST(Material, DefaultsAndSetters) {
    Material m;
    EXPECT_EQ(m.getDiffuse(), Colour(0.75f, 0.75f, 0.75f, 1));
    EXPECT_EQ(m.getEmissive(), Colour(0, 0, 0, 1));
    EXPECT_EQ(m.getSpecular(), Colour(0.5f, 0.5f, 0.5f, 1));
    EXPECT_EQ(m.getAmbience(), Colour(0.75f, 0.75f, 0.75f, 1));
    EXPECT_EQ(m.getShinyness(), 10.0f);
    EXPECT_EQ(m.getTransparency(), 0.0f);
    EXPECT_EQ(m.getName(), "");
    EXPECT_FALSE(m.hasTexture());

    Material* same = m.setDiffuse(0.1f, 0.2f, 0.3f)
                         ->setAmbience(Colour(1, 0, 0, 0.5f))
                         ->setSpecular(0.2f, 0.2f, 0.2f, 0.2f)
                         ->setEmissive(0.4f, 0.5f, 0.6f)
                         ->setShinyness(64)
                         ->setTransparency(0.25f)
                         ->setName("chrome");
    EXPECT_EQ(same, &m);
    EXPECT_EQ(m.getDiffuse(), Colour(0.1f, 0.2f, 0.3f, 1)) << "three floats keep alpha";
    EXPECT_EQ(m.getAmbience(), Colour(1, 0, 0, 0.5f));
    EXPECT_EQ(m.getSpecular(), Colour(0.2f, 0.2f, 0.2f, 0.2f));
    EXPECT_EQ(m.getEmissive(), Colour(0.4f, 0.5f, 0.6f, 1));
    EXPECT_EQ(m.getShinyness(), 64.0f);
    EXPECT_EQ(m.getTransparency(), 0.25f);
    EXPECT_EQ(m.getName(), "chrome");
}

TEST(Material, TexturesAndDescription) {
    Texture first("stone.png", 0);
    Texture second("moss.png", 0);
    Material m;
    EXPECT_EQ(m.toString(),
              "Material {\n"
              "  diffuse = 0.75, 0.75, 0.75, 1\n"
              "  ambient = 0.75, 0.75, 0.75, 1\n"
              "  specular = 0.5, 0.5, 0.5, 1\n"
              "  emission = 0, 0, 0, 1\n"
              "  texture1 = none\n"
              "  texture2 = none\n"
              "}\n");

    m.setTexture2(&second);
    EXPECT_FALSE(m.hasTexture());
    EXPECT_FALSE(m.hasMultiTexture()) << "the second texture alone is not multi-texturing";
    m.setTexture1(&first);
    EXPECT_TRUE(m.hasTexture());
    EXPECT_TRUE(m.hasMultiTexture());
    EXPECT_EQ(m.getTexture1(), &first);
    EXPECT_EQ(m.getTexture2(), &second);

    std::string text = m.toString();
    EXPECT_NE(text.find("  texture1 = " + first.toString()), std::string::npos) << text;
    EXPECT_NE(text.find("  texture2 = " + second.toString() + "}\n"), std::string::npos) << text;
}

TEST(Lightsource, FreshLightAndDeepCopy) {
    Lightsource light;
    EXPECT_EQ(light.getPos(), (Vector<float, 3>(0, 0, 2)));
    ASSERT_NE(light.getMaterial(), nullptr);
    EXPECT_EQ(light.getMaterial()->getAmbience(), Colour(0.75f, 0.75f, 0.75f, 1));
    EXPECT_EQ(light.getMaterial()->getDiffuse(), Colour(0.75f, 0.75f, 0.75f, 1));

    light.setPos(1, 2, 3);
    EXPECT_EQ(light.getPos(), (Vector<float, 3>(1, 2, 3)));
    light.getMaterial()->setDiffuse(1, 0, 0);

    Lightsource copy(light);
    EXPECT_NE(copy.getMaterial(), light.getMaterial());
    EXPECT_EQ(copy.getMaterial()->getDiffuse(), Colour(1, 0, 0, 1));
    copy.getMaterial()->setDiffuse(0, 1, 0);
    EXPECT_EQ(light.getMaterial()->getDiffuse(), Colour(1, 0, 0, 1));
}
