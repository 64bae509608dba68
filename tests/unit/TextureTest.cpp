#include <gtest/gtest.h>

#include <GL/gl.h>

#include "demosys/Texture.h"

// A texture that only records an existing name makes no OpenGL call, so it needs no window.
TEST(Texture, RecordedTextureDefaultsAndMemorySize) {
    Texture texture("logo.png", 0);
    EXPECT_EQ(texture.getFilename(), "logo.png");
    EXPECT_EQ(texture.getType(), static_cast<unsigned>(GL_TEXTURE_2D));
    EXPECT_EQ(texture.getInterpolation(), static_cast<unsigned>(GL_LINEAR));
    EXPECT_EQ(texture.getTextureWrap(), static_cast<unsigned>(GL_REPEAT));
    EXPECT_EQ(texture.getBPP(), 32);
    EXPECT_FALSE(texture.isMipmapped());
    EXPECT_EQ(texture.getMemorySize(), 0);
    texture.setSize(640, 480);
    EXPECT_EQ(texture.getMemorySize(), 1228800);
    texture.setBPP(24);
    EXPECT_EQ(texture.getMemorySize(), 921600);
}

TEST(Texture, DescriptionKeepsItsStrayQuotes) {
    Texture texture("logo.png", 0);
    texture.setSize(64, 32);
    EXPECT_EQ(texture.toString(), "Texture {file='logo.png',id=0',size='64,32',bpp='32'dimtype=GL_TEXTURE_2D }\n");
    texture.isMipmapped(true);
    texture.setType(GL_TEXTURE_1D);
    EXPECT_EQ(texture.toString(),
              "Texture {file='logo.png',id=0',size='64,32',bpp='32' mipmapped dimtype=GL_TEXTURE_1D }\n");
    texture.setType(GL_TEXTURE_3D);
    EXPECT_NE(texture.toString().find("dimtype=GL_TEXTURE_3D }"), std::string::npos);
    texture.setType(GL_TEXTURE_CUBE_MAP);
    EXPECT_NE(texture.toString().find("dimtype=}\n"), std::string::npos) << "other targets print no name";
}
