#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "demosys/GLExtensions.h"
#include "gl/GLState.h"
#include "support/TestSupport.h"

using testsupport::captureStdout;

namespace {

class GLExtensionsTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(testsupport::ensureGLWindow());
        glstate::reset();
    }
};

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) result.push_back(line);
    return result;
}

}  // namespace

TEST_F(GLExtensionsTest, RecordsTheContextsExtensionsAndLimits) {
    std::unique_ptr<GLExtensions> extensions;
    std::string out = captureStdout([&] { extensions = std::make_unique<GLExtensions>(); });
    EXPECT_EQ(out, "") << "no OpenGL error to report";
    EXPECT_TRUE(extensions->isSupported("GL_EXT_framebuffer_object"));
    EXPECT_TRUE(extensions->isSupported("GL_ARB_shader_objects"));
    EXPECT_FALSE(extensions->isSupported("GL_QLN_not_an_extension"));
    EXPECT_FALSE(extensions->isSupported(""));

    EXPECT_EQ(GLExtensions::MAX_TEXTURE_SIZE, glstate::integer(GL_MAX_TEXTURE_SIZE));
    EXPECT_GE(GLExtensions::MAX_VERTEX_ATTRIBS, 16);
    EXPECT_GT(GLExtensions::MAX_COMBINED_TEXTURE_IMAGE_UNITS, 1);
    EXPECT_EQ(GLExtensions::MAX_VERTEX_SHADER_INSTRUCTIONS, 0);
    EXPECT_EQ(GLExtensions::MAX_FRAGMENT_LIGHTS, 0);

    std::string names;
    out = captureStdout([&] { names = extensions->toString(); });
    std::vector<std::string> table = lines(out);
    ASSERT_EQ(table.size(), 12u) << out;
    EXPECT_EQ(table[0], "--- Implementation Independent API Values ---");
    EXPECT_EQ(table[1], "GL_MAX_VERTEX_ATTRIBS ................... " + std::to_string(GLExtensions::MAX_VERTEX_ATTRIBS));
    EXPECT_EQ(table[5], "GL_MAX_COMBINED_TEXTURE_IMAGE_UNITS_ARB . " +
                            std::to_string(GLExtensions::MAX_COMBINED_TEXTURE_IMAGE_UNITS));
    EXPECT_EQ(table[8], "GL_MAX_TEXTURE_SIZE ..................... " + std::to_string(GLExtensions::MAX_TEXTURE_SIZE));
    EXPECT_EQ(table[9], "GL_MAX_VERTEX_SHADER_INSTRUCTIONS_EXT ... 0");
    EXPECT_EQ(table[10], "GL_MAX_FRAGMENT_LIGHTS_EXT .............. 0");
    EXPECT_EQ(table[11], "---------------------------------------------");

    // One name a line, alphabetical, each of them supported, and a closing blank line.
    ASSERT_GE(names.size(), 2u);
    EXPECT_EQ(names.substr(names.size() - 2), "\n\n");
    std::vector<std::string> listed = lines(names);
    listed.pop_back();
    EXPECT_TRUE(std::is_sorted(listed.begin(), listed.end()));
    EXPECT_GT(listed.size(), 20u);
    for (const std::string& name : listed) EXPECT_TRUE(extensions->isSupported(name)) << name;
    std::string all = reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
    for (const std::string& name : listed) EXPECT_NE(all.find(name), std::string::npos) << name;
}

TEST_F(GLExtensionsTest, ChecklistNamesWhatIsMissing) {
    GLExtensions extensions;
    EXPECT_TRUE(extensions.isSupported()) << "an empty checklist is satisfied";
    EXPECT_EQ(extensions.getErrorMessage(), "Error: Your OpenGL implementation is missing the following extensions :\n");

    extensions.addToChecklist("GL_QLN_first_missing");
    extensions.addToChecklist("GL_EXT_framebuffer_object");
    extensions.addToChecklist("GL_QLN_second_missing");
    EXPECT_FALSE(extensions.isSupported());
    EXPECT_EQ(extensions.getErrorMessage(),
              "Error: Your OpenGL implementation is missing the following extensions :\n"
              " - GL_QLN_first_missing\n"
              " - GL_QLN_second_missing\n");
    EXPECT_FALSE(extensions.isSupported());
    EXPECT_EQ(lines(extensions.getErrorMessage()).size(), 5u) << "a second check lists them again";
}
