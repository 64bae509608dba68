#pragma once
// Reads the demoscript's resource blocks into the pools, one stage per block in a fixed
// order (shaders, framebuffers, graphics, binary, objects, animation). Runs after the
// OpenGL context exists; stops at the first entry that fails.
#include <string>

class DataFileLoader {
public:
    bool load();
    // The failing entry's message.
    std::string getErrorMessage() const { return errorMessage; }

private:
    // One entry of a block: alias = value, with the block's directory.
    using EntryLoader = bool (DataFileLoader::*)(const std::string& dir, const std::string& alias,
                                                 const std::string& value);
    struct Stage {
        const char* banner;
        const char* block;
        const char* whenMissing;
        const char* pathKey;   // "" for a block without files
        const char* pathLine;  // logged with the directory first, or null
        EntryLoader loadEntry;
    };
    static const Stage stages[];

    bool loadShader(const std::string& dir, const std::string& alias, const std::string& value);
    bool createFramebuffer(const std::string& dir, const std::string& alias, const std::string& value);
    bool loadImage(const std::string& dir, const std::string& alias, const std::string& value);
    bool loadBlob(const std::string& dir, const std::string& alias, const std::string& value);
    bool loadObject(const std::string& dir, const std::string& alias, const std::string& value);
    bool loadAnimation(const std::string& dir, const std::string& alias, const std::string& value);
    bool fail(const std::string& message);

    std::string errorMessage;
};
