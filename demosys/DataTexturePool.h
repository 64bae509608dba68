#pragma once
// Textures by alias, with the file each came from so a file is loaded only once.
#include <map>
#include <string>
#include <vector>

#include "demosys/DataMapPool.h"

class Texture;

class DataTexturePool : public DataMapPool<Texture> {
public:
    ~DataTexturePool() override;

    void addTexture(std::string alias, std::string filename, unsigned int textureID);
    void addTexture(std::string alias, Texture* texture);
    Texture* getTexture(std::string alias);
    bool exist(std::string alias);
    bool isFileInPool(std::string filename);
    // 0 for an alias or file that is not in the pool.
    unsigned int getTextureIDbyAlias(std::string alias);
    unsigned int getTextureIDbyFilename(std::string filename);
    std::vector<unsigned int> getTexVector();
    std::map<std::string, std::string> getFilemap();
    unsigned int getTextureTotalFilesize();
    unsigned int getTextureTotalMemsize();

    int size() override;
    std::string toString() override;

private:
    int numTextures = 0;
    std::map<std::string, std::string> files;
};
