#pragma once
// Textures by alias, with the file each came from so a file is loaded only once.
#include <map>
#include <string>
#include <vector>

#include "demosys/DataPool.h"

class Texture;

class DataTexturePool : public DataPool {
public:
    DataTexturePool();
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
    void store(const std::string& alias, Texture* texture);

    int numTextures;
    std::map<std::string, Texture*> textures;
    std::map<std::string, std::string> files;
    // Textures whose alias was taken again: out of the pool, deleted with it.
    std::vector<Texture*> replaced;
};
