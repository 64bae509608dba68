#include "demosys/DataTexturePool.h"

#include "demosys/Texture.h"
#include "qlnutils/QLNUtils.h"

DataTexturePool::~DataTexturePool() { disposeEntries("[Dispose texturePool]", " -> delete texture '", "'"); }

void DataTexturePool::addTexture(std::string alias, std::string filename, unsigned int textureID) {
    numTextures++;
    put(alias, new Texture(filename, textureID));
    files[filename] = alias;
}

void DataTexturePool::addTexture(std::string alias, Texture* texture) {
    numTextures++;
    put(alias, texture);
    files[texture ? texture->getFilename() : std::string()] = alias;
}

Texture* DataTexturePool::getTexture(std::string alias) { return find(alias); }

bool DataTexturePool::exist(std::string alias) { return contains(alias); }

bool DataTexturePool::isFileInPool(std::string filename) { return files.count(filename) > 0; }

unsigned int DataTexturePool::getTextureIDbyAlias(std::string alias) {
    Texture* texture = getTexture(alias);
    return texture ? texture->getID() : 0;
}

unsigned int DataTexturePool::getTextureIDbyFilename(std::string filename) {
    auto found = files.find(filename);
    return found == files.end() ? 0 : getTextureIDbyAlias(found->second);
}

std::vector<unsigned int> DataTexturePool::getTexVector() {
    std::vector<unsigned int> ids;
    for (auto& entry : entries)
        if (entry.second) ids.push_back(entry.second->getID());
    return ids;
}

std::map<std::string, std::string> DataTexturePool::getFilemap() { return files; }

unsigned int DataTexturePool::getTextureTotalFilesize() {
    unsigned int total = 0;
    for (auto& entry : entries)
        if (entry.second) total += (unsigned int)entry.second->getFileSize();
    return total;
}

unsigned int DataTexturePool::getTextureTotalMemsize() {
    unsigned int total = 0;
    for (auto& entry : entries)
        if (entry.second) total += (unsigned int)entry.second->getMemorySize();
    return total;
}

int DataTexturePool::size() { return numTextures; }

std::string DataTexturePool::toString() {
    unsigned int memory = getTextureTotalMemsize();
    unsigned int fileBytes = getTextureTotalFilesize();
    std::string text = "DataTexturePool {\n";
    text += "    total memory size : " + QLNUtils::float2string((float)memory * 0.0009765625f * 0.0009765625f) +
            " MB - " + QLNUtils::uint2string(memory) + " bytes\n";
    text += "    total file size : " + QLNUtils::float2string((float)fileBytes * 0.0009765625f * 0.0009765625f) +
            " mb - " + QLNUtils::uint2string(fileBytes) + " bytes\n";
    text += "    numTextures = " + QLNUtils::int2string(numTextures) + "\n";
    text += listEntries("    ", "NULL\n");
    text += "}\n";
    return text;
}
